// SPDX-License-Identifier: GPL-3.0-or-later
// Copies one file or folder into a folder, with the cancel question kept alive in the meantime, and
// removes folders. Copies keep contents, permissions, times and symbolic links as links, and clone
// or copy inside the kernel where the file system can.
#pragma once

#include "operation/copy/DBCFileOperationStatus.h"

#include <QByteArray>
#include <QString>

class DBCCancelDelegate;
class DBCError;

enum class IsAsync : bool { No, Yes };

class DBCFileManager {
public:
    // The shared instance; never destroyed.
    static DBCFileManager* defaultManager();

    // Asked during an asynchronous copy whether to cancel; not owned, null: nobody.
    DBCCancelDelegate* delegate() const { return _delegate; }
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // Copies path (file or folder) into the folder toPath, under dstFileName or, when that is
    // empty, under its own name. A link at path is followed, links inside a folder are kept. False
    // when something stands at the target already, when the folder would be copied into itself, or
    // when anything could not be copied; what was copied so far is left to the caller.
    // Asynchronous: the delegate is asked fileManager() before each item, and
    // checkIsNeedToConfirmCancelOperation() at the start and then once per status interval, inside
    // large files too; a confirmed cancel fails the copy. The call returns when the copy has ended,
    // one way or the other. options are kept for the interface and must be 0. error is not filled.
    bool copyItemAtPath(const QString& path, const QString& toPath, const QString& dstFileName,
        quint32 options, IsAsync isAsync, DBCError* error);

    // Removes a folder with everything in it, never following a link: it vanishes from its path at
    // once, and what cannot be removed comes back there. False, with nothing removed, for a missing
    // path, a plain file or a link.
    bool cleanFolder(const QString& path);

private:
    bool copyWhileAsking(const QByteArray& source, const QByteArray& target);

    double _statusInterval = 1.0; // seconds
    DBCCancelDelegate* _delegate = nullptr;
};

// Records a reported stage in context (null: ignored); only stageComplete is kept.
void callbackFileOperationStatus(
    const DBCFileOperationStatus& reported, DBCFileOperationStatus* context);
