// SPDX-License-Identifier: GPL-3.0-or-later
// The names of all files and folders of an interchange folder, and what belongs to its format: the
// names of attachments that can be exported, and the product code and version in "Version.txt".
#pragma once

#include <QString>

namespace DBCInterchangeNames {

QString rootFolderName(); // "IDS_FOLDER_STRUCT_ROOT"
QString dataFileName(); // "IDS_FOLDER_STRUCT_DataFileName"
QString imageFolderName(); // "IDS_FOLDER_STRUCT_STANDARD"
QString attachmentFolderName(); // "IDS_FOLDER_STRUCT_ATTACHMENT"

// The interchange folder that an export makes in parent.
QString exportFolder(const QString& parent);

// folder: the interchange folder.
QString dataFile(const QString& folder);
QString imageFolder(const QString& folder);
QString attachmentFolder(const QString& folder);
QString versionFile(const QString& folder); // "Version.txt"

// Whether the last component of the path may be the name of an exported attachment: it does not
// begin with a dot and contains none of / : \ * ? " < > |
bool isAttachmentName(const QString& path);

QString faceImageName(const QString& recordNo); // "%@_N1.jpg"
QString backImageName(const QString& recordNo); // "%@_N2.jpg"

// The source platform's file browser writes this file into folders, also into those of packages. It
// never counts as an attachment.
inline constexpr const char* folderSettingsFile = ".DS_Store";

// The product code and version that an export writes into "Version.txt" and an import checks.
inline constexpr const char16_t* productCode = u"TELKA";
inline constexpr const char16_t* productVersion = u"V1.0L10";

} // namespace DBCInterchangeNames
