// SPDX-License-Identifier: GPL-3.0-or-later
// Test JPEGs: `JpegBuilder(1050, 600).dotsPerInch(300, 300).exifOrientation(6).bytes()`. Unless
// told otherwise a picture has four quarters of different colours, three components, a JFIF header
// without a density and no Exif.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>

#include <optional>

class JpegBuilder {
public:
    JpegBuilder(int width, int height);
    explicit JpegBuilder(const QImage& pixels);

    // Four quarters: red, green; blue, yellow.
    static QImage quarters(int width, int height);

    JpegBuilder& gray();
    // Four components with an Adobe marker, the values inverted as Adobe's programs write them.
    JpegBuilder& cmyk();
    // Four components without an Adobe marker, 0 meaning no ink.
    JpegBuilder& plainCmyk();
    // Two components, which stand for no colour space.
    JpegBuilder& twoComponents();
    JpegBuilder& progressive();
    // One colour sample for each pixel, so that single pixels keep their colours.
    JpegBuilder& fullColor();
    JpegBuilder& quality(int percent);

    JpegBuilder& dotsPerInch(int x, int y);
    JpegBuilder& dotsPerCentimetre(int x, int y);
    // JFIF unit 0: the two numbers are a ratio, not a density.
    JpegBuilder& aspectRatio(int x, int y);
    JpegBuilder& withoutJfif();

    JpegBuilder& exifOrientation(int orientation);
    // unit is the Exif ResolutionUnit: 1 none, 2 inch, 3 centimetre.
    JpegBuilder& exifResolution(int x, int y, int unit = 2);
    // An Exif block of these bytes behind "Exif\0\0", instead of a well-formed one.
    JpegBuilder& exifBytes(const QByteArray& bytes);

    // The frame header tells this size whatever the picture behind it is.
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

// What the markers of a JPEG file say, read without a library.
struct JpegFacts {
    // None when the bytes hold no JPEG with a frame header.
    static std::optional<JpegFacts> of(const QByteArray& bytes);

    int width = 0;
    int height = 0;
    int components = 0;
    int densityUnit = -1; // JFIF: 0 none, 1 inch, 2 centimetre; -1 without a JFIF header
    int xDensity = 0;
    int yDensity = 0;
    bool hasExif = false;
    qsizetype frameHeaderAt = 0; // where its marker begins
};

// True when both colours differ by at most tolerance in each of red, green and blue.
bool isNearColor(const QColor& color, const QColor& expected, int tolerance = 12);
