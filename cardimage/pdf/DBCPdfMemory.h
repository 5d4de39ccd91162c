// SPDX-License-Identifier: GPL-3.0-or-later
// The PDF library takes want of memory for damage in the document, goes on without what it could
// not read, and leaves a warning. A card must not lose its pictures by that.
#pragma once

#include <exception>

class QPDF;

// Throws std::bad_alloc when that is what the exception tells of, in whatever words.
void rethrowIfOutOfMemory(const std::exception& exception);

// Throws std::bad_alloc when the document was read with less than it needed.
void expectEnoughMemory(QPDF& document);
