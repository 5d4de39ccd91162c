// SPDX-License-Identifier: GPL-3.0-or-later
// The claims that must be true for all bytes that readJpegProperties() accepts as a JPEG.
#pragma once

#include "cardimage/jpeg/DBCJpegProperties.h"
#include "cardimage/pdf/DBCCardPageSize.h"
#include "fuzz/FuzzTarget.h"

inline void judgeProperties(const std::optional<DBCJpegProperties>& properties)
{
    constexpr qint32 longestSide = 65535;
    if (!properties)
        return;
    mustHold(properties->pixelWidth > 0 && properties->pixelWidth <= longestSide
            && properties->pixelHeight > 0 && properties->pixelHeight <= longestSide,
        "a picture has a size");
    mustHold(
        properties->xResolution >= 0 && properties->yResolution >= 0, "no resolution is negative");
    mustHold(
        properties->components == 1 || properties->components == 3 || properties->components == 4,
        "a picture is gray, coloured, or of four inks");
    mustHold(
        !properties->isInvertedCmyk || properties->components == 4, "only inks can be inverted");
    const QSize page = pagePointSize(*properties);
    mustHold(page.width() >= 0 && page.height() >= 0, "no page is of a negative size");
    const qint32 longestPage = longestSide * 72;
    mustHold(page.width() <= longestPage && page.height() <= longestPage,
        "no page is larger than its pixels at one dot per inch");
}
