// SPDX-License-Identifier: GPL-3.0-or-later
// Card PDFs: telling their kinds apart and taking the card images out. Page 1 is the card's face,
// page 2, when present, its back. Not reentrant: one thread at a time.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCCardImageInfo.h"
#include "operation/base/DBCResultCode.h"

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
