// SPDX-License-Identifier: GPL-3.0-or-later
// The cancel delegate: the interface that long loops (a folder copy, a fetch of cards) call to
// learn whether they are to go on. Outside tests, the conversion driver is the only implementation.
#pragma once

#include <QString>

class DBCFileManager;

// A loop does not own its delegate. A loop without a delegate (a null pointer) runs to its end. The
// loop calls the delegate on the operation thread. If the delegate has to ask the user, the call
// returns only when the user has answered. Note that true has opposite meanings: from
// checkIsNeedToConfirmCancelOperation() it means "stop", from fileManager() it means "go on".
class DBCCancelDelegate {
public:
    virtual ~DBCCancelDelegate() = default;

    // Returns true if the operation is to stop. If the user has requested a cancel, this function
    // first asks them to confirm it. Once it has returned true, every later call returns true as
    // well.
    virtual bool checkIsNeedToConfirmCancelOperation() = 0;

    // A folder copy calls this before each item. The arguments are the manager that copies, the
    // path of the item and the path of the item's copy. Returns true if the copy is to go on. If
    // this returns false, the copy stops and counts as failed.
    virtual bool fileManager(
        const DBCFileManager* manager, const QString& shouldCopyItemAtPath, const QString& toPath)
        = 0;
};
