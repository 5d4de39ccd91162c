// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCStoreCopy.h"

#include "carddb/DBCPackageLayout.h"
#include "system/DBCPathNames.h"

#include <QFile>

#include <array>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

// The endings of the store's own file, and of the log and journal that SQLite may have left beside
// it.
constexpr std::array storeFileSuffixes {"", "-wal", "-journal"};

QString messageOf(const std::error_code& error)
{
    return QString::fromLocal8Bit(error.message().c_str());
}

// Returns the template for the copy's folder. It uses the standard library to find the temporary
// folder, because Qt falls back to the root folder if the system has none. In that case the
// template names a path that cannot exist, so that the QTemporaryDir is invalid.
QString temporaryFolderTemplate()
{
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    return QFile::decodeName(error ? "/dev/null" : folder.c_str()) + u"/VelmoraConverter-XXXXXX"_s;
}

DBCSignalCleanup removalOnSignal(const QTemporaryDir& folder)
{
    const QByteArray store = QFile::encodeName(DBCPackageLayout::storeFile(folder.path()));
    return {{store, store + "-wal", store + "-journal", store + "-shm"},
        QFile::encodeName(folder.path())};
}

} // namespace

DBCStoreCopy::DBCStoreCopy(const QString& package)
    : _folder(temporaryFolderTemplate())
    , _cleanup(removalOnSignal(_folder))
{
    if (!_folder.isValid()) {
        _reason = _folder.errorString();
        return;
    }
    const QString store = DBCPackageLayout::storeFile(package);
    for (const char* suffix : storeFileSuffixes) {
        const auto source = nativePath(store + QString::fromLatin1(suffix));
        const auto target = nativePath(storeFile() + QString::fromLatin1(suffix));
        std::error_code error;
        if (!std::filesystem::is_regular_file(source, error))
            continue;
        std::filesystem::copy_file(source, target, error);
        if (!error)
            std::filesystem::permissions(target, std::filesystem::perms::owner_all, error);
        if (error) {
            _reason = messageOf(error);
            return;
        }
    }
}

QString DBCStoreCopy::storeFile() const
{
    return DBCPackageLayout::storeFile(_folder.path());
}
