// SPDX-License-Identifier: GPL-3.0-or-later
// Builds test JPEGs: `JpegBuilder(1050, 600).dotsPerInch(300, 300).exifOrientation(6).bytes()`. By
// default, a picture has four quarters of different colours, three components, a JFIF header
// without a density, and no Exif data.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

class JpegBuilder {
public:
    JpegBuilder(int width, int height);
    explicit JpegBuilder(const QImage& pixels);

    // Returns a picture that is red and green in its upper half, blue and yellow in its lower half.
    static QImage quarters(int width, int height);

    JpegBuilder& gray();
    // Makes four components with an Adobe marker, and inverts the values as Adobe's programs do.
    JpegBuilder& cmyk();
    // Makes four components without an Adobe marker. The value 0 means no ink.
    JpegBuilder& plainCmyk();
    // Makes two components. There is no colour space with two components.
    JpegBuilder& twoComponents();
    JpegBuilder& progressive();
    // Stores one colour sample for each pixel, so that single pixels keep their colours.
    JpegBuilder& fullColor();
    JpegBuilder& quality(int percent);

    JpegBuilder& dotsPerInch(int x, int y);
    JpegBuilder& dotsPerCentimetre(int x, int y);
    // Writes the JFIF unit 0, which means that the two numbers are a ratio and not a density.
    JpegBuilder& aspectRatio(int x, int y);
    JpegBuilder& withoutJfif();

    JpegBuilder& exifOrientation(int orientation);
    // unit is the Exif ResolutionUnit: 1 means no unit, 2 an inch, and 3 a centimetre.
    JpegBuilder& exifResolution(int x, int y, int unit = 2);
    // Writes an Exif block that consists of "Exif\0\0" and these bytes.
    JpegBuilder& exifBytes(const QByteArray& bytes);

    // Writes this size into the frame header, whatever the size of the picture is.
    JpegBuilder& claimedSize(int width, int height);

    QByteArray bytes() const;

private:
    enum class Components { Gray, Two, Rgb, AdobeCmyk, PlainCmyk };
    struct Density {
        int unit = 0;
        int x = 1;
        int y = 1;
    };

    QByteArray exifSegment() const;
    QByteArray encoded() const;

    QImage _pixels;
    Components _components = Components::Rgb;
    bool _progressive = false;
    bool _fullColor = false;
    int _quality = 95;
    std::optional<Density> _density = Density();
    std::optional<int> _orientation;
    std::optional<Density> _exifResolution;
    std::optional<QByteArray> _exifBytes;
    std::optional<QSize> _claimedSize;
};

// Holds what the markers of a JPEG file say. The test support reads them without a library.
struct JpegFacts {
    // Returns std::nullopt if the bytes are not a JPEG with a frame header.
    static std::optional<JpegFacts> of(const QByteArray& bytes);

    int width = 0;
    int height = 0;
    int components = 0;
    int densityUnit = -1; // JFIF: 0 no unit, 1 inch, 2 centimetre; -1 if there is no header
    int xDensity = 0;
    int yDensity = 0;
    bool hasExif = false;
    qsizetype frameHeaderAt = 0; // the position of the frame header's marker
};

// Returns true if the colours differ by at most tolerance in each of red, green and blue.
bool isNearColor(const QColor& color, const QColor& expected, int tolerance = 12);
