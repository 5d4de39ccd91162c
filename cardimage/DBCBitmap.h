// SPDX-License-Identifier: GPL-3.0-or-later
// A decoded raster image with the facts that the image writers go by.
#pragma once

#include <QImage>
#include <QSizeF>

// isNull() when nothing was decoded.
struct DBCBitmap {
    enum class ColorModel : quint8 {
        CalibratedRGB,
        DeviceRGB,
        CalibratedGray,
        DeviceGray,
        DeviceBlack
    };

    // Format_Mono for one bit (set is black), Grayscale8, RGB888, or a 32-bit format with alpha.
    QImage pixels;
    ColorModel colorModel = ColorModel::DeviceRGB;
    // Resolution in dots per inch is pixels x 72 / points.
    QSizeF pointSize;

    bool isNull() const { return pixels.isNull(); }
    int bitsPerPixel() const { return pixels.depth(); }
};
