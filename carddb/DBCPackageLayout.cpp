// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageLayout.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace DBCPackageLayout {

QString storeFile(const QString& package)
{
    return package + u"/Velmora.sqldb"_s;
}

QString imagesFolder(const QString& package)
{
    return package + u"/Images"_s;
}

QString filesFolder(const QString& package)
{
    return package + u"/Files"_s;
}

QString versionFile(const QString& package)
{
    return package + u"/Version.txt"_s;
}

QString lockFile(const QString& package)
{
    return package + u"/.VMLock.vmlk"_s;
}

QString cardPdfName(const QString& cardID)
{
    return cardID + u"_N1.pdf"_s;
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
