// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfDrawing.h"

#include "cardimage/pdf/DBCPdfDrawingLimits.h"
#include "cardimage/pdf/DBCPdfObjects.h"

#include <poppler-qt6.h>

#include <chrono>
#include <ctime>

namespace {

constexpr int drawingResolution = 300;
constexpr double pointsPerInch = 72;
// The limit of processor time. A real card takes a tenth of a second, but a forged page could take
// for ever.
constexpr std::chrono::seconds longestTime {3};

// Without this call the library prints every defect of a document to standard error.
void silenceLibrary()
{
    static const bool isSilent = [] {
        Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
        return true;
    }();
    Q_UNUSED(isSilent)
}

QImage drawFirstPage(Poppler::Document* document, const QByteArray& bytes)
{
    const std::unique_ptr<Poppler::Page> page(document->page(0));
    if (!page)
        return {};
    const QSizeF size = page->pageSizeF() * drawingResolution / pointsPerInch;
    if (!DBCBitmap::canHold(size, QImage::toPixelFormat(QImage::Format_RGB32).bitsPerPixel())
        || isTooMuchToDraw(bytes, page->pageSizeF()))
        return {};
    document->setPaperColor(Qt::white);
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    return page->renderToImage(drawingResolution, drawingResolution, -1, -1, -1, -1,
        Poppler::Page::Rotate0, nullptr, nullptr, endWhenTooLong, newDeadline());
}

QImage drawnOrNull(Poppler::Document* document, const QByteArray& bytes)
{
    try {
        return drawFirstPage(document, bytes);
    } catch (const DBCTakesTooLong&) {
        return {};
    }
}

// Returns null when the bytes are not a PDF or the PDF is locked by a password.
std::unique_ptr<Poppler::Document> load(const QByteArray& bytes)
{
    silenceLibrary();
    auto document = Poppler::Document::loadFromData(bytes);
    return document && !document->isLocked() ? std::move(document) : nullptr;
}

// The limit counts processor time and not wall time, so that a card has as much time on a busy
// machine as on an idle one.
std::chrono::nanoseconds processorTimeOfThread()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

QVariant newDeadline()
{
    return QVariant::fromValue<qint64>((processorTimeOfThread() + longestTime).count());
}

// Throws instead of returning true, because true would end only the innermost loop of the library,
// and there can be millions of loops. The exception ends all of them at once; its price is that the
// memory that the loops hold is never released.
bool endWhenTooLong(const QVariant& deadline)
{
    if (processorTimeOfThread().count() > deadline.value<qint64>())
        throw DBCTakesTooLong();
    return false;
}

DBCResultCode AcquireCardImageFromAllPDF(
    const QString& path, std::unique_ptr<Poppler::Document>* outPdfImage)
{
    if (path.isEmpty() || !outPdfImage)
        return DBCResultCode::ParameterError;
    try {
        *outPdfImage = load(readPdf(path));
    } catch (const std::runtime_error&) {
        outPdfImage->reset();
    }
    return *outPdfImage ? DBCResultCode::Success : DBCResultCode::ParameterError;
}

DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo)
{
    if (path.isEmpty() || !outBitmap || !outInfo)
        return DBCResultCode::GeneralFailure;
    QByteArray bytes;
    try {
        bytes = readPdf(path);
    } catch (const DBCUnreadablePdf&) {
        return DBCResultCode::GeneralFailure;
    } catch (const DBCNoPdfFile&) {
        return DBCResultCode::Success;
    }
    const std::unique_ptr<Poppler::Document> document = load(bytes);
    if (!document)
        return DBCResultCode::Success;
    const QImage drawing = drawnOrNull(document.get(), bytes);
    if (drawing.isNull())
        return DBCResultCode::PdfToJpegFailure;
    *outBitmap = DBCBitmap::of(drawing, DBCBitmap::ColorModel::CalibratedRGB);
    *outInfo = {0, drawingResolution, drawingResolution, 1};
    return DBCResultCode::Success;
}
