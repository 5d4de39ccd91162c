// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageBackups.h"

#include "carddb/DBCBackupName.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCPackageVerifier.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCProblemAt.h"
#include "operation/base/DBCError.h"
#include "system/DBCFolderListing.h"
#include "system/DBCPathChecks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QDateTime timeOfMaking(const QFileInfo& folder)
{
    const QDateTime birth = folder.birthTime();
    return birth.isValid() ? birth : folder.metadataChangeTime();
}

std::optional<quint64> sizeOf(const QString& path)
{
    DBCError error;
    const quint64 size = getSizeWithPath(path, &error);
    return error ? std::nullopt : std::optional(size);
}

bool isNewer(const DBCBackup& first, const DBCBackup& second)
{
    return first.madeAt != second.madeAt ? first.madeAt > second.madeAt : first.path > second.path;
}

} // namespace

QString DBCBackup::name() const
{
    return QFileInfo(path).fileName();
}

QString DBCBackup::dateText() const
{
    return QLocale::c().toString(madeAt, u"yyyy-MM-dd HH:mm"_s);
}

DBCBackupList DBCPackageBackups::list(const QString& givenPackage)
{
    const QString package = DBCPackageLayout::withoutLink(givenPackage);
    const QString folder = QFileInfo(package).path();
    std::error_code error;
    const auto names = namesInFolder(folder, &error);
    if (!names) {
        const QString reason = QString::fromLocal8Bit(error.message().c_str());
        return {{}, problemAt(folder, "IDS_VERIFY_FOLDER_UNREADABLE", {reason})};
    }
    DBCBackupList found;
    for (const std::string& name : *names) {
        if (const auto path = pathOf(package, QFile::decodeName(name.c_str())))
            found.backups.push_back(describe(*path));
    }
    std::sort(found.backups.begin(), found.backups.end(), isNewer);
    return found;
}

std::optional<QString> DBCPackageBackups::pathOf(const QString& givenPackage, const QString& name)
{
    const QString package = DBCPackageLayout::withoutLink(givenPackage);
    if (package.isEmpty() || !DBCBackupName::isOf(package, name))
        return std::nullopt;
    const QString path = QDir::cleanPath(QFileInfo(package).path() + u'/' + name);
    return isFolderNotLink(path) ? std::optional(path) : std::nullopt;
}

DBCBackup DBCPackageBackups::describe(const QString& path)
{
    DBCBackup backup {path, timeOfMaking(QFileInfo(path)), sizeOf(path), {}, {}};
    const DBCStoreReport store = DBCPackageVerifier::verifyStore(path);
    if (const auto problem = store.firstProblem())
        backup.damage = problem->text;
    else
        backup.cardCount = store.liveCardCount;
    return backup;
}
