// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCJpegCodec.h"

#include "tests/support/JpegBuilder.h"

#include <QPainter>
#include <QtTest>

#include <cmath>

using ColorModel = DBCBitmap::ColorModel;

namespace {

JpegFacts factsOf(const DBCBitmap& bitmap)
{
    return JpegFacts::of(encodeJpeg(bitmap)).value_or(JpegFacts());
}

// Returns a picture that resembles a card: white paper with a coloured bar and dark lines.
QImage cardPicture()
{
    QImage pixels(525, 300, QImage::Format_RGB888);
    pixels.fill(QColor(250, 248, 240));
    QPainter painter(&pixels);
    painter.fillRect(0, 0, 525, 40, QColor(20, 60, 140));
    for (int y = 80; y < 280; y += 20)
        painter.fillRect(40, y, 300, 3, QColor(30, 30, 30));
    return pixels;
}

double meanSquareError(const QImage& first, const QImage& second)
{
    double sum = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            sum += std::pow(a.red() - b.red(), 2) + std::pow(a.green() - b.green(), 2)
                + std::pow(a.blue() - b.blue(), 2);
        }
    }
    return sum / 3 / first.width() / first.height();
}

} // namespace

class tst_jpegCodec : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void colorPictureIsDecoded()
    {
        const DBCBitmap bitmap = decodeJpeg(JpegBuilder(64, 32).dotsPerInch(300, 300).bytes());
        QCOMPARE(bitmap.pixels.size(), QSize(64, 32));
        QCOMPARE(bitmap.pixels.format(), QImage::Format_RGB888);
        QCOMPARE(bitmap.colorModel, ColorModel::DeviceRGB);
        QCOMPARE(bitmap.pointSize, QSizeF(64, 32));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 8), Qt::red));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(56, 8), Qt::green));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 24), Qt::blue));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(56, 24), Qt::yellow));
    }

    void grayPictureStaysGray()
    {
        const DBCBitmap bitmap = decodeJpeg(JpegBuilder(64, 32).gray().bytes());
        QCOMPARE(bitmap.pixels.format(), QImage::Format_Grayscale8);
        QCOMPARE(bitmap.colorModel, ColorModel::DeviceGray);
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 8), QColor(76, 76, 76)));
    }

    void progressivePictureIsDecoded()
    {
        const DBCBitmap bitmap = decodeJpeg(JpegBuilder(64, 32).progressive().bytes());
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(56, 24), Qt::yellow));
    }

    void pictureOfFourInksIsDecoded_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        QTest::newRow("inverted, as Adobe writes it") << JpegBuilder(64, 32).cmyk().bytes();
        QTest::newRow("plain") << JpegBuilder(64, 32).plainCmyk().bytes();
    }
    void pictureOfFourInksIsDecoded()
    {
        QFETCH(QByteArray, jpeg);
        const DBCBitmap bitmap = decodeJpeg(jpeg);
        QCOMPARE(bitmap.pixels.format(), QImage::Format_RGB888);
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 8), Qt::red));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(56, 8), Qt::green));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 24), Qt::blue));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(56, 24), Qt::yellow));
    }

    void exifOrientationIsNotApplied()
    {
        const DBCBitmap bitmap = decodeJpeg(JpegBuilder(64, 32).exifOrientation(6).bytes());
        QCOMPARE(bitmap.pixels.size(), QSize(64, 32));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 8), Qt::red));
    }

    void pictureThatBreaksOffIsGrayBelow()
    {
        const QByteArray jpeg = JpegBuilder(cardPicture()).bytes();
        const DBCBitmap bitmap = decodeJpeg(jpeg.left(jpeg.size() / 2));
        QCOMPARE(bitmap.pixels.size(), QSize(525, 300));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(260, 10), QColor(20, 60, 140)));
        const QColor below = bitmap.pixels.pixelColor(520, 299);
        QCOMPARE(below.red(), below.green());
    }

    void pictureCannotBeDecoded_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        const QByteArray jpeg = JpegBuilder(64, 32).bytes();
        const qsizetype frame = JpegFacts::of(jpeg)->frameHeaderAt;
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a text");
        QTest::newRow("PNG") << QByteArray("\x89PNG\r\n\x1A\n");
        QTest::newRow("start only") << jpeg.left(2);
        QTest::newRow("cut off before the frame header") << jpeg.left(frame);
        QTest::newRow("cut off behind the frame header") << jpeg.left(frame + 19);
        QTest::newRow("without a start") << jpeg.mid(2);
        QTest::newRow("30000 x 30000 pixels")
            << JpegBuilder(8, 8).claimedSize(30000, 30000).bytes();
        QTest::newRow("65535 x 65535 pixels")
            << JpegBuilder(8, 8).claimedSize(65535, 65535).bytes();
        QTest::newRow("no height") << JpegBuilder(8, 8).claimedSize(8, 0).bytes();
        QTest::newRow("two components") << JpegBuilder(8, 8).twoComponents().bytes();
        QByteArray twelveBits = jpeg;
        twelveBits[frame + 4] = 12;
        QTest::newRow("twelve bits") << twelveBits;
        QByteArray lossless = jpeg;
        lossless[frame + 1] = '\xC3';
        QTest::newRow("lossless") << lossless;
        QByteArray tableGone = jpeg;
        tableGone.replace("\xFF\xDB", "\xFF\xFE");
        QTest::newRow("without quantisation tables") << tableGone;
    }
    void pictureCannotBeDecoded()
    {
        QFETCH(QByteArray, jpeg);
        QVERIFY(decodeJpeg(jpeg).isNull());
    }

    void pictureOfEndlessScansIsGivenUp()
    {
        const QByteArray jpeg = JpegBuilder(64, 64).progressive().bytes();
        // The test repeats the last scan. The decoder accepts 100 scans and refuses 1,000.
        const qsizetype lastScan = jpeg.lastIndexOf("\xFF\xDA");
        const QByteArray scan = jpeg.mid(lastScan, jpeg.size() - 2 - lastScan);
        QVERIFY(!decodeJpeg(jpeg.chopped(2) + scan.repeated(100) + "\xFF\xD9").isNull());
        QVERIFY(decodeJpeg(jpeg.chopped(2) + scan.repeated(1000) + "\xFF\xD9").isNull());
    }

    void largePictureOfManyScansIsGivenUp()
    {
        // 49 million pixels times 90 scans exceeds DBCMostScannedPixels.
        const QByteArray jpeg = JpegBuilder(8, 8).progressive().claimedSize(7000, 7000).bytes();
        const qsizetype lastScan = jpeg.lastIndexOf("\xFF\xDA");
        const QByteArray scan = jpeg.mid(lastScan, jpeg.size() - 2 - lastScan);
        QVERIFY(decodeJpeg(jpeg.chopped(2) + scan.repeated(90) + "\xFF\xD9").isNull());
    }

    void largePictureOfSeveralScansIsGivenUp()
    {
        // 81 million pixels fit into memory (243 MB), but not together with their coefficients (486
        // MB).
        const JpegBuilder picture = JpegBuilder(8, 8).claimedSize(9000, 9000);
        QVERIFY(decodeJpeg(JpegBuilder(picture).progressive().bytes()).isNull());
    }

    void headerCannotBeRead_data()
    {
        QTest::addColumn<QByteArray>("jpeg");
        const QByteArray jpeg = JpegBuilder(64, 32).bytes();
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("a text");
        QTest::newRow("cut off before the frame header")
            << jpeg.left(JpegFacts::of(jpeg)->frameHeaderAt);
        QTest::newRow("no height") << JpegBuilder(8, 8).claimedSize(8, 0).bytes();
    }
    void headerCannotBeRead()
    {
        QFETCH(QByteArray, jpeg);
        QVERIFY(!readJpegHeader(jpeg));
    }

    void pictureSurvivesTheWayOutAndBack()
    {
        const QImage original = cardPicture();
        const DBCBitmap back
            = decodeJpeg(encodeJpeg(DBCBitmap::of(original, ColorModel::DeviceRGB)));
        QCOMPARE(back.pixels.size(), original.size());
        const double ratio = 10 * std::log10(255 * 255 / meanSquareError(original, back.pixels));
        QVERIFY2(ratio > 40, qPrintable(QString::number(ratio)));
    }

    void colorIsWrittenInThreeComponents_data()
    {
        QTest::addColumn<QImage>("pixels");
        const QImage pixels = JpegBuilder::quarters(64, 32);
        for (const QImage::Format format : {QImage::Format_RGB888, QImage::Format_RGB32,
                 QImage::Format_RGBA8888_Premultiplied, QImage::Format_ARGB32,
                 QImage::Format_ARGB32_Premultiplied, QImage::Format_Indexed8}) {
            QTest::addRow("format %d", format) << pixels.convertToFormat(format);
        }
    }
    void colorIsWrittenInThreeComponents()
    {
        QFETCH(QImage, pixels);
        const QByteArray jpeg = encodeJpeg(DBCBitmap::of(pixels, ColorModel::DeviceRGB));
        QCOMPARE(JpegFacts::of(jpeg)->components, 3);
        QImage back;
        QVERIFY(back.loadFromData(jpeg, "JPG"));
        QVERIFY(isNearColor(back.pixelColor(8, 8), Qt::red));
        QVERIFY(isNearColor(back.pixelColor(56, 8), Qt::green));
        QVERIFY(isNearColor(back.pixelColor(8, 24), Qt::blue));
        QVERIFY(isNearColor(back.pixelColor(56, 24), Qt::yellow));
    }

    void grayIsWrittenInOneComponent()
    {
        const QImage pixels
            = JpegBuilder::quarters(64, 32).convertToFormat(QImage::Format_Grayscale8);
        const QByteArray jpeg = encodeJpeg(DBCBitmap::of(pixels, ColorModel::DeviceGray));
        QCOMPARE(JpegFacts::of(jpeg)->components, 1);
        QImage back;
        QVERIFY(back.loadFromData(jpeg, "JPG"));
        QVERIFY(isNearColor(back.pixelColor(8, 8), pixels.pixelColor(8, 8)));
    }

    void transparentIsWrittenWhite()
    {
        const DBCBitmap empty = DBCBitmap::blank(
            QSize(16, 16), QImage::Format_RGBA8888_Premultiplied, ColorModel::CalibratedRGB);
        QImage back;
        QVERIFY(back.loadFromData(encodeJpeg(empty), "JPG"));
        QVERIFY(isNearColor(back.pixelColor(8, 8), Qt::white, 2));
    }

    void resolutionIsRecorded_data()
    {
        QTest::addColumn<QSizeF>("pointSize");
        QTest::addColumn<int>("unit");
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        // All rows are about a picture of 1050 x 600 pixels.
        QTest::newRow("a point a pixel") << QSizeF(1050, 600) << 1 << 72 << 72;
        QTest::newRow("300 dpi") << QSizeF(252, 144) << 1 << 300 << 300;
        QTest::newRow("different") << QSizeF(126, 144) << 1 << 600 << 300;
        QTest::newRow("nearest number") << QSizeF(252.1, 143.9) << 1 << 300 << 300;
        QTest::newRow("no extent") << QSizeF(0, 0) << 0 << 1 << 1;
        QTest::newRow("endless") << QSizeF(qInf(), qInf()) << 0 << 1 << 1;
        QTest::newRow("negative") << QSizeF(-252, -144) << 0 << 1 << 1;
        QTest::newRow("one direction only") << QSizeF(252, 0) << 0 << 1 << 1;
        QTest::newRow("more than the header holds") << QSizeF(1, 1) << 0 << 1 << 1;
    }
    void resolutionIsRecorded()
    {
        QFETCH(QSizeF, pointSize);
        QFETCH(int, unit);
        QFETCH(int, x);
        QFETCH(int, y);
        DBCBitmap bitmap = DBCBitmap::of(JpegBuilder::quarters(1050, 600), ColorModel::DeviceRGB);
        bitmap.pointSize = pointSize;
        const JpegFacts facts = factsOf(bitmap);
        QCOMPARE(facts.densityUnit, unit);
        QCOMPARE(facts.xDensity, x);
        QCOMPARE(facts.yDensity, y);
    }

    void exifIsNotWritten()
    {
        const DBCBitmap bitmap = decodeJpeg(JpegBuilder(8, 8).exifOrientation(6).bytes());
        QVERIFY(!factsOf(bitmap).hasExif);
    }

    void pictureCannotBeEncoded_data()
    {
        QTest::addColumn<QImage>("pixels");
        QTest::newRow("none") << QImage();
        QTest::newRow("wider than any JPEG") << QImage(65501, 1, QImage::Format_Grayscale8);
    }
    void pictureCannotBeEncoded()
    {
        QFETCH(QImage, pixels);
        QVERIFY(encodeJpeg(DBCBitmap::of(pixels, ColorModel::DeviceGray)).isEmpty());
    }

    void sourceOfTheRowsIsNotTouched()
    {
        const DBCBitmap bitmap = DBCBitmap::of(cardPicture(), ColorModel::DeviceRGB);
        const uchar* const before = bitmap.pixels.constBits();
        QVERIFY(!encodeJpeg(bitmap).isEmpty());
        QCOMPARE(bitmap.pixels.constBits(), before);
        QCOMPARE(bitmap.pixels, cardPicture());
    }
};

QTEST_GUILESS_MAIN(tst_jpegCodec)
#include "tst_jpegCodec.moc"
