// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a bitmap of image data that was taken out of a PDF page.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCImageDescriptor.h"

#include <QByteArray>

// Makes a bitmap of the data and descriptor that AcquireImageFromPDFPage() filled, with one point
// per pixel. If the descriptor's depth is DBCBitmapDepth, the data consists of packed rows in which
// a set bit is black; rows missing at the end of the data become white, and surplus data is
// ignored. For any other depth the data is a JPEG, and the size in the JPEG counts. Returns a null
// bitmap when an argument is null, the JPEG cannot be decoded, or the size is zero or exceeds
// DBCBitmap::maximumBytes.
DBCBitmap createBitmapImageRep(const QByteArray* data, const ImageDescriptor* descriptor);
