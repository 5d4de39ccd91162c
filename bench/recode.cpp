// SPDX-License-Identifier: GPL-3.0-or-later
// recode FROM TO: decodes every file of the folder FROM as a JPEG, encodes the picture again with
// the quality of an export, and writes the result into the folder TO.
#include "bench/jpeg_codec.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace {

constexpr int quality = 90;

std::vector<std::uint8_t> readFile(const std::filesystem::path& path)
{
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(path));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), // NOLINT
        static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

void writeFile(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), // NOLINT
        static_cast<std::streamsize>(bytes.size()));
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::fputs("recode FROM TO\n", stderr);
        return 2;
    }
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        const auto again = encodeJpeg(decodeJpeg(readFile(entry.path())), quality);
        writeFile(std::filesystem::path(argv[2]) / entry.path().filename(), again);
    }
    return 0;
} catch (const std::exception& exception) {
    std::fprintf(stderr, "recode: %s\n", exception.what());
    return 1;
}
