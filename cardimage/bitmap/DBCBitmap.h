// SPDX-License-Identifier: GPL-3.0-or-later
// A decoded raster image with its size in points, which gives its resolution. A bitmap is a value:
// copies share their pixels until one of them is changed, and each thread may use its own copies.
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

    // The most bytes of pixels that a bitmap may have: twice a card at 2400 dots per inch. The
    // decoders refuse an image that claims to be larger before they allocate memory for it.
    static constexpr qint64 maximumBytes = 256LL * 1024 * 1024;

    // True when an image of this size in pixels has at least one pixel and at most maximumBytes
    // bytes.
    static bool canHold(QSizeF size, int bitsPerPixel);

    // Returns an image with undefined content. Throws std::bad_alloc when memory runs out. The
    // constructor of QImage would make a null image instead, and the callers would report an
    // unreadable picture.
    static QImage allocate(QSize size, QImage::Format format);

    // Returns a bitmap with all bits clear: white for Format_Mono, transparent or black for the
    // other formats. Returns a null bitmap when canHold() refuses the size; throws std::bad_alloc
    // when memory runs out.
    static DBCBitmap blank(QSize size, QImage::Format format, ColorModel model);

    // Makes a bitmap of these pixels with one point per pixel, which is 72 dots per inch.
    static DBCBitmap of(const QImage& pixels, ColorModel model);

    // A null bitmap has no pixels. Functions that return a bitmap return a null one on failure.
    bool isNull() const { return pixels.isNull(); }
    int bitsPerPixel() const { return pixels.depth(); }

    // Format_Mono for one bit per pixel (a set bit is black), else Grayscale8, RGB888, or a format
    // of 32 bits.
    QImage pixels;
    ColorModel colorModel = ColorModel::DeviceRGB;
    // Points; the resolution in dots per inch is pixels x 72 / points.
    QSizeF pointSize;
};
