// SPDX-License-Identifier: GPL-3.0-or-later
// Opens stores. A package may come from anywhere, so every store but one that is being created is
// opened here, with settings under which neither its schema nor its bytes can do harm.
#pragma once

#include "operation/base/DBCStopQuestion.h"

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

// Never creates a store. A store that another program holds is waited for, but only for a second.
// Throws SQLite::Exception.
std::unique_ptr<SQLite::Database> openStoreOfOthers(const QString& path);

// While it lives, what the store computes can be stopped: a trigger may run for ever. The thread's
// DBCStopQuestion decides; a statement that is stopped throws an SQLite::Exception with the code
// SQLITE_INTERRUPT.
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
