// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfMemory.h"

#include <new>
#include <string_view>

#include <qpdf/QPDF.hh>

void rethrowIfOutOfMemory(const std::exception& exception)
{
    // The library's texts end with that of the std::bad_alloc that it caught. A PDF name quoted
    // from the document could end so too, but contains no blank.
    const std::string_view text(exception.what());
    if (text == "std::bad_alloc" || text.ends_with(" std::bad_alloc"))
        throw std::bad_alloc();
}

void expectEnoughMemory(QPDF& document)
{
    for (const QPDFExc& warning : document.getWarnings())
        rethrowIfOutOfMemory(warning);
}
