// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of a JPEG file that decide how its page in a card PDF looks: size, resolution,
// orientation and colour.
#pragma once

#include <QByteArray>

#include <optional>

struct DBCJpegProperties {
    qint32 pixelWidth = 0;
    qint32 pixelHeight = 0;
    // Dots per inch, rounded. They come from the JFIF header; if one of them is 0 there, both come
    // from the Exif data. 0 when the file states no resolution, or none in a known unit.
    qint32 xResolution = 0;
    qint32 yResolution = 0;
    // The Exif orientation, 1 to 8 in a valid file, but any number in others. None when the tag is
    // missing or not a number.
    std::optional<qint32> orientation;
    int components = 0; // as in DBCJpegHeader
    bool isInvertedCmyk = false; // as in DBCJpegHeader
};

// Reads the properties without decoding the picture. None when readJpegHeader() finds no JPEG. Any
// thread may call it.
std::optional<DBCJpegProperties> readJpegProperties(const QByteArray& jpeg);
