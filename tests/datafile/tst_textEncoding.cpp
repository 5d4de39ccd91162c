// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCTextEncoding.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Result = DBCTextDecoder::Result;

static QByteArray hex(const char* digits)
{
    return QByteArray::fromHex(digits);
}

class tst_textEncoding : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void utf16IsDecoded_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("little-endian") << hex("FFFE 4100 2A67") << u"A未"_s;
        QTest::newRow("big-endian") << hex("FEFF 0041 672A") << u"A未"_s;
        QTest::newRow("mark alone") << hex("FFFE") << u""_s;
        QTest::newRow("nothing") << QByteArray() << u""_s;
        QTest::newRow("only the leading mark is removed")
            << hex("FFFE FFFE 4100 FFFE") << u"\uFEFFA\uFEFF"_s;
        QTest::newRow("zero unit")
            << hex("FFFE 4100 0000 4200") << QString(u"A"_s + QChar(0) + u"B"_s);
        QTest::newRow("surrogate pair, little-endian") << hex("FFFE 42D8 B7DF") << u"\U00020BB7"_s;
        QTest::newRow("surrogate pair, big-endian") << hex("FEFF D842 DFB7") << u"\U00020BB7"_s;
    }
    void utf16IsDecoded()
    {
        QFETCH(QByteArray, bytes);
        const auto text = decodeText(bytes, DBCTextEncoding::Utf16);
        QVERIFY(text);
        QTEST(*text, "text");
    }

    void utf16IsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("odd last byte") << hex("FFFE 4100 42");
        QTest::newRow("odd last byte, big-endian") << hex("FEFF 0041 00");
        QTest::newRow("single byte") << hex("FF");
        QTest::newRow("high surrogate at the end") << hex("FFFE 4100 42D8");
        QTest::newRow("high surrogate before a letter") << hex("FFFE 42D8 4100");
        QTest::newRow("low surrogate first") << hex("FFFE B7DF 4100");
        QTest::newRow("pair in the wrong order") << hex("FFFE B7DF 42D8");
        QTest::newRow("low surrogate, big-endian") << hex("FEFF 0041 DFB7");
    }
    void utf16IsRefused()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!decodeText(bytes, DBCTextEncoding::Utf16));
    }

    void utf16WithoutMark_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("kanji, big-endian") << hex("540D 523A") << u"名刺"_s;
        QTest::newRow("kanji, little-endian") << hex("0D54 3A52") << u"名刺"_s;
        QTest::newRow("katakana, big-endian") << hex("30AB 30FC") << u"カー"_s;
        QTest::newRow("katakana, little-endian") << hex("AB30 FC30") << u"カー"_s;
        QTest::newRow("full-width letter, big-endian") << hex("FF21") << u"Ａ"_s;
        QTest::newRow("line end, big-endian") << hex("000D 000A") << u"\r\n"_s;
        QTest::newRow("tab, big-endian") << hex("0009 0041") << u"\tA"_s;
        QTest::newRow("LF, big-endian") << hex("000A 0041") << u"\nA"_s;
        QTest::newRow("compatibility ideograph, big-endian") << hex("FA11 7530") << u"\uFA11田"_s;
        QTest::newRow("replacement character, little-endian") << hex("FDFF 4100") << u"\uFFFDA"_s;
        QTest::newRow("ASCII, little-endian") << hex("4100 4200") << u"AB"_s;
        QTest::newRow("possible in both orders is little-endian")
            << hex("8868 9762") << u"\u6888\u6297"_s;
        QTest::newRow("possible in neither is little-endian")
            << hex("0005 0106") << u"\u0500\u0601"_s;
    }
    void utf16WithoutMark() { utf16IsDecoded(); }

    void utf8IsDecoded()
    {
        const QByteArray bytes = QByteArrayLiteral("\xEF\xBB\xBF\xEF\xBB\xBF"
                                                   "A\xE6\x9C\xAA");
        QCOMPARE(decodeText(bytes, DBCTextEncoding::Utf8), u"\uFEFFA未"_s);
        QCOMPARE(decodeText("", DBCTextEncoding::Utf8), u""_s);
    }

    void utf8IsRefused()
    {
        QVERIFY(!decodeText("A\xFF"
                            "B",
            DBCTextEncoding::Utf8));
        QVERIFY(!decodeText("A\xE6\x9C", DBCTextEncoding::Utf8));
    }

    void utf16IsLittleEndianBehindItsMark()
    {
        QCOMPARE(
            encodeText(u"A未\U00020BB7", DBCTextEncoding::Utf16), hex("FFFE 4100 2A67 42D8 B7DF"));
    }

    void emptyTextIsItsMarkAlone()
    {
        QCOMPARE(encodeText(u"", DBCTextEncoding::Utf16), hex("FFFE"));
        QCOMPARE(encodeText({}, DBCTextEncoding::Utf8), QByteArray());
    }

    void loneSurrogatesAreReplacedWhenEncoding()
    {
        const QString text = QChar(0xDFB7) + u"a"_s + QChar(0xD842) + u"b"_s + QChar(0xD842);
        QCOMPARE(encodeText(text, DBCTextEncoding::Utf16), hex("FFFE FDFF 6100 FDFF 6200 FDFF"));
        QCOMPARE(encodeText(text, DBCTextEncoding::Utf8), hex("EFBFBD 61 EFBFBD 62 EFBFBD"));
    }

    void utf8HasNoMark() { QCOMPARE(encodeText(u"A未", DBCTextEncoding::Utf8), hex("41 E69CAA")); }

    void laterPiecesKeepTheByteOrderOfTheFirst()
    {
        DBCTextDecoder decoder(DBCTextEncoding::Utf16);
        QString text;
        QCOMPARE(decoder.decode(hex("FEFF 0041"), &text), Result::Complete);
        QCOMPARE(text, u"A"_s);
        QCOMPARE(decoder.decode(hex("0042 8868"), &text), Result::Complete);
        QCOMPARE(text, u"B表"_s);
    }

    void markAtTheStartOfALaterPieceIsText()
    {
        QString text;
        DBCTextDecoder utf16(DBCTextEncoding::Utf16);
        QCOMPARE(utf16.decode(hex("FFFE 4100"), &text), Result::Complete);
        QCOMPARE(utf16.decode(hex("FFFE 4200"), &text), Result::Complete);
        QCOMPARE(text, u"\uFEFFB"_s);

        DBCTextDecoder utf8(DBCTextEncoding::Utf8);
        QCOMPARE(utf8.decode("A", &text), Result::Complete);
        QCOMPARE(utf8.decode("\xEF\xBB\xBF"
                             "B",
                     &text),
            Result::Complete);
        QCOMPARE(text, u"\uFEFFB"_s);
    }

    void pieceThatEndsInsideACharacterIsIncomplete_data()
    {
        QTest::addColumn<DBCTextEncoding>("encoding");
        QTest::addColumn<QByteArray>("piece");
        QTest::addColumn<QByteArray>("rest");
        QTest::newRow("half a unit") << DBCTextEncoding::Utf16 << hex("FFFE 4100 2A") << hex("67");
        QTest::newRow("half a pair") << DBCTextEncoding::Utf16 << hex("FFFE 42D8") << hex("B7DF");
        QTest::newRow("a unit and a half of a pair")
            << DBCTextEncoding::Utf16 << hex("FEFF D842 DF") << hex("B7");
        QTest::newRow("half a mark") << DBCTextEncoding::Utf16 << hex("FE") << hex("FF 0041");
        QTest::newRow("UTF-8") << DBCTextEncoding::Utf8 << hex("41 E6") << hex("9CAA");
    }
    void pieceThatEndsInsideACharacterIsIncomplete()
    {
        QFETCH(DBCTextEncoding, encoding);
        QFETCH(QByteArray, piece);
        QFETCH(QByteArray, rest);
        DBCTextDecoder decoder(encoding);
        QString text = u"untouched"_s;
        QCOMPARE(decoder.decode(piece, &text), Result::Incomplete);
        QCOMPARE(text, u"untouched"_s);
        QCOMPARE(decoder.decode(piece + rest, &text), Result::Complete);
    }

    void pieceWithALoneSurrogateInTheMiddleIsInvalid()
    {
        QString text;
        DBCTextDecoder decoder(DBCTextEncoding::Utf16);
        QCOMPARE(decoder.decode(hex("FFFE B7DF 4100 42"), &text), Result::Invalid);
    }
};

QTEST_APPLESS_MAIN(tst_textEncoding)
#include "tst_textEncoding.moc"
