// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCCharacterWidth.h"

#include <QtTest>

#include <array>

class tst_characterWidth : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void texts_data();
    void texts();
    void everyHalfWidthCharacterHasItsFullWidthForm();
    void everyVoicedPair();
    void everySemiVoicedPair();
    void kanaThatDoNotCombineKeepTheirMark_data();
    void kanaThatDoNotCombineKeepTheirMark();
    void textOf300UnitsIsCutTo256AndConverted();
    void textOf256UnitsIsKeptWhole();
    void soundMarkAs257thUnitIsNotJoined();
    void soundMarkAs256thUnitIsJoined();
    void cutMayDivideASurrogatePair();
    void embeddedZeroEndsTheText();
    void missingTextOrOutputIsAParameterError();
    void emptyTextConvertsToEmptyText();

    void missingSourceWritesATerminator();
    void conversionIntoABufferStopsAtTheTerminator();
    void singleUnitsWidenAsciiToo();
    void singleUnitsOutsideTheTablesAreLeft_data();
    void singleUnitsOutsideTheTablesAreLeft();
    void pairsOutsideTheTablesFail_data();
    void pairsOutsideTheTablesFail();
    void missingOutputUnitFails();
    void lengthOfABuffer();
};

static QString convert(const QString& text)
{
    QString result;
    if (convertHalfToFull(text, &result) != DBCResultCode::Success)
        return QStringLiteral("failed");
    return result;
}

void tst_characterWidth::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ka + voiced") << QStringLiteral("\uFF76\uFF9E") << QStringLiteral("\u30AC");
    QTest::newRow("ha + semi-voiced") << QStringLiteral("\uFF8A\uFF9F") << QStringLiteral("\u30D1");
    QTest::newRow("ka + semi-voiced stays apart")
        << QStringLiteral("\uFF76\uFF9F") << QStringLiteral("\u30AB\u309C");
    QTest::newRow("u + voiced stays apart")
        << QStringLiteral("\uFF73\uFF9E") << QStringLiteral("\u30A6\u309B");
    QTest::newRow("lone voiced mark") << QStringLiteral("\uFF9E") << QStringLiteral("\u309B");
    QTest::newRow("lone semi-voiced mark") << QStringLiteral("\uFF9F") << QStringLiteral("\u309C");
    QTest::newRow("two marks") << QStringLiteral("\uFF8A\uFF9F\uFF9E")
                               << QStringLiteral("\u30D1\u309B");
    QTest::newRow("corner brackets become white ones")
        << QStringLiteral("\uFF62\uFF71\uFF63") << QStringLiteral("\u300E\u30A2\u300F");
    QTest::newRow("ASCII and spaces")
        << QStringLiteral("ABC xyz 0123 !~-/") << QStringLiteral("ABC xyz 0123 !~-/");
    QTest::newRow("full-width kana with a half-width mark")
        << QStringLiteral("\u30AB\uFF9E") << QStringLiteral("\u30AB\u309B");
    QTest::newRow("mark at a distance")
        << QStringLiteral("\uFF76 \uFF9E") << QStringLiteral("\u30AB \u309B");
    QTest::newRow("a company") << QStringLiteral("(ｶ)ﾍﾞﾙﾓﾗ･ﾌﾟﾗﾝﾆﾝｸﾞ 2F")
                               << QStringLiteral("(カ)ベルモラ・プランニング 2F");
    QTest::newRow("kanji, hiragana and full-width")
        << QStringLiteral("株式会社ほしのＡ１　カナ") << QStringLiteral("株式会社ほしのＡ１　カナ");
}

void tst_characterWidth::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(convert(text), expected);
}

void tst_characterWidth::everyHalfWidthCharacterHasItsFullWidthForm()
{
    const QString expected
        = QStringLiteral("。『』、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソ"
                         "タチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜");
    QCOMPARE(expected.size(), 63);
    for (char16_t unit = 0xFF61; unit <= 0xFF9F; ++unit) {
        const QChar wanted = expected.at(unit - 0xFF61);
        QCOMPARE(convert(QString(QChar(unit))), QString(wanted));
        char16_t out = 0;
        QCOMPARE(JapUnicode_DBC2SBC(unit, &out), 0);
        QCOMPARE(QChar(out), wanted);
    }
}

void tst_characterWidth::everyVoicedPair()
{
    QCOMPARE(convert(QStringLiteral("ｶﾞｷﾞｸﾞｹﾞｺﾞｻﾞｼﾞｽﾞｾﾞｿﾞﾀﾞﾁﾞﾂﾞﾃﾞﾄﾞﾊﾞﾋﾞﾌﾞﾍﾞﾎﾞ")),
        QStringLiteral("ガギグゲゴザジズゼゾダヂヅデドバビブベボ"));
}

void tst_characterWidth::everySemiVoicedPair()
{
    QCOMPARE(convert(QStringLiteral("ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ")), QStringLiteral("パピプペポ"));
}

void tst_characterWidth::kanaThatDoNotCombineKeepTheirMark_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ナ行") << QStringLiteral("ﾅﾞﾆﾞﾇﾞﾈﾞﾉﾞ") << QStringLiteral("ナ゛ニ゛ヌ゛ネ゛ノ゛");
    QTest::newRow("ワ and ヲ") << QStringLiteral("ﾜﾞｦﾞ") << QStringLiteral("ワ゛ヲ゛");
    QTest::newRow("ア行") << QStringLiteral("ｱﾞｵﾞ") << QStringLiteral("ア゛オ゛");
    QTest::newRow("マ and ン") << QStringLiteral("ﾏﾞﾝﾟ") << QStringLiteral("マ゛ン゜");
    QTest::newRow("タ行, semi-voiced") << QStringLiteral("ﾀﾟﾄﾟ") << QStringLiteral("タ゜ト゜");
    QTest::newRow("punctuation") << QStringLiteral("｡ﾞ･ﾟ") << QStringLiteral("。゛・゜");
}

void tst_characterWidth::kanaThatDoNotCombineKeepTheirMark()
{
    texts();
}

void tst_characterWidth::textOf300UnitsIsCutTo256AndConverted()
{
    QCOMPARE(convert(QString(300, QChar(0xFF71))), QString(256, u'ア'));
}

void tst_characterWidth::textOf256UnitsIsKeptWhole()
{
    QCOMPARE(convert(QString(256, u'x')), QString(256, u'x'));
}

void tst_characterWidth::soundMarkAs257thUnitIsNotJoined()
{
    QCOMPARE(convert(QString(255, u'x') + QStringLiteral("ｶﾞ")),
        QString(255, u'x') + QStringLiteral("カ"));
}

void tst_characterWidth::soundMarkAs256thUnitIsJoined()
{
    QCOMPARE(convert(QString(254, u'x') + QStringLiteral("ｶﾞy")),
        QString(254, u'x') + QStringLiteral("ガ"));
}

void tst_characterWidth::cutMayDivideASurrogatePair()
{
    const QString text = QString(255, u'x') + QStringLiteral("\U00020BB7");
    QCOMPARE(convert(text), text.first(256));
}

void tst_characterWidth::embeddedZeroEndsTheText()
{
    QCOMPARE(convert(QStringLiteral("ｱ") + QChar(0) + QStringLiteral("ｲ")), QStringLiteral("ア"));
}

void tst_characterWidth::missingTextOrOutputIsAParameterError()
{
    QString result;
    QCOMPARE(convertHalfToFull(std::nullopt, &result), DBCResultCode::ParameterError);
    QCOMPARE(convertHalfToFull(QStringLiteral("a"), nullptr), DBCResultCode::ParameterError);
}

void tst_characterWidth::emptyTextConvertsToEmptyText()
{
    const QString result = convert(QStringLiteral(""));
    QCOMPARE(result, QStringLiteral(""));
    QVERIFY(!result.isNull());
}

void tst_characterWidth::missingSourceWritesATerminator()
{
    char16_t destination = u'x';
    convertDBC2SBC(nullptr, &destination);
    QCOMPARE(destination, char16_t(0));
}

void tst_characterWidth::conversionIntoABufferStopsAtTheTerminator()
{
    const std::array<char16_t, 5> source {0xFF76, 0xFF9E, u'a', 0, u'b'};
    std::array<char16_t, 5> destination {};
    convertDBC2SBC(source.data(), destination.data());
    QCOMPARE(QStringView(destination.data(), 5), QStringView(u"ガa\0\0\0", 5));
}

void tst_characterWidth::singleUnitsWidenAsciiToo()
{
    char16_t out = 0;
    QCOMPARE(JapUnicode_DBC2SBC(u'!', &out), 0);
    QCOMPARE(out, char16_t(0xFF01));
    QCOMPARE(JapUnicode_DBC2SBC(u'A', &out), 0);
    QCOMPARE(out, char16_t(0xFF21));
    QCOMPARE(JapUnicode_DBC2SBC(u'~', &out), 0);
    QCOMPARE(out, char16_t(0xFF5E));
}

void tst_characterWidth::singleUnitsOutsideTheTablesAreLeft_data()
{
    QTest::addColumn<char16_t>("unit");
    QTest::newRow("space") << char16_t(0x20);
    QTest::newRow("delete") << char16_t(0x7F);
    QTest::newRow("before the half-width block") << char16_t(0xFF60);
    QTest::newRow("behind the half-width block") << char16_t(0xFFA0);
    QTest::newRow("zero") << char16_t(0);
    QTest::newRow("full-width kana") << char16_t(0x30A2);
}

void tst_characterWidth::singleUnitsOutsideTheTablesAreLeft()
{
    QFETCH(char16_t, unit);
    char16_t out = u'x';
    QCOMPARE(JapUnicode_DBC2SBC(unit, &out), 1);
    QCOMPARE(out, u'x');
}

void tst_characterWidth::pairsOutsideTheTablesFail_data()
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

void tst_characterWidth::pairsOutsideTheTablesFail()
{
    QFETCH(char16_t, kana);
    QFETCH(qint32, kind);
    char16_t out = u'x';
    QCOMPARE(ConvertJapChar2SBC(kana, kind, &out), 1);
    QCOMPARE(out, u'x');
}

void tst_characterWidth::missingOutputUnitFails()
{
    QCOMPARE(ConvertJapChar2SBC(0xFF76, 1, nullptr), 1);
    QCOMPARE(JapUnicode_DBC2SBC(0xFF76, nullptr), 1);
}

void tst_characterWidth::lengthOfABuffer()
{
    const std::array<char16_t, 4> buffer {u'a', u'b', 0, u'c'};
    QCOMPARE(get_unicharLen(nullptr, 10), -1);
    QCOMPARE(get_unicharLen(buffer.data(), 4), 2);
    QCOMPARE(get_unicharLen(buffer.data(), 1), 1);
    QCOMPARE(get_unicharLen(buffer.data(), 0), 0);
}

QTEST_APPLESS_MAIN(tst_characterWidth)
#include "tst_characterWidth.moc"
