// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageChanges.h"

#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCStoreCopy.h"
#include "carddb/store/DBCStoreConnection.h"
#include "system/DBCDescriptor.h"
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

#include <fcntl.h>
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

qint64 count(SQLite::Database& store, const std::string& rows, const std::string& ownStart = {})
{
    SQLite::Statement statement(store, "SELECT count(*) FROM (" + rows + ")");
    if (statement.getBindParameterCount() != 0)
        statement.bind(":own", ownStart);
    return statement.executeStep() ? statement.getColumn(0).getInt64() : 0;
}

// A query for the rows of the first table that the second table does not hold with the same values.
std::string rowsOnlyIn(const std::string& first, const std::string& second)
{
    return "SELECT * FROM " + first + " EXCEPT SELECT * FROM " + second;
}

// A query for the cards of a schema without those of the import, whose IDs begin with the text
// bound to :own. If that text is empty, the query finds all cards.
std::string foreignCards(const std::string& schema)
{
    return "(SELECT * FROM " + schema
        + ".ZCARD WHERE :own = '' OR substr(ifnull(ZCARDID, ''), 1, length(:own)) <> :own)";
}

std::string cardsOnlyIn(const std::string& first, const std::string& second)
{
    return "SELECT Z_PK FROM " + foreignCards(first) + " WHERE Z_PK NOT IN (SELECT Z_PK FROM "
        + foreignCards(second) + ")";
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

void compareRows(SQLite::Database& store, const std::string& ownStart, DBCPackageChanges& changes)
{
    const std::string now = foreignCards("main");
    const std::string then = foreignCards("backup");
    changes.addedCards = count(store, cardsOnlyIn("main", "backup"), ownStart);
    changes.removedCards = count(store, cardsOnlyIn("backup", "main"), ownStart);
    changes.changedCards = count(store, rowsOnlyIn(now, then), ownStart) - changes.addedCards;

    const std::set<std::string> tables = tablesOf(store, "main");
    changes.isOtherDataChanged = tables != tablesOf(store, "backup");
    for (const std::string& table : tables) {
        if (changes.isOtherDataChanged)
            return;
        // Z_PRIMARYKEY is left out because its keys follow from the cards, which were compared
        // above.
        if (table != "ZCARD" && table != "Z_PRIMARYKEY")
            changes.isOtherDataChanged = isOtherTableChanged(store, table);
    }
}

void compareStores(const QString& package, const QString& backup, const QString& cardIDStart,
    DBCPackageChanges& changes)
{
    const DBCStoreCopy now(package);
    const DBCStoreCopy then(backup);
    const bool areBothThere
        = QFileInfo::exists(now.storeFile()) && QFileInfo::exists(then.storeFile());
    if (!now.isCopied() || !then.isCopied() || !areBothThere) {
        changes.isUnknown = true;
        return;
    }
    try {
        const auto store = openStoreOfOthers(now.storeFile());
        SQLite::Statement attach(*store, "ATTACH ? AS backup");
        attach.bind(1, nativePath(then.storeFile()).string());
        attach.exec();
        compareRows(*store, cardIDStart.toStdString(), changes);
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

using FileList = std::map<std::string, FileStamp>; // by the file's path below the package

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

// Whether the import itself wrote the file. Then the second part of its path begins with
// cardIDStart, as in "Images/<card ID>_N1.pdf" and "Files/<card ID>/...".
bool isOwn(const std::string& name, const std::string& cardIDStart)
{
    const std::size_t slash = name.find('/');
    return !cardIDStart.empty() && slash != std::string::npos
        && name.compare(slash + 1, cardIDStart.size(), cardIDStart) == 0;
}

// Returns std::nullopt when a folder could not be read to its end.
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
    if (!QFileInfo(package).isDir() || !QFileInfo(backup).isDir())
        return changes;
    compareStores(package, backup, cardIDStart, changes);
    compareFiles(package, backup, cardIDStart, changes);
    return changes;
}

bool isStoreInUse(const QString& package)
{
    // SQLite locks single bytes of the file from 1 GiB on: one for the pending lock, one for the
    // reserved lock, and 510 for shared locks.
    constexpr off_t firstLockByte = 0x40000000;
    constexpr off_t lockBytes = 512;
    const DBCDescriptor store(
        open(QFile::encodeName(DBCPackageLayout::storeFile(package)).constData(),
            O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct flock lock { };
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = firstLockByte;
    lock.l_len = lockBytes;
    return store && fcntl(store.get(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}
