// SPDX-License-Identifier: GPL-3.0-or-later
// The facts about an image of a card PDF that the JPEG writer needs beside its pixels.
#pragma once

#include <QtGlobal>

// Filled by the functions that take an image out of a card PDF, and passed on field by field to
// saveJpgFile(). Default values mean that no image was taken out.
struct CardImageInfo {
    // Clockwise degrees by which the bitmap must be turned to show the card upright: 0, 90, 180 or
    // 270 for a document whose page rotation is a multiple of 90 between -360 and 360.
    qint32 rotation = 0;
    qint32 xResolution = 0; // dots per inch along the width; 0 when the page size gives none
    qint32 yResolution = 0; // dots per inch along the height; 0 when the page size gives none
    qint32 isColor = 0; // 1: stored as a JPEG or drawn in colour, 0: stored as a 1-bit bitmap
};
