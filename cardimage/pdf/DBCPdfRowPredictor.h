// SPDX-License-Identifier: GPL-3.0-or-later
// Unpacked PDF stream data whose rows were stored as differences: the last step of unpacking.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <qpdf/Pipeline.hh>

class QPDFObjectHandle;

// What a stream's /DecodeParms say about its rows.
struct DBCPdfRows {
    enum class Kind : unsigned char { Plain, Tiff, Png };

    // Plain for null. None when the parameters are wrong, and when a row would be longer than one
    // of 65,535 pixels with 32 samples of 16 bits: no image has a longer one.
    static std::optional<DBCPdfRows> of(QPDFObjectHandle parameters);

    std::size_t pixelBits() const { return samples * bits; }
    std::size_t bytes() const { return (columns * pixelBits() + 7) / 8; }

    Kind kind = Kind::Plain;
    std::size_t columns = 1;
    std::size_t samples = 1; // a pixel
    std::size_t bits = 8; // a sample
};

// Adds the differences up. A row that breaks off is handed on as far as it goes.
class DBCPdfRowPredictor final : public Pipeline {
public:
    DBCPdfRowPredictor(const DBCPdfRows& rows, Pipeline* receiver);

    void write(unsigned char const* data, size_t length) override;
    void finish() override;

private:
    void handOnRow();
    void addPngDifferences();
    void addTiffDifferences();

    const DBCPdfRows _rows;
    const std::size_t _front; // bytes in front of a row: PNG's filter
    std::vector<unsigned char> _row; // as far as it has come
    std::vector<unsigned char> _rowAbove; // restored; empty for the first row
};
