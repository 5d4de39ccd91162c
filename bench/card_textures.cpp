// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/card_textures.h"

#include "bench/jpeg_codec.h"

#include <algorithm>
#include <cstddef>
#include <random>

namespace {

constexpr unsigned width = 1050;
constexpr unsigned height = 600;
// With this quality and this grain, the files have about 130 KB.
constexpr int quality = 86;
constexpr unsigned grain = 4;

std::uint8_t shade(int value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

// Returns true if the pixel belongs to a dark mark. The marks form lines, as printed text does.
bool isInk(unsigned x, unsigned y, unsigned number)
{
    const unsigned line = y / 50;
    const bool isInLine = y % 50 > 14 && y % 50 < 38 && line > 0 && line < 11;
    const bool isInColumn = x > 80 && x < 500 + (line * 97 + number * 53) % 450;
    return isInLine && isInColumn && (x / 4 * 7 + y / 3 * 5 + line + number) % 11 < 4;
}

// Returns the pixels of a card: dark marks on paper, which has a slight gradient and, as scans do,
// a little noise.
Pixels card(unsigned number)
{
    Pixels pixels {width, height, {}};
    pixels.rgb.reserve(std::size_t {width} * height * 3);
    std::minstd_rand random(number + 1);
    const auto noise = [&random] { return static_cast<int>(random() % grain); };
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width; ++x) {
            const int paper = 225 + static_cast<int>(x + y) / 90;
            const int level = (isInk(x, y, number) ? 40 : paper) - noise();
            pixels.rgb.push_back(shade(level));
            pixels.rgb.push_back(shade(level - static_cast<int>(number)));
            pixels.rgb.push_back(shade(level - static_cast<int>(x / 50)));
        }
    }
    return pixels;
}

} // namespace

std::vector<std::uint8_t> cardJpeg(unsigned number)
{
    return encodeJpeg(card(number), quality);
}
