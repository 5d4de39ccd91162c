// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a small program in the C locale and collects what it writes to its standard output. The
// thread's DBCStopQuestion is asked while that takes long; the program is killed when it is to
// stop.
#pragma once

#include <QByteArray>
#include <QStringList>

struct DBCProgramRun {
    enum class End : quint8 {
        NotStarted, // number: an errno
        Exited, // number: the exit status
        Killed, // number: the signal that ended it
        Stopped, // because the operation is to stop
    };

    End end = End::NotStarted;
    int number = 0;
    QByteArray output; // empty unless the program has exited
};

// The program has no input, and nobody reads its standard error. No signal is blocked in it, and
// those that this program ignores have their usual effect there, but a Ctrl-C for this program does
// not reach it. Throws std::bad_alloc; no process is left behind then, either.
DBCProgramRun runProgram(const QString& program, const QStringList& arguments);
