// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// What the JPEG writer needs to know about an extracted card image.
struct CardImageInfo {
    qint32 rotation = 0; // clockwise degrees that show the card upright: 0, 90, 180 or 270
    qint32 xResolution = 0; // dots per inch
    qint32 yResolution = 0; // dots per inch
    qint32 isColor = 0; // 1: a colour (24-bit JPEG) image, 0: a 1-bit bitmap
};
