// SPDX-License-Identifier: GPL-3.0-or-later
// The answer of a callback to the loop that calls it: whether the loop goes on to its next item.
#pragma once

enum class DBCLoopControl : bool { Stop, Continue };
