// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures that cost a JPEG codec what a scanned business card costs it.
#pragma once

#include <cstdint>
#include <vector>

// A JPEG of 1050 x 600 pixels and about 130 KB; each number gives another picture, the same number
// always the same one.
std::vector<std::uint8_t> cardJpeg(unsigned number);
