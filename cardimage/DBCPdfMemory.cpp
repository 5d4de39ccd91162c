// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfMemory.h"

#include <cstring>
#include <new>

#include <qpdf/QPDF.hh>

void rethrowIfOutOfMemory(const std::exception& exception)
{
    // What std::bad_alloc says of itself, alone or inside a longer text.
    if (std::strstr(exception.what(), "bad_alloc"))
        throw std::bad_alloc();
}

void expectEnoughMemory(QPDF& document)
{
    for (const QPDFExc& warning : document.getWarnings())
        rethrowIfOutOfMemory(warning);
}
