// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/jpeg/DBCBitmapImageRep.h"

#include "tests/support/JpegBuilder.h"

#include <QtTest>

namespace {

ImageDescriptor descriptorOf(int width, int height, qint16 depth = DBCBitmapDepth)
{
    ImageDescriptor descriptor;
    descriptor.width = static_cast<quint16>(width);
    descriptor.height = static_cast<quint16>(height);
    descriptor.depth = depth;
    return descriptor;
}

DBCBitmap bitmapOf(const QByteArray& data, const ImageDescriptor& descriptor)
{
    return createBitmapImageRep(&data, &descriptor);
}

// Returns the bitmap as text, one line per row: "#" is black and "." is white.
QStringList drawingOf(const DBCBitmap& bitmap)
{
    QStringList rows;
    for (int y = 0; y < bitmap.pixels.height(); ++y) {
        QString row;
        for (int x = 0; x < bitmap.pixels.width(); ++x) {
            const QColor color = bitmap.pixels.pixelColor(x, y);
            row += color == QColor(Qt::black) ? u'#' : color == QColor(Qt::white) ? u'.' : u'?';
        }
        rows << row;
    }
    return rows;
}

QStringList rows(const char* text)
{
    return QString::fromLatin1(text).split(u' ');
}

} // namespace

class tst_bitmapImageRep : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void missingArgumentGivesNoBitmap()
    {
        const QByteArray data = JpegBuilder(8, 8).bytes();
        const ImageDescriptor descriptor = descriptorOf(8, 8, DBCJpegDepth);
        QVERIFY(createBitmapImageRep(nullptr, &descriptor).isNull());
        QVERIFY(createBitmapImageRep(&data, nullptr).isNull());
        QVERIFY(!createBitmapImageRep(&data, &descriptor).isNull());
    }

    void jpegIsDecoded()
    {
        // The bitmap must have the size in the JPEG itself, not the size in the descriptor.
        const DBCBitmap bitmap
            = bitmapOf(JpegBuilder(64, 32).bytes(), descriptorOf(5, 5, DBCJpegDepth));
        QCOMPARE(bitmap.pixels.size(), QSize(64, 32));
        QCOMPARE(bitmap.bitsPerPixel(), 24);
        QCOMPARE(bitmap.pointSize, QSizeF(64, 32));
        QVERIFY(isNearColor(bitmap.pixels.pixelColor(8, 24), Qt::blue));
    }

    void everyDepthButOneMeansJpeg()
    {
        for (const qint16 depth : {qint16(0), qint16(8), qint16(32)})
            QVERIFY(!bitmapOf(JpegBuilder(8, 8).bytes(), descriptorOf(8, 8, depth)).isNull());
    }

    void wrongJpegGivesNoBitmap()
    {
        QVERIFY(bitmapOf("no JPEG", descriptorOf(8, 8, DBCJpegDepth)).isNull());
        QVERIFY(bitmapOf({}, descriptorOf(8, 8, DBCJpegDepth)).isNull());
    }

    void setBitIsBlack()
    {
        const DBCBitmap bitmap = bitmapOf(QByteArray("\xA0", 1), descriptorOf(8, 1));
        QCOMPARE(drawingOf(bitmap), rows("#.#....."));
        QCOMPARE(bitmap.bitsPerPixel(), 1);
        QCOMPARE(bitmap.colorModel, DBCBitmap::ColorModel::DeviceBlack);
        QCOMPARE(bitmap.pointSize, QSizeF(8, 1));
    }

    void rowsArePackedToBytes()
    {
        const QByteArray data("\x80\x40\x00\x80\xFF\xC0", 6);
        QCOMPARE(drawingOf(bitmapOf(data, descriptorOf(10, 3))),
            rows("#........# ........#. ##########"));
    }

    void missingRowsAreWhite()
    {
        QCOMPARE(drawingOf(bitmapOf("\xFF", descriptorOf(4, 3))), rows("#### .... ...."));
    }

    void lastRowMayBreakOff()
    {
        QCOMPARE(drawingOf(bitmapOf("\xFF\xFF\xFF", descriptorOf(10, 2))),
            rows("########## ########.."));
    }

    void furtherDataIsLeftOut()
    {
        QCOMPARE(drawingOf(bitmapOf(QByteArray("\xF0\x00\xF0\xFF\xFF\xFF", 6), descriptorOf(4, 3))),
            rows("#### .... ####"));
    }

    void emptyDataGivesAWhiteBitmap()
    {
        QCOMPARE(drawingOf(bitmapOf({}, descriptorOf(3, 2))), rows("... ..."));
    }

    void bitmapWithoutExtentIsNone_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("no width") << 0 << 8;
        QTest::newRow("no height") << 8 << 0;
    }
    void bitmapWithoutExtentIsNone()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QVERIFY(bitmapOf("\xFF", descriptorOf(width, height)).isNull());
    }

    void bitmapTooLargeForAnyCardIsNone()
    {
        QVERIFY(bitmapOf("\xFF", descriptorOf(65535, 65535)).isNull());
    }

    void largestUsualBitmapIsMade()
    {
        // This is the size of an A4 page at 1200 dots per inch.
        QCOMPARE(bitmapOf("\xFF", descriptorOf(9920, 14030)).pixels.size(), QSize(9920, 14030));
    }
};

QTEST_GUILESS_MAIN(tst_bitmapImageRep)
#include "tst_bitmapImageRep.moc"
