// SPDX-License-Identifier: GPL-3.0-or-later
// Opens stores. A package may come from anybody, so every store except one that is being created is
// opened here, with settings that keep its schema and its bytes from doing harm.
#pragma once

#include "operation/base/DBCStopQuestion.h"

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

// Opens the store at path; never creates one. If another program has locked the store, an access
// waits for it for at most one second. Throws SQLite::Exception.
std::unique_ptr<SQLite::Database> openStoreOfOthers(const QString& path);

// While an object of this class exists, the user can stop a statement that the store runs. This is
// needed because a trigger in the store may run for ever. While a statement runs, the thread's
// DBCStopQuestion is asked from time to time whether the user wants to stop. A stopped statement
// throws an SQLite::Exception with the code SQLITE_INTERRUPT.
class DBCStoppableStore {
public:
    explicit DBCStoppableStore(SQLite::Database& store);
    ~DBCStoppableStore();
    DBCStoppableStore(const DBCStoppableStore&) = delete;
    DBCStoppableStore& operator=(const DBCStoppableStore&) = delete;

private:
    SQLite::Database& _store;
    DBCLongWait _wait;
};
