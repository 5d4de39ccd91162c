// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the image out of each page of a PDF of any bytes.
#include "fuzz/PdfSupport.h"

#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    boundFlateStreams();
    try {
        QPDF document;
        document.setSuppressWarnings(true);
        document.processMemoryFile("input", reinterpret_cast<const char*>(data), size);
        for (const QPDFObjectHandle& page : document.getAllPages())
            judgePage(page);
    } catch (const std::exception&) {
        // The library cannot open the document.
    }
    return 0;
}
