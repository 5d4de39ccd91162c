// SPDX-License-Identifier: GPL-3.0-or-later
// The log messages about one card that the import and export of images and attachments write. Each
// message carries the number and name of its card, so that the report can list the cards concerned.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCRecord.h"
#include "operation/log/DBCLogEntry.h"

#include <QString>

// How the log names a card. A field is empty if the record lacks its value.
struct DBCTransferSubject {
    QString number; // on import the line in the data file, on export the number of the card
    QString fullName;

    static DBCTransferSubject ofImport(const DBCRecord& record);
    static DBCTransferSubject ofExport(const DBCRecord& record);
};

namespace DBCTransferLog {

// Logs the text of key, which has no placeholders, as an error that stops the conversion.
void error(const char* key, const DBCTransferSubject& subject);

// Logs a warning. The first two arguments of its text are the card's number and full name; detail,
// if given, is the third.
void cardWarning(const char* key, const DBCTransferSubject& subject, DBCConsequence consequence,
    const std::optional<DBCMessageArgument>& detail = {});

// Warns that a name in the data file or in the store points out of the folder it belongs to.
void nameLeadsOut(const DBCTransferSubject& subject, const QString& name, const QString& folder,
    DBCConsequence consequence);

// Logs that a file or folder does not exist. This is an error when the consequence is Stopped, else
// a warning.
void missing(const DBCTransferSubject& subject, const QString& path, DBCConsequence consequence);

// These two functions log an error that stops the conversion. The text says which card and which
// file or folder failed.
void errorPlace(const DBCTransferSubject& subject, const QString& path);
void errorCopy(const DBCTransferSubject& subject, const QString& source, const QString& target);

} // namespace DBCTransferLog
