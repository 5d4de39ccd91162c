// SPDX-License-Identifier: GPL-3.0-or-later
// Changes the permissions of a file or folder for as long as the object lives. The destructor
// restores them, because the test could not remove its temporary folder otherwise.
#pragma once

#include <QFile>
#include <QString>

#include <sys/stat.h>

class ScopedMode {
public:
    ScopedMode(const QString& path, mode_t mode)
        : _path(QFile::encodeName(path))
    {
        struct stat status { };
        if (stat(_path.constData(), &status) != 0 || chmod(_path.constData(), mode) != 0)
            qFatal("cannot change the permissions of %s", _path.constData());
        _old = status.st_mode;
    }
    ~ScopedMode() { chmod(_path.constData(), _old); }
    ScopedMode(const ScopedMode&) = delete;
    ScopedMode& operator=(const ScopedMode&) = delete;

private:
    QByteArray _path;
    mode_t _old = 0;
};
