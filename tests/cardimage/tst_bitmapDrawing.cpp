// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/bitmap/DBCBitmapDrawing.h"

#include "tests/support/JpegBuilder.h"

#include <QtTest>

using ColorModel = DBCBitmap::ColorModel;

Q_DECLARE_METATYPE(QImage::Format)

namespace {

// Returns an image in which all pixels differ and the sides are odd and unequal, so that a test
// notices any misplaced pixel.
QImage distinctPixels(int width = 7, int height = 5)
{
    QImage pixels(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            pixels.setPixelColor(x, y, QColor(10 + 20 * x, 10 + 20 * y, x * y));
    }
    return pixels;
}

DBCBitmap colorBitmap(const QImage& pixels = distinctPixels())
{
    return DBCBitmap::of(pixels, ColorModel::DeviceRGB);
}

DBCBitmap turned(const DBCBitmap& bitmap, int angle)
{
    DBCBitmap result;
    if (RotateBitmapImageRep(bitmap, angle, &result) != DBCResultCode::Success)
        return {};
    return result;
}

DBCBitmap converted(const DBCBitmap& bitmap, int depth)
{
    DBCBitmap result;
    if (ConvertImageToDepth(bitmap, depth, &result) != DBCResultCode::Success)
        return {};
    return result;
}

// Returns a bitmap that is white except for one black pixel at x 1, y 0.
DBCBitmap oneBitBitmap()
{
    DBCBitmap bitmap = DBCBitmap::blank(QSize(4, 2), QImage::Format_Mono, ColorModel::DeviceBlack);
    bitmap.pixels.setPixel(1, 0, 1);
    return bitmap;
}

} // namespace

class tst_bitmapDrawing : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingImageIsAParameterError()
    {
        DBCBitmap result;
        QCOMPARE(ConvertImageToDepth({}, 24, &result), DBCResultCode::ParameterError);
        QCOMPARE(RotateBitmapImageRep({}, 90, &result), DBCResultCode::ParameterError);
    }

    void failureLeavesTheOutputAlone()
    {
        DBCBitmap result = colorBitmap();
        QCOMPARE(RotateBitmapImageRep({}, 90, &result), DBCResultCode::ParameterError);
        QCOMPARE(result.pixels, distinctPixels());
    }

    void resultTooLargeIsAFailure()
    {
        // The bitmap is within the limit at one bit per pixel, but exceeds the limit at 32 bits.
        const DBCBitmap large
            = DBCBitmap::blank(QSize(20000, 10000), QImage::Format_Mono, ColorModel::DeviceRGB);
        QVERIFY(!large.isNull());
        DBCBitmap result;
        QCOMPARE(ConvertImageToDepth(large, 24, &result), DBCResultCode::GeneralFailure);
        QCOMPARE(RotateBitmapImageRep(large, 90, &result), DBCResultCode::GeneralFailure);
        QVERIFY(result.isNull());
    }

    void depthDecidesTheConversion_data()
    {
        QTest::addColumn<int>("depth");
        QTest::addColumn<int>("bitsPerPixel");
        QTest::addColumn<bool>("hasAlpha");
        QTest::addColumn<ColorModel>("model");
        QTest::newRow("8") << 8 << 8 << false << ColorModel::CalibratedGray;
        QTest::newRow("24") << 24 << 32 << true << ColorModel::CalibratedRGB;
        QTest::newRow("1") << 1 << 32 << true << ColorModel::CalibratedRGB;
    }
    void depthDecidesTheConversion()
    {
        QFETCH(int, depth);
        QFETCH(int, bitsPerPixel);
        QFETCH(bool, hasAlpha);
        QFETCH(ColorModel, model);
        const DBCBitmap result = converted(colorBitmap(), depth);
        QCOMPARE(result.bitsPerPixel(), bitsPerPixel);
        QCOMPARE(result.pixels.hasAlphaChannel(), hasAlpha);
        QCOMPARE(result.colorModel, model);
    }

    void conversionKeepsEveryPixel()
    {
        const DBCBitmap result = converted(colorBitmap(), 24);
        QCOMPARE(result.pixels.convertToFormat(QImage::Format_RGB888), distinctPixels());
    }

    void conversionOfABitmapIsBlackOnWhite()
    {
        for (const int depth : {8, 24}) {
            const DBCBitmap result = converted(oneBitBitmap(), depth);
            QCOMPARE(result.pixels.pixelColor(0, 0), QColor(Qt::white));
            QCOMPARE(result.pixels.pixelColor(1, 0), QColor(Qt::black));
            QCOMPARE(result.pixels.pixelColor(3, 1), QColor(Qt::white));
        }
    }

    void conversionToGrayWeighsTheColors()
    {
        const QImage gray = converted(colorBitmap(JpegBuilder::quarters(4, 4)), 8).pixels;
        const int red = gray.pixelColor(0, 0).value();
        const int green = gray.pixelColor(3, 0).value();
        const int blue = gray.pixelColor(0, 3).value();
        QVERIFY(blue < red && red < green && green < 255);
    }

    void conversionStandsAtAPointAPixel()
    {
        DBCBitmap source = colorBitmap();
        source.pointSize = QSizeF(1, 1);
        QCOMPARE(converted(source, 24).pointSize, QSizeF(7, 5));
    }

    void quarterTurnPutsTheTopRowRight()
    {
        QImage pixels(200, 100, QImage::Format_RGB888);
        pixels.fill(Qt::blue);
        for (int x = 0; x < 200; ++x)
            pixels.setPixelColor(x, 0, QColor(x, 100, 0));
        const QImage result = turned(colorBitmap(pixels), 90).pixels;
        QCOMPARE(result.size(), QSize(100, 200));
        for (int y = 0; y < 200; ++y) {
            QCOMPARE(result.pixelColor(99, y), QColor(y, 100, 0));
            QCOMPARE(result.pixelColor(98, y), QColor(Qt::blue));
        }
    }

    void threeQuarterTurnPutsTheTopRowLeft()
    {
        QImage pixels(200, 100, QImage::Format_RGB888);
        pixels.fill(Qt::blue);
        for (int x = 0; x < 200; ++x)
            pixels.setPixelColor(x, 0, QColor(x, 100, 0));
        const QImage result = turned(colorBitmap(pixels), 270).pixels;
        QCOMPARE(result.size(), QSize(100, 200));
        for (int y = 0; y < 200; ++y) {
            QCOMPARE(result.pixelColor(0, y), QColor(199 - y, 100, 0));
            QCOMPARE(result.pixelColor(1, y), QColor(Qt::blue));
        }
    }

    void halfTurnPutsTheTopRowAtTheBottomBackwards()
    {
        QImage pixels(200, 100, QImage::Format_RGB888);
        pixels.fill(Qt::blue);
        for (int x = 0; x < 200; ++x)
            pixels.setPixelColor(x, 0, QColor(x, 100, 0));
        const QImage result = turned(colorBitmap(pixels), 180).pixels;
        QCOMPARE(result.size(), QSize(200, 100));
        for (int x = 0; x < 200; ++x)
            QCOMPARE(result.pixelColor(x, 99), QColor(199 - x, 100, 0));
        QCOMPARE(result.pixelColor(0, 0), QColor(Qt::blue));
    }

    void everyPixelIsTurnedExactly_data()
    {
        QTest::addColumn<int>("angle");
        QTest::addColumn<int>("quarters"); // clockwise
        QTest::newRow("90") << 90 << 1;
        QTest::newRow("-270") << -270 << 1;
        QTest::newRow("180") << 180 << 2;
        QTest::newRow("-180") << -180 << 2;
        QTest::newRow("270") << 270 << 3;
        QTest::newRow("-90") << -90 << 3;
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("360") << 360 << 0;
    }
    void everyPixelIsTurnedExactly()
    {
        QFETCH(int, angle);
        QFETCH(int, quarters);
        for (const QSize size : {QSize(7, 5), QSize(8, 6), QSize(1, 9), QSize(5, 5)}) {
            const QImage source = distinctPixels(size.width(), size.height());
            const QImage gray = source.convertToFormat(QImage::Format_Grayscale8);
            const QImage result = turned(colorBitmap(source), angle).pixels;
            const QImage grayResult
                = turned(DBCBitmap::of(gray, ColorModel::DeviceGray), angle).pixels;
            QCOMPARE(result.size(), quarters % 2 == 0 ? size : size.transposed());
            QCOMPARE(grayResult.size(), result.size());
            for (int y = 0; y < size.height(); ++y) {
                for (int x = 0; x < size.width(); ++x) {
                    const int right = size.width() - 1 - x;
                    const int below = size.height() - 1 - y;
                    const QPoint target = quarters == 1 ? QPoint(below, x)
                        : quarters == 2                 ? QPoint(right, below)
                        : quarters == 3                 ? QPoint(y, right)
                                                        : QPoint(x, y);
                    QCOMPARE(result.pixelColor(target), source.pixelColor(x, y));
                    QCOMPARE(grayResult.pixelColor(target), gray.pixelColor(x, y));
                }
            }
        }
    }

    void noTurnOnlyChangesTheFormat()
    {
        const DBCBitmap result = turned(colorBitmap(), 0);
        QCOMPARE(result.bitsPerPixel(), 32);
        QCOMPARE(result.pixels.convertToFormat(QImage::Format_RGB888), distinctPixels());
    }

    void fullTurnIsNoTurn()
    {
        QCOMPARE(turned(colorBitmap(), 360).pixels.convertToFormat(QImage::Format_RGB888),
            distinctPixels());
    }

    void otherAngleTurnsCounterClockwiseAboutTheCentre()
    {
        QImage pixels(101, 101, QImage::Format_RGB888);
        pixels.fill(Qt::blue);
        for (int x = 80; x < 90; ++x) {
            for (int y = 45; y < 56; ++y)
                pixels.setPixelColor(x, y, Qt::red);
        }
        const QImage result = turned(colorBitmap(pixels), 45).pixels;
        QCOMPARE(result.size(), QSize(101, 101));
        // The square was 35 pixels to the right of the centre, and is now 25 pixels to the right of
        // the centre and 25 above.
        QCOMPARE(result.pixelColor(75, 25), QColor(Qt::red));
        QCOMPARE(result.pixelColor(85, 50), QColor(Qt::blue));
        QCOMPARE(result.pixelColor(50, 50), QColor(Qt::blue));
    }

    void cornersOfASlantedImageAreEmpty()
    {
        QCOMPARE(turned(colorBitmap(), 45).pixels.pixelColor(0, 0).alpha(), 0);
    }

    void colorModelDecidesTheCanvas_data()
    {
        QTest::addColumn<ColorModel>("model");
        QTest::addColumn<ColorModel>("canvasModel");
        QTest::addColumn<int>("bitsPerPixel");
        QTest::newRow("calibrated RGB")
            << ColorModel::CalibratedRGB << ColorModel::CalibratedRGB << 32;
        QTest::newRow("device RGB") << ColorModel::DeviceRGB << ColorModel::CalibratedRGB << 32;
        QTest::newRow("calibrated gray")
            << ColorModel::CalibratedGray << ColorModel::CalibratedGray << 8;
        QTest::newRow("device gray") << ColorModel::DeviceGray << ColorModel::CalibratedGray << 8;
        QTest::newRow("one bit") << ColorModel::DeviceBlack << ColorModel::CalibratedGray << 8;
    }
    void colorModelDecidesTheCanvas()
    {
        QFETCH(ColorModel, model);
        QFETCH(ColorModel, canvasModel);
        QFETCH(int, bitsPerPixel);
        const DBCBitmap result = turned(DBCBitmap::of(distinctPixels(), model), 90);
        QCOMPARE(result.colorModel, canvasModel);
        QCOMPARE(result.bitsPerPixel(), bitsPerPixel);
        QCOMPARE(result.pixels.hasAlphaChannel(), bitsPerPixel == 32);
    }

    void turnedBitmapIsBlackOnWhiteGray()
    {
        const DBCBitmap result = turned(oneBitBitmap(), 90);
        QCOMPARE(result.bitsPerPixel(), 8);
        QCOMPARE(result.pixels.size(), QSize(2, 4));
        QCOMPARE(result.pixels.pixelColor(1, 1), QColor(Qt::black));
        QCOMPARE(result.pixels.pixelColor(1, 0), QColor(Qt::white));
        QCOMPARE(result.pixels.pixelColor(0, 1), QColor(Qt::white));
    }
};

QTEST_GUILESS_MAIN(tst_bitmapDrawing)
#include "tst_bitmapDrawing.moc"
