// SPDX-License-Identifier: GPL-3.0-or-later
// The size of the page that a card PDF has for a JPEG picture.
#pragma once

#include <QSize>

struct DBCJpegProperties;

// Returns the size in whole points (1/72 inch, rounded down) of a page that shows the picture at
// its resolution. If the picture states no resolution, the page has one point per pixel. If the
// Exif orientation turns the picture sideways (5 to 8), width and height are exchanged, although
// the picture itself stays as stored.
QSize pagePointSize(const DBCJpegProperties& properties);
