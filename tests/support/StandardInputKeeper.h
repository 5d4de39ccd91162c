// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps the process's standard input for as long as it lives: a database controller that is
// destroyed without ever having locked its package closes descriptor 0.
#pragma once

#include <fcntl.h>
#include <unistd.h>

class StandardInputKeeper {
public:
    StandardInputKeeper()
        : _copy(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
    {
    }
    ~StandardInputKeeper()
    {
        close(STDIN_FILENO);
        if (_copy != -1) {
            dup2(_copy, STDIN_FILENO);
            close(_copy);
        }
    }
    StandardInputKeeper(const StandardInputKeeper&) = delete;
    StandardInputKeeper& operator=(const StandardInputKeeper&) = delete;

private:
    int _copy; // -1: there was none
};
