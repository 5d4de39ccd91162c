// SPDX-License-Identifier: GPL-3.0-or-later
// The functions of DBCCommonFunction about columns. Its other functions are in the library
// datafile/helpers, which must not depend on the columns.
#include "datafile/helpers/DBCCommonFunction.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCColumns.h"

QStringList DBCCommonFunction::createTitleNamesForDataFile()
{
    QStringList titles;
    for (const DBCColumn& column : DBCColumns)
        titles << getLocalString(column.titleKey);
    return titles;
}

std::vector<DBCRecordKey> DBCCommonFunction::createRecordKeyNamesForDataFile()
{
    std::vector<DBCRecordKey> keys;
    keys.reserve(DBCColumns.size());
    for (const DBCColumn& column : DBCColumns)
        keys.push_back(column.key);
    return keys;
}
