// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the first page of a searchable card PDF, and limits how long the drawing library (Poppler)
// may work. A document belongs to the caller, who may use it only on the thread that loaded it. The
// functions throw std::bad_alloc when memory runs out.
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

// A caller passes endWhenTooLong() and a deadline from newDeadline() to the drawing library. While
// the library works, it calls endWhenTooLong() repeatedly with this deadline, and continues as long
// as the function returns false. Once the calling thread has used three seconds of processor time
// since it called newDeadline(), endWhenTooLong() throws DBCTakesTooLong, which ends the work. A
// deadline is valid only on the thread that made it.
QVariant newDeadline();
bool endWhenTooLong(const QVariant& deadline);

// Loads the whole document so that the caller can draw its pages. Returns Success or
// ParameterError. ParameterError means that the path is empty, outPdfImage is null, or the file
// does not exist, cannot be read, is not a PDF or is locked by a password; *outPdfImage is then
// null.
DBCResultCode AcquireCardImageFromAllPDF(
    const QString& path, std::unique_ptr<Poppler::Document>* outPdfImage);

// Draws the first page on white at 300 dots per inch and sets outInfo to rotation 0, 300 by 300
// dots per inch and colour. The bitmap has one point per pixel.
//   Success           the page is drawn; or the file cannot be loaded as a PDF, and both outputs
//                     are unchanged, so the caller must check whether the bitmap is null
//   GeneralFailure    an argument is empty or null, or the file cannot be read
//   PdfToJpegFailure  the page cannot be drawn, or drawing takes too much time or memory
DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo);
