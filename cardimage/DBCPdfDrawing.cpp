// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfDrawing.h"

#include "cardimage/DBCCardPdf.h"
#include "cardimage/DBCPdfObjects.h"

#include <QFileInfo>

#include <poppler-qt6.h>

#include <chrono>
#include <cmath>
#include <ctime>
#include <vector>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageObjectHelper.hh>

namespace {

constexpr int DrawingResolution = 300;
constexpr double PointsPerInch = 72;
// A card takes a tenth of a second; a page can be made to take for ever.
constexpr std::chrono::seconds LongestTime {3};

// What is wrong inside a document shows in what comes out of it; the library would print it.
void silenceLibrary()
{
    static const bool isSilent = [] {
        Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
        return true;
    }();
    Q_UNUSED(isSilent)
}

qint64 sideOf(QPDFObjectHandle& image, const char* key, const char* shortKey)
{
    QPDFObjectHandle side = image.getKey(image.hasKey(key) ? key : shortKey);
    return side.isNumber() ? static_cast<qint64>(side.getNumericValue()) : 0;
}

// The library goes over every pixel of an image, however small it is drawn.
bool isTooLargeImage(QPDFObjectHandle& dictionary)
{
    const QSizeF size(
        double(sideOf(dictionary, "/Width", "/W")), double(sideOf(dictionary, "/Height", "/H")));
    return !size.isEmpty() && !DBCBitmap::canHold(size, 8);
}

double numberAt(QPDFObjectHandle array, int index, double missing)
{
    if (!array.isArray() || index >= array.getArrayNItems())
        return missing;
    QPDFObjectHandle item = array.getArrayItem(index);
    return item.isNumber() ? item.getNumericValue() : missing;
}

// It goes over every tile of a pattern as well, and asks nobody in between.
bool isTooFinePattern(QPDFObjectHandle& dictionary, QSizeF pagePoints)
{
    constexpr double mostTiles = 200'000;
    QPDFObjectHandle across = dictionary.getKey("/XStep");
    QPDFObjectHandle down = dictionary.getKey("/YStep");
    if (!across.isNumber() || !down.isNumber())
        return false;
    const QPDFObjectHandle matrix = dictionary.getKey("/Matrix");
    const double scale = numberAt(matrix, 0, 1) * numberAt(matrix, 3, 1)
        - numberAt(matrix, 1, 0) * numberAt(matrix, 2, 0);
    const double tile = std::abs(across.getNumericValue() * down.getNumericValue() * scale);
    return !(pagePoints.width() * pagePoints.height() <= mostTiles * tile);
}

// True when the first page takes so long to draw that no card can be meant.
bool isEndless(const QByteArray& bytes, QSizeF pagePoints)
{
    try {
        QPDF document;
        openPdf(&document, bytes);
        const QPDFObjectHandle page = document.getAllPages().at(0);
        return reachesDictionary(QPDFPageObjectHelper(page).getAttribute("/Resources", false),
            [pagePoints](QPDFObjectHandle& dictionary) {
                return isTooLargeImage(dictionary) || isTooFinePattern(dictionary, pagePoints);
            });
    } catch (const std::exception&) {
        // The other library may see more in a damaged document.
        return false;
    }
}

QImage drawFirstPage(Poppler::Document* document, const QByteArray& bytes)
{
    const std::unique_ptr<Poppler::Page> page(document->page(0));
    if (!page)
        return {};
    const QSizeF size = page->pageSizeF() * DrawingResolution / PointsPerInch;
    if (!DBCBitmap::canHold(size, QImage::toPixelFormat(QImage::Format_RGB32).bitsPerPixel())
        || isEndless(bytes, page->pageSizeF()))
        return {};
    document->setPaperColor(Qt::white);
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    return page->renderToImage(DrawingResolution, DrawingResolution, -1, -1, -1, -1,
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

// Null for what is no PDF or locked by a password.
std::unique_ptr<Poppler::Document> load(const QByteArray& bytes)
{
    silenceLibrary();
    auto document = Poppler::Document::loadFromData(bytes);
    return document && !document->isLocked() ? std::move(document) : nullptr;
}

// Not the clock on the wall: on a machine that is busy with other things a card takes longer.
std::chrono::nanoseconds processorTimeOfThread()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

QVariant newDeadline()
{
    return QVariant::fromValue<qint64>((processorTimeOfThread() + LongestTime).count());
}

// A plain yes would end the innermost of the library's loops only, of which there can be millions;
// an exception ends them all, and loses what they hold.
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
    *outInfo = {0, DrawingResolution, DrawingResolution, 1};
    return DBCResultCode::Success;
}
