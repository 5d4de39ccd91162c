// SPDX-License-Identifier: GPL-3.0-or-later
// Copies a package folder. The copy gets its name only when it is complete, equal to its source and
// flushed to the disk.
#pragma once

#include <QString>

class DBCCancelDelegate;

class DBCPackageCopy {
public:
    // The delegate is asked between files and inside large ones whether to go on. Not owned; null
    // asks nobody.
    explicit DBCPackageCopy(DBCCancelDelegate* delegate = nullptr)
        : _delegate(delegate)
    {
    }

    // After Cancelled and Failed, whatever was at the target and beside it is as it was.
    enum class Outcome : quint8 {
        Copied,
        Cancelled, // the delegate answered that the copy is to stop
        Failed, // the target exists, or the copy could not be completed, compared or flushed
    };

    // Blocks until the copy has ended. If the program is killed meanwhile, only a hidden folder
    // beside the target remains, which the next copy or cleanUpBeside() removes.
    Outcome copy(const QString& source, const QString& target);

    // Removes the hidden folders that a killed program left of copies to this target.
    static void cleanUpBeside(const QString& target);

private:
    class CancelWatch;

    static bool copyWhole(const QString& source, const QString& target, CancelWatch& watch);
    static bool copyFiles(const QString& source, const QString& target, CancelWatch& watch);
    static bool isSame(const QString& source, const QString& copy, CancelWatch& watch);

    DBCCancelDelegate* _delegate;
};
