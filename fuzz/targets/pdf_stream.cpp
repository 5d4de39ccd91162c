// SPDX-License-Identifier: GPL-3.0-or-later
// Unpacks a PDF stream with one or two filters, up to a limit. The first bytes of the input choose
// the filters and the limit; the rest is the data of the stream.
#include "cardimage/pdf/DBCPdfStreamData.h"
#include "fuzz/PdfSupport.h"

#include <array>
#include <exception>
#include <string>

namespace {

constexpr std::array Filters {"/FlateDecode", "/LZWDecode", "/ASCII85Decode", "/ASCIIHexDecode",
    "/RunLengthDecode", "/DCTDecode", "/Crypt", "/FlateDecode"};

std::string parametersFrom(FuzzInput* input)
{
    constexpr std::array predictors {1, 2, 10, 12, 15, 99};
    const quint8 choice = input->byte();
    if (choice % 2 == 0)
        return "null";
    return "<</Predictor " + std::to_string(predictors[choice / 2 % predictors.size()])
        + " /Columns " + std::to_string(static_cast<qint16>(input->word())) + " /Colors "
        + std::to_string(input->below(40)) + " /BitsPerComponent "
        + std::to_string(input->below(20)) + " /EarlyChange " + std::to_string(choice % 3) + ">>";
}

std::string dictionaryFrom(FuzzInput* input)
{
    const auto filter
        = [input] { return Filters[static_cast<size_t>(input->below(int(Filters.size())))]; };
    std::string filters = "[";
    std::string parameters = "[";
    for (int count = input->below(4); count > 0; --count) {
        filters += filter();
        parameters += parametersFrom(input) + ' ';
    }
    return "<</Filter " + filters + "] /DecodeParms " + parameters + "]>>";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const qint64 limit = input.word();
    try {
        const std::string dictionary = dictionaryFrom(&input);
        const QPDFObjectHandle stream = PdfStreams::fresh(1).fill(
            0, dictionary, input.remaining().toByteArray().toStdString());
        const auto decoded = decodedStreamData(stream, limit);
        mustHold(!decoded || decoded->size() <= limit, "no more is unpacked than was asked for");
        const auto jpeg = jpegStreamData(stream, limit);
        mustHold(!jpeg || jpeg->size() <= limit, "no more of a JPEG is taken than was asked for");
    } catch (const std::exception&) {
        // The library refuses the dictionary.
    }
    return 0;
}
