// SPDX-License-Identifier: GPL-3.0-or-later
// The image writers.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "operation/base/DBCResultCode.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

// Writes the bitmap as a JPEG file, turned clockwise by rotation degrees, recording xResolution
// dots per inch in both directions; yResolution is accepted and not used. GeneralFailure for a null
// image or an empty path, PdfToJpegFailure when turning or converting fails, else the result of
// DBCCommonFunction::saveFile().
DBCResultCode saveJpgFile(const DBCBitmap& image, qint32 rotation, qint32 xResolution,
    qint32 yResolution, qint32 isColor, const QString& path);

// Joins JPEG files into one PDF, a page each, the JPEG bytes untouched. GeneralFailure for an empty
// list or path, NoSpaceForImport, PdfCreateFailure, or the code of a failed size measurement. The
// output file exists from the moment the disk check has passed; after a failure it is the caller's
// to remove. insideFolder: where links must not lead out of, however a file came to be a link in
// the meantime; empty: anywhere.
DBCResultCode convertJPG2PDF(
    const QStringList& paths, const QString& outputPath, const QString& insideFolder = {});

// Reads a whole file, whatever it is. 0, ParameterError's number, -4960, or minus the errno of the
// failing step; out is empty on failure. insideFolder: as above.
qint32 readJpgFile(const QUrl& url, QByteArray* outBuffer, const QString& insideFolder = {});
