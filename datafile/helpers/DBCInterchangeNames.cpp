// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCInterchangeNames.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A user may copy an export to another system, and some systems do not allow these characters in
// file names.
constexpr QStringView refusedCharacters = u"/:\\*?\"<>|";

} // namespace

namespace DBCInterchangeNames {

QString rootFolderName()
{
    return getLocalString(u"IDS_FOLDER_STRUCT_ROOT"_s);
}

QString dataFileName()
{
    return getLocalString(u"IDS_FOLDER_STRUCT_DataFileName"_s);
}

QString imageFolderName()
{
    return getLocalString(u"IDS_FOLDER_STRUCT_STANDARD"_s);
}

QString attachmentFolderName()
{
    return getLocalString(u"IDS_FOLDER_STRUCT_ATTACHMENT"_s);
}

QString exportFolder(const QString& parent)
{
    return parent.isEmpty() || parent.endsWith(u'/') ? parent + rootFolderName()
                                                     : parent + u'/' + rootFolderName();
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
    return folder + u"/Version.txt"_s;
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
    return recordNo + u"_N1.jpg"_s;
}

QString backImageName(const QString& recordNo)
{
    return recordNo + u"_N2.jpg"_s;
}

} // namespace DBCInterchangeNames
