// SPDX-License-Identifier: GPL-3.0-or-later
// Redraws bitmaps in another pixel format or turned, without scaling them. Each result has one
// point per pixel, whatever the source's point size was.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "operation/base/DBCResultCode.h"

// Redraws the image in another pixel format: depth 8 gives calibrated gray, any other depth gives
// calibrated RGB with alpha. Returns Success, ParameterError for a null image, or GeneralFailure
// when the new bitmap would exceed DBCBitmap::maximumBytes. outImage is written on Success only,
// and may be the image itself.
DBCResultCode ConvertImageToDepth(const DBCBitmap& image, int depth, DBCBitmap* outImage);

// Turns the image. 90, 270 and their negatives are clockwise degrees, and exchange width and
// height. Any other angle turns the image counter-clockwise about its centre on a canvas of the
// same size, so that corners may be cut off. An RGB image becomes calibrated RGB with alpha, any
// other becomes calibrated gray. Result codes and outImage as for ConvertImageToDepth().
DBCResultCode RotateBitmapImageRep(const DBCBitmap& image, int angle, DBCBitmap* outImage);
