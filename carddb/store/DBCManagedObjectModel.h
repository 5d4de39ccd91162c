// SPDX-License-Identifier: GPL-3.0-or-later
// What a store must hold to be a card store: the entity Card with every attribute that is read.
#pragma once

#include <QStringList>

#include <map>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

// How one store holds the entity Card.
struct DBCStoreDescription {
    qint64 entityNumber = 0;
    // SQL text of the table's own DEFAULT by column; columns without one are not in it.
    std::map<std::string, std::string> columnDefaults;
    // What the model asks for and the store lacks, as "Card" or "ZCARD.ZMEMO"; empty: it fits.
    QStringList missing;
};

class DBCManagedObjectModel {
public:
    static constexpr const char* entityName = "Card";

    DBCManagedObjectModel();

    // Names of the attributes' columns, in the order of DBCCardAttributes.
    const std::vector<std::string>& columns() const { return _columns; }

    // Throws SQLite::Exception when the store cannot be read or is none.
    DBCStoreDescription describe(SQLite::Database& store) const;

private:
    std::vector<std::string> _columns;
};
