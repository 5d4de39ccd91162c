// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCJpegProperties.h"

#include "cardimage/jpeg/DBCJpegCodec.h"

#include <cmath>
#include <limits>
#include <memory>

#include <libexif/exif-data.h>

namespace {

constexpr double centimetresPerInch = 2.54;

using ExifDataPointer = std::unique_ptr<ExifData, decltype(&exif_data_unref)>;

ExifDataPointer parseExif(const QByteArray& exif)
{
    ExifDataPointer data(exif_data_new(), exif_data_unref);
    // Without this call the library would add the tags that the Exif standard requires but the file
    // lacks: an orientation, and a resolution of 72 dots per inch.
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), reinterpret_cast<const unsigned char*>(exif.constData()),
        static_cast<unsigned>(exif.size()));
    return data;
}

// Returns the first value of a tag in IFD 0, which describes the picture itself and not its
// thumbnail.
std::optional<double> numberOf(const ExifDataPointer& data, ExifTag tag)
{
    const ExifEntry* const entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], tag);
    if (!entry || !entry->data || entry->components == 0
        || entry->size < exif_format_get_size(entry->format))
        return std::nullopt;
    const ExifByteOrder order = exif_data_get_byte_order(data.get());
    switch (entry->format) {
    case EXIF_FORMAT_BYTE:
        return entry->data[0];
    case EXIF_FORMAT_SHORT:
        return exif_get_short(entry->data, order);
    case EXIF_FORMAT_LONG:
        return exif_get_long(entry->data, order);
    case EXIF_FORMAT_RATIONAL: {
        const ExifRational value = exif_get_rational(entry->data, order);
        if (value.denominator == 0)
            return std::nullopt;
        return static_cast<double>(value.numerator) / value.denominator;
    }
    default:
        return std::nullopt;
    }
}

// Returns the rounded number, or 0 when it does not fit into the integer.
qint32 toInteger(double number)
{
    const double rounded = std::round(number);
    return rounded <= std::numeric_limits<qint32>::max() ? static_cast<qint32>(rounded) : 0;
}

// The result is rounded to the nearest integer because a file of 300 dots per inch may state 118
// dots per centimetre, which is 299.72 dots per inch.
qint32 dotsPerInch(double density, DBCJpegHeader::DensityUnit unit)
{
    switch (unit) {
    case DBCJpegHeader::DensityUnit::Inch:
        return toInteger(density);
    case DBCJpegHeader::DensityUnit::Centimetre:
        return toInteger(density * centimetresPerInch);
    case DBCJpegHeader::DensityUnit::None:
        break;
    }
    return 0;
}

DBCJpegHeader::DensityUnit resolutionUnitOf(const ExifDataPointer& data)
{
    // Values of the Exif tag ResolutionUnit. A missing tag means 2.
    constexpr int exifNone = 1;
    constexpr int exifInch = 2;
    constexpr int exifCentimetre = 3;
    switch (toInteger(numberOf(data, EXIF_TAG_RESOLUTION_UNIT).value_or(exifInch))) {
    case exifInch:
        return DBCJpegHeader::DensityUnit::Inch;
    case exifCentimetre:
        return DBCJpegHeader::DensityUnit::Centimetre;
    case exifNone:
    default:
        return DBCJpegHeader::DensityUnit::None;
    }
}

void readExif(const QByteArray& exif, DBCJpegProperties* properties)
{
    const ExifDataPointer data = parseExif(exif);
    if (const auto orientation = numberOf(data, EXIF_TAG_ORIENTATION))
        properties->orientation = toInteger(*orientation);
    if (properties->xResolution != 0 && properties->yResolution != 0)
        return;
    const auto unit = resolutionUnitOf(data);
    properties->xResolution = dotsPerInch(numberOf(data, EXIF_TAG_X_RESOLUTION).value_or(0), unit);
    properties->yResolution = dotsPerInch(numberOf(data, EXIF_TAG_Y_RESOLUTION).value_or(0), unit);
}

} // namespace

std::optional<DBCJpegProperties> readJpegProperties(const QByteArray& jpeg)
{
    const auto header = readJpegHeader(jpeg);
    if (!header)
        return std::nullopt;
    DBCJpegProperties properties;
    properties.pixelWidth = header->size.width();
    properties.pixelHeight = header->size.height();
    properties.xResolution = dotsPerInch(header->xDensity, header->densityUnit);
    properties.yResolution = dotsPerInch(header->yDensity, header->densityUnit);
    properties.components = header->components;
    properties.isInvertedCmyk = header->isInvertedCmyk;
    if (!header->exif.isEmpty())
        readExif(header->exif, &properties);
    return properties;
}
