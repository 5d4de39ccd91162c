// SPDX-License-Identifier: GPL-3.0-or-later
// The one table of result codes. The numbers are shared with messages, logs and scripts: they never
// change. Negative is failure, 0 success, CancelledByUser the one positive error; the 0x3000x and
// 0x4000x families are classifications, not failures.
#pragma once

#include <QtGlobal>

enum class DBCResultCode : qint32 {
    Success = 0,
    GeneralFailure = -1, // missing argument, nothing returned, attributes unreadable
    CancelledByUser = 2, // the user cancelled during the card fetch
    ParameterError = -50, // bad parameter of an image function, or a message that cannot be shown

    // Data file, folders and the operation itself
    DataFileOpenFailure = -101, // the data file could not be opened or created
    TitleLineFormatError = -103, // a column title is missing or unknown; carries the line number
    DataLineFormatError = -104, // a line has the wrong number of items; carries the line number
    DataFileDecodeFailure = -105, // the bytes are no text in the data file's encoding
    DataFileEmpty = -106, // the data file is empty or holds no record
    InternalException = -107, // an exception was caught
    FolderNotExist = -108, // a required folder or file is missing or is no folder
    PdfCreateFailure = -109, // the PDF of a card's images could not be built
    DataFileWriteFailure = -111, // a line could not be encoded or written, or lacks a column
    FileSaveFailure = -112, // destination missing or read-only, or the write failed
    SizeMeasureFailure = -113, // the size of a file or folder could not be measured
    VersionFileWriteFailure = -114, // "Version.txt" could not be written after an export
    VersionFileRefusedProduct = -115, // "Version.txt" names the product that export writes
    VersionFileMismatch = -116, // "Version.txt" is missing, empty or of another version

    // Card database
    DatabaseOpenFailure = -201,
    DatabaseLockFailure = -202,
    DatabaseUnlockFailure = -203,
    BackupFailure = -204,
    RestoreFailure = -205,
    DatabaseSaveFailure = -206,
    FetchFailure = -208,
    NoCards = -209, // the database holds no live card
    FolderCreateFailure = -210,
    AttachmentExportFailure = -211, // an attachment could not be copied out
    AttachmentImportFailure = -212, // an attachment could not be taken in

    // Image conversion
    NoImageInPdf = -301, // no usable image in a PDF page
    PdfToJpegFailure = -303, // a PDF could not be turned into JPEG images

    // Disk space
    NoSpaceForImport = -401, // for an image or attachment going into the database
    NoSpaceForExport = -402, // for a file or attachment going out
    NoSpaceForBackup = -403,
    NoSpace = -404, // for the operation as a whole

    // What CheckPdfFile() finds
    PdfNotExist = 0x30002,
    PdfNotCard = 0x30003, // no card PDF: unreadable, locked, or not made by a known producer
    PdfCardWithText = 0x30004, // searchable card PDF
    PdfCardImageOnly = 0x30005,

    // What DBCChecker::checkDBAttributes() finds
    PackageNotExist = 0x40001, // the package or its store does not exist
    PackageInvalid = 0x40002, // no database package, or not readable
    PackageLocked = 0x40003, // immutable flag set on the package or one of its parts
    PackageReadOnly = 0x40004,
    PackageUsable = 0x40005, // readable and writable
    PackageOtherRights = 0x40006, // any other combination of access rights
};

constexpr qint32 toNumber(DBCResultCode code)
{
    return static_cast<qint32>(code);
}

constexpr bool isFailure(DBCResultCode code)
{
    return toNumber(code) < 0;
}
