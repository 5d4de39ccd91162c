// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCBitmapImageRep.h"

#include "cardimage/jpeg/DBCJpegCodec.h"

#include <algorithm>

namespace {

// Each row of the data begins at the byte behind the previous row. Surplus data is ignored.
void copyRows(const QByteArray& data, QImage* pixels)
{
    const qsizetype rowBytes = (pixels->width() + 7) / 8;
    const qsizetype end = qMin(data.size(), rowBytes * pixels->height());
    for (qsizetype begin = 0; begin < end; begin += rowBytes) {
        uchar* const row = pixels->scanLine(static_cast<int>(begin / rowBytes));
        std::copy_n(data.constData() + begin, qMin(rowBytes, end - begin), row);
    }
}

} // namespace

DBCBitmap createBitmapImageRep(const QByteArray* data, const ImageDescriptor* descriptor)
{
    if (!data || !descriptor)
        return {};
    if (descriptor->depth != DBCBitmapDepth)
        return decodeJpeg(*data);
    DBCBitmap bitmap = DBCBitmap::blank(QSize(descriptor->width, descriptor->height),
        QImage::Format_Mono, DBCBitmap::ColorModel::DeviceBlack);
    if (!bitmap.isNull())
        copyRows(*data, &bitmap.pixels);
    return bitmap;
}
