// SPDX-License-Identifier: GPL-3.0-or-later
// Copies one file or folder into a folder, while the user can still cancel, and removes folders.
// DBCTreeCopy does the copying and states what a copy keeps.
#pragma once

#include "operation/copy/DBCFileOperationStatus.h"

#include <QByteArray>
#include <QString>

class DBCCancelDelegate;
class DBCError;

// With Yes, the copy calls the cancel delegate while it runs; with No, it does not. In both cases
// copyItemAtPath() returns when the copy has ended. The program never uses No; the value is kept
// because it belongs to the interface.
enum class IsAsync : bool { No, Yes };

// Two threads must not use the manager at the same time, because the delegate is a field of the
// shared instance.
class DBCFileManager {
public:
    // The shared instance, which is never destroyed.
    static DBCFileManager* defaultManager();

    // The delegate that an asynchronous copy calls to learn whether it is to stop. The manager does
    // not own the delegate. If the delegate is null, the copy runs to its end.
    DBCCancelDelegate* delegate() const { return _delegate; }
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // Copies path (file or folder) into the folder toPath, under the name dstFileName or, when that
    // is empty, under its own name. If path is a link, its target is copied; links inside a folder
    // are copied as links. Returns false if the target exists, if a folder would be copied into
    // itself, or if anything could not be copied; the caller removes what was copied so far. An
    // asynchronous copy calls the delegate's fileManager() before each item, and its
    // checkIsNeedToConfirmCancelOperation() at the start and then once per status interval, also
    // inside large files; if one of them says that the operation is to stop, the copy returns
    // false. options must be 0, and error is never set. Both parameters are kept because they
    // belong to the interface.
    bool copyItemAtPath(const QString& path, const QString& toPath, const QString& dstFileName,
        quint32 options, IsAsync isAsync, DBCError* error);

    // Removes a folder with everything in it and never follows a link. The folder first gets a
    // hidden name. Therefore, if the program is killed in the middle, the folder's own name leads
    // to the complete folder or to nothing. If something in the folder cannot be removed, the rest
    // gets the folder's own name back and the function returns false. For a missing path, a plain
    // file or a link, the function returns false and removes nothing.
    bool cleanFolder(const QString& path);

private:
    bool copyWhileAsking(const QByteArray& source, const QByteArray& target);

    double _statusInterval = 1.0; // seconds
    DBCCancelDelegate* _delegate = nullptr;
};

// Stores the reported stage in context if the stage is stageComplete. context may be null.
void callbackFileOperationStatus(
    const DBCFileOperationStatus& reported, DBCFileOperationStatus* context);
