// SPDX-License-Identifier: GPL-3.0-or-later
// Stateless checks of the environment that run before and during a conversion. None of them reports
// anything; callers turn the results into codes and messages. The class is kept on purpose as an
// interface: each function forwards to the one that knows the rule, in a room further down, and the
// program also calls those directly. checkVelmoraIsLaunched(), checkAppLocationIsCorrect(),
// isMacOSXVersionAbove() and isValidAttachmentForExport() are not called in the program.
#pragma once

#include "datafile/helpers/DBCVersionInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class DBCChecker {
public:
    // Returns one of the Package* codes, or GeneralFailure for an empty path.
    static DBCResultCode checkDBAttributes(const QString& path);
    // True when another process holds the lock of the file; false when the file does not exist.
    static bool checkDBFileISLocked(const QString& path);
    // True when the path exists and its file system has at least fileSize bytes free, and at least
    // one byte.
    static bool checkDiskSizeIsEnough(const QString& path, quint64 fileSize);
    static bool checkVelmoraIsLaunched();
    // True when text is empty or consists of blankAndNewLineCharacters() only.
    static bool isBlank(const QString& text);
    // True when this program is in the folder that also contains "Velmora.app".
    static bool checkAppLocationIsCorrect();
    // Returns Success, VersionFileRefusedProduct or VersionFileMismatch. Exports carry the product
    // code "TELKA", and it is refused on purpose: an exported folder must not be imported again.
    static DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);
    // True when the system has at least this version, which is in binary-coded decimal (0x1060 for
    // 10.6.0); false when the system has no such version.
    static bool isMacOSXVersionAbove(qint32 version);
    // True when the path has at most lengthLimited bytes in UTF-8; false for an empty path.
    static bool isValidPathLength(const QString& path, quint32 lengthLimited);
    // True when the last component does not begin with a dot and has none of / : \ * ? " < > |
    static bool isValidAttachmentForExport(const QString& path);
};
