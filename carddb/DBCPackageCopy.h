// SPDX-License-Identifier: GPL-3.0-or-later
// Copies a package folder so that the copy stands under its name only when it is whole, the same as
// its source, and on the disk.
#pragma once

#include <QString>

class DBCCancelDelegate;

class DBCPackageCopy {
public:
    // delegate: asked between files and inside large ones whether to go on; not owned, null:
    // nobody.
    explicit DBCPackageCopy(DBCCancelDelegate* delegate = nullptr)
        : _delegate(delegate)
    {
    }

    enum class Outcome : quint8 {
        Copied,
        Cancelled, // the delegate said so; the target's name and folder are as they were
        Failed, // something stands at the target, or the copy is not whole; as after a cancel
    };

    Outcome copy(const QString& source, const QString& target);

    // Removes what a killed program left of copies to this target.
    static void cleanUpBeside(const QString& target);

private:
    class CancelWatch;

    static bool copyWhole(const QString& source, const QString& target, CancelWatch& watch);
    static bool copyFiles(const QString& source, const QString& target, CancelWatch& watch);
    static bool isSame(const QString& source, const QString& copy, CancelWatch& watch);

    DBCCancelDelegate* _delegate;
};
