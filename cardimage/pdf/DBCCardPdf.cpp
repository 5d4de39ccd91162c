// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPdf.h"

#include "cardimage/jpeg/DBCBitmapImageRep.h"
#include "cardimage/pdf/DBCPdfMemory.h"
#include "cardimage/pdf/DBCPdfObjects.h"
#include "cardimage/pdf/DBCPdfPageImage.h"
#include "cardimage/pdf/DBCPdfText.h"

#include <QFileInfo>

#include <new>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

namespace {

constexpr qint32 fullTurn = 360;

bool isByKnownProducer(QPDF* document)
{
    QPDFObjectHandle info = document->getTrailer().getKey("/Info");
    if (!info.isDictionary() || !info.getKey("/Creator").isString())
        return false;
    const std::string creator = info.getKey("/Creator").getUTF8Value();
    return creator.find("Trevant") != std::string::npos
        || creator.find("Velmora") != std::string::npos;
}

// Returns the sum of both rotations. If the sum is not from 0 to 359, one full turn is added or
// subtracted. The function corrects by only one turn on purpose: for a /Rotate of more than a turn
// the result may stay outside that range.
qint32 totalRotation(qint32 contentRotation, QPDFObjectHandle page)
{
    QPDFObjectHandle ownRotation = page.getKey("/Rotate");
    const qint64 sum
        = contentRotation + (ownRotation.isInteger() ? ownRotation.getIntValueAsInt() : 0LL);
    if (sum >= fullTurn)
        return static_cast<qint32>(sum - fullTurn);
    return static_cast<qint32>(sum < 0 ? sum + fullTurn : sum);
}

DBCResultCode acquirePage(const QPDFObjectHandle& page, ImageDescriptor* descriptor,
    DBCBitmap* outImage, CardImageInfo* outInfo)
{
    QByteArray data;
    qint32 rotation = 0;
    if (const auto code = AcquireImageFromPDFPage(page, &data, descriptor, &rotation);
        code != DBCResultCode::Success)
        return code;
    *outImage = createBitmapImageRep(&data, descriptor);
    if (outImage->isNull())
        return DBCResultCode::NoImageInPdf;
    if (outInfo) {
        outInfo->rotation = totalRotation(rotation, page);
        outInfo->xResolution = descriptor->verticalResolution;
        outInfo->yResolution = descriptor->horizontalResolution;
        outInfo->isColor = descriptor->depth != DBCBitmapDepth ? 1 : 0;
    }
    return DBCResultCode::Success;
}

// Opens the document at the path, runs the work on it and returns the result. If memory ran out
// meanwhile, the function throws std::bad_alloc instead: the library goes on after running out of
// memory, so neither the result nor a later exception tells the real cause.
template <typename Work> auto withDocument(const QString& path, Work work)
{
    const QByteArray bytes = readPdf(path);
    QPDF document;
    try {
        openPdf(&document, bytes);
        const auto result = work(&document);
        expectEnoughMemory(document);
        return result;
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        expectEnoughMemory(document);
        throw;
    }
}

DBCResultCode acquirePages(QPDF* document, DBCBitmap* outFace, CardImageInfo* outFaceInfo,
    DBCBitmap* outBack, CardImageInfo* outBackInfo)
{
    const std::vector<QPDFObjectHandle>& pages = document->getAllPages();
    if (pages.empty())
        return DBCResultCode::NoImageInPdf;
    ImageDescriptor descriptor;
    DBCResultCode code = DBCResultCode::Success;
    if (outFace)
        code = acquirePage(pages[0], &descriptor, outFace, outFaceInfo);
    if (outBack && pages.size() > 1 && code == DBCResultCode::Success)
        code = acquirePage(pages[1], &descriptor, outBack, outBackInfo);
    return code;
}

DBCResultCode kindOfPdf(QPDF* document, const QString& path, qint32* pageCount)
{
    const bool isCard = isByKnownProducer(document);
    if (!isCard)
        return DBCResultCode::PdfNotCard;
    if (hasPageText(document, path))
        return DBCResultCode::PdfCardWithText;
    if (pageCount)
        *pageCount = static_cast<qint32>(document->getAllPages().size());
    return DBCResultCode::PdfCardImageOnly;
}

} // namespace

DBCResultCode CheckPdfFile(const QString& path, qint32* pageCount)
{
    if (path.isEmpty())
        return DBCResultCode::ParameterError;
    if (!QFileInfo::exists(path))
        return DBCResultCode::PdfNotExist;
    try {
        return withDocument(
            path, [&](QPDF* document) { return kindOfPdf(document, path, pageCount); });
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return DBCResultCode::PdfNotCard;
    }
}

DBCResultCode AcquireCardImageFromPDF(const QString& path, DBCBitmap* outFace,
    CardImageInfo* outFaceInfo, DBCBitmap* outBack, CardImageInfo* outBackInfo)
{
    DBCResultCode code = DBCResultCode::NoImageInPdf;
    if (path.isEmpty() || (!outFace && !outBack) || (!outFaceInfo && !outBackInfo)) {
        code = DBCResultCode::ParameterError;
    } else {
        try {
            code = withDocument(path, [&](QPDF* document) {
                return acquirePages(document, outFace, outFaceInfo, outBack, outBackInfo);
            });
        } catch (const DBCUnreadablePdf&) {
            code = DBCResultCode::GeneralFailure;
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception&) {
            // A document that cannot be opened or is too damaged has no usable page. The result
            // stays NoImageInPdf.
        }
    }
    if (code != DBCResultCode::Success) {
        for (DBCBitmap* image : {outFace, outBack}) {
            if (image)
                *image = {};
        }
    }
    return code;
}
