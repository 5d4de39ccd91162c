// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the first page of a file of any bytes, as the program does with a searchable card PDF.
#include "cardimage/pdf/DBCCardPdf.h"
#include "cardimage/pdf/DBCPdfDrawing.h"
#include "fuzz/FuzzTarget.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzFile file("searchable.pdf");
    file.write(QByteArrayView(data, static_cast<qsizetype>(size)));
    DBCBitmap bitmap;
    CardImageInfo info;
    const DBCResultCode code = AcquireCardImageFromSearchablePDF(file.path(), &bitmap, &info);
    mustHold(code == DBCResultCode::Success || code == DBCResultCode::PdfToJpegFailure,
        "a page is drawn or not");
    mustHold(code == DBCResultCode::Success || bitmap.isNull(), "a failure hands out no image");
    if (bitmap.isNull())
        return 0;
    mustHold(DBCBitmap::canHold(bitmap.pixels.size(), bitmap.bitsPerPixel()),
        "a drawing has a size within bounds");
    mustHold(info.rotation == 0 && info.xResolution == 300 && info.yResolution == 300,
        "a drawing is upright at 300 dpi");
    return 0;
}
