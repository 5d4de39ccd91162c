// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a bitmap of image data that was taken out of a PDF page.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCImageDescriptor.h"

#include <QByteArray>

// The bitmap described by the data and descriptor that AcquireImageFromPDFPage() filled, with one
// point per pixel. A descriptor of depth DBCBitmapDepth is followed by packed rows, a set bit being
// black; rows missing at the end of the data are white, and surplus data is ignored. For any other
// depth the data is a JPEG, which states its own size. Returns a null bitmap when an argument is
// null, the JPEG cannot be decoded, or the size is zero or exceeds DBCBitmap::maximumBytes.
DBCBitmap createBitmapImageRep(const QByteArray* data, const ImageDescriptor* descriptor);
