// SPDX-License-Identifier: GPL-3.0-or-later
// Whole image files: the JPEG files of an interchange folder and the PDF that an import joins them
// into. Results are codes; nothing is logged.
#pragma once

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/jpeg/DBCJpegProperties.h"
#include "operation/base/DBCResultCode.h"
#include "system/DBCDescriptor.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <vector>

// Writes the bitmap as a JPEG file, turned clockwise by rotation degrees, recording xResolution
// dots per inch in both directions; yResolution is accepted and not used. GeneralFailure for a null
// image or an empty path, PdfToJpegFailure when turning or converting fails, else the result of
// DBCCommonFunction::saveFile().
DBCResultCode saveJpgFile(const DBCBitmap& image, qint32 rotation, qint32 xResolution,
    qint32 yResolution, qint32 isColor, const QString& path);

// An image file that an import takes, or the reason why it does not take it.
struct DBCImportedJpeg {
    enum class Verdict : quint8 {
        Usable,
        TooLarge, // more bytes than any picture has that can be shown; not read
        Unreadable, // none is open, it is no regular file, or reading failed
        NoJpeg,
    };

    Verdict verdict = Verdict::Unreadable;
    QByteArray bytes; // of the whole file; empty unless Usable
    DBCJpegProperties properties;
};

// An import and the check of a folder ask here, so that both take the same files. file: open for
// reading at its start, or none.
DBCImportedJpeg readJpegForImport(const DBCDescriptor& file);

struct DBCImageFile {
    QString path; // its disk usage is measured
    DBCDescriptor file; // its bytes are read; none: a failure to read
};

// Joins JPEG files into one PDF, one page per file, and leaves the JPEG bytes as they are.
// GeneralFailure for an empty list or path, NoSpaceForImport, PdfCreateFailure, or the code of a
// failed size measurement. The output file exists as soon as the disk check has passed; after a
// failure the caller removes it.
DBCResultCode joinJpegsIntoPdf(const std::vector<DBCImageFile>& images, const QString& outputPath);

// The same for paths, which are opened wherever links lead. Nothing in the program calls it; it is
// kept on purpose as an interface.
DBCResultCode convertJPG2PDF(const QStringList& paths, const QString& outputPath);

// Reads a whole file of any kind. Returns 0, the number of ParameterError, -4960, or minus the
// errno of the failing step; out is empty on failure. Nothing in the program calls it; it is kept
// on purpose as an interface.
qint32 readJpgFile(const QUrl& url, QByteArray* outBuffer);
