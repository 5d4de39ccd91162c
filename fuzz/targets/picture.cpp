// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes the picture of a JPEG file of any bytes and encodes it again.
#include "cardimage/jpeg/DBCJpegCodec.h"
#include "fuzz/JpegClaims.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // Larger pictures would run through the same code, but take a hundred times as long.
    constexpr qint64 mostPixels = 0x10000;
    const QByteArray jpeg(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto properties = readJpegProperties(jpeg);
    judgeProperties(properties);
    if (!properties || qint64(properties->pixelWidth) * properties->pixelHeight > mostPixels)
        return 0;
    const DBCBitmap bitmap = decodeJpeg(jpeg);
    if (bitmap.isNull())
        return 0;
    mustHold(bitmap.pixels.width() == properties->pixelWidth
            && bitmap.pixels.height() == properties->pixelHeight,
        "a picture has the size that its header tells");
    mustHold((bitmap.bitsPerPixel() == 8) == (properties->components == 1), "gray stays gray");
    const auto again = readJpegProperties(encodeJpeg(bitmap));
    mustHold(again && again->pixelWidth == properties->pixelWidth
            && again->pixelHeight == properties->pixelHeight
            && (again->components == 1) == (properties->components == 1),
        "what was encoded is such a picture again");
    return 0;
}
