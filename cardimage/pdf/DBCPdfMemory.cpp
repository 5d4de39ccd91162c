// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfMemory.h"

#include <new>
#include <string_view>

#include <qpdf/QPDF.hh>

void rethrowIfOutOfMemory(const std::exception& exception)
{
    // When the library catches a std::bad_alloc, the text of its own exception ends with a blank
    // and "std::bad_alloc". A PDF name that the library quotes from the document could also end
    // with this word, but contains no blank.
    const std::string_view text(exception.what());
    if (text == "std::bad_alloc" || text.ends_with(" std::bad_alloc"))
        throw std::bad_alloc();
}

void expectEnoughMemory(QPDF& document)
{
    for (const QPDFExc& warning : document.getWarnings())
        rethrowIfOutOfMemory(warning);
}
