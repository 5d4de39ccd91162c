// SPDX-License-Identifier: GPL-3.0-or-later
// Copies one file, or one folder with everything in it.
#pragma once

#include "operation/copy/DBCFileOperationStatus.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>

#include <sys/stat.h>

// A copy keeps names as bytes, contents, permissions, times, extended attributes, symbolic links as
// links, and the owner if the user may set it. A copy that gets another owner loses the set-ID
// bits. No link inside the tree is followed, and nothing that exists at the target is replaced. A
// pipe, socket or device makes the copy fail. The copy is not flushed to the disk. No other thread
// is used, so the functions of Questions are called on the caller's thread.
class DBCTreeCopy {
public:
    // The functions that the copy calls while it runs. If one of them returns false, the copy
    // stops. Each may be empty.
    struct Questions {
        std::function<bool(const QString& path, const QString& toPath)> beforeItem;
        // Called at the start and then once per interval, between items and inside large files.
        std::function<bool(const DBCFileOperationStatus& status)> atInterval;
        std::chrono::duration<double> interval {1.0}; // seconds
    };

    DBCTreeCopy() = default;
    explicit DBCTreeCopy(Questions questions)
        : _questions(std::move(questions))
    {
    }

    // If source itself is a link, its target is copied. Returns false if anything could not be
    // copied or if a function of Questions returned false; what was copied so far stays. An object
    // can be used for one copy only.
    bool copy(const QByteArray& source, const QByteArray& target);

    // Copies one regular file between two open folders under its own name. Returns false if the
    // name belongs to a link or to anything else that is no regular file.
    bool copyFileBetween(int fromFolder, int toFolder, const QByteArray& name);

    // How much has been copied so far.
    const DBCFileOperationStatus& status() const { return _status; }

private:
    struct Item;

    bool copyItem(const Item& item);
    bool copyFile(const Item& item);
    bool copyContents(int from, int to);
    static bool copyLink(const Item& item, const struct stat& status);
    bool copyFolder(const Item& item);
    bool copyEntries(int from, int to);
    bool copyEntry(int from, int to, const QByteArray& name);
    bool mayCopyItem() const;
    bool mayGoOn();

    Questions _questions;
    DBCFileOperationStatus _status;
    std::chrono::steady_clock::time_point _nextQuestion;
    QByteArray _path; // of the current item
    QByteArray _toPath;
};
