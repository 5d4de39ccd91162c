// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageJournal.h"

#include "system/DBCDiskFlush.h"
#include "system/DBCHiddenName.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <new>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

using Stage = DBCPackageJournal::Stage;

// The most bytes that are read; the four lines of a journal take a few hundred.
constexpr qsizetype sizeLimit = 0x10000;
constexpr mode_t journalMode = S_IRUSR | S_IWUSR;

struct StageName {
    Stage stage;
    QLatin1StringView name;
};

constexpr std::array stageNames {
    StageName {Stage::Backup, QLatin1StringView("backup")},
    StageName {Stage::Import, QLatin1StringView("import")},
    StageName {Stage::Restore, QLatin1StringView("restore")},
    StageName {Stage::Restored, QLatin1StringView("restored")},
};

constexpr QLatin1StringView stageKey("stage");
constexpr QLatin1StringView backupKey("backup");
constexpr QLatin1StringView cardsKey("cards");

QString nameOf(Stage stage)
{
    const auto* row = std::find_if(stageNames.begin(), stageNames.end(),
        [stage](const StageName& candidate) { return candidate.stage == stage; });
    return row->name;
}

int openJournal(const QString& path, int flags)
{
    return open(QFile::encodeName(path).constData(),
        O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags, journalMode);
}

bool isRegularFile(int descriptor)
{
    struct stat status { };
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool writeWhole(int descriptor, const QByteArray& bytes)
{
    ssize_t written = -1;
    do {
        written = write(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    } while (written < 0 && errno == EINTR);
    return written == bytes.size();
}

QString folderOf(const QString& path)
{
    return QFileInfo(path).path();
}

} // namespace

DBCPackageJournal::DBCPackageJournal(const QString& path, int descriptor)
    : _path(path)
    , _file(descriptor)
{
}

std::unique_ptr<DBCPackageJournal> DBCPackageJournal::begin(
    const QString& package, const QString& backup)
{
    const QString path = DBCHiddenName::journalOf(package);
    std::unique_ptr<DBCPackageJournal> journal(
        new DBCPackageJournal(path, openJournal(path, O_CREAT | O_EXCL)));
    if (!journal->_file)
        return nullptr;
    journal->_backupName = QFileInfo(backup).fileName();
    if (flock(journal->_file.get(), LOCK_EX | LOCK_NB) == 0 && journal->enter(Stage::Backup)
        && DBCDiskFlush::folder(folderOf(path)))
        return journal;
    journal->end();
    return nullptr;
}

DBCPackageJournal::SearchResult DBCPackageJournal::find(const QString& package)
{
    const QString path = DBCHiddenName::journalOf(package);
    std::unique_ptr<DBCPackageJournal> journal(new DBCPackageJournal(path, openJournal(path, 0)));
    if (!journal->_file)
        return {errno == ENOENT ? Search::None : Search::Unreadable, nullptr};
    if (!isRegularFile(journal->_file.get()))
        return {Search::Unreadable, nullptr};
    if (flock(journal->_file.get(), LOCK_EX | LOCK_NB) != 0)
        return {Search::HeldByAnother, nullptr};
    // The process that had the journal locked may have removed it between the open() and the
    // flock() here. The open file then has no name any more.
    struct stat status { };
    if (fstat(journal->_file.get(), &status) != 0 || status.st_nlink == 0)
        return {Search::None, nullptr};
    if (!journal->readStages())
        return {Search::Unreadable, nullptr};
    return {Search::Found, std::move(journal)};
}

bool DBCPackageJournal::enter(Stage stage)
try {
    QJsonObject line {{stageKey, nameOf(stage)}};
    if (stage == Stage::Backup)
        line.insert(backupKey, _backupName);
    if (stage == Stage::Import)
        line.insert(cardsKey, _cardIDStart);
    if (!append(QJsonDocument(line).toJson(QJsonDocument::Compact)))
        return false;
    _stage = stage;
    return true;
} catch (const std::bad_alloc&) {
    // A restore continues even if this line is missing, because the previous stage makes the next
    // start ask the same question.
    return false;
}

bool DBCPackageJournal::enterImport(const QString& cardIDStart)
{
    _cardIDStart = cardIDStart;
    return enter(Stage::Import);
}

bool DBCPackageJournal::end()
{
    return QFile::remove(_path) && DBCDiskFlush::folder(folderOf(_path));
}

QString DBCPackageJournal::backupPath() const
{
    return _backupName.isEmpty() ? QString() : folderOf(_path) + u'/' + _backupName;
}

bool DBCPackageJournal::append(const QByteArray& line)
{
    // The leading line end separates this line from one before it that a full disk cut short.
    return writeWhole(_file.get(), '\n' + line + '\n') && DBCDiskFlush::file(_file.get());
}

bool DBCPackageJournal::readStages()
{
    QByteArray bytes(sizeLimit, Qt::Uninitialized);
    const ssize_t length = pread(_file.get(), bytes.data(), sizeLimit, 0);
    if (length < 0)
        return false;
    bytes.truncate(length);
    bytes.truncate(bytes.lastIndexOf('\n') + 1);
    for (const QByteArray& line : bytes.split('\n'))
        takeLine(line);
    return lseek(_file.get(), 0, SEEK_END) >= 0;
}

void DBCPackageJournal::takeLine(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const QString name = object.value(stageKey).toString();
    const auto* row = std::find_if(stageNames.begin(), stageNames.end(),
        [&](const StageName& candidate) { return name == candidate.name; });
    if (row == stageNames.end())
        return;
    _stage = row->stage;
    // Accept only names without a path, so that a forged journal cannot name a backup outside the
    // package's parent folder.
    if (const QString backup = object.value(backupKey).toString(); !backup.contains(u'/'))
        _backupName = backup.isEmpty() ? _backupName : backup;
    if (object.contains(cardsKey))
        _cardIDStart = object.value(cardsKey).toString();
}
