// SPDX-License-Identifier: GPL-3.0-or-later
// JPEG in and out of memory by libjpeg's own interface and defaults, for the benchmarks only. A
// library error ends the process.
#pragma once

#include <cstdint>
#include <vector>

struct Pixels {
    unsigned width = 0;
    unsigned height = 0;
    std::vector<std::uint8_t> rgb; // rows from the top, 3 bytes a pixel
};

Pixels decodeJpeg(const std::vector<std::uint8_t>& bytes);

// Records 300 dots per inch.
std::vector<std::uint8_t> encodeJpeg(const Pixels& pixels, int quality);
