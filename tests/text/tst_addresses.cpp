// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCAddresses.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using DBCAddresses::composeAddressWithDefaultAddress;
using DBCAddresses::composeAddressWithStreet;
using DBCAddresses::separateAddress;

static QString shown(const std::optional<QString>& part)
{
    return part.value_or(u"-"_s);
}

class tst_addresses : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void separated_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("city");
        QTest::addColumn<QString>("street");
        const auto row = [](const char* name, const char16_t* text, const char16_t* state,
                             const char16_t* city, const char16_t* street) {
            QTest::newRow(name) << QString::fromUtf16(text) << QString::fromUtf16(state)
                                << QString::fromUtf16(city) << QString::fromUtf16(street);
        };
        row("three lines", u"東京都\n港区\n芝1-2-3", u"東京都", u"港区", u"芝1-2-3");
        row("four lines keep the building with the street",
            u"東京都\n港区\n芝1-2-3\nベルモラビル5F", u"東京都", u"港区",
            u"芝1-2-3\nベルモラビル5F");
        row("two lines", u"東京都\n港区", u"東京都", u"港区", u"-");
        row("one line", u"東京都港区芝1-2-3", u"東京都港区芝1-2-3", u"-", u"-");
        row("empty", u"", u"", u"-", u"-");
        row("only a street", u"\n\n芝1-2-3", u"", u"", u"芝1-2-3");
        row("empty third line", u"東京都\n港区\n", u"東京都", u"港区", u"");
        row("street loses its blanks", u"a\nb\n \t\u3000\u00A0c d\u3000 ", u"a", u"b", u"c d");
        row("street keeps line ends around it", u"a\nb\n\nc\n", u"a", u"b", u"\nc\n");
        row("street of line ends only", u"a\nb\n\n\r\u2028\n", u"a", u"b", u"");
        row("street of line ends between blanks", u"a\nb\n \n ", u"a", u"b", u"");
        row("paragraph separator counts as a street", u"a\nb\n\u2029", u"a", u"b", u"\u2029");
        row("state and city keep their blanks", u" a \n b \nc", u" a ", u" b ", u"c");
        row("carriage return does not divide", u"a\rb", u"a\rb", u"-", u"-");
    }
    void separated()
    {
        QFETCH(QString, text);
        const DBCAddressParts parts = separateAddress(text);
        QTEST(shown(parts.state), "state");
        QTEST(shown(parts.city), "city");
        QTEST(shown(parts.street), "street");
    }

    void missingAddressHasNoParts()
    {
        const DBCAddressParts parts = separateAddress(std::nullopt);
        QVERIFY(!parts.state && !parts.city && !parts.street);
    }

    void composed_data()
    {
        QTest::addColumn<QStringList>("stateCityStreet");
        QTest::addColumn<QString>("expected");
        QTest::newRow("all") << QStringList {u"S"_s, u"C"_s, u"T"_s} << u"S\nC\nT"_s;
        QTest::newRow("no city") << QStringList {u"S"_s, u""_s, u"T"_s} << u"S\n\nT"_s;
        QTest::newRow("no street") << QStringList {u"S"_s, u"C"_s, u""_s} << u"S\nC"_s;
        QTest::newRow("no state") << QStringList {u""_s, u"C"_s, u"T"_s} << u"\nC\nT"_s;
        QTest::newRow("only a state") << QStringList {u"S"_s, u""_s, u""_s} << u"S"_s;
        QTest::newRow("only a city") << QStringList {u""_s, u"C"_s, u""_s} << u"\nC"_s;
        QTest::newRow("only a street") << QStringList {u""_s, u""_s, u"T"_s} << u"\n\nT"_s;
        QTest::newRow("nothing") << QStringList {u""_s, u""_s, u""_s} << u"-"_s;
    }
    void composed()
    {
        QFETCH(QStringList, stateCityStreet);
        const auto& [state, city, street]
            = std::tie(stateCityStreet[0], stateCityStreet[1], stateCityStreet[2]);
        QTEST(shown(composeAddressWithStreet(street, city, state)), "expected");
    }

    void defaultAddressIsUsedOnlyWithoutParts_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("state");
        QTest::addColumn<QString>("expected");
        const QString none;
        QTest::newRow("no parts") << u"A"_s << none << u"\n\nA"_s;
        QTest::newRow("parts") << u"A"_s << u"S"_s << u"S"_s;
        QTest::newRow("nothing at all") << none << none << u"-"_s;
    }
    void defaultAddressIsUsedOnlyWithoutParts()
    {
        QFETCH(QString, address);
        QFETCH(QString, state);
        QTEST(shown(composeAddressWithDefaultAddress(address, {}, {}, state)), "expected");
    }

    void splittingAComposedAddressGivesItsParts_data()
    {
        QTest::addColumn<QStringList>("stateCityStreet");
        QTest::newRow("all") << QStringList {u"東京都"_s, u"港区"_s, u"芝1-2-3"_s};
        QTest::newRow("street of two lines")
            << QStringList {u"東京都"_s, u"港区"_s, u"芝1-2-3\n5F"_s};
        QTest::newRow("no city") << QStringList {u"東京都"_s, u""_s, u"芝1-2-3"_s};
        QTest::newRow("only a street") << QStringList {u""_s, u""_s, u"芝1-2-3"_s};
    }
    void splittingAComposedAddressGivesItsParts()
    {
        QFETCH(QStringList, stateCityStreet);
        const auto address
            = composeAddressWithStreet(stateCityStreet[2], stateCityStreet[1], stateCityStreet[0]);
        const DBCAddressParts parts = separateAddress(address);
        QCOMPARE(QStringList({shown(parts.state), shown(parts.city), shown(parts.street)}),
            stateCityStreet);
    }
};

QTEST_APPLESS_MAIN(tst_addresses)
#include "tst_addresses.moc"
