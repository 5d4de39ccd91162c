// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCStandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

void keepStandardDescriptorsOpen()
{
    // The lowest closed number is the one handed out. No close-on-exec: a program started from here
    // finds the three open as well.
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor != -1 && descriptor <= STDERR_FILENO)
        descriptor = open("/dev/null", O_RDWR);
    if (descriptor != -1)
        close(descriptor);
}
