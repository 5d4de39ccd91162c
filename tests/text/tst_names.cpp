// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCNames.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using DBCNames::judgeLanguage;
using DBCNames::separateName;
using DBCNames::separateNameYomi;

// Returns "-" for a part that is not set.
static QString shown(const std::optional<QString>& part)
{
    return part.value_or(u"-"_s);
}

static QStringList shown(const DBCNameParts& parts)
{
    return {shown(parts.first), shown(parts.middle), shown(parts.family)};
}

// Adds the test rows for the rules that names and readings share. The columns are text, first,
// middle and family part.
static void addSharedRows()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("parts");
    QTest::newRow("three latin words")
        << u"Anna Maria Berg"_s << QStringList {u"Anna"_s, u"Maria"_s, u"Berg"_s};
    QTest::newRow("four latin words")
        << u"Anna Maria Eva Berg"_s << QStringList {u"Anna"_s, u"Maria Eva"_s, u"Berg"_s};
    QTest::newRow("two latin words")
        << u"Anna Berg"_s << QStringList {u"Anna"_s, u"-"_s, u"Berg"_s};
    QTest::newRow("two latin words, two spaces")
        << u"Anna  Berg"_s << QStringList {u"Anna"_s, u""_s, u"Berg"_s};
    QTest::newRow("one latin word") << u"Anna"_s << QStringList {u"Anna"_s, u"-"_s, u"-"_s};
    QTest::newRow("latin words with ideographic spaces")
        << u"Anna\u3000Maria\u3000Eva\u3000Berg"_s
        << QStringList {u"Anna"_s, u"Maria\u3000Eva"_s, u"Berg"_s};
    QTest::newRow("latin words with blanks around")
        << u"\t\u3000Anna Maria Berg \r\n"_s << QStringList {u"Anna"_s, u"Maria"_s, u"Berg"_s};
    QTest::newRow("latin words with other line ends around")
        << u"\u000B\u2028Anna Berg\u2029\u0085\u000C"_s
        << QStringList {u"Anna"_s, u"-"_s, u"Berg"_s};
    QTest::newRow("no-break space does not divide")
        << u"Anna\u00A0Maria Berg"_s << QStringList {u"Anna\u00A0Maria"_s, u"-"_s, u"Berg"_s};
    QTest::newRow("kanji with ideographic space")
        << u"星野\u3000太郎"_s << QStringList {u"太郎"_s, u"-"_s, u"星野"_s};
    QTest::newRow("kanji with ASCII space")
        << u"星野 太郎"_s << QStringList {u"太郎"_s, u"-"_s, u"星野"_s};
    QTest::newRow("kanji without space")
        << u"星野太郎"_s << QStringList {u"-"_s, u"-"_s, u"星野太郎"_s};
    QTest::newRow("three japanese words")
        << u"星野 マリア 花子"_s << QStringList {u"マリア 花子"_s, u"-"_s, u"星野"_s};
    QTest::newRow("three japanese words keep their own space")
        << u"星野\u3000マリア\u3000花子"_s
        << QStringList {u"マリア\u3000花子"_s, u"-"_s, u"星野"_s};
    QTest::newRow("japanese words with blanks around")
        << u" \u3000星野  太郎\n"_s << QStringList {u"太郎"_s, u"-"_s, u"星野"_s};
    QTest::newRow("one japanese character decides")
        << u"Berg 花"_s << QStringList {u"花"_s, u"-"_s, u"Berg"_s};
    QTest::newRow("katakana reading")
        << u"ホシノ タロウ"_s << QStringList {u"タロウ"_s, u"-"_s, u"ホシノ"_s};
    QTest::newRow("half-width reading") << u"ﾎｼﾉ ﾀﾛｳ"_s << QStringList {u"ﾀﾛｳ"_s, u"-"_s, u"ﾎｼﾉ"_s};
    QTest::newRow("empty") << u""_s << QStringList {u""_s, u"-"_s, u"-"_s};
    QTest::newRow("one space") << u" "_s << QStringList {u""_s, u"-"_s, u""_s};
    QTest::newRow("one ideographic space") << u"\u3000"_s << QStringList {u""_s, u"-"_s, u""_s};
    QTest::newRow("three spaces") << u"   "_s << QStringList {u""_s, u""_s, u""_s};
    QTest::newRow("line break only") << u"\n"_s << QStringList {u"\n"_s, u"-"_s, u"-"_s};
    QTest::newRow("line break between spaces") << u" \n "_s << QStringList {u""_s, u""_s, u""_s};
}

class tst_names : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void language_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<DBCLanguage>("expected");
        QTest::newRow("kanji") << u"John 田"_s << DBCLanguage::Japanese;
        QTest::newRow("hiragana") << u"あ"_s << DBCLanguage::Japanese;
        QTest::newRow("half-width katakana") << u"ｱ"_s << DBCLanguage::Japanese;
        QTest::newRow("ideographic comma, U+3001") << u"\u3001"_s << DBCLanguage::Japanese;
        QTest::newRow("ideographic space") << u"John\u3000Smith"_s << DBCLanguage::Other;
        QTest::newRow("latin with accents") << u"Zoë Çelik"_s << DBCLanguage::Other;
        QTest::newRow("empty") << QString() << DBCLanguage::Other;
    }
    void language()
    {
        QFETCH(QString, text);
        QFETCH(DBCLanguage, expected);
        QCOMPARE(judgeLanguage(text), expected);
    }

    void names_data() { addSharedRows(); }
    void names()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, parts);
        QCOMPARE(shown(separateName(text)), parts);
    }

    void readings_data() { addSharedRows(); }
    void readings()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, parts);
        QCOMPARE(shown(separateNameYomi(text)), parts);
    }

    void missingNameHasNoParts()
    {
        QCOMPARE(shown(separateName(std::nullopt)), QStringList({u"-"_s, u"-"_s, u"-"_s}));
        QCOMPARE(shown(separateNameYomi(std::nullopt)), QStringList({u"-"_s, u"-"_s, u"-"_s}));
    }

    void noRuleSetsPrefixOrSuffix()
    {
        const DBCNameParts parts = separateName(u"Dr. Anna Berg Jr."_s);
        QVERIFY(!parts.prefix);
        QVERIFY(!parts.suffix);
    }
};

QTEST_APPLESS_MAIN(tst_names)
#include "tst_names.moc"
