// SPDX-License-Identifier: GPL-3.0-or-later
// Tells the kinds of card PDFs apart and takes their images out as they are stored. Page 1 of a
// card PDF shows the face of the card, and page 2, if there is one, shows the back. The functions
// share g_imagestr (DBCPdfPageImage.h), so only one thread may call them at a time. They throw
// std::bad_alloc when memory runs out.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCCardImageInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

// Returns the kind of the file at the path:
//   PdfNotExist       there is no file
//   PdfNotCard        the file is no PDF, is locked by a password, or has neither "Trevant" nor
//                     "Velmora" in the Creator of its document information (ISO 32000, 14.3.3)
//   PdfCardWithText   a card PDF with a page that has more than one character of text
//   PdfCardImageOnly  any other card PDF; the function then sets pageCount, which may be null. No
//                     caller in this program uses pageCount; it is kept on purpose as an interface
// or ParameterError for an empty path.
DBCResultCode CheckPdfFile(const QString& path, qint32* pageCount);

// Takes the images of pages 1 and 2 out of the file. The bitmaps have one point per pixel.
//   Success         outFace is the face; outBack is the back, or is unchanged when the document has
//                   only one page
//   ParameterError  the path is empty, or both image outputs or both info outputs are null; one of
//                   each pair may be null
//   NoImageInPdf    the file is not a PDF that can be opened, or a requested page has no image that
//                   can be taken out
//   GeneralFailure  the file could not be read, so its content is unknown
// After any code but Success, both images are null bitmaps.
DBCResultCode AcquireCardImageFromPDF(const QString& path, DBCBitmap* outFace,
    CardImageInfo* outFaceInfo, DBCBitmap* outBack, CardImageInfo* outBackInfo);
