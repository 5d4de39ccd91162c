// SPDX-License-Identifier: GPL-3.0-or-later
// How large the page of a card PDF is.
#pragma once

#include <QSize>

struct DBCJpegProperties;

// Points of the page that shows the picture at its resolution; its pixels where it tells none. A
// picture whose Exif orientation is sideways has its page so, and is not turned itself.
QSize pagePointSize(const DBCJpegProperties& properties);
