// SPDX-License-Identifier: GPL-3.0-or-later
// Copies a package folder. The copy gets its name only after it is complete, equal to its source
// and flushed to the disk.
#pragma once

#include <QString>

class DBCCancelDelegate;

class DBCPackageCopy {
public:
    // The copy asks the delegate between files and inside large ones whether to go on. The delegate
    // is not owned. With null, the copy asks nobody and runs to its end.
    explicit DBCPackageCopy(DBCCancelDelegate* delegate = nullptr)
        : _delegate(delegate)
    {
    }

    // After Cancelled and Failed, nothing of the copy is left, and what was at the target before is
    // still there.
    enum class Outcome : quint8 {
        Copied,
        Cancelled, // the delegate answered that the copy is to stop
        // The target exists already, or the copy could not be completed, compared or flushed.
        Failed,
    };

    // Blocks until the copy has ended. If the program is killed meanwhile, it leaves only hidden
    // folders beside the target, which the next copy to that target or cleanUpBeside() removes.
    Outcome copy(const QString& source, const QString& target);

    // Removes the hidden folders that killed copies to this target have left beside it.
    static void cleanUpBeside(const QString& target);

private:
    class CancelWatch;

    static bool copyWhole(const QString& source, const QString& target, CancelWatch& watch);
    static bool copyFiles(const QString& source, const QString& target, CancelWatch& watch);
    static bool isSame(const QString& source, const QString& copy, CancelWatch& watch);

    DBCCancelDelegate* _delegate;
};
