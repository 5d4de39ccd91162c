// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the extended attributes of files and folders: those that users set, and access control
// lists.
#pragma once

// Copies the extended attributes from one open file or folder to another, except those that the
// system itself maintains. Returns false if an attribute could not be read or written. If a file
// system supports no attributes, that is no failure. The descriptors stay open.
bool copyExtendedAttributes(int from, int to);
