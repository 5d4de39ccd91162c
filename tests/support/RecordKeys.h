// SPDX-License-Identifier: GPL-3.0-or-later
// Lists all keys of records and returns the name of each key.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <QList>

inline QList<DBCRecordKey> allRecordKeys()
{
    QList<DBCRecordKey> keys;
    for (std::size_t key = 0; key < DBCRecordKeyCount; ++key)
        keys << static_cast<DBCRecordKey>(key);
    return keys;
}

inline QString recordKeyName(DBCRecordKey key)
{
    return QString::fromStdString(std::string(DBCRecordKeyNames[static_cast<std::size_t>(key)]));
}
