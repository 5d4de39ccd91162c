// SPDX-License-Identifier: GPL-3.0-or-later
// Tells running out of memory apart from a damaged document. The structure library (QPDF) reports
// both in the same way: it drops the object that it could not read, leaves a warning and goes on.
// Without these checks a card would lose its images because memory was short for a moment.
#pragma once

#include <exception>

class QPDF;

// Throws std::bad_alloc when the exception is a std::bad_alloc, or an exception of the library that
// a std::bad_alloc caused. Otherwise the function does nothing.
void rethrowIfOutOfMemory(const std::exception& exception);

// Throws std::bad_alloc when running out of memory caused one of the document's warnings. Removes
// the warnings from the document.
void expectEnoughMemory(QPDF& document);
