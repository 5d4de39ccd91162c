// SPDX-License-Identifier: GPL-3.0-or-later
// Copies one file, or one folder with everything in it: contents, permissions, owner where the user
// may give it, times, symbolic links as links. Names are taken as the bytes they are. Nothing is
// followed out of the tree, and nothing that stands at the target is replaced.
#pragma once

#include "operation/copy/DBCFileOperationStatus.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>

#include <sys/stat.h>

class DBCTreeCopy {
public:
    // Asked while the copy runs; an answer of false stops it. An empty one is not asked.
    struct Questions {
        std::function<bool(const QString& path, const QString& toPath)> beforeItem;
        // Between items and inside large files, once per interval.
        std::function<bool(const DBCFileOperationStatus& status)> atInterval;
        std::chrono::duration<double> interval {1.0};
    };

    DBCTreeCopy() = default;
    explicit DBCTreeCopy(Questions questions)
        : _questions(std::move(questions))
    {
    }

    // source itself, when it is a link, is copied as what it points at. False when anything could
    // not be copied, a pipe, socket or device included, or a question was answered so; what was
    // copied so far stays. One object copies once.
    bool copy(const QByteArray& source, const QByteArray& target);

    // One regular file between two open folders, under its own name. A link of that name is not
    // followed.
    bool copyFileBetween(int fromFolder, int toFolder, const QByteArray& name);

    // The sizes of the files begun so far, and what was copied of them.
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
    QByteArray _path; // of the item at hand
    QByteArray _toPath;
};
