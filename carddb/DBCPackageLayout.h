// SPDX-License-Identifier: GPL-3.0-or-later
// The file and folder names inside a card database package.
#pragma once

#include <QString>

// A package is a folder "<name>.vmdb" with the SQLite store of the cards, one PDF per card with
// images in "Images", one folder per card with attachments in "Files", and a version and a lock
// file. All functions only join texts, unless they say otherwise; a result exists only if the
// package does.
namespace DBCPackageLayout {

inline constexpr const char16_t* extension = u"vmdb";
inline constexpr const char16_t* defaultName = u"Velmora DB.vmdb";

QString storeFile(const QString& package); // "Velmora.sqldb"
QString imagesFolder(const QString& package); // "Images"
QString filesFolder(const QString& package); // "Files"
QString versionFile(const QString& package); // "Version.txt"
QString lockFile(const QString& package); // ".VMLock.vmlk"

// "<card ID>_N1.pdf", the name in "Images" of a card's PDF.
QString cardPdfName(const QString& cardID);
// "Files/<card ID>" in the package. The ID comes from the store and may lead out of the package;
// callers check that with DBCNameLookup::staysInside().
QString attachmentFolder(const QString& package, const QString& cardID);

// Looks at the disk: the canonical target where package is a link, which is empty when the link
// leads nowhere; else the path without redundant slashes and dots.
QString withoutLink(const QString& package);

} // namespace DBCPackageLayout
