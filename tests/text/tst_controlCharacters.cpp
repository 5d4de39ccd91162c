// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCControlCharacters.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_controlCharacters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controlsAreSpelledOut_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("escaped");
        const auto same
            = [](const char* name, const QString& text) { QTest::newRow(name) << text << text; };
        same("empty", QString());
        same("letters", u"Sato"_s);
        same("kanji and ideographic space", u"星野\u3000太郎"_s);
        same("combining mark", u"か\u3099"_s);
        same("Arabic, which runs from right to left", u"\u0633\u0627\u062A\u0648"_s);
        same("joiner, which emoji are made with", u"👩\u200D💼"_s);
        same("character before the marks of direction", u"\u2027"_s);
        same("character behind the embeddings", u"\u202F"_s);
        same("characters around the isolates", u"\u2065\u206A"_s);

        const auto row = [](const char* name, const QString& text, const char* escaped) {
            QTest::newRow(name) << text << QString::fromUtf8(escaped);
        };
        row("terminal sequence", u"a\u001B[2Jb"_s, "a\\u001B[2Jb");
        row("line end", u"a\nb"_s, "a\\u000Ab");
        row("carriage return", u"\rb"_s, "\\u000Db");
        row("tab", u"a\t"_s, "a\\u0009");
        row("delete", u"\u007F"_s, "\\u007F");
        row("one-character sequence start", u"\u009B"_s, "\\u009B");
        row("zero", QString(QChar(0)), "\\u0000");
        row("line separator", u"a\u2028b"_s, "a\\u2028b");
        row("paragraph separator", u"a\u2029b"_s, "a\\u2029b");
        row("embeddings", u"\u202A\u202E"_s, "\\u202A\\u202E");
        row("isolates", u"\u2066\u2069"_s, "\\u2066\\u2069");
    }
    void controlsAreSpelledOut()
    {
        QFETCH(QString, text);
        QTEST(escapedControls(text), "escaped");
    }

    void lineEndsBecomeBlanksInOneLine()
    {
        QCOMPARE(asOneLine(u"first\nsecond\r\nthird"_s), u"first second\\u000D third"_s);
        QCOMPARE(asOneLine(u"one"_s), u"one"_s);
    }
};

QTEST_APPLESS_MAIN(tst_controlCharacters)
#include "tst_controlCharacters.moc"
