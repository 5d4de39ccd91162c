// SPDX-License-Identifier: GPL-3.0-or-later
// Small stateless functions for files and texts that several parts of the program share. Any thread
// may call them.
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

    // Writes data to a file and replaces an existing file. Returns Success; GeneralFailure when
    // data is std::nullopt or the path is empty; FileSaveFailure when the parent folder is missing
    // or read-only, the path is a folder, or writing failed; or NoSpaceForExport when the disk has
    // less free space than the size of the data plus DBCDiskSpaceMargin.
    static DBCResultCode saveFile(
        const std::optional<QByteArray>& data, const QString& toGivenPath);

    // Removes a file, but never a folder. Returns true when the file was removed, and false when
    // there is no file or removing it fails.
    static bool cleanTempFile(const QString& path);

    // Makes the folder and all its missing parents. Also returns true for an empty path and for a
    // folder that exists already.
    static bool makeDirectory(const QString& path);

    // Returns the first line of a "Version.txt" as the value of versionInfoKey, or std::nullopt
    // when the file cannot be read.
    static std::optional<DBCVersionInfo> getVersionInfo(const QString& path);
    static constexpr const char* versionInfoKey = ::versionInfoKey;

    // Returns the text as a card stores it: half-width katakana become full-width, and the result
    // is cut to 256 UTF-16 units and at U+0000. Returns an empty text for std::nullopt.
    static QString formatValue(const std::optional<QString>& value);
};

// Returns the version of the operating system in binary-coded decimal (0x1060 for 10.6.0). Returns
// 0x1050 on a system that has no such version number.
qint32 getSystemVersion();

// Returns true when object is a Class or derived from Class, and false for null. Nothing in the
// program calls this function; it is kept on purpose as an interface.
template <typename Class, typename Object> bool isKindOfClass(const Object* object)
{
    return dynamic_cast<const Class*>(object) != nullptr;
}
