// SPDX-License-Identifier: GPL-3.0-or-later
// What a callback answers to the loop that called it: whether the loop goes on to its next item.
#pragma once

enum class DBCLoopControl : bool { Stop, Continue };
