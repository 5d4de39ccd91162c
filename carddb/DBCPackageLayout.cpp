// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageLayout.h"

#include <QDir>
#include <QFileInfo>

namespace DBCPackageLayout {

QString storeFile(const QString& package)
{
    return package + QStringLiteral("/Velmora.sqldb");
}

QString imagesFolder(const QString& package)
{
    return package + QStringLiteral("/Images");
}

QString filesFolder(const QString& package)
{
    return package + QStringLiteral("/Files");
}

QString versionFile(const QString& package)
{
    return package + QStringLiteral("/Version.txt");
}

QString lockFile(const QString& package)
{
    return package + QStringLiteral("/.VMLock.vmlk");
}

QString cardPdfName(const QString& cardID)
{
    return cardID + QStringLiteral("_N1.pdf");
}

QString attachmentFolder(const QString& package, const QString& cardID)
{
    return filesFolder(package) + u'/' + cardID;
}

QString withoutLink(const QString& package)
{
    const QString path = QDir::cleanPath(package);
    const QFileInfo info(path);
    return info.isSymLink() ? info.canonicalFilePath() : path;
}

} // namespace DBCPackageLayout
