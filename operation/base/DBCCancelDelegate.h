// SPDX-License-Identifier: GPL-3.0-or-later
// The interface through which long loops (a folder copy, a fetch of cards) ask whether they are to
// go on. Outside tests, the conversion driver is the only implementation.
#pragma once

#include <QString>

class DBCFileManager;

// A loop does not own its delegate, and may have none (null); it then runs to its end. It calls the
// delegate on the operation thread, and each call may take as long as the user takes to answer the
// cancel question. Note that the two answers have opposite meanings.
class DBCCancelDelegate {
public:
    virtual ~DBCCancelDelegate() = default;

    // Returns true if the operation is to stop. If the user has asked for a cancel, this first asks
    // them to confirm it. Once it has returned true, it keeps returning true.
    virtual bool checkIsNeedToConfirmCancelOperation() = 0;

    // Called before each item of a folder copy with the manager that copies, the item and the path
    // of its copy. Returns true if the copy is to go on, and false if it is to stop, which fails
    // the copy.
    virtual bool fileManager(
        const DBCFileManager* manager, const QString& shouldCopyItemAtPath, const QString& toPath)
        = 0;
};
