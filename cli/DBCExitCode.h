// SPDX-License-Identifier: GPL-3.0-or-later
// The exit codes of velmora-convert. Scripts rely on the numbers, so they must not change.
#pragma once

enum class DBCExitCode : int {
    Done = 0,
    Failed = 1, // check and verify: the folder or package could not be read
    WrongUsage = 2,
    Refused = 3, // a check refused to begin the operation
    DoneWithWarnings = 4, // check and verify: there are problems
    Cancelled = 130,
};
