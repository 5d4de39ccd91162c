// SPDX-License-Identifier: GPL-3.0-or-later
// A decoded raster image with the facts that the image writers go by.
#pragma once

#include <QImage>
#include <QSizeF>

struct DBCBitmap {
    enum class ColorModel : quint8 {
        CalibratedRGB,
        DeviceRGB,
        CalibratedGray,
        DeviceGray,
        DeviceBlack
    };

    // Twice a card at 2400 dpi. What claims to be larger is refused before memory is taken for it.
    static constexpr qint64 maximumBytes = 256LL * 1024 * 1024;

    // True when an image of this many pixels has at least one and stays within maximumBytes.
    static bool canHold(QSizeF size, int bitsPerPixel);

    // Pixels of any content; std::bad_alloc when there is no memory for them. QImage itself would
    // be null then, which passes for a picture that cannot be read.
    static QImage allocate(QSize size, QImage::Format format);

    // All bits clear: white when the format is Format_Mono, transparent or black otherwise. A null
    // bitmap when canHold() refuses the size; std::bad_alloc when there is no memory for it.
    static DBCBitmap blank(QSize size, QImage::Format format, ColorModel model);
    // The point size is the pixel size.
    static DBCBitmap of(const QImage& pixels, ColorModel model);

    // True when nothing was decoded.
    bool isNull() const { return pixels.isNull(); }
    int bitsPerPixel() const { return pixels.depth(); }

    // Format_Mono for one bit (set is black), Grayscale8, RGB888, or a 32-bit format.
    QImage pixels;
    ColorModel colorModel = ColorModel::DeviceRGB;
    // Resolution in dots per inch is pixels x 72 / points.
    QSizeF pointSize;
};
