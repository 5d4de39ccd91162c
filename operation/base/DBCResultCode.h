// SPDX-License-Identifier: GPL-3.0-or-later
// The table of all result codes. Messages, logs and scripts show the numbers, so the numbers never
// change.
//
// A negative code is a failure, and 0 is success. CancelledByUser is the only error with a positive
// code. The codes from 0x30002 and from 0x40001 on are not errors but the results of CheckPdfFile()
// and DBCChecker::checkDBAttributes(). No other file writes a result code as a number.
#pragma once

#include <QtGlobal>

enum class DBCResultCode : qint32 {
    Success = 0,
    GeneralFailure = -1, // an argument is missing, nothing came back, or attributes are unreadable
    CancelledByUser = 2, // the user confirmed a cancel; never the result of a whole run
    ParameterError = -50, // bad parameter of an image function, or a message that cannot be shown

    // Data file, folders and the operation itself
    DataFileOpenFailure = -101, // the data file could not be opened or created
    TitleLineFormatError = -103, // a column title is missing or unknown; carries the line number
    DataLineFormatError = -104, // a line has the wrong number of items; carries the line number
    DataFileDecodeFailure = -105, // the data file's bytes are not valid in its encoding
    DataFileEmpty = -106, // the data file is empty or holds no record
    InternalException = -107, // an exception was caught
    FolderNotExist = -108, // a required folder or file is missing, or is not a folder
    PdfCreateFailure = -109, // the PDF of a card's images could not be built
    DataFileWriteFailure = -111, // a line lacks a column, or could not be encoded or written
    FileSaveFailure = -112, // the destination is missing or read-only, or writing failed
    SizeMeasureFailure = -113, // the size of a file or folder could not be measured
    VersionFileWriteFailure = -114, // "Version.txt" could not be written after an export
    VersionFileRefusedProduct = -115, // "Version.txt" names our own product, which import refuses
    VersionFileMismatch = -116, // "Version.txt" is missing, empty or of another version

    // Card database
    DatabaseOpenFailure = -201, // the package could not be opened, or another conversion uses it
    DatabaseLockFailure = -202, // the package's lock could not be taken
    DatabaseUnlockFailure = -203, // the package's lock could not be released
    BackupFailure = -204, // the package could not be copied before an import
    RestoreFailure = -205, // the package could not be put back after a failed import
    DatabaseSaveFailure = -206, // the new cards could not be saved
    FetchFailure = -208, // the cards could not be read from the store
    NoCards = -209, // the database holds no card, or only deleted ones
    FolderCreateFailure = -210, // a folder could not be made
    AttachmentExportFailure = -211, // an attachment could not be copied out of the package
    AttachmentImportFailure = -212, // an attachment could not be copied into the package

    // Image conversion
    NoImageInPdf = -301, // a PDF page holds no image that can be used
    PdfToJpegFailure = -303, // a PDF could not be turned into JPEG images

    // Too little free disk space
    NoSpaceForImport = -401, // for an image or attachment that goes into the package
    NoSpaceForExport = -402, // for a file or attachment that goes out of the package
    NoSpaceForBackup = -403, // for the copy of the package
    NoSpace = -404, // for the operation as a whole

    // Results of CheckPdfFile()
    PdfNotExist = 0x30002, // there is no such file
    PdfNotCard = 0x30003, // not a card PDF: unreadable, encrypted, or from an unknown producer
    PdfCardWithText = 0x30004, // a card PDF with searchable text
    PdfCardImageOnly = 0x30005, // a card PDF with images only

    // Results of DBCChecker::checkDBAttributes()
    PackageNotExist = 0x40001, // the package or its store does not exist
    PackageInvalid = 0x40002, // not a database package, or not readable
    PackageLocked = 0x40003, // the package or a part of it has the immutable attribute
    PackageReadOnly = 0x40004, // readable, but not writable
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
