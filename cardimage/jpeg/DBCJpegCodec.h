// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes and encodes JPEG pictures (ITU-T T.81, in a JFIF or Exif file) in memory. Neither the
// Exif orientation nor a colour profile changes the pixels. The functions keep no state, so any
// thread may call them. All throw std::bad_alloc when memory runs out.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"

#include <QByteArray>
#include <QSize>

#include <optional>

// The most pixels times scans of a progressive picture that are decoded, which takes about a
// second: a small file can repeat its scans to keep a decoder busy for hours.
inline constexpr double DBCMostScannedPixels = 4e9;

// The part of a JPEG file that comes before the compressed picture.
struct DBCJpegHeader {
    // The units of the JFIF header's density, with the numbers that JFIF gives them.
    enum class DensityUnit : quint8 { None, Inch, Centimetre };

    QSize size; // pixels
    int components = 0; // 1 (gray), 3 (YCbCr or RGB) or 4 (CMYK or YCCK)
    // Four components that are stored inverted, 255 meaning no ink: Adobe's programs write them so
    // and mark such a file with an APP14 segment.
    bool isInvertedCmyk = false;
    // Dots per unit as the JFIF header states them; None and 0 when there is no such header.
    DensityUnit densityUnit = DensityUnit::None;
    int xDensity = 0;
    int yDensity = 0;
    QByteArray exif; // "Exif", two zero bytes, and the TIFF data; empty when the file has none
};

// Reads the header without decoding the picture. None when the bytes are not a JPEG that
// decodeJpeg() can decode, or end before the picture begins.
std::optional<DBCJpegHeader> readJpegHeader(const QByteArray& jpeg);

// Decodes the picture, one point per pixel: to Grayscale8 for one component, to RGB888 for three or
// four. The missing part of a truncated picture is gray. Returns a null bitmap when nothing can be
// decoded, the size exceeds DBCBitmap::maximumBytes, or decoding would take too long.
DBCBitmap decodeJpeg(const QByteArray& jpeg);

// Encodes the bitmap at quality 90: a gray bitmap in gray, any other in colour, with white where it
// is transparent. The JFIF header records the dots per inch given by the point size; it records
// none when that is not a number from 1 to 65535 in both directions. Returns no bytes when the
// bitmap is null or cannot be encoded.
QByteArray encodeJpeg(const DBCBitmap& bitmap);
