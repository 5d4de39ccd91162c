// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/JpegBuilder.h"

#include <QPainter>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

namespace {

constexpr quint8 MarkerApp0 = 0xE0;
constexpr quint8 MarkerApp1 = 0xE1;

// Builds Exif data: the little-endian header, one directory of entries, and then the values that
// do not fit into an entry.
class ExifDirectory {
public:
    void addShort(quint16 tag, int value)
    {
        append(tag, 3, 1);
        appendNumber(_entries, static_cast<quint16>(value));
        appendNumber(_entries, quint16(0));
    }

    void addRational(quint16 tag, int numerator)
    {
        append(tag, 5, 1);
        _offsetPositions << _entries.size();
        appendNumber(_entries, static_cast<quint32>(_values.size()));
        appendNumber(_values, static_cast<quint32>(numerator));
        appendNumber(_values, quint32(1));
    }

    QByteArray bytes() const
    {
        QByteArray entries = _entries;
        const quint32 valuesAt = static_cast<quint32>(8 + 2 + entries.size() + 4);
        for (const qsizetype position : _offsetPositions) {
            char* const field = entries.data() + position;
            qToLittleEndian(qFromLittleEndian<quint32>(field) + valuesAt, field);
        }
        QByteArray result("II\x2A\x00\x08\x00\x00\x00", 8);
        appendNumber(result, static_cast<quint16>(_entries.size() / 12));
        result += entries;
        appendNumber(result, quint32(0));
        return result + _values;
    }

private:
    template <typename Number> static void appendNumber(QByteArray& bytes, Number number)
    {
        char buffer[sizeof number];
        qToLittleEndian(number, buffer);
        bytes.append(buffer, sizeof number);
    }

    void append(quint16 tag, quint16 type, quint32 count)
    {
        appendNumber(_entries, tag);
        appendNumber(_entries, type);
        appendNumber(_entries, count);
    }

    QByteArray _entries;
    QByteArray _values;
    QList<qsizetype> _offsetPositions;
};

QByteArray cmykRow(const QImage& pixels, int y, bool inverted)
{
    QByteArray row;
    for (int x = 0; x < pixels.width(); ++x) {
        int parts[4];
        pixels.pixelColor(x, y).getCmyk(&parts[0], &parts[1], &parts[2], &parts[3]);
        for (const int part : parts)
            row += static_cast<char>(inverted ? 255 - part : part);
    }
    return row;
}

} // namespace

JpegBuilder::JpegBuilder(int width, int height)
    : JpegBuilder(quarters(width, height))
{
}

JpegBuilder::JpegBuilder(const QImage& pixels)
    : _pixels(pixels.convertToFormat(QImage::Format_RGB888))
{
}

QImage JpegBuilder::quarters(int width, int height)
{
    QImage pixels(width, height, QImage::Format_RGB888);
    QPainter painter(&pixels);
    const int x = width / 2;
    const int y = height / 2;
    painter.fillRect(0, 0, x, y, Qt::red);
    painter.fillRect(x, 0, width - x, y, Qt::green);
    painter.fillRect(0, y, x, height - y, Qt::blue);
    painter.fillRect(x, y, width - x, height - y, Qt::yellow);
    return pixels;
}

JpegBuilder& JpegBuilder::gray()
{
    _components = Components::Gray;
    return *this;
}

JpegBuilder& JpegBuilder::cmyk()
{
    _components = Components::AdobeCmyk;
    return *this;
}

JpegBuilder& JpegBuilder::plainCmyk()
{
    _components = Components::PlainCmyk;
    return *this;
}

JpegBuilder& JpegBuilder::twoComponents()
{
    _components = Components::Two;
    return *this;
}

JpegBuilder& JpegBuilder::progressive()
{
    _progressive = true;
    return *this;
}

JpegBuilder& JpegBuilder::fullColor()
{
    _fullColor = true;
    return *this;
}

JpegBuilder& JpegBuilder::quality(int percent)
{
    _quality = percent;
    return *this;
}

JpegBuilder& JpegBuilder::dotsPerInch(int x, int y)
{
    _density = Density {1, x, y};
    return *this;
}

JpegBuilder& JpegBuilder::dotsPerCentimetre(int x, int y)
{
    _density = Density {2, x, y};
    return *this;
}

JpegBuilder& JpegBuilder::aspectRatio(int x, int y)
{
    _density = Density {0, x, y};
    return *this;
}

JpegBuilder& JpegBuilder::withoutJfif()
{
    _density.reset();
    return *this;
}

JpegBuilder& JpegBuilder::exifOrientation(int orientation)
{
    _orientation = orientation;
    return *this;
}

JpegBuilder& JpegBuilder::exifResolution(int x, int y, int unit)
{
    _exifResolution = Density {unit, x, y};
    return *this;
}

JpegBuilder& JpegBuilder::exifBytes(const QByteArray& bytes)
{
    _exifBytes = bytes;
    return *this;
}

QByteArray JpegBuilder::exifSegment() const
{
    const QByteArray identifier("Exif\0\0", 6);
    if (_exifBytes)
        return identifier + *_exifBytes;
    if (!_orientation && !_exifResolution)
        return {};
    ExifDirectory directory;
    if (_orientation)
        directory.addShort(0x0112, *_orientation);
    if (_exifResolution) {
        directory.addRational(0x011A, _exifResolution->x);
        directory.addRational(0x011B, _exifResolution->y);
        directory.addShort(0x0128, _exifResolution->unit);
    }
    return identifier + directory.bytes();
}

JpegBuilder& JpegBuilder::claimedSize(int width, int height)
{
    _claimedSize = QSize(width, height);
    return *this;
}

QByteArray JpegBuilder::bytes() const
{
    QByteArray result = encoded();
    if (_claimedSize) {
        char* const frame = result.data() + JpegFacts::of(result)->frameHeaderAt;
        qToBigEndian(static_cast<quint16>(_claimedSize->height()), frame + 5);
        qToBigEndian(static_cast<quint16>(_claimedSize->width()), frame + 7);
    }
    return result;
}

QByteArray JpegBuilder::encoded() const
{
    jpeg_error_mgr errors;
    jpeg_compress_struct encoder {};
    encoder.err = jpeg_std_error(&errors);
    jpeg_create_compress(&encoder);
    unsigned char* buffer = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&encoder, &buffer, &length);

    const bool isCmyk
        = _components == Components::AdobeCmyk || _components == Components::PlainCmyk;
    encoder.image_width = static_cast<JDIMENSION>(_pixels.width());
    encoder.image_height = static_cast<JDIMENSION>(_pixels.height());
    const bool areTwo = _components == Components::Two;
    encoder.input_components = isCmyk ? 4 : areTwo ? 2 : 3;
    encoder.in_color_space = isCmyk ? JCS_CMYK : areTwo ? JCS_UNKNOWN : JCS_RGB;
    jpeg_set_defaults(&encoder);
    jpeg_set_quality(&encoder, _quality, TRUE);
    if (_components == Components::Gray)
        jpeg_set_colorspace(&encoder, JCS_GRAYSCALE);
    if (_fullColor)
        encoder.comp_info[0].h_samp_factor = encoder.comp_info[0].v_samp_factor = 1;
    if (_progressive)
        jpeg_simple_progression(&encoder);
    encoder.write_JFIF_header = _density && !isCmyk && !areTwo ? TRUE : FALSE;
    encoder.write_Adobe_marker = _components == Components::AdobeCmyk ? TRUE : FALSE;
    if (_density) {
        encoder.density_unit = static_cast<UINT8>(_density->unit);
        encoder.X_density = static_cast<UINT16>(_density->x);
        encoder.Y_density = static_cast<UINT16>(_density->y);
    }

    jpeg_start_compress(&encoder, TRUE);
    if (const QByteArray exif = exifSegment(); !exif.isEmpty())
        jpeg_write_marker(&encoder, MarkerApp1, reinterpret_cast<const JOCTET*>(exif.constData()),
            static_cast<unsigned>(exif.size()));
    for (int y = 0; y < _pixels.height(); ++y) {
        QByteArray row = isCmyk
            ? cmykRow(_pixels, y, _components == Components::AdobeCmyk)
            : QByteArray(reinterpret_cast<const char*>(_pixels.constScanLine(y)),
                qsizetype(_pixels.width()) * 3);
        JSAMPROW pointer = reinterpret_cast<JSAMPROW>(row.data());
        jpeg_write_scanlines(&encoder, &pointer, 1);
    }
    jpeg_finish_compress(&encoder);
    jpeg_destroy_compress(&encoder);
    const QByteArray result(reinterpret_cast<char*>(buffer), static_cast<qsizetype>(length));
    std::free(buffer);
    return result;
}

std::optional<JpegFacts> JpegFacts::of(const QByteArray& bytes)
{
    if (!bytes.startsWith("\xFF\xD8"))
        return std::nullopt;
    JpegFacts facts;
    for (qsizetype at = 2; at + 4 <= bytes.size() && bytes[at] == '\xFF';) {
        const auto marker = static_cast<quint8>(bytes[at + 1]);
        const auto byte = [&](qsizetype offset) { return static_cast<quint8>(bytes[at + offset]); };
        const auto number = [&](qsizetype offset) { return byte(offset) * 256 + byte(offset + 1); };
        const QByteArray segment = bytes.mid(at + 4, number(2) - 2);
        if (marker == MarkerApp0 && segment.startsWith("JFIF")) {
            facts.densityUnit = byte(11);
            facts.xDensity = number(12);
            facts.yDensity = number(14);
        } else if (marker == MarkerApp1 && segment.startsWith("Exif")) {
            facts.hasExif = true;
        } else if (marker >= 0xC0 && marker <= 0xC2) {
            facts.frameHeaderAt = at;
            facts.height = number(5);
            facts.width = number(7);
            facts.components = byte(9);
            return facts;
        }
        at += 2 + number(2);
    }
    return std::nullopt;
}

bool isNearColor(const QColor& color, const QColor& expected, int tolerance)
{
    return qAbs(color.red() - expected.red()) <= tolerance
        && qAbs(color.green() - expected.green()) <= tolerance
        && qAbs(color.blue() - expected.blue()) <= tolerance;
}
