// SPDX-License-Identifier: GPL-3.0-or-later
// Small stateless helpers for files and texts that several rooms share. All may be called on any
// thread.
#pragma once

#include "datafile/helpers/DBCVersionInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

enum class DBCRecordKey : quint8;

// Bytes that must stay free on a disk after anything is written to it: 512 KiB.
inline constexpr quint64 DBCDiskSpaceMargin = 0x80000;

class DBCCommonFunction {
public:
    // The 21 localized column titles and the 21 record keys, both in column order.
    static QStringList createTitleNamesForDataFile();
    static std::vector<DBCRecordKey> createRecordKeyNamesForDataFile();

    // Writes data to a file and replaces an existing one. GeneralFailure: data or path is missing.
    // FileSaveFailure: the parent folder is missing or read-only, the path is a folder, or writing
    // failed. NoSpaceForExport: the disk has less free than the data and DBCDiskSpaceMargin.
    static DBCResultCode saveFile(
        const std::optional<QByteArray>& data, const QString& toGivenPath);

    // Removes a file. Returns false when there is none; a folder is never removed.
    static bool cleanTempFile(const QString& path);

    // Makes the folder and all its missing parents. Also true for an empty path and a folder that
    // exists already.
    static bool makeDirectory(const QString& path);

    // The first line of a "Version.txt", as the value of versionInfoKey; none when it cannot be
    // read.
    static std::optional<DBCVersionInfo> getVersionInfo(const QString& path);
    static constexpr const char* versionInfoKey = ::versionInfoKey;

    // The text as a card stores it: half-width katakana become full-width, and the result is cut to
    // 256 UTF-16 units and at U+0000. Empty for none.
    static QString formatValue(const std::optional<QString>& value);
};

// The version of the operating system in binary-coded decimal (0x1060 for 10.6.0); 0x1050 where the
// system has no such version.
qint32 getSystemVersion();

// True when object is a Class or derived from it; false for null. Nothing in the program calls it;
// it is kept on purpose as an interface.
template <typename Class, typename Object> bool isKindOfClass(const Object* object)
{
    return dynamic_cast<const Class*>(object) != nullptr;
}
