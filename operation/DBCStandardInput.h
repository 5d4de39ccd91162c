// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Opens the null device as descriptor 0 when nothing is open there. A file that came by number 0
// later would be taken for standard input, or closed by the next database controller that goes
// without having held its lock.
void keepStandardInputOccupied();
