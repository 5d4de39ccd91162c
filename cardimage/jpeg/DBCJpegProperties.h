// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

// What a JPEG file says about its picture.
struct DBCJpegProperties {
    qint32 pixelWidth = 0;
    qint32 pixelHeight = 0;
    // Dots per inch, 0 when the file tells none: from the JFIF header, else from Exif.
    qint32 xResolution = 0;
    qint32 yResolution = 0;
    std::optional<qint32> orientation; // the Exif tag; none when it is missing or no number
    int components = 0; // 1, 3 or 4
    bool isInvertedCmyk = false;
};

// None when the bytes hold no JPEG. The picture itself is not decoded.
std::optional<DBCJpegProperties> readJpegProperties(const QByteArray& jpeg);
