// SPDX-License-Identifier: GPL-3.0-or-later
// Redraws bitmaps, a pixel for a pixel. Each result stands at a point a pixel.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "operation/base/DBCResultCode.h"

// Depth 8 makes calibrated gray, any other calibrated RGB with alpha. ParameterError for a null
// image, GeneralFailure when the new bitmap would be too large.
DBCResultCode ConvertImageToDepth(const DBCBitmap& image, int depth, DBCBitmap* outImage);

// Quarter turns are clockwise degrees, 90, 270 or their negatives, and exchange width and height.
// Any other angle turns the image counter-clockwise about its centre, what leaves it cut off. An
// RGB image becomes calibrated RGB with alpha, any other calibrated gray. Codes as above.
DBCResultCode RotateBitmapImageRep(const DBCBitmap& image, int angle, DBCBitmap* outImage);
