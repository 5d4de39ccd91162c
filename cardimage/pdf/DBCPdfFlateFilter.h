// SPDX-License-Identifier: GPL-3.0-or-later
// Limits how much memory a compressed stream of a PDF can fill when the structure library unpacks
// it.
#pragma once

// Replaces the library's own filter for /FlateDecode (ISO 32000, 7.4.4), in the whole process, on
// the first call. The replacement throws after unpacking DBCBitmap::maximumBytes bytes, and refuses
// predictor parameters (DBCPdfRows) whose rows would be longer than those of any image: otherwise a
// few kilobytes of compressed zeros could fill the memory. The library unpacks cross-reference
// tables and object streams while it opens a document, so this must be called before. Any thread
// may call it.
void boundFlateStreams();
