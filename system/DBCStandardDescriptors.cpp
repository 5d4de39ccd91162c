// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCStandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

void keepStandardDescriptorsOpen()
{
    // open() returns the lowest closed number. Close-on-exec is left out, so that programs started
    // from here also have the three descriptors.
    int descriptor = open("/dev/null", O_RDWR);
    while (descriptor != -1 && descriptor <= STDERR_FILENO)
        descriptor = open("/dev/null", O_RDWR);
    if (descriptor != -1)
        close(descriptor);
}
