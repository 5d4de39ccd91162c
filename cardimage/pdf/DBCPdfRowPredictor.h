// SPDX-License-Identifier: GPL-3.0-or-later
// Undoes the predictor of a Flate stream (ISO 32000, 7.4.4.4), which stores the rows of an image as
// differences from their neighbours. This is the last step of unpacking.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <qpdf/Pipeline.hh>

class QPDFObjectHandle;

// The row layout given by a stream's /DecodeParms.
struct DBCPdfRows {
    enum class Kind : unsigned char { Plain, Tiff, Png };

    // Reads the parameters; a null object means plain data. Returns std::nullopt when the
    // parameters are invalid, or when a row would have more than 65,535 pixels, 32 samples per
    // pixel or 16 bits per sample. No image exceeds these limits; without them, invented parameters
    // could demand any amount of memory for a row.
    static std::optional<DBCPdfRows> of(QPDFObjectHandle parameters);

    std::size_t pixelBits() const { return samples * bits; }
    std::size_t bytes() const { return (columns * pixelBits() + 7) / 8; }

    Kind kind = Kind::Plain;
    std::size_t columns = 1; // pixels per row
    std::size_t samples = 1; // per pixel
    std::size_t bits = 8; // per sample
};

// Restores the rows and passes them to the receiver, which must outlive the predictor. If the last
// row is truncated, the part that arrived is passed on.
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
    const std::size_t _front; // bytes before each row: 1 for PNG (the type of the filter)
    std::vector<unsigned char> _row; // the part of the current row that has arrived
    std::vector<unsigned char> _rowAbove; // the previous row, restored; empty before the first row
};
