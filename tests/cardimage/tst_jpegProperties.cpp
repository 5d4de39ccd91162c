// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCJpegProperties.h"

#include "tests/support/JpegBuilder.h"

#include <QtTest>

namespace {

DBCJpegProperties propertiesOf(const JpegBuilder& builder)
{
    return readJpegProperties(builder.bytes()).value_or(DBCJpegProperties());
}

JpegBuilder picture()
{
    return {40, 20};
}

} // namespace

class tst_jpegProperties : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sizeIsThatOfTheFrame()
    {
        const DBCJpegProperties properties = propertiesOf(picture());
        QCOMPARE(properties.pixelWidth, 40);
        QCOMPARE(properties.pixelHeight, 20);
    }

    void hugePictureIsNotDecoded()
    {
        const DBCJpegProperties properties = propertiesOf(picture().claimedSize(30000, 30000));
        QCOMPARE(properties.pixelWidth, 30000);
        QCOMPARE(properties.pixelHeight, 30000);
    }

    void componentsAreCounted_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::addColumn<int>("components");
        QTest::addColumn<bool>("isInvertedCmyk");
        QTest::newRow("gray") << picture().gray().bytes() << 1 << false;
        QTest::newRow("colour") << picture().bytes() << 3 << false;
        QTest::newRow("progressive") << picture().progressive().bytes() << 3 << false;
        QTest::newRow("four inks") << picture().plainCmyk().bytes() << 4 << false;
        QTest::newRow("four inks, inverted") << picture().cmyk().bytes() << 4 << true;
    }
    void componentsAreCounted()
    {
        QFETCH(QByteArray, jpeg);
        QFETCH(int, components);
        QFETCH(bool, isInvertedCmyk);
        const auto properties = readJpegProperties(jpeg);
        QVERIFY(properties);
        QCOMPARE(properties->components, components);
        QCOMPARE(properties->isInvertedCmyk, isInvertedCmyk);
    }

    void resolution_data()
    {
        QTest::addColumn<JpegBuilder>("builder");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        const auto row = [](const char* name, const JpegBuilder& builder, int x, int y) {
            QTest::newRow(name) << builder << x << y;
        };
        row("inches", picture().dotsPerInch(300, 200), 300, 200);
        row("inches at the limit", picture().dotsPerInch(65535, 65535), 65535, 65535);
        row("centimetres", picture().dotsPerCentimetre(118, 79), 300, 201);
        row("ratio only", picture().aspectRatio(300, 300), 0, 0);
        row("nothing at all", picture().withoutJfif(), 0, 0);
        row("Exif in inches", picture().withoutJfif().exifResolution(300, 200), 300, 200);
        row("Exif in centimetres", picture().withoutJfif().exifResolution(118, 79, 3), 300, 201);
        row("Exif without a unit", picture().withoutJfif().exifResolution(300, 300, 1), 0, 0);
        row("Exif with an unknown unit", picture().withoutJfif().exifResolution(300, 300, 9), 0, 0);
        row("Exif behind a ratio", picture().aspectRatio(1, 1).exifResolution(300, 200), 300, 200);
        row("Exif beside inches", picture().dotsPerInch(300, 200).exifResolution(72, 72), 300, 200);
        row("Exif behind a density of zero", picture().dotsPerInch(0, 300).exifResolution(72, 96),
            72, 96);
        row("Exif beside a density in one direction",
            picture().dotsPerInch(300, 0).exifResolution(72, 96), 72, 96);
        row("Exif beyond all integers", picture().withoutJfif().exifResolution(-1, 300), 0, 300);
        row("Exif with an orientation only", picture().withoutJfif().exifOrientation(6), 0, 0);
        row("density of zero", picture().dotsPerInch(0, 300), 0, 300);
    }
    void resolution()
    {
        QFETCH(JpegBuilder, builder);
        QFETCH(int, x);
        QFETCH(int, y);
        const DBCJpegProperties properties = propertiesOf(builder);
        QCOMPARE(properties.pixelWidth, 40);
        QCOMPARE(properties.xResolution, x);
        QCOMPARE(properties.yResolution, y);
    }

    void orientation_data()
    {
        QTest::addColumn<int>("orientation");
        for (int orientation = 0; orientation <= 9; ++orientation)
            QTest::addRow("%d", orientation) << orientation;
    }
    void orientation()
    {
        QFETCH(int, orientation);
        QCOMPARE(propertiesOf(picture().exifOrientation(orientation)).orientation, orientation);
        QCOMPARE(propertiesOf(picture()).orientation, std::nullopt);
    }

    void orientationBehindOtherSegmentsIsFound()
    {
        QByteArray jpeg = picture().exifOrientation(8).bytes();
        const QByteArray note("\xFF\xE1\x00\x0Chttp://x/\0", 14);
        jpeg.insert(2, note);
        QCOMPARE(readJpegProperties(jpeg)->orientation, 8);
    }

    void orientationInEveryFormat_data()
    {
        QTest::addColumn<QByteArray>("format"); // the type and count fields of the Exif entry
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<std::optional<qint32>>("orientation");
        const auto row = [](const char* name, const char* format, const char* value,
                             std::optional<qint32> orientation) {
            QTest::newRow(name) << QByteArray::fromHex(format) << QByteArray::fromHex(value)
                                << orientation;
        };
        row("byte", "0100 01000000", "06000000", 6);
        row("text", "0200 04000000", "36000000", std::nullopt);
        row("number", "0300 01000000", "06000000", 6);
        row("long number", "0400 01000000", "06000000", 6);
        row("several numbers", "0300 02000000", "06000800", 6);
        row("no number", "0300 00000000", "06000000", std::nullopt);
        row("number with a sign", "0800 01000000", "06000000", std::nullopt);
        row("unknown format", "7700 01000000", "06000000", std::nullopt);
    }
    void orientationInEveryFormat()
    {
        QFETCH(QByteArray, format);
        QFETCH(QByteArray, value);
        QFETCH(std::optional<qint32>, orientation);
        const QByteArray exif = QByteArray("II\x2A\x00\x08\x00\x00\x00\x01\x00\x12\x01", 12)
            + format + value + QByteArray(4, '\0');
        const DBCJpegProperties properties = propertiesOf(picture().exifBytes(exif));
        QCOMPARE(properties.pixelWidth, 40);
        QCOMPARE(properties.orientation, orientation);
    }

    void exifUnitBeyondAllIntegersIsUnknown()
    {
        const QByteArray exif("II\x2A\x00\x08\x00\x00\x00\x03\x00"
                              "\x1A\x01\x03\x00\x01\x00\x00\x00\x2C\x01\x00\x00"
                              "\x1B\x01\x03\x00\x01\x00\x00\x00\x2C\x01\x00\x00"
                              "\x28\x01\x04\x00\x01\x00\x00\x00\xFF\xFF\xFF\xFF"
                              "\x00\x00\x00\x00",
            50);
        const DBCJpegProperties properties = propertiesOf(picture().withoutJfif().exifBytes(exif));
        QCOMPARE(properties.xResolution, 0);
        QCOMPARE(properties.yResolution, 0);
    }

    void densityInAnUnknownUnitIsNone()
    {
        QByteArray jpeg = picture().dotsPerInch(300, 300).bytes();
        constexpr qsizetype unitAt
            = 13; // offset of the density unit in the file, whose first segment is the JFIF header
        QCOMPARE(jpeg[unitAt], char(1));
        jpeg[unitAt] = 3;
        const auto properties = readJpegProperties(jpeg);
        QVERIFY(properties);
        QCOMPARE(properties->xResolution, 0);
        QCOMPARE(properties->yResolution, 0);
    }

    void damagedExifIsIgnored_data()
    {
        QTest::addColumn<QByteArray>("exif");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no byte order") << QByteArray("xx\x2A\x00\x08\x00\x00\x00", 8);
        QTest::newRow("directory beyond the end") << QByteArray("II\x2A\x00\xFF\xFF\xFF\x7F", 8);
        QTest::newRow("directory cut off")
            << QByteArray("II\x2A\x00\x08\x00\x00\x00\xFF\xFF\x12", 11);
        QTest::newRow("directory that leads back to itself")
            << QByteArray("II\x2A\x00\x08\x00\x00\x00\x00\x00\x08\x00\x00\x00", 14);
        QTest::newRow("resolution divided by zero")
            << QByteArray("II\x2A\x00\x08\x00\x00\x00\x01\x00\x1A\x01\x05\x00\x01\x00\x00\x00"
                          "\x1A\x00\x00\x00\x00\x00\x00\x00\x2C\x01\x00\x00\x00\x00\x00\x00",
                   34);
    }
    void damagedExifIsIgnored()
    {
        QFETCH(QByteArray, exif);
        const DBCJpegProperties properties = propertiesOf(picture().withoutJfif().exifBytes(exif));
        QCOMPARE(properties.pixelWidth, 40);
        QCOMPARE(properties.xResolution, 0);
        QCOMPARE(properties.orientation, std::nullopt);
    }

    void fileIsNoJpeg_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a text");
        QTest::newRow("PNG") << QByteArray("\x89PNG\r\n\x1A\n");
        QTest::newRow("two components") << picture().twoComponents().bytes();
    }
    void fileIsNoJpeg()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!readJpegProperties(bytes));
    }
};

QTEST_GUILESS_MAIN(tst_jpegProperties)
#include "tst_jpegProperties.moc"
