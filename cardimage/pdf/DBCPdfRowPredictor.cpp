// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfRowPredictor.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <qpdf/QPDFObjectHandle.hh>

namespace {

// The filter types of PNG (ISO/IEC 15948, 9.2). The type is the first byte of each row.
enum PngFilter : unsigned char { None, Left, Above, Average, Paeth };

// Returns the value of the parameter, or the value `missing` if the parameter is absent. Returns
// std::nullopt when the value is not an integer from 1 to largest.
std::optional<std::size_t> numberOf(
    QPDFObjectHandle& parameters, const char* key, std::size_t missing, long long largest)
{
    QPDFObjectHandle value = parameters.getKey(key);
    if (value.isNull())
        return missing;
    if (!value.isInteger() || value.getIntValue() < 1 || value.getIntValue() > largest)
        return std::nullopt;
    return static_cast<std::size_t>(value.getIntValue());
}

std::optional<DBCPdfRows::Kind> kindOf(std::size_t predictor)
{
    // Values of /Predictor (ISO 32000, table 10).
    constexpr std::size_t plain = 1;
    constexpr std::size_t tiff = 2;
    constexpr std::size_t firstPng = 10;
    constexpr std::size_t lastPng = 15;
    if (predictor == plain)
        return DBCPdfRows::Kind::Plain;
    if (predictor == tiff)
        return DBCPdfRows::Kind::Tiff;
    if (predictor >= firstPng && predictor <= lastPng)
        return DBCPdfRows::Kind::Png;
    return std::nullopt;
}

// Returns the value of the Paeth predictor: the neighbour that is nearest to left + above -
// aboveLeft.
int paeth(int left, int above, int aboveLeft)
{
    const int plane = left + above - aboveLeft;
    const int toLeft = std::abs(plane - left);
    const int toAbove = std::abs(plane - above);
    const int toAboveLeft = std::abs(plane - aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft)
        return left;
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

int prediction(unsigned char filter, int left, int above, int aboveLeft)
{
    switch (filter) {
    case Left:
        return left;
    case Above:
        return above;
    case Average:
        return (left + above) / 2;
    case Paeth:
        return paeth(left, above, aboveLeft);
    default:
        return 0;
    }
}

// Returns the sample at this index of a row. A sample has 1, 2, 4, 8 or 16 bits, the most
// significant bit first.
unsigned sampleAt(const std::vector<unsigned char>& row, std::size_t index, std::size_t bits)
{
    if (bits == 16)
        return static_cast<unsigned>(row[index * 2] << 8 | row[index * 2 + 1]);
    const std::size_t shift = 8 - bits - index * bits % 8;
    return static_cast<unsigned>(row[index * bits / 8] >> shift) & ((1U << bits) - 1);
}

void setSample(
    std::vector<unsigned char>* row, std::size_t index, std::size_t bits, unsigned sample)
{
    if (bits == 16) {
        (*row)[index * 2] = static_cast<unsigned char>(sample >> 8);
        (*row)[index * 2 + 1] = static_cast<unsigned char>(sample);
        return;
    }
    const std::size_t shift = 8 - bits - index * bits % 8;
    const unsigned mask = ((1U << bits) - 1) << shift;
    unsigned char& byte = (*row)[index * bits / 8];
    byte = static_cast<unsigned char>((byte & ~mask) | (sample << shift & mask));
}

} // namespace

std::optional<DBCPdfRows> DBCPdfRows::of(QPDFObjectHandle parameters)
{
    constexpr long long mostColumns = 65535;
    constexpr long long mostSamples = 32;
    constexpr long long mostBits = 16;
    constexpr long long highestPredictor = 15;
    if (parameters.isNull())
        return DBCPdfRows();
    if (!parameters.isDictionary())
        return std::nullopt;
    const auto predictor = numberOf(parameters, "/Predictor", 1, highestPredictor);
    const auto columns = numberOf(parameters, "/Columns", 1, mostColumns);
    const auto samples = numberOf(parameters, "/Colors", 1, mostSamples);
    const auto bits = numberOf(parameters, "/BitsPerComponent", 8, mostBits);
    const auto kind = kindOf(predictor.value_or(0));
    if (!kind || !columns || !samples || !bits || (*bits & (*bits - 1)) != 0)
        return std::nullopt;
    return DBCPdfRows {*kind, *columns, *samples, *bits};
}

DBCPdfRowPredictor::DBCPdfRowPredictor(const DBCPdfRows& rows, Pipeline* receiver)
    : Pipeline("rows", receiver)
    , _rows(rows)
    , _front(rows.kind == DBCPdfRows::Kind::Png ? 1 : 0)
{
}

void DBCPdfRowPredictor::write(unsigned char const* data, size_t length)
{
    const size_t rowLength = _front + _rows.bytes();
    while (length > 0) {
        const size_t taken = std::min(length, rowLength - _row.size());
        _row.insert(_row.end(), data, data + taken);
        data += taken;
        length -= taken;
        if (_row.size() == rowLength)
            handOnRow();
    }
}

void DBCPdfRowPredictor::finish()
{
    if (!_row.empty())
        handOnRow();
    getNext()->finish();
}

void DBCPdfRowPredictor::handOnRow()
{
    if (_rows.kind == DBCPdfRows::Kind::Png)
        addPngDifferences();
    else
        addTiffDifferences();
    getNext()->write(_row.data() + _front, _row.size() - _front);
    std::swap(_row, _rowAbove);
    _row.clear();
}

void DBCPdfRowPredictor::addPngDifferences()
{
    const size_t pixel = (_rows.pixelBits() + 7) / 8;
    const bool hasAbove = !_rowAbove.empty();
    for (size_t i = 1; i < _row.size(); ++i) {
        const bool hasLeft = i > pixel;
        const int left = hasLeft ? _row[i - pixel] : 0;
        const int above = hasAbove ? _rowAbove[i] : 0;
        const int aboveLeft = hasLeft && hasAbove ? _rowAbove[i - pixel] : 0;
        _row[i] = static_cast<unsigned char>(_row[i] + prediction(_row[0], left, above, aboveLeft));
    }
}

void DBCPdfRowPredictor::addTiffDifferences()
{
    const size_t samples = std::min(_rows.columns * _rows.samples, _row.size() * 8 / _rows.bits);
    for (size_t i = _rows.samples; i < samples; ++i) {
        const unsigned sum
            = sampleAt(_row, i, _rows.bits) + sampleAt(_row, i - _rows.samples, _rows.bits);
        setSample(&_row, i, _rows.bits, sum & ((1U << _rows.bits) - 1));
    }
}
