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

    // False when the copy failed, was cancelled, or something stands at the target; the target's
    // name and folder are then as they were.
    bool copy(const QString& source, const QString& target);

    // Removes what a killed program left of copies to this target.
    static void cleanUpBeside(const QString& target);

private:
    bool copyFiles(const QString& source, const QString& target) const;
    bool isSame(const QString& source, const QString& copy) const;

    DBCCancelDelegate* _delegate;
};
