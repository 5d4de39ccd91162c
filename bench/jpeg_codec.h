// SPDX-License-Identifier: GPL-3.0-or-later
// Decodes and encodes JPEGs in memory with libjpeg and its defaults, for the benchmarks only. An
// error of the library ends the process.
#pragma once

#include <cstdint>
#include <vector>

struct Pixels {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<std::uint8_t> rgb; // the rows from top to bottom, 3 bytes a pixel
};

Pixels decodeJpeg(const std::vector<std::uint8_t>& bytes);

// The JPEG states a density of 300 dots per inch.
std::vector<std::uint8_t> encodeJpeg(const Pixels& pixels, int quality);
