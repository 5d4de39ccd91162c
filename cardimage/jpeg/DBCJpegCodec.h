// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG pictures in and out of memory. Exif and colour profiles have no say in the pixels.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"

#include <QByteArray>
#include <QSize>

#include <optional>

// Pixels of a picture times its scans: a second's work.
inline constexpr double DBCMostScannedPixels = 4e9;

// What stands in front of the picture's data.
struct DBCJpegHeader {
    enum class DensityUnit : quint8 { None, Inch, Centimetre };

    QSize size; // pixels
    int components = 0; // 1, 3 or 4
    bool isInvertedCmyk = false; // four components of which 255 means no ink, as Adobe writes them
    DensityUnit densityUnit = DensityUnit::None; // of the JFIF header
    int xDensity = 0;
    int yDensity = 0;
    QByteArray exif; // "Exif", two zero bytes, and the data; empty when there is none
};

// None when the bytes hold no JPEG that can be decoded, or not even the start of its picture.
std::optional<DBCJpegHeader> readJpegHeader(const QByteArray& jpeg);

// Grayscale8 for one component, else RGB888, at a point a pixel. A picture that breaks off is gray
// below; null when nothing can be decoded or the size is beyond DBCBitmap::maximumBytes.
DBCBitmap decodeJpeg(const QByteArray& jpeg);

// A gray bitmap stays gray, all others are written in colour, what is transparent white. Records
// the dots per inch that the point size stands for, and none when they are no number from 1 to
// 65535. Empty when the bitmap cannot be encoded.
QByteArray encodeJpeg(const DBCBitmap& bitmap);
