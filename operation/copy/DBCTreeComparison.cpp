// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/copy/DBCTreeComparison.h"

#include "system/DBCDescriptor.h"
#include "system/DBCFolderEntries.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include <cerrno>
#include <fcntl.h>

namespace {

constexpr std::size_t bufferSize = std::size_t(256) << 10;
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int fileFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

std::optional<std::vector<QByteArray>> sortedNames(int folder)
{
    const auto entries = entriesOfFolder(folder);
    if (!entries)
        return std::nullopt;
    std::vector<QByteArray> names;
    std::transform(entries->begin(), entries->end(), std::back_inserter(names),
        [](const DBCFolderEntry& entry) { return entry.name; });
    std::sort(names.begin(), names.end());
    return names;
}

// A copy by an ordinary user gets a new owner and loses its set-ID bits. This does not count as a
// difference.
bool haveSameMode(const struct stat& status, const struct stat& other)
{
    constexpr mode_t rightsOfTheOwner = S_ISUID | S_ISGID;
    const bool hasOtherOwner = status.st_uid != other.st_uid || status.st_gid != other.st_gid;
    const mode_t ignored = hasOtherOwner ? rightsOfTheOwner : 0;
    return ((status.st_mode ^ other.st_mode) & ~ignored) == 0;
}

// Reads until the buffer is full or the file ends, and returns the number of bytes read. Returns
// std::nullopt on an error.
std::optional<std::size_t> readPiece(int file, std::vector<char>& buffer)
{
    std::size_t length = 0;
    while (length < buffer.size()) {
        const ssize_t got = read(file, buffer.data() + length, buffer.size() - length);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        length += static_cast<std::size_t>(got);
    }
    return length;
}

} // namespace

// The same name in two open folders.
struct DBCTreeComparison::Pair {
    int folder;
    int otherFolder;
    const QByteArray& name;
    struct stat status { };
    struct stat otherStatus { };
};

bool DBCTreeComparison::areEqual(const QByteArray& folder, const QByteArray& other)
{
    _path.clear();
    _buffer.resize(bufferSize);
    _otherBuffer.resize(bufferSize);
    const DBCDescriptor first(open(folder.constData(), folderFlags));
    const DBCDescriptor second(open(other.constData(), folderFlags));
    struct stat status { };
    struct stat otherStatus { };
    return first && second && fstat(first.get(), &status) == 0
        && fstat(second.get(), &otherStatus) == 0 && haveSameMode(status, otherStatus)
        && compareFolders(first.get(), second.get());
}

bool DBCTreeComparison::compareFolders(int folder, int other)
{
    const auto names = sortedNames(folder);
    const auto otherNames = sortedNames(other);
    if (!names || !otherNames || *names != *otherNames)
        return false;
    return std::all_of(names->begin(), names->end(),
        [&](const QByteArray& name) { return compareEntry(folder, other, name); });
}

bool DBCTreeComparison::compareEntry(int folder, int other, const QByteArray& name)
{
    if (_questions.mayGoOn && !_questions.mayGoOn())
        return false;
    const qsizetype size = _path.size();
    if (size > 0)
        _path.append('/');
    _path.append(name);
    Pair pair {folder, other, name};
    if (fstatat(folder, name.constData(), &pair.status, AT_SYMLINK_NOFOLLOW) != 0
        || fstatat(other, name.constData(), &pair.otherStatus, AT_SYMLINK_NOFOLLOW) != 0
        || !haveSameMode(pair.status, pair.otherStatus) || !compareKinds(pair))
        return false;
    _path.truncate(size);
    return true;
}

bool DBCTreeComparison::compareKinds(const Pair& pair)
{
    switch (pair.status.st_mode & S_IFMT) {
    case S_IFREG:
        return (_questions.mayDiffer && _questions.mayDiffer(_path)) || compareFiles(pair);
    case S_IFDIR: {
        const DBCDescriptor folder(openat(pair.folder, pair.name.constData(), folderFlags));
        const DBCDescriptor other(openat(pair.otherFolder, pair.name.constData(), folderFlags));
        return folder && other && compareFolders(folder.get(), other.get());
    }
    case S_IFLNK: {
        const auto target = targetOfLink(pair.folder, pair.name);
        return target && target == targetOfLink(pair.otherFolder, pair.name);
    }
    default:
        return false;
    }
}

bool DBCTreeComparison::compareFiles(const Pair& pair)
{
    if (pair.status.st_size != pair.otherStatus.st_size)
        return false;
    // Closing the store's file here releases the locks that SQLite holds on it in this process.
    // That is harmless as long as no transaction is open.
    const DBCDescriptor file(openat(pair.folder, pair.name.constData(), fileFlags));
    const DBCDescriptor other(openat(pair.otherFolder, pair.name.constData(), fileFlags));
    return file && other && compareContents(file.get(), other.get());
}

bool DBCTreeComparison::compareContents(int file, int other)
{
    while (true) {
        const auto length = readPiece(file, _buffer);
        const auto otherLength = readPiece(other, _otherBuffer);
        if (!length || length != otherLength
            || std::memcmp(_buffer.data(), _otherBuffer.data(), *length) != 0)
            return false;
        if (*length < _buffer.size())
            return true;
    }
}
