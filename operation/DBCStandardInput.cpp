// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCStandardInput.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

void keepStandardInputOccupied()
{
    if (fcntl(STDIN_FILENO, F_GETFD) != -1 || errno != EBADF)
        return;
    // The lowest free number is handed out, which is 0 now; no close-on-exec, so that a program
    // started from here finds its standard input open as well.
    const int descriptor = open("/dev/null", O_RDONLY);
    if (descriptor > STDIN_FILENO)
        close(descriptor);
}
