// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCAddresses.h"

#include <QtTest>

using DBCAddresses::composeAddressWithDefaultAddress;
using DBCAddresses::composeAddressWithStreet;
using DBCAddresses::separateAddress;

class tst_addresses : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void separated_data();
    void separated();
    void missingAddressHasNoParts();
    void composed_data();
    void composed();
    void defaultAddressIsUsedOnlyWithoutParts_data();
    void defaultAddressIsUsedOnlyWithoutParts();
    void splittingAComposedAddressGivesItsParts_data();
    void splittingAComposedAddressGivesItsParts();
};

static QString shown(const std::optional<QString>& part)
{
    return part.value_or(QStringLiteral("-"));
}

void tst_addresses::separated_data()
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
    row("four lines keep the building with the street", u"東京都\n港区\n芝1-2-3\nベルモラビル5F",
        u"東京都", u"港区", u"芝1-2-3\nベルモラビル5F");
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

void tst_addresses::separated()
{
    QFETCH(QString, text);
    const DBCAddressParts parts = separateAddress(text);
    QTEST(shown(parts.state), "state");
    QTEST(shown(parts.city), "city");
    QTEST(shown(parts.street), "street");
}

void tst_addresses::missingAddressHasNoParts()
{
    const DBCAddressParts parts = separateAddress(std::nullopt);
    QVERIFY(!parts.state && !parts.city && !parts.street);
}

void tst_addresses::composed_data()
{
    QTest::addColumn<QStringList>("stateCityStreet");
    QTest::addColumn<QString>("expected");
    QTest::newRow("all") << QStringList {QStringLiteral("S"), QStringLiteral("C"),
        QStringLiteral("T")}
                         << QStringLiteral("S\nC\nT");
    QTest::newRow("no city") << QStringList {QStringLiteral("S"), QStringLiteral(""),
        QStringLiteral("T")} << QStringLiteral("S\n\nT");
    QTest::newRow("no street") << QStringList {QStringLiteral("S"), QStringLiteral("C"),
        QStringLiteral("")} << QStringLiteral("S\nC");
    QTest::newRow("no state") << QStringList {QStringLiteral(""), QStringLiteral("C"),
        QStringLiteral("T")} << QStringLiteral("\nC\nT");
    QTest::newRow("only a state") << QStringList {QStringLiteral("S"), QStringLiteral(""),
        QStringLiteral("")} << QStringLiteral("S");
    QTest::newRow("only a city") << QStringList {QStringLiteral(""), QStringLiteral("C"),
        QStringLiteral("")} << QStringLiteral("\nC");
    QTest::newRow("only a street") << QStringList {QStringLiteral(""), QStringLiteral(""),
        QStringLiteral("T")} << QStringLiteral("\n\nT");
    QTest::newRow("nothing") << QStringList {QStringLiteral(""), QStringLiteral(""),
        QStringLiteral("")} << QStringLiteral("-");
}

void tst_addresses::composed()
{
    QFETCH(QStringList, stateCityStreet);
    const auto& [state, city, street]
        = std::tie(stateCityStreet[0], stateCityStreet[1], stateCityStreet[2]);
    QTEST(shown(composeAddressWithStreet(street, city, state)), "expected");
}

void tst_addresses::defaultAddressIsUsedOnlyWithoutParts_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("expected");
    const QString none;
    QTest::newRow("no parts") << QStringLiteral("A") << none << QStringLiteral("\n\nA");
    QTest::newRow("parts") << QStringLiteral("A") << QStringLiteral("S") << QStringLiteral("S");
    QTest::newRow("nothing at all") << none << none << QStringLiteral("-");
}

void tst_addresses::defaultAddressIsUsedOnlyWithoutParts()
{
    QFETCH(QString, address);
    QFETCH(QString, state);
    QTEST(shown(composeAddressWithDefaultAddress(address, {}, {}, state)), "expected");
}

void tst_addresses::splittingAComposedAddressGivesItsParts_data()
{
    QTest::addColumn<QStringList>("stateCityStreet");
    QTest::newRow("all") << QStringList {
        QStringLiteral("東京都"), QStringLiteral("港区"), QStringLiteral("芝1-2-3")};
    QTest::newRow("street of two lines") << QStringList {
        QStringLiteral("東京都"), QStringLiteral("港区"), QStringLiteral("芝1-2-3\n5F")};
    QTest::newRow("no city") << QStringList {
        QStringLiteral("東京都"), QStringLiteral(""), QStringLiteral("芝1-2-3")};
    QTest::newRow("only a street")
        << QStringList {QStringLiteral(""), QStringLiteral(""), QStringLiteral("芝1-2-3")};
}

void tst_addresses::splittingAComposedAddressGivesItsParts()
{
    QFETCH(QStringList, stateCityStreet);
    const auto address
        = composeAddressWithStreet(stateCityStreet[2], stateCityStreet[1], stateCityStreet[0]);
    const DBCAddressParts parts = separateAddress(address);
    QCOMPARE(
        QStringList({shown(parts.state), shown(parts.city), shown(parts.street)}), stateCityStreet);
}

QTEST_APPLESS_MAIN(tst_addresses)
#include "tst_addresses.moc"
