// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCStoreConnection.h"

#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <QFile>

#include <array>
#include <exception>

namespace {

// How long an access waits for another program that has locked the store, before the access fails.
constexpr int busyTimeoutMs = 1000;

struct Switch {
    int option;
    int value;
};

// With these settings, the schema of a store cannot change SQLite's own tables, can call no
// function that does harm, and its views are not used, because a view may take forever to compute.
constexpr std::array<Switch, 3> switches {{
    {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
    {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
}};

struct Limit {
    int category;
    int value;
};

// The limits that SQLite advises for files of others, but wider where a real store may need it: the
// main application may keep pictures in its rows and long conditions in its triggers.
constexpr std::array<Limit, 7> limits {{
    {SQLITE_LIMIT_LENGTH, 16 * 1024 * 1024}, // most bytes of a value or a row
    {SQLITE_LIMIT_SQL_LENGTH, 100'000},
    {SQLITE_LIMIT_EXPR_DEPTH, 100},
    {SQLITE_LIMIT_COMPOUND_SELECT, 50},
    {SQLITE_LIMIT_VDBE_OP, 250'000},
    {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 50},
    {SQLITE_LIMIT_TRIGGER_DEPTH, 10},
}};

// SQLite calls isToStop() each time it has run this many steps, which take some tenths of a
// millisecond.
constexpr int stepsBetweenLooks = 10'000;

int isToStop(void* wait)
{
    try {
        return static_cast<DBCLongWait*>(wait)->isToStop() ? 1 : 0;
    } catch (const std::exception&) {
        return 1; // Stop, because no exception may pass through SQLite.
    }
}

} // namespace

std::unique_ptr<SQLite::Database> openStoreOfOthers(const QString& path)
{
    auto store = std::make_unique<SQLite::Database>(
        QFile::encodeName(path).toStdString(), SQLite::OPEN_READWRITE, busyTimeoutMs);
    sqlite3* handle = store->getHandle();
    for (const Switch& setting : switches)
        sqlite3_db_config(handle, setting.option, setting.value, nullptr);
    for (const Limit& limit : limits)
        sqlite3_limit(handle, limit.category, limit.value);
    // The first setting makes SQLite notice damaged pages when it reads them. The second keeps the
    // file from being mapped into memory, because the program would end if a mapped file shrank.
    store->exec("PRAGMA cell_size_check = ON");
    store->exec("PRAGMA mmap_size = 0");
    return store;
}

DBCStoppableStore::DBCStoppableStore(SQLite::Database& store)
    : _store(store)
{
    sqlite3_progress_handler(_store.getHandle(), stepsBetweenLooks, isToStop, &_wait);
}

DBCStoppableStore::~DBCStoppableStore()
{
    sqlite3_progress_handler(_store.getHandle(), 0, nullptr, nullptr);
}
