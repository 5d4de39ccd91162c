// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a small program in the C locale and collects what it writes to its standard output. While
// that takes long, the thread's DBCStopQuestion is called: a function that returns true if the
// operation is to stop. If it returns true, the started program is killed.
#pragma once

#include <QByteArray>
#include <QStringList>

struct DBCProgramRun {
    enum class End : quint8 {
        NotStarted, // number is an errno
        Exited, // number is the exit status
        Killed, // number is the signal that ended the program
        Stopped, // killed because the operation is to stop
    };

    End end = End::NotStarted;
    int number = 0;
    QByteArray output; // empty unless the program has exited
};

// The started program has no input, and nobody reads its standard error. Signals have their usual
// effect on it, even if the caller blocks or ignores them, but a Ctrl-C for the caller does not
// reach it. May throw std::bad_alloc; in that case, too, no process is left behind.
DBCProgramRun runProgram(const QString& program, const QStringList& arguments);
