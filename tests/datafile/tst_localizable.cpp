// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCLocalizable.h"

#include <QProcess>
#include <QTest>

#include <cstdio>

using Language = DBCLocalizable::Language;

class tst_localizable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void languageFor_data();
    void languageFor();
    void environmentChoosesTheLanguage_data();
    void environmentChoosesTheLanguage();
    void textFollowsTheLanguage();
    void keyWithoutEntryHasNoText();
    void keyWithoutEntryAnswersTheKey();
    void keyOfOtherCaseIsAnotherKey();
    void fill_data();
    void fill();
    void numbersAreGroupedInEveryCLocale();
    void substituteStandsInFrontOfTheTable();
    void substituteCanTakeAnEntryAway();
};

void tst_localizable::init()
{
    DBCLocalizable::setLanguage(Language::English);
}

void tst_localizable::languageFor_data()
{
    QTest::addColumn<QStringList>("wanted");
    QTest::addColumn<Language>("expected");
    QTest::newRow("nothing wanted") << QStringList() << Language::English;
    QTest::newRow("Japanese") << QStringList {QStringLiteral("ja-JP")} << Language::Japanese;
    QTest::newRow("Japanese, language alone")
        << QStringList {QStringLiteral("ja")} << Language::Japanese;
    QTest::newRow("German") << QStringList {QStringLiteral("de-DE")} << Language::English;
    QTest::newRow("Javanese is not Japanese")
        << QStringList {QStringLiteral("jv-ID")} << Language::English;
    QTest::newRow("C") << QStringList {QStringLiteral("C")} << Language::English;
    QTest::newRow("English before Japanese")
        << QStringList {QStringLiteral("en"), QStringLiteral("ja")} << Language::English;
    QTest::newRow("French before Japanese")
        << QStringList {QStringLiteral("fr"), QStringLiteral("ja")} << Language::Japanese;
}

void tst_localizable::languageFor()
{
    QFETCH(QStringList, wanted);
    QFETCH(Language, expected);
    QCOMPARE(DBCLocalizable::languageFor(wanted), expected);
}

void tst_localizable::environmentChoosesTheLanguage_data()
{
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QString>("texts"); // ours and Qt's
    const QString english = QStringLiteral("Yes/Options:");
    const QString japanese = QStringLiteral("はい/オプション:");
    const auto row = [](const char* settings, const QString& texts) {
        QTest::newRow(settings) << QString::fromLatin1(settings).split(u' ') << texts;
    };
    row("LANG=ja_JP.UTF-8", japanese);
    row("LANG=ja_JP.eucJP", japanese);
    row("LANG=ja", japanese);
    row("LC_ALL=ja_JP.UTF-8 LANG=en_US.UTF-8", japanese);
    row("LC_MESSAGES=ja_JP.UTF-8 LANG=de_DE.UTF-8", japanese);
    row("LANGUAGE=ja:en LANG=en_US.UTF-8", japanese);
    row("LC_ALL=C LANG=ja_JP.UTF-8", english);
    row("LC_MESSAGES=en_US.UTF-8 LANG=ja_JP.UTF-8", english);
    row("LC_CTYPE=ja_JP.UTF-8", english);
    row("LANG=de_DE.UTF-8", english);
    row("LANG=", english);
}

void tst_localizable::environmentChoosesTheLanguage()
{
    QFETCH(QStringList, environment);
    QFETCH(QString, texts);
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LC_CTYPE", "LANG", "LANGUAGE"})
        variables.remove(QString::fromLatin1(name));
    for (const QString& setting : environment)
        variables.insert(setting.section(u'=', 0, 0), setting.section(u'=', 1));
    QProcess child;
    child.setProcessEnvironment(variables);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--speak")});
    QVERIFY(child.waitForFinished(-1));
    QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()), texts);
}

void tst_localizable::textFollowsTheLanguage()
{
    const QString key = QStringLiteral("IDS_LBL_RESTORE");
    QCOMPARE(getLocalString(key), QStringLiteral("Restore"));
    DBCLocalizable::setLanguage(Language::Japanese);
    QCOMPARE(DBCLocalizable::language(), Language::Japanese);
    QCOMPARE(getLocalString(key), QStringLiteral("復元"));
}

void tst_localizable::keyWithoutEntryHasNoText()
{
    QVERIFY(!DBCLocalizable::text(QStringLiteral("IDS_MSG_ERR_0199")));
    QVERIFY(!DBCLocalizable::text(QString()));
}

void tst_localizable::keyWithoutEntryAnswersTheKey()
{
    QCOMPARE(getLocalString(QStringLiteral("IDS_NO_SUCH_KEY")), QStringLiteral("IDS_NO_SUCH_KEY"));
    QCOMPARE(
        getLocalString(QStringLiteral("名前 %1"), {QStringLiteral("x")}), QStringLiteral("名前 x"));
}

void tst_localizable::keyOfOtherCaseIsAnotherKey()
{
    QVERIFY(DBCLocalizable::text(QStringLiteral("IDS_FOLDER_STRUCT_DataFileName")));
    QVERIFY(!DBCLocalizable::text(QStringLiteral("IDS_FOLDER_STRUCT_DATAFILENAME")));
}

void tst_localizable::fill_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<DBCMessageArguments>("arguments");
    QTest::addColumn<QString>("expected");
    using Arguments = DBCMessageArguments;
    const auto row
        = [](const char* name, const QString& format, const Arguments& arguments,
              const QString& expected) { QTest::newRow(name) << format << arguments << expected; };
    row("no placeholder", QStringLiteral("100 % sure"), Arguments {QStringLiteral("x")},
        QStringLiteral("100 % sure"));
    row("out of order", QStringLiteral("%2-%1"),
        Arguments {QStringLiteral("a"), QStringLiteral("b")}, QStringLiteral("b-a"));
    row("twice", QStringLiteral("%1%1"), Arguments {QStringLiteral("a")}, QStringLiteral("aa"));
    row("value holding a placeholder", QStringLiteral("%1 %2"),
        Arguments {QStringLiteral("%2 %1 %L2"), QStringLiteral("b")},
        QStringLiteral("%2 %1 %L2 b"));
    row("argument missing", QStringLiteral("%1 %2"), Arguments {QStringLiteral("a")},
        QStringLiteral("a %2"));
    row("no arguments", QStringLiteral("%1"), Arguments {}, QStringLiteral("%1"));
    row("empty value", QStringLiteral("[%1]"), Arguments {QString()}, QStringLiteral("[]"));
    row("plain number", QStringLiteral("%1"), Arguments {qint64 {1234567}},
        QStringLiteral("1234567"));
    row("grouped number", QStringLiteral("%L1"), Arguments {qint64 {1234567}},
        QStringLiteral("1,234,567"));
    row("negative number", QStringLiteral("%1"), Arguments {qint64 {-301}}, QStringLiteral("-301"));
    row("largest number", QStringLiteral("%1"), Arguments {std::numeric_limits<qint64>::min()},
        QStringLiteral("-9223372036854775808"));
    row("text where a grouped number is expected", QStringLiteral("%L1"),
        Arguments {QStringLiteral("many")}, QStringLiteral("many"));
    row("percentage", QStringLiteral("%1%"), Arguments {qint64 {50}}, QStringLiteral("50%"));
    row("one digit only", QStringLiteral("%10"), Arguments {QStringLiteral("a")},
        QStringLiteral("a0"));
    row("zero is no placeholder", QStringLiteral("%0%1"), Arguments {QStringLiteral("a")},
        QStringLiteral("%0a"));
    row("letter is no placeholder", QStringLiteral("%d %1"), Arguments {QStringLiteral("a")},
        QStringLiteral("%d a"));
    row("sign at the end", QStringLiteral("%1%"), Arguments {QStringLiteral("a")},
        QStringLiteral("a%"));
    row("L at the end", QStringLiteral("%1%L"), Arguments {QStringLiteral("a")},
        QStringLiteral("a%L"));
    row("beyond the basic plane", QStringLiteral("𠮷%1"), Arguments {QStringLiteral("野家")},
        QStringLiteral("𠮷野家"));
}

void tst_localizable::fill()
{
    QFETCH(QString, format);
    QFETCH(DBCMessageArguments, arguments);
    QFETCH(QString, expected);
    QCOMPARE(DBCLocalizable::fill(format, arguments), expected);
}

void tst_localizable::numbersAreGroupedInEveryCLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const QString english = DBCLocalizable::fill(QStringLiteral("%L1"), {qint64 {12345}});
    DBCLocalizable::setLanguage(Language::Japanese);
    const QString japanese = DBCLocalizable::fill(QStringLiteral("%L1"), {qint64 {12345}});
    QLocale::setDefault(before);
    QCOMPARE(english, QStringLiteral("12,345"));
    QCOMPARE(japanese, QStringLiteral("12,345"));
}

void tst_localizable::substituteStandsInFrontOfTheTable()
{
    const QString key = QStringLiteral("IDS_LBL_IMPORT");
    {
        const DBCLocalizable::Substitute substitute({{key, QStringLiteral("Taking in")}});
        QCOMPARE(getLocalString(key), QStringLiteral("Taking in"));
        QCOMPARE(getLocalString(QStringLiteral("IDS_LBL_EXPORT")), QStringLiteral("Export"));
    }
    QCOMPARE(getLocalString(key), QStringLiteral("Import"));
}

void tst_localizable::substituteCanTakeAnEntryAway()
{
    const QString key = QStringLiteral("IDS_LBL_IMPORT");
    const DBCLocalizable::Substitute substitute({{key, std::nullopt}});
    QVERIFY(!DBCLocalizable::text(key));
    QCOMPARE(getLocalString(key), key);
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    // What a program started under another locale says, for environmentChoosesTheLanguage().
    if (application.arguments().contains(QStringLiteral("--speak"))) {
        const QString texts = getLocalString(QStringLiteral("IDS_BUTTON_MSG_YES")) + u'/'
            + QCoreApplication::translate("QCommandLineParser", "Options:");
        std::fputs(texts.toUtf8().constData(), stdout);
        return 0;
    }
    tst_localizable test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_localizable.moc"
