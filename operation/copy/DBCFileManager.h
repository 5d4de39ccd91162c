// SPDX-License-Identifier: GPL-3.0-or-later
// Copies one file or folder into a folder, while the user can still cancel, and removes folders.
// DBCTreeCopy does the copying and states what a copy keeps.
#pragma once

#include "operation/copy/DBCFileOperationStatus.h"

#include <QByteArray>
#include <QString>

class DBCCancelDelegate;
class DBCError;

// Yes asks the delegate while the copy runs. Both kinds return when the copy has ended. No program
// here uses No; it is kept on purpose, because it belongs to the interface.
enum class IsAsync : bool { No, Yes };

// Not for two threads at the same time, because the delegate is a field of the shared instance.
class DBCFileManager {
public:
    // The shared instance, which is never destroyed.
    static DBCFileManager* defaultManager();

    // Asked during an asynchronous copy whether to stop. Not owned; null asks nobody.
    DBCCancelDelegate* delegate() const { return _delegate; }
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // Copies path (file or folder) into the folder toPath, under the name dstFileName or, when that
    // is empty, under its own name. If path is a link, its target is copied; links inside a folder
    // are copied as links. False when the target exists, when a folder would be copied into itself,
    // or when anything could not be copied; the caller removes what was copied so far. An
    // asynchronous copy calls the delegate's fileManager() before each item, and its
    // checkIsNeedToConfirmCancelOperation() at the start and then once per status interval, also
    // inside large files; an answer to stop makes the copy return false. options must be 0, and
    // error is never set: both are kept on purpose, because they belong to the interface.
    bool copyItemAtPath(const QString& path, const QString& toPath, const QString& dstFileName,
        quint32 options, IsAsync isAsync, DBCError* error);

    // Removes a folder with everything in it and never follows a link. The folder first gets a
    // hidden name, so that a killed program leaves it complete or not at all under its own name. If
    // something in it cannot be removed, the rest gets its name back and the answer is false. For a
    // missing path, a plain file or a link the answer is false and nothing is removed.
    bool cleanFolder(const QString& path);

private:
    bool copyWhileAsking(const QByteArray& source, const QByteArray& target);

    double _statusInterval = 1.0; // seconds
    DBCCancelDelegate* _delegate = nullptr;
};

// Stores a reported stage in context, but only stageComplete. A null context is ignored.
void callbackFileOperationStatus(
    const DBCFileOperationStatus& reported, DBCFileOperationStatus* context);
