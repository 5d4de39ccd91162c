// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCCharacterSets.h"

#include <QtTest>

using namespace Qt::StringLiterals;

static QList<char16_t> sortedUnits(QStringView set)
{
    QList<char16_t> units(set.utf16(), set.utf16() + set.size());
    std::sort(units.begin(), units.end());
    return units;
}

class tst_characterSets : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void newLineSetHoldsFiveCharacters()
    {
        QCOMPARE(
            sortedUnits(newLineCharacters()), QList<char16_t>({0x0A, 0x0D, 0x85, 0x2028, 0x2029}));
    }

    void blankAndNewLineSetHoldsSevenCharacters()
    {
        QCOMPARE(sortedUnits(blankAndNewLineCharacters()),
            QList<char16_t>({0x09, 0x0A, 0x0D, 0x20, 0x85, 0x2028, 0x3000}));
    }

    void paragraphSeparatorEndsALineButIsNotBlank()
    {
        QVERIFY(newLineCharacters().contains(QChar(0x2029)));
        QVERIFY(!blankAndNewLineCharacters().contains(QChar(0x2029)));
    }

    void trimmingTakesBothEndsAndLeavesTheInside()
    {
        const QString text = u"\t \u3000\r\n\u0085\u2028a \u3000b\u2028\u0085\n\r\u3000 \t"_s;
        QCOMPARE(trimmedBy(text, blankAndNewLineCharacters()), u"a \u3000b"_s);
    }

    void trimmingATextOfBlanksLeavesNothing()
    {
        QVERIFY(trimmedBy(u" \u3000\t", blankAndNewLineCharacters()).isEmpty());
        QVERIFY(trimmedBy(u"", blankAndNewLineCharacters()).isEmpty());
    }

    void trimmingKeepsWhatOnlyTheLibraryCallsBlank_data()
    {
        QTest::addColumn<QChar>("character");
        QTest::newRow("paragraph separator") << QChar(0x2029);
        QTest::newRow("no-break space") << QChar(0xA0);
        QTest::newRow("vertical tab") << QChar(0x0B);
        QTest::newRow("form feed") << QChar(0x0C);
        QTest::newRow("em space") << QChar(0x2003);
    }
    void trimmingKeepsWhatOnlyTheLibraryCallsBlank()
    {
        QFETCH(QChar, character);
        const QString text = character + u"a"_s + character;
        QCOMPARE(trimmedBy(text, blankAndNewLineCharacters()), text);
    }

    void whiteSpaceIsTabAndSpaceSeparators_data()
    {
        QTest::addColumn<QChar>("character");
        QTest::addColumn<bool>("expected");
        QTest::newRow("tab") << QChar(0x09) << true;
        QTest::newRow("space") << QChar(0x20) << true;
        QTest::newRow("no-break space") << QChar(0xA0) << true;
        QTest::newRow("thin space") << QChar(0x2009) << true;
        QTest::newRow("ideographic space") << QChar(0x3000) << true;
        QTest::newRow("line feed") << QChar(0x0A) << false;
        QTest::newRow("carriage return") << QChar(0x0D) << false;
        QTest::newRow("next line") << QChar(0x85) << false;
        QTest::newRow("line separator") << QChar(0x2028) << false;
        QTest::newRow("letter") << QChar(u'a') << false;
    }
    void whiteSpaceIsTabAndSpaceSeparators()
    {
        QFETCH(QChar, character);
        QFETCH(bool, expected);
        QCOMPARE(isWhiteSpace(character), expected);
    }
};

QTEST_APPLESS_MAIN(tst_characterSets)
#include "tst_characterSets.moc"
