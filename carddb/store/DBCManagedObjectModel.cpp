// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCManagedObjectModel.h"

#include "carddb/store/DBCCardAttributes.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

// The columns that the object store framework adds to every entity's table.
constexpr std::array frameworkColumns {"Z_PK", "Z_ENT", "Z_OPT"};

// The column's name in capitals, because SQLite compares column names without regard to case.
std::string upperCase(const std::string& name)
{
    return QString::fromStdString(name).toUpper().toStdString();
}

// Accepts only a table, because a view of that name could take forever to compute.
bool isTable(SQLite::Database& store, const char* name)
{
    SQLite::Statement statement(
        store, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = ? COLLATE NOCASE");
    statement.bind(1, name);
    return statement.executeStep();
}

std::set<std::string> readColumns(SQLite::Database& store, DBCStoreDescription& description)
{
    std::set<std::string> columns;
    SQLite::Statement statement(store, "SELECT name, dflt_value FROM pragma_table_info('ZCARD')");
    while (statement.executeStep()) {
        const std::string name = upperCase(statement.getColumn(0).getString());
        columns.insert(name);
        if (!statement.getColumn(1).isNull())
            description.columnDefaults[name] = statement.getColumn(1).getString();
    }
    return columns;
}

void readEntityNumber(SQLite::Database& store, DBCStoreDescription& description)
{
    SQLite::Statement statement(store, "SELECT Z_ENT FROM Z_PRIMARYKEY WHERE Z_NAME = ?");
    statement.bind(1, DBCManagedObjectModel::entityName);
    if (statement.executeStep())
        description.entityNumber = statement.getColumn(0).getInt64();
    else
        description.missing << QString::fromLatin1(DBCManagedObjectModel::entityName);
}

} // namespace

DBCManagedObjectModel::DBCManagedObjectModel()
{
    _columns.reserve(DBCCardAttributes.size());
    for (const DBCCardAttribute& attribute : DBCCardAttributes)
        _columns.push_back(cardColumnName(attribute.key));
}

DBCStoreDescription DBCManagedObjectModel::describe(SQLite::Database& store) const
{
    DBCStoreDescription description;
    for (const char* table : {"ZCARD", "Z_PRIMARYKEY"}) {
        if (!isTable(store, table))
            description.missing << QString::fromLatin1(table);
    }
    if (!description.missing.isEmpty())
        return description;
    const std::set<std::string> present = readColumns(store, description);

    std::vector<std::string> required(frameworkColumns.begin(), frameworkColumns.end());
    required.insert(required.end(), _columns.begin(), _columns.end());
    for (const std::string& column : required) {
        if (!present.contains(column))
            description.missing << u"ZCARD."_s + QString::fromStdString(column);
    }
    readEntityNumber(store, description);
    return description;
}
