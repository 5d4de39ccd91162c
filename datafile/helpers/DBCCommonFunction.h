// SPDX-License-Identifier: GPL-3.0-or-later
// Small stateless helpers that the rest of the program shares.
#pragma once

#include "datafile/helpers/DBCVersionInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

enum class DBCRecordKey : quint8;

// Bytes left free beside whatever is written: 512 KiB.
inline constexpr quint64 DBCDiskSpaceMargin = 0x80000;

class DBCCommonFunction {
public:
    // The 21 localized titles, and the 21 record keys, in column order.
    static QStringList createTitleNamesForDataFile();
    static std::vector<DBCRecordKey> createRecordKeyNamesForDataFile();

    // Writes data to the path, replacing a file that stands there. GeneralFailure: no data or no
    // path; FileSaveFailure: the parent is missing or read-only, a folder stands at the path, or
    // the write failed; NoSpaceForExport: less than the data and DBCDiskSpaceMargin is free.
    static DBCResultCode saveFile(
        const std::optional<QByteArray>& data, const QString& toGivenPath);

    // Removes a file. False for a missing path and for a folder, which is never removed.
    static bool cleanTempFile(const QString& path);

    // Makes every missing folder of the path; true for an empty path and an existing folder.
    static bool makeDirectory(const QString& path);

    // The first line of a "Version.txt" under versionInfoKey; none when it cannot be read.
    static std::optional<DBCVersionInfo> getVersionInfo(const QString& path);
    static constexpr const char* versionInfoKey = ::versionInfoKey;

    // Half-width katakana widened, cut to 256 UTF-16 units; "" for none.
    static QString formatValue(const std::optional<QString>& value);
};

// Version of the operating system in binary-coded decimal; 0x1050 where it cannot be asked.
qint32 getSystemVersion();

// False for a missing object, else whether it is a Class or derived from it.
template <typename Class, typename Object> bool isKindOfClass(const Object* object)
{
    return dynamic_cast<const Class*>(object) != nullptr;
}
