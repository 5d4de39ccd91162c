// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes and encodes JPEG pictures (ITU-T T.81, in a JFIF or Exif file) in memory. Neither the
// Exif orientation nor a colour profile changes the pixels. The functions keep no state, so any
// thread may call them. All of them throw std::bad_alloc when memory runs out.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"

#include <QByteArray>
#include <QSize>

#include <optional>

// decodeJpeg() refuses a progressive picture whose pixels times scans exceed this number, which
// takes about a second to decode. Without this limit a small file that repeats its scans could keep
// the decoder busy for hours.
inline constexpr double DBCMostScannedPixels = 4e9;

// The part of a JPEG file that comes before the compressed picture.
struct DBCJpegHeader {
    // The units of the JFIF header's density, with the numbers that JFIF gives them.
    enum class DensityUnit : quint8 { None, Inch, Centimetre };

    QSize size; // pixels
    int components = 0; // 1 (gray), 3 (YCbCr or RGB) or 4 (CMYK or YCCK)
    // True if the picture has four components that are stored inverted, so that 255 means no ink.
    // Adobe's programs write CMYK pictures in this way and mark them with an APP14 segment.
    bool isInvertedCmyk = false;
    // Dots per unit as the JFIF header states them. Without such a header the unit is None and both
    // numbers are 0.
    DensityUnit densityUnit = DensityUnit::None;
    int xDensity = 0;
    int yDensity = 0;
    QByteArray exif; // "Exif", two zero bytes, and the TIFF data; empty when the file has none
};

// Reads the header without decoding the picture. Returns std::nullopt when the bytes are not a JPEG
// of a kind that decodeJpeg() can decode, or when they end before the picture begins.
std::optional<DBCJpegHeader> readJpegHeader(const QByteArray& jpeg);

// Decodes the picture to a bitmap with one point per pixel. The format is Grayscale8 for one
// component and RGB888 for three or four. The missing part of a truncated picture is gray. Returns
// a null bitmap when nothing can be decoded, the size exceeds DBCBitmap::maximumBytes, or decoding
// would take too long.
DBCBitmap decodeJpeg(const QByteArray& jpeg);

// Encodes the bitmap at quality 90: a gray bitmap in gray, any other bitmap in colour. Transparent
// pixels become white. The JFIF header records the dots per inch that follow from the point size;
// it records no resolution if these are not numbers from 1 to 65535 in both directions. Returns an
// empty array when the bitmap is null or cannot be encoded.
QByteArray encodeJpeg(const DBCBitmap& bitmap);
