// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Opens the null device as each of the descriptors 0, 1 and 2 that is closed. A file that came by
// one of these numbers later would be read as input, have messages written into it, or (0) be
// closed by the next database controller that goes without having held its lock.
void keepStandardDescriptorsOpen();
