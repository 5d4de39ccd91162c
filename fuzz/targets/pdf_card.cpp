// SPDX-License-Identifier: GPL-3.0-or-later
// Classifies a file of any bytes by CheckPdfFile(), and takes the one or two images of the card out
// of the file.
#include "cardimage/pdf/DBCCardPdf.h"
#include "fuzz/FuzzTarget.h"

namespace {

void judgeImage(const DBCBitmap& image, const CardImageInfo& info)
{
    mustHold(!image.isNull() && DBCBitmap::canHold(image.pixels.size(), image.bitsPerPixel()),
        "an image has a size within bounds");
    mustHold(image.pointSize == image.pixels.size(), "a point is a pixel");
    mustHold(info.isColor == (image.bitsPerPixel() == 1 ? 0 : 1), "one bit is no colour");
}

void judgeKind(DBCResultCode code, qint32 pageCount)
{
    switch (code) {
    case DBCResultCode::PdfCardImageOnly:
        mustHold(pageCount >= 0, "pages are counted");
        break;
    case DBCResultCode::PdfNotCard:
    case DBCResultCode::PdfCardWithText:
        mustHold(pageCount == -1, "only card PDFs have their pages counted");
        break;
    default:
        mustHold(false, "every file is of some kind");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzFile file("card.pdf");
    file.write(QByteArrayView(data, static_cast<qsizetype>(size)));
    qint32 pageCount = -1;
    const DBCResultCode kind = CheckPdfFile(file.path(), &pageCount);
    judgeKind(kind, pageCount);

    DBCBitmap face;
    DBCBitmap back;
    CardImageInfo faceInfo;
    CardImageInfo backInfo;
    const DBCResultCode code
        = AcquireCardImageFromPDF(file.path(), &face, &faceInfo, &back, &backInfo);
    if (code != DBCResultCode::Success) {
        mustHold(face.isNull() && back.isNull(), "a failure hands out no image");
        return 0;
    }
    judgeImage(face, faceInfo);
    if (!back.isNull())
        judgeImage(back, backInfo);
    return 0;
}
