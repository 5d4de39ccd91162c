// SPDX-License-Identifier: GPL-3.0-or-later
// Makes sure that a program that was started without standard input, output or error has all three.
#pragma once

// Opens /dev/null for each of the descriptors 0, 1 and 2 that is closed. Otherwise a file opened
// later would get one of these numbers: it would be read as input, messages would be written into
// it, or a DBCDataBaseController that never took its lock would close it (descriptor 0). Called
// first in main().
void keepStandardDescriptorsOpen();
