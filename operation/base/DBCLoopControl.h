// SPDX-License-Identifier: GPL-3.0-or-later
// The value that a callback returns to the loop that calls it: whether the loop goes on to its next
// item.
#pragma once

enum class DBCLoopControl : bool { Stop, Continue };
