// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCCharacterWidth.h"

#include <QtTest>

#include <array>

using namespace Qt::StringLiterals;

static QString convert(const QString& text)
{
    QString result;
    if (convertHalfToFull(text, &result) != DBCResultCode::Success)
        return u"failed"_s;
    return result;
}

class tst_characterWidth : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void texts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("ka + voiced") << u"\uFF76\uFF9E"_s << u"\u30AC"_s;
        QTest::newRow("ha + semi-voiced") << u"\uFF8A\uFF9F"_s << u"\u30D1"_s;
        QTest::newRow("ka + semi-voiced stays apart") << u"\uFF76\uFF9F"_s << u"\u30AB\u309C"_s;
        QTest::newRow("u + voiced stays apart") << u"\uFF73\uFF9E"_s << u"\u30A6\u309B"_s;
        QTest::newRow("lone voiced mark") << u"\uFF9E"_s << u"\u309B"_s;
        QTest::newRow("lone semi-voiced mark") << u"\uFF9F"_s << u"\u309C"_s;
        QTest::newRow("two marks") << u"\uFF8A\uFF9F\uFF9E"_s << u"\u30D1\u309B"_s;
        QTest::newRow("corner brackets become white ones")
            << u"\uFF62\uFF71\uFF63"_s << u"\u300E\u30A2\u300F"_s;
        QTest::newRow("ASCII and spaces") << u"ABC xyz 0123 !~-/"_s << u"ABC xyz 0123 !~-/"_s;
        QTest::newRow("full-width kana with a half-width mark")
            << u"\u30AB\uFF9E"_s << u"\u30AB\u309B"_s;
        QTest::newRow("mark at a distance") << u"\uFF76 \uFF9E"_s << u"\u30AB \u309B"_s;
        QTest::newRow("a company")
            << u"(ｶ)ﾍﾞﾙﾓﾗ･ﾌﾟﾗﾝﾆﾝｸﾞ 2F"_s << u"(カ)ベルモラ・プランニング 2F"_s;
        QTest::newRow("kanji, hiragana and full-width")
            << u"株式会社ほしのＡ１　カナ"_s << u"株式会社ほしのＡ１　カナ"_s;
    }
    void texts()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(convert(text), expected);
    }

    void everyHalfWidthCharacterHasItsFullWidthForm()
    {
        const QString expected
            = u"。『』、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
              "タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜"_s;
        QCOMPARE(expected.size(), 63);
        for (char16_t unit = 0xFF61; unit <= 0xFF9F; ++unit) {
            const QChar wanted = expected.at(unit - 0xFF61);
            QCOMPARE(convert(QString(QChar(unit))), QString(wanted));
            char16_t out = 0;
            QCOMPARE(JapUnicode_DBC2SBC(unit, &out), 0);
            QCOMPARE(QChar(out), wanted);
        }
    }

    void everyVoicedPair()
    {
        QCOMPARE(convert(u"ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ"_s),
            u"ガギグゲゴザジズゼゾダヂヅデドバビブベボ"_s);
    }

    void everySemiVoicedPair() { QCOMPARE(convert(u"ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"_s), u"パピプペポ"_s); }

    void kanaThatDoNotCombineKeepTheirMark_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("ナ行") << u"ﾅﾞﾆﾞﾇﾞﾈﾞﾉﾞ"_s << u"ナ゛ニ゛ヌ゛ネ゛ノ゛"_s;
        QTest::newRow("ワ and ヲ") << u"ﾜﾞｦﾞ"_s << u"ワ゛ヲ゛"_s;
        QTest::newRow("ア行") << u"ｱﾞｵﾞ"_s << u"ア゛オ゛"_s;
        QTest::newRow("マ and ン") << u"ﾏﾞﾝﾟ"_s << u"マ゛ン゜"_s;
        QTest::newRow("タ行, semi-voiced") << u"ﾀﾟﾄﾟ"_s << u"タ゜ト゜"_s;
        QTest::newRow("punctuation") << u"｡ﾞ･ﾟ"_s << u"。゛・゜"_s;
    }
    void kanaThatDoNotCombineKeepTheirMark() { texts(); }

    void textOf300UnitsIsCutTo256AndConverted()
    {
        QCOMPARE(convert(QString(300, QChar(0xFF71))), QString(256, u'ア'));
    }

    void textOf256UnitsIsKeptWhole() { QCOMPARE(convert(QString(256, u'x')), QString(256, u'x')); }

    void soundMarkAs257thUnitIsNotJoined()
    {
        QCOMPARE(convert(QString(255, u'x') + u"ｶﾞ"_s), QString(255, u'x') + u"カ"_s);
    }

    void soundMarkAs256thUnitIsJoined()
    {
        QCOMPARE(convert(QString(254, u'x') + u"ｶﾞy"_s), QString(254, u'x') + u"ガ"_s);
    }

    void cutMayDivideASurrogatePair()
    {
        const QString text = QString(255, u'x') + u"\U00020BB7"_s;
        QCOMPARE(convert(text), text.first(256));
    }

    void embeddedZeroEndsTheText() { QCOMPARE(convert(u"ｱ"_s + QChar(0) + u"ｲ"_s), u"ア"_s); }

    void missingTextOrOutputIsAParameterError()
    {
        QString result;
        QCOMPARE(convertHalfToFull(std::nullopt, &result), DBCResultCode::ParameterError);
        QCOMPARE(convertHalfToFull(u"a"_s, nullptr), DBCResultCode::ParameterError);
    }

    void emptyTextConvertsToEmptyText()
    {
        const QString result = convert(u""_s);
        QCOMPARE(result, u""_s);
        QVERIFY(!result.isNull());
    }

    void missingSourceWritesATerminator()
    {
        char16_t destination = u'x';
        convertDBC2SBC(nullptr, &destination);
        QCOMPARE(destination, char16_t(0));
    }

    void conversionIntoABufferStopsAtTheTerminator()
    {
        const std::array<char16_t, 5> source {0xFF76, 0xFF9E, u'a', 0, u'b'};
        std::array<char16_t, 5> destination {};
        convertDBC2SBC(source.data(), destination.data());
        QCOMPARE(QStringView(destination.data(), 5), QStringView(u"ガa\0\0\0", 5));
    }

    void singleUnitsWidenAsciiToo()
    {
        char16_t out = 0;
        QCOMPARE(JapUnicode_DBC2SBC(u'!', &out), 0);
        QCOMPARE(out, char16_t(0xFF01));
        QCOMPARE(JapUnicode_DBC2SBC(u'A', &out), 0);
        QCOMPARE(out, char16_t(0xFF21));
        QCOMPARE(JapUnicode_DBC2SBC(u'~', &out), 0);
        QCOMPARE(out, char16_t(0xFF5E));
    }

    void singleUnitsOutsideTheTablesAreLeft_data()
    {
        QTest::addColumn<char16_t>("unit");
        QTest::newRow("space") << char16_t(0x20);
        QTest::newRow("delete") << char16_t(0x7F);
        QTest::newRow("before the half-width block") << char16_t(0xFF60);
        QTest::newRow("behind the half-width block") << char16_t(0xFFA0);
        QTest::newRow("zero") << char16_t(0);
        QTest::newRow("full-width kana") << char16_t(0x30A2);
    }
    void singleUnitsOutsideTheTablesAreLeft()
    {
        QFETCH(char16_t, unit);
        char16_t out = u'x';
        QCOMPARE(JapUnicode_DBC2SBC(unit, &out), 1);
        QCOMPARE(out, u'x');
    }

    void pairsOutsideTheTablesFail_data()
    {
        QTest::addColumn<char16_t>("kana");
        QTest::addColumn<qint32>("kind");
        QTest::newRow("middle dot") << char16_t(0xFF65) << 1;
        QTest::newRow("mark itself") << char16_t(0xFF9E) << 1;
        QTest::newRow("full-width ka") << char16_t(0x30AB) << 1;
        QTest::newRow("kind 0") << char16_t(0xFF76) << 0;
        QTest::newRow("kind 3") << char16_t(0xFF8A) << 3;
        QTest::newRow("u, voiced") << char16_t(0xFF73) << 1;
        QTest::newRow("na, voiced") << char16_t(0xFF85) << 1;
        QTest::newRow("no, voiced") << char16_t(0xFF89) << 1;
        QTest::newRow("ma, voiced") << char16_t(0xFF8F) << 1;
        QTest::newRow("n, voiced") << char16_t(0xFF9D) << 1;
        QTest::newRow("no, semi-voiced") << char16_t(0xFF89) << 2;
        QTest::newRow("ma, semi-voiced") << char16_t(0xFF8F) << 2;
    }
    void pairsOutsideTheTablesFail()
    {
        QFETCH(char16_t, kana);
        QFETCH(qint32, kind);
        char16_t out = u'x';
        QCOMPARE(ConvertJapChar2SBC(kana, kind, &out), 1);
        QCOMPARE(out, u'x');
    }

    void missingOutputUnitFails()
    {
        QCOMPARE(ConvertJapChar2SBC(0xFF76, 1, nullptr), 1);
        QCOMPARE(JapUnicode_DBC2SBC(0xFF76, nullptr), 1);
    }

    void lengthOfABuffer()
    {
        const std::array<char16_t, 4> buffer {u'a', u'b', 0, u'c'};
        QCOMPARE(get_unicharLen(nullptr, 10), -1);
        QCOMPARE(get_unicharLen(buffer.data(), 4), 2);
        QCOMPARE(get_unicharLen(buffer.data(), 1), 1);
        QCOMPARE(get_unicharLen(buffer.data(), 0), 0);
    }
};

QTEST_APPLESS_MAIN(tst_characterWidth)
#include "tst_characterWidth.moc"
