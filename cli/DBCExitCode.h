// SPDX-License-Identifier: GPL-3.0-or-later
// The exit codes of velmora-convert. Scripts rely on the numbers.
#pragma once

enum class DBCExitCode : int {
    Done = 0,
    Failed = 1, // check and verify: the folder or package could not be read
    WrongUsage = 2,
    Refused = 3, // by a check, before the operation began
    DoneWithWarnings = 4, // check and verify: problems found
    Cancelled = 130,
};
