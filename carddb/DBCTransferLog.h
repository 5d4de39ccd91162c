// SPDX-License-Identifier: GPL-3.0-or-later
// What the transfers of images and attachments tell the log about the card they are busy with.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCRecord.h"
#include "operation/log/DBCLogEntry.h"

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
void error(const char* key, const DBCTransferSubject& subject);

// Warnings whose texts begin with the card's number and full name. detail: their third argument.
void cardWarning(const char* key, const DBCTransferSubject& subject, DBCConsequence consequence,
    const std::optional<DBCMessageArgument>& detail = {});

// A name in the data file or the store that points out of the folder it belongs to.
void nameLeadsOut(const DBCTransferSubject& subject, const QString& name, const QString& folder,
    DBCConsequence consequence);

// A file or folder that does not exist: a warning, or an error where the conversion stops.
void missing(const DBCTransferSubject& subject, const QString& path, DBCConsequence consequence);

// Which file or folder of which card an error is about; at error level.
void errorPlace(const DBCTransferSubject& subject, const QString& path);
void errorCopy(const DBCTransferSubject& subject, const QString& source, const QString& target);

} // namespace DBCTransferLog
