// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCInterchangeNames.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

// What systems that may receive an export refuse in file names.
constexpr QStringView refusedCharacters = u"/:\\*?\"<>|";

} // namespace

namespace DBCInterchangeNames {

QString rootFolderName()
{
    return getLocalString(QStringLiteral("IDS_FOLDER_STRUCT_ROOT"));
}

QString dataFileName()
{
    return getLocalString(QStringLiteral("IDS_FOLDER_STRUCT_DataFileName"));
}

QString imageFolderName()
{
    return getLocalString(QStringLiteral("IDS_FOLDER_STRUCT_STANDARD"));
}

QString attachmentFolderName()
{
    return getLocalString(QStringLiteral("IDS_FOLDER_STRUCT_ATTACHMENT"));
}

QString dataFile(const QString& folder)
{
    return folder + u'/' + dataFileName();
}

QString imageFolder(const QString& folder)
{
    return folder + u'/' + imageFolderName();
}

QString attachmentFolder(const QString& folder)
{
    return folder + u'/' + attachmentFolderName();
}

QString versionFile(const QString& folder)
{
    return folder + QStringLiteral("/Version.txt");
}

bool isAttachmentName(const QString& path)
{
    const QString name = path.isEmpty() ? QString() : QFileInfo(QDir::cleanPath(path)).fileName();
    return !name.isEmpty() && !name.startsWith(u'.')
        && std::none_of(
            name.begin(), name.end(), [](QChar c) { return refusedCharacters.contains(c); });
}

QString faceImageName(const QString& recordNo)
{
    return recordNo + QStringLiteral("_N1.jpg");
}

QString backImageName(const QString& recordNo)
{
    return recordNo + QStringLiteral("_N2.jpg");
}

} // namespace DBCInterchangeNames
