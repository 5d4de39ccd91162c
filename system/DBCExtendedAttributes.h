// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the extended attributes of files and folders: those that users set, and access control
// lists.
#pragma once

// Copies them from one open file or folder to another. Attributes that the system itself maintains
// are left out. False when one could not be read or written. A file system that supports none is no
// failure. The descriptors stay open.
bool copyExtendedAttributes(int from, int to);
