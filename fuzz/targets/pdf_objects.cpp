// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the image out of a page that consists of any objects. The input begins with the page's
// dictionary and a zero byte. Five streams follow, whose object numbers begin at 3. Each stream is
// a dictionary, a zero byte, the length of the data in two bytes, and the data.
#include "fuzz/PdfSupport.h"

#include <exception>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr int streamCount = 5;
    FuzzInput input(data, size);
    try {
        PdfStreams& streams = PdfStreams::fresh(streamCount);
        const std::string page = input.line();
        for (int index = 0; index < streamCount; ++index) {
            const std::string dictionary = input.line();
            streams.fill(
                index, dictionary.empty() ? "<<>>" : dictionary, input.bytes(input.word()));
        }
        judgePage(streams.parse(page));
    } catch (const std::exception&) {
        // The input does not describe objects.
    }
    return 0;
}
