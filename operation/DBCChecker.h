// SPDX-License-Identifier: GPL-3.0-or-later
// Stateless questions about the environment, asked before and during a conversion. None of them
// reports anything; callers turn the answers into codes and messages.
#pragma once

#include "datafile/helpers/DBCVersionInfo.h"
#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

class DBCChecker {
public:
    // GeneralFailure, or one of the Package* classifications. An empty path is none.
    static DBCResultCode checkDBAttributes(const QString& path);
    // True when another process holds the file's lock; false for a missing file.
    static bool checkDBFileISLocked(const QString& path);
    // True when the file system that holds the existing path has at least fileSize bytes free, and
    // any at all.
    static bool checkDiskSizeIsEnough(const QString& path, quint64 fileSize);
    static bool checkVelmoraIsLaunched();
    // Empty, or nothing but characters of blankAndNewLineCharacters().
    static bool isBlank(const QString& text);
    // True when this program stands in the main application's folder beside "Velmora.app".
    static bool checkAppLocationIsCorrect();
    // Success, VersionFileRefusedProduct or VersionFileMismatch. A product code of "TELKA" is
    // refused although exports carry it: an exported folder is not meant to come back.
    static DBCResultCode checkVersionInfo(const std::optional<DBCVersionInfo>& versionInfo);
    // version in binary-coded decimal (0x1060 for 10.6.0); false where the system cannot be asked.
    static bool isMacOSXVersionAbove(qint32 version);
    // The path's UTF-8 form has at most lengthLimited bytes; false for an empty path.
    static bool isValidPathLength(const QString& path, quint32 lengthLimited);
    // The last component does not begin with a dot and holds none of / : \ * ? " < > |
    static bool isValidAttachmentForExport(const QString& path);
};
