// SPDX-License-Identifier: GPL-3.0-or-later
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

// The drawing library asks endWhenTooLong() every few steps; it answers no, or throws
// DBCTakesTooLong when the deadline, which no card comes near, is over.
QVariant newDeadline();
bool endWhenTooLong(const QVariant& deadline);

// The whole document, to be drawn page by page. ParameterError for an empty path or a null output,
// and when the file does not exist, cannot be read, is no PDF or is locked by a password.
DBCResultCode AcquireCardImageFromAllPDF(
    const QString& path, std::unique_ptr<Poppler::Document>* outPdfImage);

// Draws the first page at 300 dpi on white. GeneralFailure for a missing argument or a file that
// cannot be read, PdfToJpegFailure when drawing fails; Success with the outputs untouched when the
// file cannot be loaded, so a caller must look at the bitmap.
DBCResultCode AcquireCardImageFromSearchablePDF(
    const QString& path, DBCBitmap* outBitmap, CardImageInfo* outInfo);
