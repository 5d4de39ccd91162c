// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/pdf/DBCPdfFlateFilter.h"
#include "cardimage/pdf/DBCPdfStreamData.h"

#include "tests/support/PdfBuilder.h"

#include <QTest>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>

namespace {

// Packs the bytes into a Flate stream with these /DecodeParms and returns the decoded data.
std::optional<QByteArray> decoded(
    const QByteArray& rows, const QByteArray& parameters, qint64 limit = 1000)
{
    QPDF document;
    document.emptyPDF();
    QPDFObjectHandle stream
        = QPDFObjectHandle::newStream(&document, PdfBuilder::deflated(rows).toStdString());
    stream.replaceDict(QPDFObjectHandle::parse(
        ("<</Filter /FlateDecode /DecodeParms <<" + parameters + ">>>>").toStdString()));
    return decodedStreamData(stream, limit);
}

} // namespace

class tst_pdfStreamData : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { boundFlateStreams(); }

    void pngRowsAreRestored()
    {
        const QByteArray rows("\x01\x0A\x01\x01\x01" // Sub: differences from the left neighbour
                              "\x02\x01\x01\x01\x01" // Up: from the neighbour above
                              "\x03\x0A\x00\x00\x00" // Average: from the mean of both
                              "\x04\x01\x00\x00\x00" // Paeth: from the nearest of three
                              "\x00\x07\x08\x09\x0A", // None: stored unchanged
            25);
        const QByteArray restored("\x0A\x0B\x0C\x0D"
                                  "\x0B\x0C\x0D\x0E"
                                  "\x0F\x0D\x0D\x0D"
                                  "\x10\x0D\x0D\x0D"
                                  "\x07\x08\x09\x0A",
            20);
        QCOMPARE(decoded(rows, "/Predictor 12 /Columns 4"), restored);
    }

    void rowThatBreaksOffIsGivenAsFarAsItGoes()
    {
        QCOMPARE(decoded(QByteArray("\x01\x0A\x01", 3), "/Predictor 15 /Columns 4"),
            QByteArray("\x0A\x0B"));
    }

    void tiffRowsAreRestored_data()
    {
        QTest::addColumn<QByteArray>("rows");
        QTest::addColumn<QByteArray>("parameters");
        QTest::addColumn<QByteArray>("restored");
        QTest::newRow("three colours")
            << QByteArray("\x01\x02\x03\x01\x01\x01") << QByteArray("/Columns 2 /Colors 3")
            << QByteArray("\x01\x02\x03\x02\x03\x04");
        QTest::newRow("one bit") << QByteArray("\x80\xC0")
                                 << QByteArray("/Columns 8 /BitsPerComponent 1")
                                 << QByteArray("\xFF\x80");
        QTest::newRow("four bits")
            << QByteArray("\x1F\x10") << QByteArray("/Columns 3 /BitsPerComponent 4")
            << QByteArray("\x10\x10");
        QTest::newRow("sixteen bits")
            << QByteArray("\x00\xFF\x00\x01", 4) << QByteArray("/Columns 2 /BitsPerComponent 16")
            << QByteArray("\x00\xFF\x01\x00", 4);
    }
    void tiffRowsAreRestored()
    {
        QFETCH(QByteArray, rows);
        QFETCH(QByteArray, parameters);
        QTEST(decoded(rows, "/Predictor 2 " + parameters).value_or(QByteArray()), "restored");
    }

    void rowsNoImageHasAreRefused_data()
    {
        QTest::addColumn<QByteArray>("parameters");
        QTest::newRow("endless") << QByteArray("/Predictor 12 /Columns 2147483647 /Colors 32");
        QTest::newRow("a pixel too long") << QByteArray("/Predictor 12 /Columns 65536");
        QTest::newRow("too many colours") << QByteArray("/Predictor 12 /Colors 33");
        QTest::newRow("three bits") << QByteArray("/Predictor 2 /BitsPerComponent 3");
        QTest::newRow("no length") << QByteArray("/Predictor 12 /Columns 0");
        QTest::newRow("negative") << QByteArray("/Predictor 12 /Columns -1");
        QTest::newRow("no number") << QByteArray("/Predictor 12 /Columns (4)");
        QTest::newRow("unknown predictor") << QByteArray("/Predictor 3");
    }
    void rowsNoImageHasAreRefused()
    {
        QFETCH(QByteArray, parameters);
        QVERIFY(!decoded("row", parameters));
    }

    void unpackingEndsAtTheLimit()
    {
        const QByteArray zeros(2'000'000, '\0');
        QCOMPARE(decoded(zeros, "", 1'000), QByteArray(1'000, '\0'));
        QCOMPARE(decoded(zeros, "/Predictor 2 /Columns 500", 1'000), QByteArray(1'000, '\0'));
    }

    // A caller cannot limit how the library unpacks cross-reference tables and object streams; only
    // the limit in the filter does.
    void unpackingEndsWhereEveryImageDoes()
    {
        constexpr qsizetype tooMuch = DBCBitmap::maximumBytes + 1'000'000;
        const auto unpacked = decoded(QByteArray(tooMuch, '\0'), "", tooMuch);
        QVERIFY(unpacked);
        QVERIFY(unpacked->size() <= DBCBitmap::maximumBytes);
    }
};

QTEST_GUILESS_MAIN(tst_pdfStreamData)
#include "tst_pdfStreamData.moc"
