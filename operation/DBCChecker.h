// SPDX-License-Identifier: GPL-3.0-or-later
// Stateless checks of the environment that run before and during a conversion. None of them shows
// or logs anything; callers turn the results into codes and messages. The class only offers the
// checks under one interface: each function calls the function that contains the rule, and the
// program also calls those functions directly. checkVelmoraIsLaunched(),
// checkAppLocationIsCorrect(), isMacOSXVersionAbove() and isValidAttachmentForExport() are not
// called in the program.
#pragma once

#include "datafile/helpers/DBCVersionInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class DBCChecker {
public:
    // Returns one of the Package* codes, or GeneralFailure for an empty path.
    static DBCResultCode checkDBAttributes(const QString& path);
    // Returns true if another process holds the lock of the file; returns false if the file does
    // not exist.
    static bool checkDBFileISLocked(const QString& path);
    // Returns true if the path exists and its file system has at least fileSize bytes free, and at
    // least one byte.
    static bool checkDiskSizeIsEnough(const QString& path, quint64 fileSize);
    static bool checkVelmoraIsLaunched();
    // Returns true if text is empty or consists of blankAndNewLineCharacters() only.
    static bool isBlank(const QString& text);
    // Returns true if this program is in the folder that also contains "Velmora.app".
    static bool checkAppLocationIsCorrect();
    // Returns Success, VersionFileRefusedProduct or VersionFileMismatch. Exports carry the product
    // code "TELKA", and it is refused on purpose: an exported folder must not be imported again.
    static DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);
    // Returns true if the system has at least this version, which is in binary-coded decimal
    // (0x1060 for 10.6.0); returns false if the system has no such version.
    static bool isMacOSXVersionAbove(qint32 version);
    // Returns true if the path has at most lengthLimited bytes in UTF-8; returns false for an empty
    // path.
    static bool isValidPathLength(const QString& path, quint32 lengthLimited);
    // Returns true if the path's last component contains none of / : \ * ? " < > | and does not
    // begin with a dot.
    static bool isValidAttachmentForExport(const QString& path);
};
