// SPDX-License-Identifier: GPL-3.0-or-later
// Every file and folder name of a database package, spelled once.
#pragma once

#include <QString>

namespace DBCPackageLayout {

inline constexpr const char16_t* extension = u"vmdb";
inline constexpr const char16_t* defaultName = u"Velmora DB.vmdb";

QString storeFile(const QString& package); // "Velmora.sqldb"
QString imagesFolder(const QString& package); // "Images"
QString filesFolder(const QString& package); // "Files"
QString versionFile(const QString& package); // "Version.txt"
QString lockFile(const QString& package); // ".VMLock.vmlk"

QString cardPdfName(const QString& cardID); // "%@_N1.pdf"
QString attachmentFolder(const QString& package, const QString& cardID);

// The folder itself where a link to it is given, else the path without what says nothing.
QString withoutLink(const QString& package);

} // namespace DBCPackageLayout
