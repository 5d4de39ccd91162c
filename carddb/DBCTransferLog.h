// SPDX-License-Identifier: GPL-3.0-or-later
// What the transfers of images and attachments tell the log about the card they are busy with.
#pragma once

#include "datafile/DBCRecord.h"

#include <QString>

// A card as the log names it; a value that the record lacks is empty.
struct DBCTransferSubject {
    QString number; // line of the data file on import, number of the card on export
    QString fullName;

    static DBCTransferSubject ofImport(const DBCRecord& record);
    static DBCTransferSubject ofExport(const DBCRecord& record);
};

namespace DBCTransferLog {

// The localized text of key alone, at error level.
void error(const char* key);

// Warnings whose texts begin with the card's number and full name.
void cardWarning(const char* key, const DBCTransferSubject& subject);
void cardWarning(const char* key, const DBCTransferSubject& subject, const QString& detail);
void cardWarning(const char* key, const DBCTransferSubject& subject, qint64 code);

// A name in the data file that points out of the folder it belongs to.
void nameLeadsOut(const DBCTransferSubject& subject, const QString& name, const QString& folder);

// Which file or folder of which card an error is about; at error level.
void errorPlace(const DBCTransferSubject& subject, const QString& path);
void errorCopy(const DBCTransferSubject& subject, const QString& source, const QString& target);

} // namespace DBCTransferLog
