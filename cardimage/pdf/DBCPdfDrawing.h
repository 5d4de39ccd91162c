// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the first page of a searchable card PDF, and limits how long the drawing library may work.
// Documents belong to the caller and are used on the thread that loaded them. The functions throw
// std::bad_alloc when memory runs out.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/bitmap/DBCCardImageInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QString>
#include <QVariant>

#include <exception>
#include <memory>

namespace Poppler {
class Document;
}

class DBCTakesTooLong final : public std::exception { };

// The drawing library calls endWhenTooLong() repeatedly while it works, with the deadline that it
// was given; a return value of false lets it continue. Once the calling thread has used three
// seconds of processor time since newDeadline(), endWhenTooLong() throws DBCTakesTooLong instead.
// The deadline is valid on the thread that made it.
QVariant newDeadline();
bool endWhenTooLong(const QVariant& deadline);

// Loads the whole document, to be drawn page by page. Returns Success, or ParameterError for an
// empty path or a null output, and when the file does not exist, cannot be read, is not a PDF or is
// locked by a password; outPdfImage is then null.
DBCResultCode AcquireCardImageFromAllPDF(
    const QString& path, std::unique_ptr<Poppler::Document>* outPdfImage);

// Draws the first page on white at 300 dots per inch and sets outInfo to rotation 0, 300 by 300
// dots per inch, colour. The bitmap has one point per pixel.
//   Success           the page is drawn; or the file cannot be loaded as a PDF, and both outputs
//                     are as they were: the caller must check whether the bitmap is null
//   GeneralFailure    an argument is empty or null, or the file cannot be read
//   PdfToJpegFailure  the page cannot be drawn, or not within the limits of time and memory
DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo);
