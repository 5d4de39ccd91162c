// SPDX-License-Identifier: GPL-3.0-or-later
// The file and folder names inside a card database package.
#pragma once

#include <QString>

// A package is a folder "<name>.vmdb" with the SQLite store of the cards, one PDF per card with
// images in "Images", one folder per card with attachments in "Files", a version file and a lock
// file. The functions only put paths together and do not look at the disk, unless their comment
// says otherwise.
namespace DBCPackageLayout {

inline constexpr const char16_t* extension = u"vmdb";
inline constexpr const char16_t* defaultName = u"Velmora DB.vmdb";

QString storeFile(const QString& package); // "Velmora.sqldb"
QString imagesFolder(const QString& package); // "Images"
QString filesFolder(const QString& package); // "Files"
QString versionFile(const QString& package); // "Version.txt"
QString lockFile(const QString& package); // ".VMLock.vmlk"

// Returns "<card ID>_N1.pdf", the name in "Images" of a card's PDF.
QString cardPdfName(const QString& cardID);
// Returns "<package>/Files/<card ID>". The ID comes from the store and may lead out of the package;
// callers check that with DBCNameLookup::staysInside().
QString attachmentFolder(const QString& package, const QString& cardID);

// Looks at the disk. If package is a link, this returns the canonical path of its target, or an
// empty text when the link leads nowhere. Else it returns the path without redundant slashes and
// dots.
QString withoutLink(const QString& package);

} // namespace DBCPackageLayout
