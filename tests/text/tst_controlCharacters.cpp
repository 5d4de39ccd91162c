// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCControlCharacters.h"

#include <QtTest>

class tst_controlCharacters : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void controlsAreSpelledOut_data();
    void controlsAreSpelledOut();
    void lineEndsBecomeBlanksInOneLine();
};

void tst_controlCharacters::controlsAreSpelledOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    const auto same
        = [](const char* name, const QString& text) { QTest::newRow(name) << text << text; };
    same("empty", QString());
    same("letters", QStringLiteral("Sato"));
    same("kanji and ideographic space", QStringLiteral("星野\u3000太郎"));
    same("combining mark", QStringLiteral("か\u3099"));
    same("Arabic, which runs from right to left", QStringLiteral("\u0633\u0627\u062A\u0648"));
    same("joiner, which emoji are made with", QStringLiteral("👩\u200D💼"));
    same("character before the marks of direction", QStringLiteral("\u2027"));
    same("character behind the embeddings", QStringLiteral("\u202F"));
    same("characters around the isolates", QStringLiteral("\u2065\u206A"));

    const auto row = [](const char* name, const QString& text, const char* escaped) {
        QTest::newRow(name) << text << QString::fromUtf8(escaped);
    };
    row("terminal sequence", QStringLiteral("a\u001B[2Jb"), "a\\u001B[2Jb");
    row("line end", QStringLiteral("a\nb"), "a\\u000Ab");
    row("carriage return", QStringLiteral("\rb"), "\\u000Db");
    row("tab", QStringLiteral("a\t"), "a\\u0009");
    row("delete", QStringLiteral("\u007F"), "\\u007F");
    row("one-character sequence start", QStringLiteral("\u009B"), "\\u009B");
    row("zero", QString(QChar(0)), "\\u0000");
    row("line separator", QStringLiteral("a\u2028b"), "a\\u2028b");
    row("paragraph separator", QStringLiteral("a\u2029b"), "a\\u2029b");
    row("embeddings", QStringLiteral("\u202A\u202E"), "\\u202A\\u202E");
    row("isolates", QStringLiteral("\u2066\u2069"), "\\u2066\\u2069");
}

void tst_controlCharacters::controlsAreSpelledOut()
{
    QFETCH(QString, text);
    QTEST(escapedControls(text), "escaped");
}

void tst_controlCharacters::lineEndsBecomeBlanksInOneLine()
{
    QCOMPARE(asOneLine(QStringLiteral("first\nsecond\r\nthird")),
        QStringLiteral("first second\\u000D third"));
    QCOMPARE(asOneLine(QStringLiteral("one")), QStringLiteral("one"));
}

QTEST_APPLESS_MAIN(tst_controlCharacters)
#include "tst_controlCharacters.moc"
