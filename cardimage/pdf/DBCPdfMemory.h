// SPDX-License-Identifier: GPL-3.0-or-later
// Tells running out of memory apart from a damaged document. The PDF structure library reports both
// alike: it drops the object that it could not read, goes on, and leaves a warning. Without these
// checks a card would lose its images because memory was short for a moment.
#pragma once

#include <exception>

class QPDF;

// Throws std::bad_alloc when the exception is one, or is an exception of the library whose text
// ends with that of a std::bad_alloc. Otherwise does nothing.
void rethrowIfOutOfMemory(const std::exception& exception);

// Throws std::bad_alloc when one of the document's warnings was caused by one. Removes the warnings
// from the document.
void expectEnoughMemory(QPDF& document);
