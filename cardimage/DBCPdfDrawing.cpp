// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfDrawing.h"

#include "cardimage/DBCCardPdf.h"

#include <QFileInfo>

#include <poppler-qt6.h>

namespace {

constexpr int DrawingResolution = 300;
constexpr double PointsPerInch = 72;

// What is wrong inside a document shows in what comes out of it; the library would print it.
void silenceLibrary()
{
    static const bool isSilent = [] {
        Poppler::setDebugErrorFunction([](const QString&, const QVariant&) {}, {});
        return true;
    }();
    Q_UNUSED(isSilent)
}

QImage drawFirstPage(Poppler::Document* document)
{
    const std::unique_ptr<Poppler::Page> page(document->page(0));
    if (!page)
        return {};
    const QSizeF size = page->pageSizeF() * DrawingResolution / PointsPerInch;
    if (!DBCBitmap::canHold(size, QImage::toPixelFormat(QImage::Format_RGB32).bitsPerPixel()))
        return {};
    document->setPaperColor(Qt::white);
    document->setRenderHint(Poppler::Document::Antialiasing);
    document->setRenderHint(Poppler::Document::TextAntialiasing);
    return page->renderToImage(DrawingResolution, DrawingResolution);
}

} // namespace

DBCResultCode AcquireCardImageFromAllPDF(
    const QString& path, std::unique_ptr<Poppler::Document>* outPdfImage)
{
    if (path.isEmpty() || !outPdfImage || !QFileInfo(path).isFile())
        return DBCResultCode::ParameterError;
    silenceLibrary();
    auto document = Poppler::Document::load(path);
    if (!document || document->isLocked())
        return DBCResultCode::ParameterError;
    *outPdfImage = std::move(document);
    return DBCResultCode::Success;
}

DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo)
{
    if (path.isEmpty() || !outBitmap || !outInfo)
        return DBCResultCode::GeneralFailure;
    std::unique_ptr<Poppler::Document> document;
    if (AcquireCardImageFromAllPDF(path, &document) != DBCResultCode::Success)
        return DBCResultCode::Success;
    const QImage drawing = drawFirstPage(document.get());
    if (drawing.isNull())
        return DBCResultCode::PdfToJpegFailure;
    *outBitmap = DBCBitmap::of(drawing, DBCBitmap::ColorModel::CalibratedRGB);
    *outInfo = {0, DrawingResolution, DrawingResolution, 1};
    return DBCResultCode::Success;
}
