// SPDX-License-Identifier: GPL-3.0-or-later
// Makes pictures that take a JPEG codec as long as a scanned business card does.
#pragma once

#include <cstdint>
#include <vector>

// Returns a JPEG of 1050 x 600 pixels and about 130 KB. The same number always gives the same
// picture, and different numbers give different pictures.
std::vector<std::uint8_t> cardJpeg(unsigned number);
