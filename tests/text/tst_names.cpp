// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCNames.h"

#include <QtTest>

using DBCNames::judgeLanguage;
using DBCNames::separateName;
using DBCNames::separateNameYomi;

class tst_names : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void language_data();
    void language();
    void names_data();
    void names();
    void readings_data();
    void readings();
    void missingNameHasNoParts();
    void noRuleSetsPrefixOrSuffix();
};

// "-" stands for a part that is not set.
static QString shown(const std::optional<QString>& part)
{
    return part.value_or(QStringLiteral("-"));
}

static QStringList shown(const DBCNameParts& parts)
{
    return {shown(parts.first), shown(parts.middle), shown(parts.family)};
}

void tst_names::language_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<DBCLanguage>("expected");
    QTest::newRow("kanji") << QStringLiteral("John 田") << DBCLanguage::Japanese;
    QTest::newRow("hiragana") << QStringLiteral("あ") << DBCLanguage::Japanese;
    QTest::newRow("half-width katakana") << QStringLiteral("ｱ") << DBCLanguage::Japanese;
    QTest::newRow("ideographic comma, U+3001") << QStringLiteral("\u3001") << DBCLanguage::Japanese;
    QTest::newRow("ideographic space") << QStringLiteral("John\u3000Smith") << DBCLanguage::Other;
    QTest::newRow("latin with accents") << QStringLiteral("Zoë Çelik") << DBCLanguage::Other;
    QTest::newRow("empty") << QString() << DBCLanguage::Other;
}

void tst_names::language()
{
    QFETCH(QString, text);
    QFETCH(DBCLanguage, expected);
    QCOMPARE(judgeLanguage(text), expected);
}

// The rules that hold for names and readings alike: text, then first, middle, family.
static void addSharedRows()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("three latin words")
        << QStringLiteral("Anna Maria Berg")
        << QStringList {QStringLiteral("Anna"), QStringLiteral("Maria"), QStringLiteral("Berg")};
    QTest::newRow("four latin words") << QStringLiteral("Anna Maria Eva Berg")
                                      << QStringList {QStringLiteral("Anna"),
                                             QStringLiteral("Maria Eva"), QStringLiteral("Berg")};
    QTest::newRow("two latin words")
        << QStringLiteral("Anna Berg")
        << QStringList {QStringLiteral("Anna"), QStringLiteral("-"), QStringLiteral("Berg")};
    QTest::newRow("two latin words, two spaces")
        << QStringLiteral("Anna  Berg")
        << QStringList {QStringLiteral("Anna"), QStringLiteral(""), QStringLiteral("Berg")};
    QTest::newRow("one latin word") << QStringLiteral(
        "Anna") << QStringList {QStringLiteral("Anna"), QStringLiteral("-"), QStringLiteral("-")};
    QTest::newRow("latin words with ideographic spaces")
        << QStringLiteral("Anna\u3000Maria\u3000Eva\u3000Berg")
        << QStringList {
               QStringLiteral("Anna"), QStringLiteral("Maria\u3000Eva"), QStringLiteral("Berg")};
    QTest::newRow("latin words with blanks around")
        << QStringLiteral("\t\u3000Anna Maria Berg \r\n")
        << QStringList {QStringLiteral("Anna"), QStringLiteral("Maria"), QStringLiteral("Berg")};
    QTest::newRow("latin words with other line ends around")
        << QStringLiteral("\u000B\u2028Anna Berg\u2029\u0085\u000C")
        << QStringList {QStringLiteral("Anna"), QStringLiteral("-"), QStringLiteral("Berg")};
    QTest::newRow("no-break space does not divide")
        << QStringLiteral("Anna\u00A0Maria Berg")
        << QStringList {
               QStringLiteral("Anna\u00A0Maria"), QStringLiteral("-"), QStringLiteral("Berg")};
    QTest::newRow("kanji with ideographic space")
        << QStringLiteral("星野\u3000太郎")
        << QStringList {QStringLiteral("太郎"), QStringLiteral("-"), QStringLiteral("星野")};
    QTest::newRow("kanji with ASCII space")
        << QStringLiteral("星野 太郎")
        << QStringList {QStringLiteral("太郎"), QStringLiteral("-"), QStringLiteral("星野")};
    QTest::newRow("kanji without space")
        << QStringLiteral("星野太郎")
        << QStringList {QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("星野太郎")};
    QTest::newRow("three japanese words")
        << QStringLiteral("星野 マリア 花子")
        << QStringList {QStringLiteral("マリア 花子"), QStringLiteral("-"), QStringLiteral("星野")};
    QTest::newRow("three japanese words keep their own space")
        << QStringLiteral("星野\u3000マリア\u3000花子")
        << QStringList {
               QStringLiteral("マリア\u3000花子"), QStringLiteral("-"), QStringLiteral("星野")};
    QTest::newRow("japanese words with blanks around")
        << QStringLiteral(" \u3000星野  太郎\n")
        << QStringList {QStringLiteral("太郎"), QStringLiteral("-"), QStringLiteral("星野")};
    QTest::newRow("one japanese character decides")
        << QStringLiteral("Berg 花")
        << QStringList {QStringLiteral("花"), QStringLiteral("-"), QStringLiteral("Berg")};
    QTest::newRow("katakana reading")
        << QStringLiteral("ホシノ タロウ")
        << QStringList {QStringLiteral("タロウ"), QStringLiteral("-"), QStringLiteral("ホシノ")};
    QTest::newRow("half-width reading")
        << QStringLiteral("ﾎｼﾉ ﾀﾛｳ")
        << QStringList {QStringLiteral("ﾀﾛｳ"), QStringLiteral("-"), QStringLiteral("ﾎｼﾉ")};
    QTest::newRow("empty") << QStringLiteral(
        "") << QStringList {QStringLiteral(""), QStringLiteral("-"), QStringLiteral("-")};
    QTest::newRow("one space") << QStringLiteral(
        " ") << QStringList {QStringLiteral(""), QStringLiteral("-"), QStringLiteral("")};
    QTest::newRow("one ideographic space") << QStringLiteral(
        "\u3000") << QStringList {QStringLiteral(""), QStringLiteral("-"), QStringLiteral("")};
    QTest::newRow("three spaces") << QStringLiteral(
        "   ") << QStringList {QStringLiteral(""), QStringLiteral(""), QStringLiteral("")};
    QTest::newRow("line break only") << QStringLiteral(
        "\n") << QStringList {QStringLiteral("\n"), QStringLiteral("-"), QStringLiteral("-")};
    QTest::newRow("line break between spaces") << QStringLiteral(
        " \n ") << QStringList {QStringLiteral(""), QStringLiteral(""), QStringLiteral("")};
}

void tst_names::names_data()
{
    addSharedRows();
}

void tst_names::names()
{
    QFETCH(QString, text);
    QFETCH(QStringList, parts);
    QCOMPARE(shown(separateName(text)), parts);
}

void tst_names::readings_data()
{
    addSharedRows();
}

void tst_names::readings()
{
    QFETCH(QString, text);
    QFETCH(QStringList, parts);
    QCOMPARE(shown(separateNameYomi(text)), parts);
}

void tst_names::missingNameHasNoParts()
{
    QCOMPARE(shown(separateName(std::nullopt)),
        QStringList({QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("-")}));
    QCOMPARE(shown(separateNameYomi(std::nullopt)),
        QStringList({QStringLiteral("-"), QStringLiteral("-"), QStringLiteral("-")}));
}

void tst_names::noRuleSetsPrefixOrSuffix()
{
    const DBCNameParts parts = separateName(QStringLiteral("Dr. Anna Berg Jr."));
    QVERIFY(!parts.prefix);
    QVERIFY(!parts.suffix);
}

QTEST_APPLESS_MAIN(tst_names)
#include "tst_names.moc"
