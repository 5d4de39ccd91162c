// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCCardPageSize.h"

#include "cardimage/jpeg/DBCJpegProperties.h"

QSize pagePointSize(const DBCJpegProperties& properties)
{
    constexpr int pointsPerInch = 72;
    // The Exif orientations from 5 to 8 exchange the sides of the picture.
    constexpr qint32 firstSidewaysOrientation = 5;
    constexpr qint32 lastSidewaysOrientation = 8;
    QSize pixels(properties.pixelWidth, properties.pixelHeight);
    QSize resolution(properties.xResolution, properties.yResolution);
    if (properties.orientation >= firstSidewaysOrientation
        && properties.orientation <= lastSidewaysOrientation) {
        pixels.transpose();
        resolution.transpose();
    }
    if (resolution.width() == 0 || resolution.height() == 0)
        return pixels;
    return {pixels.width() * pointsPerInch / resolution.width(),
        pixels.height() * pointsPerInch / resolution.height()};
}
