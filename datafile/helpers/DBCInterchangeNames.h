// SPDX-License-Identifier: GPL-3.0-or-later
// The names of all files and folders of an interchange folder, the folder that an export writes and
// an import reads. Also the rule for the names of attachments, and the product code and version in
// "Version.txt".
#pragma once

#include <QString>

namespace DBCInterchangeNames {

QString rootFolderName(); // "IDS_FOLDER_STRUCT_ROOT"
QString dataFileName(); // "IDS_FOLDER_STRUCT_DataFileName"
QString imageFolderName(); // "IDS_FOLDER_STRUCT_STANDARD"
QString attachmentFolderName(); // "IDS_FOLDER_STRUCT_ATTACHMENT"

// Returns the path of the interchange folder that an export makes in parent.
QString exportFolder(const QString& parent);

// The parameter folder is the path of the interchange folder.
QString dataFile(const QString& folder);
QString imageFolder(const QString& folder);
QString attachmentFolder(const QString& folder);
QString versionFile(const QString& folder); // "Version.txt"

// Returns true when the last component of the path may be the name of an exported attachment. Such
// a name does not begin with a dot and contains none of the characters / : \ * ? " < > |
bool isAttachmentName(const QString& path);

QString faceImageName(const QString& recordNo); // "%@_N1.jpg"
QString backImageName(const QString& recordNo); // "%@_N2.jpg"

// The file browser of the source platform writes this file into folders, also into folders inside
// packages. The file never counts as an attachment.
inline constexpr const char* folderSettingsFile = ".DS_Store";

// The product code and version that an export writes into "Version.txt" and an import checks.
inline constexpr const char16_t* productCode = u"TELKA";
inline constexpr const char16_t* productVersion = u"V1.0L10";

} // namespace DBCInterchangeNames
