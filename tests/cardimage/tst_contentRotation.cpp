// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCContentRotation.h"

#include <QtTest>

#include <clocale>

namespace {

qint32 rotationOf(const QByteArray& contents)
{
    qint32 degrees = -1;
    GetRotateDegreeFromStreamData(contents, &degrees);
    return degrees;
}

QByteArray withMatrix(const QByteArray& numbers)
{
    return "/Perceptual ri\nq\n" + numbers + " cm\n/Im1 Do\nQ\n";
}

} // namespace

class tst_contentRotation : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void matrixTellsTheRotation_data()
    {
        QTest::addColumn<QByteArray>("numbers");
        QTest::addColumn<qint32>("degrees");
        QTest::newRow("quarter turn") << QByteArray("0 1200 -800 0 0 800") << 90;
        QTest::newRow("three quarter turn") << QByteArray("0 1200 -800 0 1200 0") << 270;
        QTest::newRow("half turn") << QByteArray("-800 0 0 -1200 800 1200") << 180;
        QTest::newRow("half turn behind line ends") << QByteArray("\r\n-8 0 0 -12 8 12") << 180;
        QTest::newRow("plain scale") << QByteArray("800 0 0 1200 0 0") << 0;
        QTest::newRow("half turn without looking at signs")
            << QByteArray("800 0 0 1200 8 12") << 180;
        QTest::newRow("scale moved right only") << QByteArray("800 0 0 1200 8 0") << 0;
        QTest::newRow("scale moved up only") << QByteArray("800 0 0 1200 0 12") << 0;
        QTest::newRow("turned and moved both ways") << QByteArray("0 1200 -800 0 12 8") << 0;
        QTest::newRow("turned and not moved") << QByteArray("0 1200 -800 0 0 0") << 0;
        QTest::newRow("skewed") << QByteArray("800 1 0 1200 8 12") << 0;
        QTest::newRow("all numbers set") << QByteArray("1 2 3 4 5 6") << 0;
    }
    void matrixTellsTheRotation()
    {
        QFETCH(QByteArray, numbers);
        QFETCH(qint32, degrees);
        QCOMPARE(rotationOf(withMatrix(numbers)), degrees);
    }

    void streamTooShortForAMatrixIsUpright()
    {
        QCOMPARE(rotationOf("0123456789q 0 1 1 0"), 0);
        QCOMPARE(rotationOf("0123456789q 0 1 1 0 0 1"), 90);
    }

    void intentIsPreferredToAnEarlierMatrix()
    {
        QCOMPARE(rotationOf("1 0 0 rg 1 0 0 RG q -8 0 0 -9 8 9 cm Q "
                            "/Perceptual ri q 0 1200 -800 0 0 800 cm"),
            90);
    }

    void saveOperatorInTheFirstTenBytesIsNotSeen()
    {
        // The only "q" is the tenth byte, and the search begins at the eleventh.
        QCOMPARE(rotationOf("         q 0 1200 -800 0 0 800 cm"), 0);
    }

    void saveOperatorAtTheEleventhByteIsSeen()
    {
        QCOMPARE(rotationOf("          q 0 1200 -800 0 0 800 cm"), 90);
    }

    void incompleteMatrixIsUpright_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::newRow("no save operator") << QByteArray("/Perceptual ri 0 1200 -800 0 0 800 cm");
        QTest::newRow("save operator at the end") << QByteArray("/Perceptual ri 0 1200 -800 0 q");
        QTest::newRow("five numbers") << QByteArray("/Perceptual ri q 0 1200 -800 0 0");
        QTest::newRow("numbers apart by line ends")
            << QByteArray("/Perceptual q\n0\n12\n-8\n0\n0\n8");
        QTest::newRow("words") << QByteArray("/Perceptual ri q a b c d e f g h i j k");
        QTest::newRow("blanks in place of the last number")
            << QByteArray("/Perceptual ri q 0 1200 -800 0 0  \t\f\n");
        QTest::newRow("control character in place of a number")
            << withMatrix("0 \x01 -800 0 0 800");
        QTest::newRow("infinite numbers") << withMatrix("inf 0 0 nan inf inf");
    }
    void incompleteMatrixIsUpright()
    {
        QFETCH(QByteArray, contents);
        QCOMPARE(rotationOf(contents), 0);
    }

    void numbersAreReadAsDecimalText_data()
    {
        QTest::addColumn<QByteArray>("numbers");
        QTest::newRow("fractions") << QByteArray("0.0 252.25 -144.5 -0.0 .000 144.5");
        QTest::newRow("no digit before the point") << QByteArray("0 .5 -.5 0 0 .5");
        QTest::newRow("no digit behind the point") << QByteArray("0. 5. -5. 0. 0. 5.");
        QTest::newRow("plus signs") << QByteArray("+0 +252 +144 +0 +0 +144");
        QTest::newRow("line end before the first") << QByteArray("\r0 252 -144 0 0 144");
    }
    void numbersAreReadAsDecimalText()
    {
        QFETCH(QByteArray, numbers);
        QCOMPARE(rotationOf(withMatrix(numbers)), 90);
    }

    void numbersHaveAPointInEveryLocale()
    {
        const QByteArray before = std::setlocale(LC_NUMERIC, nullptr);
        // If this locale is not installed, the test passes without testing the effect of a locale.
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
        const qint32 degrees = rotationOf(withMatrix("0 0.5 -0.5 0 0 0.5"));
        std::setlocale(LC_NUMERIC, before.constData());
        QCOMPARE(degrees, 90);
    }

    void noOutputIsHarmless()
    {
        GetRotateDegreeFromStreamData(withMatrix("0 1200 -800 0 0 800"), nullptr);
    }

    void emptyStreamResetsTheOutput() { QCOMPARE(rotationOf(QByteArray()), 0); }
};

QTEST_GUILESS_MAIN(tst_contentRotation)
#include "tst_contentRotation.moc"
