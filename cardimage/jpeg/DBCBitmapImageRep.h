// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCImageDescriptor.h"

#include <QByteArray>

// The bitmap that AcquireImageFromPDFPage()'s data and descriptor describe, its point size being
// its pixel size. Null when an argument is null, when a JPEG cannot be decoded, and when the size
// is none or beyond DBCBitmap::maximumBytes. Rows that a bitmap's data does not reach are white.
DBCBitmap createBitmapImageRep(const QByteArray* data, const ImageDescriptor* descriptor);
