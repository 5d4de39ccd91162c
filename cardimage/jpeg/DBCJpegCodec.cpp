// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCJpegCodec.h"

#include <QPainter>

#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <new>
#include <vector>

#include <jerror.h>
#include <jpeglib.h>

namespace {

constexpr int quality = 90;
// A genuine progressive picture has about ten scans; a forged one can have enough for hours of
// work.
constexpr int mostScans = 500;
constexpr int exifMarker = JPEG_APP0 + 1;
constexpr unsigned longestMarker = 0xFFFF; // bytes; a segment states its length in 16 bits
constexpr QByteArrayView exifIdentifier("Exif\0\0", 6);

// The JPEG library requires that its handler for fatal errors does not return. Every call of the
// library that can fail is therefore made by run(), and the handler jumps back to run().
class ErrorTrap {
public:
    ErrorTrap()
    {
        jpeg_std_error(&_trap.manager);
        _trap.manager.error_exit = jumpBack;
        _trap.manager.output_message = [](j_common_ptr) {};
    }

    jpeg_error_mgr* manager() { return &_trap.manager; }

    // Runs the step. Returns false when the step failed, and throws std::bad_alloc when memory ran
    // out. The step must not have local objects with destructors, because the jump skips the
    // destructors.
    template <typename Step> bool run(const Step& step)
    {
        if (setjmp(_trap.target) != 0) {
            if (_trap.manager.msg_code == JERR_OUT_OF_MEMORY)
                throw std::bad_alloc();
            return false;
        }
        step();
        return true;
    }

private:
    struct Trap {
        jpeg_error_mgr manager; // must be first: jumpBack() casts its address to a Trap
        std::jmp_buf target;
    };

    [[noreturn]] static void jumpBack(j_common_ptr codec)
    {
        std::longjmp(reinterpret_cast<Trap*>(codec->err)->target, 1);
    }

    Trap _trap {};
};

class Decoder {
public:
    explicit Decoder(const QByteArray& jpeg)
    {
        _codec.err = _errors.manager();
        _progress.progress_monitor = [](j_common_ptr common) {
            const auto codec = reinterpret_cast<j_decompress_ptr>(common);
            const double pixels = double(codec->image_width) * codec->image_height;
            if (codec->input_scan_number > mostScans
                || pixels * codec->input_scan_number > DBCMostScannedPixels)
                common->err->error_exit(common);
        };
        _isOpen = _errors.run([this, &jpeg] {
            jpeg_create_decompress(&_codec);
            _codec.progress = &_progress;
            jpeg_mem_src(&_codec, reinterpret_cast<const unsigned char*>(jpeg.constData()),
                static_cast<unsigned long>(jpeg.size()));
        });
    }
    ~Decoder() { jpeg_destroy_decompress(&_codec); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    jpeg_decompress_struct& codec() { return _codec; }
    QSize size() const
    {
        return {static_cast<int>(_codec.image_width), static_cast<int>(_codec.image_height)};
    }

    // For a picture of several scans the library also keeps all coefficients in memory. Pixels and
    // coefficients together may take twice DBCBitmap::maximumBytes.
    bool fitsMemory()
    {
        const int bits = _codec.num_components == 1 ? 8 : 24;
        const int coefficientBits = 16 * _codec.num_components;
        return DBCBitmap::canHold(size(), bits)
            && (!jpeg_has_multiple_scans(&_codec)
                || DBCBitmap::canHold(size(), (bits + coefficientBits) / 2));
    }

    void keepMarker(int marker)
    {
        _errors.run([this, marker] { jpeg_save_markers(&_codec, marker, longestMarker); });
    }

    bool readHeader()
    {
        return _isOpen && _errors.run([this] { jpeg_read_header(&_codec, TRUE); });
    }

    bool start(J_COLOR_SPACE space)
    {
        _codec.out_color_space = space;
        return _errors.run([this] { jpeg_start_decompress(&_codec); });
    }

    // Reads the next rows of the picture into `rows`.
    bool readRows(JSAMPARRAY rows, JDIMENSION count)
    {
        return _errors.run([this, rows, count] {
            for (JDIMENSION done = 0; done < count;)
                done += jpeg_read_scanlines(&_codec, rows + done, count - done);
        });
    }

private:
    ErrorTrap _errors;
    jpeg_decompress_struct _codec {};
    jpeg_progress_mgr _progress {};
    bool _isOpen = false;
};

class Encoder {
public:
    Encoder()
    {
        _codec.err = _errors.manager();
        _isOpen = _errors.run([this] {
            jpeg_create_compress(&_codec);
            jpeg_mem_dest(&_codec, &_buffer, &_length);
        });
    }
    ~Encoder()
    {
        jpeg_destroy_compress(&_codec);
        std::free(_buffer);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    bool start(QSize size, int components, J_COLOR_SPACE space)
    {
        _codec.image_width = static_cast<JDIMENSION>(size.width());
        _codec.image_height = static_cast<JDIMENSION>(size.height());
        _codec.input_components = components;
        _codec.in_color_space = space;
        return _isOpen && _errors.run([this] {
            jpeg_set_defaults(&_codec);
            jpeg_set_quality(&_codec, quality, TRUE);
        });
    }

    void setDotsPerInch(UINT16 x, UINT16 y)
    {
        _codec.density_unit = static_cast<UINT8>(DBCJpegHeader::DensityUnit::Inch);
        _codec.X_density = x;
        _codec.Y_density = y;
    }

    bool writeRows(JSAMPARRAY rows)
    {
        return _errors.run([this, rows] {
            jpeg_start_compress(&_codec, TRUE);
            while (_codec.next_scanline < _codec.image_height) {
                jpeg_write_scanlines(&_codec, rows + _codec.next_scanline,
                    _codec.image_height - _codec.next_scanline);
            }
            jpeg_finish_compress(&_codec);
        });
    }

    QByteArray bytes() const
    {
        return {reinterpret_cast<const char*>(_buffer), static_cast<qsizetype>(_length)};
    }

private:
    ErrorTrap _errors;
    jpeg_compress_struct _codec {};
    unsigned char* _buffer = nullptr; // allocated by the library with malloc()
    unsigned long _length = 0;
    bool _isOpen = false;
};

QByteArray exifOf(const jpeg_decompress_struct& codec)
{
    for (auto marker = codec.marker_list; marker; marker = marker->next) {
        const QByteArrayView data(marker->data, static_cast<qsizetype>(marker->data_length));
        if (data.startsWith(exifIdentifier))
            return data.toByteArray();
    }
    return {};
}

// Returns pointers to writable rows, which the library requires even where it only reads the rows.
std::vector<JSAMPROW> rowsOf(const QImage& pixels)
{
    std::vector<JSAMPROW> rows;
    rows.reserve(static_cast<size_t>(pixels.height()));
    for (int y = 0; y < pixels.height(); ++y)
        rows.push_back(const_cast<JSAMPROW>(pixels.constScanLine(y)));
    return rows;
}

bool readPixels(Decoder* decoder, QImage* pixels)
{
    pixels->detach();
    std::vector<JSAMPROW> rows = rowsOf(*pixels);
    return decoder->readRows(rows.data(), static_cast<JDIMENSION>(rows.size()));
}

bool readCmykPixels(Decoder* decoder, QImage* pixels)
{
    const quint8 noInk = decoder->codec().saw_Adobe_marker ? 255 : 0;
    std::vector<JSAMPLE> inks(static_cast<size_t>(pixels->width()) * 4);
    JSAMPROW row = inks.data();
    for (int y = 0; y < pixels->height(); ++y) {
        if (!decoder->readRows(&row, 1))
            return false;
        uchar* color = pixels->scanLine(y);
        for (size_t i = 0; i < inks.size(); i += 4) {
            // Each ink absorbs its share of one primary colour, and black absorbs all three.
            const int black = 255 - (inks[i + 3] ^ noInk);
            for (size_t ink = 0; ink < 3; ++ink)
                *color++ = static_cast<uchar>((255 - (inks[i + ink] ^ noInk)) * black / 255);
        }
    }
    return true;
}

QImage opaque(const QImage& pixels)
{
    QImage result = DBCBitmap::allocate(pixels.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter(&result).drawImage(0, 0, pixels);
    return result;
}

// Returns the pixels in a format that the encoder accepts. Pixels in such a format are returned
// unchanged.
QImage encodable(const QImage& pixels)
{
    switch (pixels.format()) {
    case QImage::Format_Grayscale8:
    case QImage::Format_RGB888:
    case QImage::Format_RGB32:
        return pixels;
    default:
        return pixels.hasAlphaChannel() ? opaque(pixels)
                                        : pixels.convertToFormat(QImage::Format_RGB888);
    }
}

J_COLOR_SPACE colorSpaceOf(QImage::Format format)
{
    constexpr bool isLittleEndian = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    switch (format) {
    case QImage::Format_Grayscale8:
        return JCS_GRAYSCALE;
    case QImage::Format_RGB32:
        return isLittleEndian ? JCS_EXT_BGRX : JCS_EXT_XRGB;
    default:
        return JCS_RGB;
    }
}

std::optional<UINT16> dotsPerInch(int pixels, double points)
{
    constexpr double pointsPerInch = 72;
    const double dots = std::round(pixels * pointsPerInch / points);
    if (dots >= 1 && dots <= std::numeric_limits<UINT16>::max())
        return static_cast<UINT16>(dots);
    return std::nullopt;
}

} // namespace

std::optional<DBCJpegHeader> readJpegHeader(const QByteArray& jpeg)
{
    Decoder decoder(jpeg);
    decoder.keepMarker(exifMarker);
    if (!decoder.readHeader())
        return std::nullopt;
    const jpeg_decompress_struct& codec = decoder.codec();
    if (codec.jpeg_color_space == JCS_UNKNOWN)
        return std::nullopt;
    DBCJpegHeader header;
    header.size = decoder.size();
    header.components = codec.num_components;
    header.isInvertedCmyk = codec.num_components == 4 && codec.saw_Adobe_marker;
    if (codec.saw_JFIF_marker
        && codec.density_unit <= static_cast<UINT8>(DBCJpegHeader::DensityUnit::Centimetre)) {
        header.densityUnit = static_cast<DBCJpegHeader::DensityUnit>(codec.density_unit);
        header.xDensity = codec.X_density;
        header.yDensity = codec.Y_density;
    }
    header.exif = exifOf(codec);
    return header;
}

DBCBitmap decodeJpeg(const QByteArray& jpeg)
{
    Decoder decoder(jpeg);
    if (!decoder.readHeader() || decoder.codec().jpeg_color_space == JCS_UNKNOWN)
        return {};
    const bool isGray = decoder.codec().num_components == 1;
    const bool isCmyk = decoder.codec().num_components == 4;
    if (!decoder.fitsMemory()
        || !decoder.start(isGray ? JCS_GRAYSCALE
                : isCmyk         ? JCS_CMYK
                                 : JCS_RGB))
        return {};
    QImage pixels = DBCBitmap::allocate(
        decoder.size(), isGray ? QImage::Format_Grayscale8 : QImage::Format_RGB888);
    if (!(isCmyk ? readCmykPixels(&decoder, &pixels) : readPixels(&decoder, &pixels)))
        return {};
    return DBCBitmap::of(
        pixels, isGray ? DBCBitmap::ColorModel::DeviceGray : DBCBitmap::ColorModel::DeviceRGB);
}

QByteArray encodeJpeg(const DBCBitmap& bitmap)
{
    const QImage pixels = encodable(bitmap.pixels);
    Encoder encoder;
    if (pixels.isNull()
        || !encoder.start(pixels.size(), pixels.depth() / 8, colorSpaceOf(pixels.format())))
        return {};
    const auto x = dotsPerInch(pixels.width(), bitmap.pointSize.width());
    const auto y = dotsPerInch(pixels.height(), bitmap.pointSize.height());
    if (x && y)
        encoder.setDotsPerInch(*x, *y);
    std::vector<JSAMPROW> rows = rowsOf(pixels);
    return encoder.writeRows(rows.data()) ? encoder.bytes() : QByteArray();
}
