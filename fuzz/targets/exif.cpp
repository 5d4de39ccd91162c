// SPDX-License-Identifier: GPL-3.0-or-later
// Reads Exif data of any bytes in an otherwise ordinary JPEG.
#include "fuzz/JpegClaims.h"

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype LongestExif = 0xFFFF - 8;

// Returns the header of a JPEG of 32 x 48 gray pixels with these Exif data. The picture is missing,
// because the target does not decode it.
QByteArray jpegWith(QByteArrayView exif)
{
    const auto length = static_cast<quint16>(exif.size() + 8);
    QByteArray jpeg = "\xFF\xD8\xFF\xE1"_ba;
    jpeg += static_cast<char>(length >> 8);
    jpeg += static_cast<char>(length & 0xFF);
    jpeg += QByteArrayView("Exif\0\0", 6);
    jpeg += exif;
    jpeg += QByteArrayView("\xFF\xC0\0\x0B\x08\0\x30\0\x20\x01\x01\x11\0", 13);
    jpeg += QByteArrayView("\xFF\xDA\0\x08\x01\x01\0\0\x3F\0", 10);
    return jpeg;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray jpeg
        = jpegWith(QByteArrayView(data, qMin(static_cast<qsizetype>(size), LongestExif)));
    const auto properties = readJpegProperties(jpeg);
    mustHold(properties && properties->pixelWidth == 32 && properties->pixelHeight == 48,
        "Exif data does not change the size");
    judgeProperties(properties);
    return 0;
}
