// SPDX-License-Identifier: GPL-3.0-or-later
// A decoded raster image, together with the facts that the image writers decide by: its colour
// model and its size in points. It is a value: copies share their pixels until one is changed, and
// each thread may use its own copies.
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

    // The most bytes of pixels that a bitmap may have: twice a card at 2400 dots per inch. An image
    // that claims to be larger is refused before memory is allocated for it.
    static constexpr qint64 maximumBytes = 256LL * 1024 * 1024;

    // True when an image of this size in pixels has at least one pixel and at most maximumBytes
    // bytes.
    static bool canHold(QSizeF size, int bitsPerPixel);

    // An image with undefined content. Throws std::bad_alloc when memory runs out, where the
    // constructor of QImage would leave a null image, which the callers take for an unreadable
    // picture.
    static QImage allocate(QSize size, QImage::Format format);

    // A bitmap with all bits clear: white for Format_Mono, transparent or black for the other
    // formats. Returns a null bitmap when canHold() refuses the size; throws std::bad_alloc when
    // memory runs out.
    static DBCBitmap blank(QSize size, QImage::Format format, ColorModel model);

    // A bitmap of these pixels, one point per pixel, which is 72 dots per inch.
    static DBCBitmap of(const QImage& pixels, ColorModel model);

    // True when there are no pixels. Functions that return a bitmap return a null one on failure.
    bool isNull() const { return pixels.isNull(); }
    int bitsPerPixel() const { return pixels.depth(); }

    // Format_Mono for one bit per pixel (a set bit is black), else Grayscale8, RGB888, or a format
    // of 32 bits.
    QImage pixels;
    ColorModel colorModel = ColorModel::DeviceRGB;
    // Points; the resolution in dots per inch is pixels x 72 / points.
    QSizeF pointSize;
};
