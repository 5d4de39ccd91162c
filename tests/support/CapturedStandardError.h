// SPDX-License-Identifier: GPL-3.0-or-later
// Captures what the process writes to standard error while the object lives.
#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryFile>

#include <cstdio>
#include <unistd.h>

class CapturedStandardError {
public:
    CapturedStandardError()
        : _saved(::dup(STDERR_FILENO))
    {
        if (!_file.open() || _saved < 0)
            qFatal("cannot capture standard error");
        std::fflush(stderr);
        ::dup2(_file.handle(), STDERR_FILENO);
    }
    ~CapturedStandardError() { restore(); }
    CapturedStandardError(const CapturedStandardError&) = delete;
    CapturedStandardError& operator=(const CapturedStandardError&) = delete;

    // Ends the capture and returns what was written until now.
    QString text()
    {
        restore();
        QFile file(_file.fileName());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

private:
    void restore()
    {
        if (_saved < 0)
            return;
        std::fflush(stderr);
        ::dup2(_saved, STDERR_FILENO);
        ::close(_saved);
        _saved = -1;
    }

    QTemporaryFile _file;
    int _saved;
};
