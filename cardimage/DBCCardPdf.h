// SPDX-License-Identifier: GPL-3.0-or-later
// Card PDFs: telling their kinds apart and taking the card images out. Page 1 is the card's face,
// page 2, when present, its back. Not reentrant: one thread at a time.
#pragma once

#include "cardimage/DBCBitmap.h"
#include "cardimage/DBCCardImageInfo.h"
#include "operation/DBCResultCode.h"

#include <QString>

// ParameterError for an empty path, else one of the Pdf* classifications. pageCount (may be null)
// is set for PdfCardImageOnly.
DBCResultCode CheckPdfFile(const QString& path, qint32* pageCount);

// Either image output may be null but not both; either info output may be null but not both:
// ParameterError, as for an empty path. NoImageInPdf when a page that is asked for is missing or
// shows no image that can be taken out, GeneralFailure when the file cannot be read. On failure
// both images are null bitmaps. A one-page document leaves outBack as it was.
DBCResultCode AcquireCardImageFromPDF(const QString& path, DBCBitmap* outFace,
    CardImageInfo* outFaceInfo, DBCBitmap* outBack, CardImageInfo* outBackInfo);

// Draws the first page at 300 dpi on white. GeneralFailure for a missing argument or a file that
// cannot be read, PdfToJpegFailure when drawing fails; Success with the outputs untouched when the
// file cannot be loaded, so a caller must look at the bitmap.
DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo);
