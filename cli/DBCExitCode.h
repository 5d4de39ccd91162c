// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What velmora-convert ends with; scripts rely on the numbers.
enum class DBCExitCode : int {
    Done = 0,
    Failed = 1, // check and verify: could not look
    WrongUsage = 2,
    Refused = 3, // by a check, before anything began
    DoneWithWarnings = 4, // check and verify: problems found
    Cancelled = 130,
};
