// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/bitmap/DBCBitmap.h"

#include <new>

bool DBCBitmap::canHold(QSizeF size, int bitsPerPixel)
{
    return size.width() >= 1 && size.height() >= 1
        && size.width() * size.height() * bitsPerPixel <= double(maximumBytes) * 8;
}

QImage DBCBitmap::allocate(QSize size, QImage::Format format)
{
    QImage pixels(size, format);
    if (pixels.isNull())
        throw std::bad_alloc();
    return pixels;
}

DBCBitmap DBCBitmap::blank(QSize size, QImage::Format format, ColorModel model)
{
    if (!canHold(size, QImage::toPixelFormat(format).bitsPerPixel()))
        return {};
    QImage pixels = allocate(size, format);
    if (format == QImage::Format_Mono)
        pixels.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    pixels.fill(0);
    return of(pixels, model);
}

DBCBitmap DBCBitmap::of(const QImage& pixels, ColorModel model)
{
    return {pixels, model, pixels.size()};
}
