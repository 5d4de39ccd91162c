// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Replaces the library's own unpacking of Flate streams for the whole process, once: a few
// kilobytes of compressed zeros, or a row that is said to be endless, must not fill the memory. It
// stops at DBCBitmap::maximumBytes, and takes no row that would be longer than that of any image.
// Holds for the tables and object streams of a document as well, which it unpacks by itself; so
// this comes before a document is opened. Any thread may call.
void boundFlateStreams();
