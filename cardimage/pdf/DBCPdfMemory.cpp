// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfMemory.h"

#include <new>
#include <string_view>

#include <qpdf/QPDF.hh>

void rethrowIfOutOfMemory(const std::exception& exception)
{
    // What std::bad_alloc says of itself, alone or behind what was being done. In front of it
    // stands a blank, which no name quoted from a document has.
    const std::string_view text(exception.what());
    if (text == "std::bad_alloc" || text.ends_with(" std::bad_alloc"))
        throw std::bad_alloc();
}

void expectEnoughMemory(QPDF& document)
{
    for (const QPDFExc& warning : document.getWarnings())
        rethrowIfOutOfMemory(warning);
}
