// SPDX-License-Identifier: GPL-3.0-or-later
// Converts bitmaps to another pixel format and turns them, without scaling. Each result has one
// point per pixel, whatever the point size of the source was.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "operation/base/DBCResultCode.h"

// Converts the image to another pixel format: depth 8 gives calibrated gray, any other depth gives
// calibrated RGB with alpha. Returns Success, ParameterError for a null image, or GeneralFailure
// when the new bitmap would exceed DBCBitmap::maximumBytes. The function writes outImage on Success
// only; outImage may point to the source image.
DBCResultCode ConvertImageToDepth(const DBCBitmap& image, int depth, DBCBitmap* outImage);

// Turns the image. 90, 270 and their negatives are clockwise degrees, and exchange width and
// height. Any other angle turns the image counter-clockwise about its centre on a canvas of the
// same size, so that corners may be cut off. An RGB image becomes calibrated RGB with alpha, any
// other becomes calibrated gray. The result codes and outImage are as for ConvertImageToDepth().
DBCResultCode RotateBitmapImageRep(const DBCBitmap& image, int angle, DBCBitmap* outImage);
