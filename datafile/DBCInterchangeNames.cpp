// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/DBCInterchangeNames.h"

#include "datafile/DBCLocalizable.h"

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

QString faceImageName(const QString& recordNo)
{
    return recordNo + QStringLiteral("_N1.jpg");
}

QString backImageName(const QString& recordNo)
{
    return recordNo + QStringLiteral("_N2.jpg");
}

} // namespace DBCInterchangeNames
