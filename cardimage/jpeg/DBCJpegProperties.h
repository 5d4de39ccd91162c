// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of a JPEG file that decide how its page in a card PDF looks: size, resolution,
// orientation and colour.
#pragma once

#include <QByteArray>

#include <optional>

struct DBCJpegProperties {
    qint32 pixelWidth = 0;
    qint32 pixelHeight = 0;
    // Dots per inch, rounded. Both come from the JFIF header; if the header has a 0 for one of
    // them, both come from the Exif data. They are 0 when the file states no resolution in a known
    // unit.
    qint32 xResolution = 0;
    qint32 yResolution = 0;
    // The Exif orientation: a number from 1 to 8 in a valid file, any number in other files, and
    // std::nullopt when the tag is missing or not a number.
    std::optional<qint32> orientation;
    int components = 0; // as in DBCJpegHeader
    bool isInvertedCmyk = false; // as in DBCJpegHeader
};

// Reads the properties without decoding the picture. Returns std::nullopt when readJpegHeader()
// does. Any thread may call this function.
std::optional<DBCJpegProperties> readJpegProperties(const QByteArray& jpeg);
