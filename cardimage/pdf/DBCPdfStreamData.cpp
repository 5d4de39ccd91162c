// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfStreamData.h"

#include "cardimage/pdf/DBCPdfMemory.h"
#include "cardimage/pdf/DBCPdfRowPredictor.h"

#include <qpdf/Buffer.hh>
#include <qpdf/Pl_Function.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace {

// Returns at most the first `limit` bytes of the data. decodeLevel says which filters are undone;
// qpdf_dl_none gives the bytes as stored.
QByteArray collect(QPDFObjectHandle& stream, qint64 limit, qpdf_stream_decode_level_e decodeLevel)
{
    QByteArray bytes;
    // Ends unpacking at the limit, so that a few kilobytes of compressed zeros cannot fill the
    // memory.
    Pl_Function collector("collector", nullptr, [&](unsigned char const* data, size_t length) {
        const auto room = static_cast<size_t>(limit - bytes.size());
        bytes.append(
            reinterpret_cast<const char*>(data), static_cast<qsizetype>(qMin(length, room)));
        if (length > room)
            throw std::length_error("limit reached");
    });
    try {
        // Warnings are kept because only they show that memory ran out (DBCPdfMemory.h).
        constexpr bool suppressWarnings = false;
        stream.pipeStreamData(&collector, nullptr, 0, decodeLevel, suppressWarnings, false);
    } catch (const std::exception& exception) {
        rethrowIfOutOfMemory(exception);
        // The data is damaged or longer than the limit. The result consists of the bytes received
        // so far.
    }
    return bytes;
}

// Returns the number of filters before /DCTDecode, or 0 when /DCTDecode is missing.
int filtersBeforeJpeg(QPDFObjectHandle& filter)
{
    for (int i = 0; filter.isArray() && i < filter.getArrayNItems(); ++i) {
        if (filter.getArrayItem(i).isNameAndEquals("/DCTDecode"))
            return i;
    }
    return 0;
}

QPDFObjectHandle firstItems(QPDFObjectHandle value, int count)
{
    if (!value.isArray())
        return value;
    QPDFObjectHandle result = QPDFObjectHandle::newArray();
    for (int i = 0; i < count; ++i) {
        result.appendItem(
            i < value.getArrayNItems() ? value.getArrayItem(i) : QPDFObjectHandle::newNull());
    }
    return result;
}

// The rows are checked before unpacking, because the library allocates a row of any length that the
// stream demands.
bool hasSoundRows(QPDFObjectHandle parameters)
{
    if (!parameters.isArray())
        return DBCPdfRows::of(parameters).has_value();
    const std::vector<QPDFObjectHandle> each = parameters.getArrayAsVector();
    return std::all_of(each.begin(), each.end(),
        [](const QPDFObjectHandle& one) { return DBCPdfRows::of(one).has_value(); });
}

} // namespace

std::optional<QByteArray> decodedStreamData(QPDFObjectHandle stream, qint64 limit)
{
    if (!hasSoundRows(stream.getDict().getKey("/DecodeParms")))
        return std::nullopt;
    bool canDecode = false;
    stream.pipeStreamData(nullptr, &canDecode, 0, qpdf_dl_specialized, true, false);
    if (!canDecode)
        return std::nullopt;
    return collect(stream, limit, qpdf_dl_specialized);
}

std::optional<QByteArray> jpegStreamData(QPDFObjectHandle stream, qint64 limit)
{
    const QByteArray stored = collect(stream, limit, qpdf_dl_none);
    QPDFObjectHandle filter = stream.getDict().getKey("/Filter");
    QPDFObjectHandle parameters = stream.getDict().getKey("/DecodeParms");
    const int count = filtersBeforeJpeg(filter);
    if (count == 0)
        return stored;
    // The library undoes either all filters of a stream or none. To undo only the filters before
    // /DCTDecode, the function makes a second stream that has only these filters.
    QPDFObjectHandle front = QPDFObjectHandle::newStream(&stream.getQPDF(), stored.toStdString());
    front.replaceDict(stream.getDict().shallowCopy());
    front.getDict().replaceKey("/Filter", firstItems(filter, count));
    front.getDict().replaceKey("/DecodeParms", firstItems(parameters, count));
    return decodedStreamData(front, limit);
}
