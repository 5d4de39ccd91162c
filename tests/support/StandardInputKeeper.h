// SPDX-License-Identifier: GPL-3.0-or-later
// Restores the process's standard input when the object is destroyed. Tests need this because a
// database controller that never locked its package closes descriptor 0 in its destructor.
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
    int _copy; // -1 if there was no standard input
};
