// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class DBCFileManager;

// Who long loops ask whether to go on. The conversion driver is the one implementation outside
// tests; every call comes on the operation thread.
class DBCCancelDelegate {
public:
    virtual ~DBCCancelDelegate() = default;

    // True when the operation is to stop. May put the cancel question to the user first.
    virtual bool checkIsNeedToConfirmCancelOperation() = 0;

    // Asked before each item of a folder copy; true: go on.
    virtual bool fileManager(
        const DBCFileManager* manager, const QString& shouldCopyItemAtPath, const QString& toPath)
        = 0;
};
