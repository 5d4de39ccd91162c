// SPDX-License-Identifier: GPL-3.0-or-later
// The attributes that users and access control lists hang on a file.
#pragma once

// Gives one open file or folder those of another. Attributes of the system's own bookkeeping are
// left out. False when one could not be read or written; a file system that keeps none is no
// failure.
bool copyExtendedAttributes(int from, int to);
