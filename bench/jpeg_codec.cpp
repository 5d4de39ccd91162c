// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/jpeg_codec.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace {

constexpr unsigned bytesPerPixel = 3;
constexpr std::uint16_t dotsPerInch = 300;
constexpr std::uint8_t densityInInches = 1;

} // namespace

Pixels decodeJpeg(const std::vector<std::uint8_t>& bytes)
{
    jpeg_error_mgr errors {};
    jpeg_decompress_struct info {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_RGB;
    jpeg_start_decompress(&info);

    Pixels pixels {info.output_width, info.output_height, {}};
    const std::size_t rowLength = std::size_t {pixels.width} * bytesPerPixel;
    pixels.rgb.resize(rowLength * pixels.height);
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = pixels.rgb.data() + info.output_scanline * rowLength;
        jpeg_read_scanlines(&info, &row, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    return pixels;
}

std::vector<std::uint8_t> encodeJpeg(const Pixels& pixels, int quality)
{
    jpeg_error_mgr errors {};
    jpeg_compress_struct info {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* buffer = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &buffer, &length);
    info.image_width = pixels.width;
    info.image_height = pixels.height;
    info.input_components = bytesPerPixel;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.density_unit = densityInInches;
    info.X_density = dotsPerInch;
    info.Y_density = dotsPerInch;
    jpeg_start_compress(&info, TRUE);

    // libjpeg expects rows that are not const, but it does not write to them.
    auto* rows = const_cast<std::uint8_t*>(pixels.rgb.data()); // NOLINT
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = rows + std::size_t {info.next_scanline} * pixels.width * bytesPerPixel;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::vector<std::uint8_t> bytes(buffer, buffer + length);
    std::free(buffer); // NOLINT
    return bytes;
}
