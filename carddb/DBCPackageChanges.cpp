// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageChanges.h"

#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCStoreCopy.h"
#include "system/DBCPathNames.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>

#include <sys/stat.h>

namespace {

// --- cards and other rows ---

std::string quoted(const std::string& name)
{
    std::string result = "\"";
    for (const char character : name)
        result += character == '"' ? std::string("\"\"") : std::string(1, character);
    return result + '"';
}

qint64 count(SQLite::Database& store, const std::string& rows)
{
    return store.execAndGet("SELECT count(*) FROM (" + rows + ")").getInt64();
}

// Rows of the first table that the second does not have with the same values.
std::string rowsOnlyIn(const std::string& first, const std::string& second)
{
    return "SELECT * FROM " + first + " EXCEPT SELECT * FROM " + second;
}

std::string cardsOnlyIn(const char* first, const char* second)
{
    return std::string("SELECT 1 FROM ") + first + ".ZCARD WHERE Z_PK NOT IN (SELECT Z_PK FROM "
        + second + ".ZCARD)";
}

std::set<std::string> tablesOf(SQLite::Database& store, const char* schema)
{
    std::set<std::string> names;
    SQLite::Statement tables(
        store, std::string("SELECT name FROM ") + schema + ".sqlite_master WHERE type = 'table'");
    while (tables.executeStep())
        names.insert(tables.getColumn(0).getString());
    return names;
}

bool isOtherTableChanged(SQLite::Database& store, const std::string& table)
{
    const std::string now = "main." + quoted(table);
    const std::string then = "backup." + quoted(table);
    return count(store, rowsOnlyIn(now, then)) != 0 || count(store, rowsOnlyIn(then, now)) != 0;
}

void compareRows(SQLite::Database& store, DBCPackageChanges& changes)
{
    changes.addedCards = count(store, cardsOnlyIn("main", "backup"));
    changes.removedCards = count(store, cardsOnlyIn("backup", "main"));
    changes.changedCards
        = count(store, rowsOnlyIn("main.ZCARD", "backup.ZCARD")) - changes.addedCards;

    const std::set<std::string> tables = tablesOf(store, "main");
    changes.isOtherDataChanged = tables != tablesOf(store, "backup");
    for (const std::string& table : tables) {
        if (changes.isOtherDataChanged)
            return;
        if (table != "ZCARD")
            changes.isOtherDataChanged = isOtherTableChanged(store, table);
    }
}

void compareStores(const QString& package, const QString& backup, DBCPackageChanges& changes)
{
    const DBCStoreCopy now(package);
    const DBCStoreCopy then(backup);
    if (!now.isCopied() || !then.isCopied()) {
        changes.isUnknown = true;
        return;
    }
    try {
        SQLite::Database store(nativePath(now.storeFile()).string(), SQLite::OPEN_READWRITE);
        // The stores may come from anybody; nothing in their schemas may call functions.
        store.exec("PRAGMA trusted_schema = OFF");
        SQLite::Statement attach(store, "ATTACH ? AS backup");
        attach.bind(1, nativePath(then.storeFile()).string());
        attach.exec();
        compareRows(store, changes);
    } catch (const SQLite::Exception&) {
        changes.isUnknown = true;
    }
}

// --- files ---

struct FileStamp {
    mode_t kind;
    off_t size;
    time_t seconds;
    long nanoseconds;
    bool operator==(const FileStamp&) const = default;
};

using FileList = std::map<std::string, FileStamp>; // by the path below the package

bool isStoreOrLock(const QString& package, const std::string& name)
{
    const std::string store
        = QFile::encodeName(QFileInfo(DBCPackageLayout::storeFile(package)).fileName())
              .toStdString();
    const std::string lock
        = QFile::encodeName(QFileInfo(DBCPackageLayout::lockFile(package)).fileName())
              .toStdString();
    return name == lock || name == store || name == store + "-wal" || name == store + "-shm"
        || name == store + "-journal";
}

// Whether the import itself wrote the file: its name, or that of its folder, begins with the ID.
bool isOwn(const std::string& name, const std::string& cardIDStart)
{
    const std::size_t slash = name.find('/');
    return !cardIDStart.empty() && slash != std::string::npos
        && name.compare(slash + 1, cardIDStart.size(), cardIDStart) == 0;
}

// None when a folder could not be read to its end.
std::optional<FileList> filesOf(const QString& package, const QString& cardIDStart)
{
    const std::filesystem::path top = nativePath(package);
    const std::string ownStart = QFile::encodeName(cardIDStart).toStdString();
    FileList files;
    std::error_code error;
    std::filesystem::recursive_directory_iterator entry(top, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator();
         entry.increment(error)) {
        const std::string name = entry->path().string().substr(top.string().size() + 1);
        struct stat status { };
        if (lstat(entry->path().c_str(), &status) != 0)
            return std::nullopt;
        if (S_ISDIR(status.st_mode) || isStoreOrLock(package, name) || isOwn(name, ownStart))
            continue;
        files[name] = {
            status.st_mode & S_IFMT, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
    }
    return error ? std::nullopt : std::optional(files);
}

void compareFiles(const QString& package, const QString& backup, const QString& cardIDStart,
    DBCPackageChanges& changes)
{
    const auto now = filesOf(package, cardIDStart);
    const auto then = filesOf(backup, cardIDStart);
    if (!now || !then) {
        changes.isUnknown = true;
        return;
    }
    for (const auto& [name, stamp] : *now) {
        const auto other = then->find(name);
        if (other == then->end() || other->second != stamp)
            ++changes.otherFiles;
    }
    for (const auto& [name, stamp] : *then)
        changes.otherFiles += now->contains(name) ? 0 : 1;
}

} // namespace

DBCPackageChanges changesSinceBackup(
    const QString& package, const QString& backup, const QString& cardIDStart)
{
    DBCPackageChanges changes;
    if (!QFileInfo(package).isDir())
        return changes;
    compareStores(package, backup, changes);
    compareFiles(package, backup, cardIDStart, changes);
    return changes;
}
