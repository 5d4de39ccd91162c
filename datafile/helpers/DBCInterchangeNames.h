// SPDX-License-Identifier: GPL-3.0-or-later
// Every file and folder name of the interchange folder, spelled once.
#pragma once

#include <QString>

namespace DBCInterchangeNames {

QString rootFolderName(); // "IDS_FOLDER_STRUCT_ROOT"
QString dataFileName(); // "IDS_FOLDER_STRUCT_DataFileName"
QString imageFolderName(); // "IDS_FOLDER_STRUCT_STANDARD"
QString attachmentFolderName(); // "IDS_FOLDER_STRUCT_ATTACHMENT"

QString dataFile(const QString& folder);
QString imageFolder(const QString& folder);
QString attachmentFolder(const QString& folder);
QString versionFile(const QString& folder); // "Version.txt"

// The path's last component can stand in an attachment folder: it does not begin with a dot and
// holds none of / : \ * ? " < > |
bool isAttachmentName(const QString& path);

QString faceImageName(const QString& recordNo); // "%@_N1.jpg"
QString backImageName(const QString& recordNo); // "%@_N2.jpg"

// Written into folders by the source platform's file browser, in packages, too; no attachment.
inline constexpr const char* folderSettingsFile = ".DS_Store";

// Product code and version that an export writes and an import judges.
inline constexpr const char16_t* productCode = u"TELKA";
inline constexpr const char16_t* productVersion = u"V1.0L10";

} // namespace DBCInterchangeNames
