// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and writes whole image files: the JPEG files of an interchange folder, and the PDF into
// which an import joins them. The functions return result codes and log nothing.
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

// Writes the bitmap as a JPEG file, turned clockwise by rotation degrees, with a resolution of
// xResolution dots per inch in both directions. yResolution is a part of the interface but is
// ignored. Returns GeneralFailure for a null image or an empty path, PdfToJpegFailure when turning
// or converting the bitmap fails, and otherwise the result of DBCCommonFunction::saveFile().
DBCResultCode saveJpgFile(const DBCBitmap& image, qint32 rotation, qint32 xResolution,
    qint32 yResolution, qint32 isColor, const QString& path);

// The outcome of reading an image file for an import: its content, or the reason why an import
// refuses the file.
struct DBCImportedJpeg {
    enum class Verdict : quint8 {
        Usable,
        TooLarge, // has more bytes than any picture that can be shown; was not read
        Unreadable, // was not opened, is not a regular file, or reading failed
        NoJpeg,
    };

    Verdict verdict = Verdict::Unreadable;
    QByteArray bytes; // content of the whole file; empty unless verdict is Usable
    DBCJpegProperties properties;
};

// Both an import and the check of a folder call this function, so that they accept the same files.
// The file must be open for reading at its start. A descriptor without an open file gives
// Unreadable.
DBCImportedJpeg readJpegForImport(const DBCDescriptor& file);

struct DBCImageFile {
    QString path; // for measuring the disk usage
    DBCDescriptor file; // for reading; no open file counts as a failure to read
};

// Joins JPEG files into one PDF, one page per file, and leaves the JPEG bytes as they are. Returns
// Success, GeneralFailure for an empty list or path, NoSpaceForImport when the disk has too little
// free space, PdfCreateFailure when reading or writing fails, or the code of a failed size
// measurement. The function creates the output file after it has checked the disk space; after a
// failure the caller must remove this file.
DBCResultCode joinJpegsIntoPdf(const std::vector<DBCImageFile>& images, const QString& outputPath);

// Does the same for paths and follows symbolic links. Nothing in the program calls this function;
// it is kept on purpose as an interface.
DBCResultCode convertJPG2PDF(const QStringList& paths, const QString& outputPath);

// Reads a whole file of any kind. Returns 0 on success, the number of ParameterError for an empty
// url or a null outBuffer, -4960 when the url is not a local file or its bytes could not all be
// read, or minus the errno of the step that failed. On failure outBuffer is empty. Nothing in the
// program calls this function; it is kept on purpose as an interface.
qint32 readJpgFile(const QUrl& url, QByteArray* outBuffer);
