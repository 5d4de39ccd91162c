// SPDX-License-Identifier: GPL-3.0-or-later
// The facts about an image of a card PDF that the JPEG writer needs beside its pixels.
#pragma once

#include <QtGlobal>

// The functions that take an image out of a card PDF fill this record, and an export passes its
// fields to saveJpgFile(). A record that still has its default values belongs to no image.
struct CardImageInfo {
    // Clockwise degrees by which the bitmap must be turned to show the card upright. The value is
    // 0, 90, 180 or 270 if the page's /Rotate is a multiple of 90 between -360 and 360; for any
    // other /Rotate it may be any number.
    qint32 rotation = 0;
    qint32 xResolution = 0; // dots per inch along the width; 0 if it is unknown
    qint32 yResolution = 0; // dots per inch along the height; 0 if it is unknown
    qint32 isColor = 0; // 1: stored as a JPEG or drawn in colour, 0: stored as a 1-bit bitmap
};
