// SPDX-License-Identifier: GPL-3.0-or-later
// Knows which tables and columns a store needs to be a card store, and checks whether a store has
// them.
#pragma once

#include <QStringList>

#include <map>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

// How one store represents the entity Card.
struct DBCStoreDescription {
    qint64 entityNumber = 0; // the value of Z_ENT in rows of this entity
    // The SQL text of each column's DEFAULT, by the column's name in capitals. A column without a
    // default has no entry.
    std::map<std::string, std::string> columnDefaults;
    // The tables, entities and columns that the store lacks, such as "Card" or "ZCARD.ZMEMO". The
    // list is empty when the store fits the model.
    QStringList missing;
};

class DBCManagedObjectModel {
public:
    static constexpr const char* entityName = "Card";

    DBCManagedObjectModel();

    // The names of the attributes' columns, in the order of DBCCardAttributes.
    const std::vector<std::string>& columns() const { return _columns; }

    // Throws SQLite::Exception when the file cannot be read or is no SQLite store.
    DBCStoreDescription describe(SQLite::Database& store) const;

private:
    std::vector<std::string> _columns;
};
