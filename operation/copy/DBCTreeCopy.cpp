// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCTreeCopy.h"

#include "operation/copy/DBCContentsCopy.h"
#include "system/DBCDescriptor.h"
#include "system/DBCExtendedAttributes.h"
#include "system/DBCFolderEntries.h"

#include <QFile>

#include <algorithm>
#include <memory>
#include <tuple>

#include <cstdlib>
#include <fcntl.h>

namespace {

constexpr mode_t permissionBits = 07777;

bool keepOwner(int descriptor, const struct stat& status)
{
    return fchown(descriptor, status.st_uid, status.st_gid) == 0;
}

bool keepAttributes(int from, int descriptor, const struct stat& status)
{
    mode_t mode = status.st_mode & permissionBits;
    // Only root may change an owner. A file that keeps the user as its owner must not run with the
    // user's rights, so it loses the set-ID bits.
    if (!keepOwner(descriptor, status))
        mode &= ~static_cast<mode_t>(S_ISUID | S_ISGID);
    const struct timespec times[] {
        status.st_atim, status.st_mtim
    };
    return fchmod(descriptor, mode) == 0 && copyExtendedAttributes(from, descriptor)
        && futimens(descriptor, times) == 0;
}

} // namespace

// A name in one open folder, and the name of its copy in another.
struct DBCTreeCopy::Item {
    int fromFolder;
    QByteArray name;
    int toFolder;
    QByteArray toName;
};

bool DBCTreeCopy::copy(const QByteArray& source, const QByteArray& target)
{
    const std::unique_ptr<char, void (*)(void*)> resolved(
        realpath(source.constData(), nullptr), std::free);
    if (!resolved)
        return false;
    _path = source;
    _toPath = target;
    _nextQuestion = std::chrono::steady_clock::now();
    if (!copyItem({AT_FDCWD, resolved.get(), AT_FDCWD, target}))
        return false;
    _status.stage = DBCFileOperationStatus::stageComplete;
    return true;
}

bool DBCTreeCopy::copyFileBetween(int fromFolder, int toFolder, const QByteArray& name)
{
    return copyFile({fromFolder, name, toFolder, name});
}

bool DBCTreeCopy::copyItem(const Item& item)
{
    struct stat status = {};
    if (!mayGoOn() || !mayCopyItem()
        || fstatat(item.fromFolder, item.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    switch (status.st_mode & S_IFMT) {
    case S_IFREG:
        return copyFile(item);
    case S_IFDIR:
        return copyFolder(item);
    case S_IFLNK:
        return copyLink(item, status);
    default:
        // The copy fails here, because an entry that was left out of a backup would be silently
        // missing after a restore.
        return false;
    }
}

bool DBCTreeCopy::copyFile(const Item& item)
{
    // Closing this descriptor releases the POSIX locks that SQLite holds on the same file in this
    // process. That is harmless, because no transaction is open on the store while a package is
    // backed up. The package's lock file uses flock() and stays locked.
    const DBCDescriptor from(openat(
        item.fromFolder, item.name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!from || fstat(from.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    DBCDescriptor to(openat(item.toFolder, item.toName.constData(),
        O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!to)
        return false;
    _status.totalBytes += static_cast<quint64>(status.st_size);
    return copyContents(from.get(), to.get()) && keepAttributes(from.get(), to.get(), status)
        && to.close();
}

bool DBCTreeCopy::copyContents(int from, int to)
{
    DBCContentsCopy contents(from, to);
    while (const std::optional<std::size_t> size = contents.next()) {
        if (*size == 0)
            return true;
        _status.bytesComplete += *size;
        if (!mayGoOn())
            return false;
    }
    return false;
}

bool DBCTreeCopy::copyLink(const Item& item, const struct stat& status)
{
    const auto target = targetOfLink(item.fromFolder, item.name);
    const char* const toName = item.toName.constData();
    if (!target || symlinkat(target->constData(), item.toFolder, toName) != 0)
        return false;
    // The owner of a link has no effect, and only root may change it, so a failure is ignored.
    std::ignore
        = fchownat(item.toFolder, toName, status.st_uid, status.st_gid, AT_SYMLINK_NOFOLLOW);
    const struct timespec times[] {
        status.st_atim, status.st_mtim
    };
    return utimensat(item.toFolder, toName, times, AT_SYMLINK_NOFOLLOW) == 0;
}

bool DBCTreeCopy::copyFolder(const Item& item)
{
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const DBCDescriptor from(openat(item.fromFolder, item.name.constData(), flags));
    struct stat status = {};
    if (!from || fstat(from.get(), &status) != 0
        || mkdirat(item.toFolder, item.toName.constData(), S_IRWXU) != 0)
        return false;
    const DBCDescriptor to(openat(item.toFolder, item.toName.constData(), flags));
    // The attributes are set last: creating entries changes a folder's times, and needs the right
    // to write, which the source's permissions may not include.
    return to && copyEntries(from.get(), to.get()) && keepAttributes(from.get(), to.get(), status);
}

bool DBCTreeCopy::copyEntries(int from, int to)
{
    const auto entries = entriesOfFolder(from);
    return entries
        && std::all_of(entries->begin(), entries->end(),
            [&](const DBCFolderEntry& entry) { return copyEntry(from, to, entry.name); });
}

bool DBCTreeCopy::copyEntry(int from, int to, const QByteArray& name)
{
    const qsizetype size = _path.size();
    const qsizetype toSize = _toPath.size();
    _path.append('/').append(name);
    _toPath.append('/').append(name);
    const bool copied = copyItem({from, name, to, name});
    _path.truncate(size);
    _toPath.truncate(toSize);
    return copied;
}

bool DBCTreeCopy::mayCopyItem() const
{
    return !_questions.beforeItem
        || _questions.beforeItem(QFile::decodeName(_path), QFile::decodeName(_toPath));
}

bool DBCTreeCopy::mayGoOn()
{
    const auto now = std::chrono::steady_clock::now();
    if (!_questions.atInterval || now < _nextQuestion)
        return true;
    _nextQuestion = now
        + std::chrono::duration_cast<std::chrono::steady_clock::duration>(_questions.interval);
    return _questions.atInterval(_status);
}
