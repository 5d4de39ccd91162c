// SPDX-License-Identifier: GPL-3.0-or-later
// Limits how much memory a compressed stream of a PDF can fill when the structure library (QPDF)
// unpacks the stream.
#pragma once

// The first call replaces the library's own filter for /FlateDecode (ISO 32000, 7.4.4) in the whole
// process; further calls do nothing. The new filter throws after unpacking DBCBitmap::maximumBytes
// bytes, and refuses predictor parameters (DBCPdfRows) whose rows would be longer than those of any
// image: otherwise a few kilobytes of compressed zeros could fill the memory. A caller must call
// this function before it opens a document, because the library unpacks cross-reference tables and
// object streams while it opens the document. Any thread may call the function.
void boundFlateStreams();
