// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCLocalizable.h"

#include <QProcess>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

using Language = DBCLocalizable::Language;

class tst_localizable : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { DBCLocalizable::setLanguage(Language::English); }

    void languageFor_data()
    {
        QTest::addColumn<QStringList>("wanted");
        QTest::addColumn<Language>("expected");
        QTest::newRow("nothing wanted") << QStringList() << Language::English;
        QTest::newRow("Japanese") << QStringList {u"ja-JP"_s} << Language::Japanese;
        QTest::newRow("Japanese, language alone") << QStringList {u"ja"_s} << Language::Japanese;
        QTest::newRow("German") << QStringList {u"de-DE"_s} << Language::English;
        QTest::newRow("Javanese is not Japanese") << QStringList {u"jv-ID"_s} << Language::English;
        QTest::newRow("C") << QStringList {u"C"_s} << Language::English;
        QTest::newRow("English before Japanese")
            << QStringList {u"en"_s, u"ja"_s} << Language::English;
        QTest::newRow("French before Japanese")
            << QStringList {u"fr"_s, u"ja"_s} << Language::Japanese;
    }
    void languageFor()
    {
        QFETCH(QStringList, wanted);
        QFETCH(Language, expected);
        QCOMPARE(DBCLocalizable::languageFor(wanted), expected);
    }

    void environmentChoosesTheLanguage_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QString>("texts"); // one text of our table and one of Qt
        const QString english = u"Yes/Options:"_s;
        const QString japanese = u"はい/オプション:"_s;
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
    void environmentChoosesTheLanguage()
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
        child.start(QCoreApplication::applicationFilePath(), {u"--speak"_s});
        QVERIFY(child.waitForFinished(-1));
        QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()), texts);
    }

    void textFollowsTheLanguage()
    {
        const QString key = u"IDS_LBL_RESTORE"_s;
        QCOMPARE(getLocalString(key), u"Restore"_s);
        DBCLocalizable::setLanguage(Language::Japanese);
        QCOMPARE(DBCLocalizable::language(), Language::Japanese);
        QCOMPARE(getLocalString(key), u"復元"_s);
    }

    void keyWithoutEntryHasNoText()
    {
        QVERIFY(!DBCLocalizable::text(u"IDS_MSG_ERR_0199"_s));
        QVERIFY(!DBCLocalizable::text(QString()));
    }

    void keyWithoutEntryAnswersTheKey()
    {
        QCOMPARE(getLocalString(u"IDS_NO_SUCH_KEY"_s), u"IDS_NO_SUCH_KEY"_s);
        QCOMPARE(getLocalString(u"名前 %1"_s, {u"x"_s}), u"名前 x"_s);
    }

    void keyOfOtherCaseIsAnotherKey()
    {
        QVERIFY(DBCLocalizable::text(u"IDS_FOLDER_STRUCT_DataFileName"_s));
        QVERIFY(!DBCLocalizable::text(u"IDS_FOLDER_STRUCT_DATAFILENAME"_s));
    }

    void fill_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<DBCMessageArguments>("arguments");
        QTest::addColumn<QString>("expected");
        using Arguments = DBCMessageArguments;
        const auto row = [](const char* name, const QString& format, const Arguments& arguments,
                             const QString& expected) {
            QTest::newRow(name) << format << arguments << expected;
        };
        row("no placeholder", u"100 % sure"_s, Arguments {u"x"_s}, u"100 % sure"_s);
        row("out of order", u"%2-%1"_s, Arguments {u"a"_s, u"b"_s}, u"b-a"_s);
        row("twice", u"%1%1"_s, Arguments {u"a"_s}, u"aa"_s);
        row("value holding a placeholder", u"%1 %2"_s, Arguments {u"%2 %1 %L2"_s, u"b"_s},
            u"%2 %1 %L2 b"_s);
        row("argument missing", u"%1 %2"_s, Arguments {u"a"_s}, u"a %2"_s);
        row("no arguments", u"%1"_s, Arguments {}, u"%1"_s);
        row("empty value", u"[%1]"_s, Arguments {QString()}, u"[]"_s);
        row("plain number", u"%1"_s, Arguments {qint64 {1234567}}, u"1234567"_s);
        row("grouped number", u"%L1"_s, Arguments {qint64 {1234567}}, u"1,234,567"_s);
        row("negative number", u"%1"_s, Arguments {qint64 {-301}}, u"-301"_s);
        row("largest number", u"%1"_s, Arguments {std::numeric_limits<qint64>::min()},
            u"-9223372036854775808"_s);
        row("text where a grouped number is expected", u"%L1"_s, Arguments {u"many"_s}, u"many"_s);
        row("percentage", u"%1%"_s, Arguments {qint64 {50}}, u"50%"_s);
        row("one digit only", u"%10"_s, Arguments {u"a"_s}, u"a0"_s);
        row("zero is no placeholder", u"%0%1"_s, Arguments {u"a"_s}, u"%0a"_s);
        row("letter is no placeholder", u"%d %1"_s, Arguments {u"a"_s}, u"%d a"_s);
        row("sign at the end", u"%1%"_s, Arguments {u"a"_s}, u"a%"_s);
        row("L at the end", u"%1%L"_s, Arguments {u"a"_s}, u"a%L"_s);
        row("beyond the basic plane", u"𠮷%1"_s, Arguments {u"野家"_s}, u"𠮷野家"_s);
    }
    void fill()
    {
        QFETCH(QString, format);
        QFETCH(DBCMessageArguments, arguments);
        QFETCH(QString, expected);
        QCOMPARE(DBCLocalizable::fill(format, arguments), expected);
    }

    void numbersAreGroupedInEveryCLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const QString english = DBCLocalizable::fill(u"%L1"_s, {qint64 {12345}});
        DBCLocalizable::setLanguage(Language::Japanese);
        const QString japanese = DBCLocalizable::fill(u"%L1"_s, {qint64 {12345}});
        QLocale::setDefault(before);
        QCOMPARE(english, u"12,345"_s);
        QCOMPARE(japanese, u"12,345"_s);
    }

    void substituteStandsInFrontOfTheTable()
    {
        const QString key = u"IDS_LBL_IMPORT"_s;
        {
            const DBCLocalizable::Substitute substitute({{key, u"Taking in"_s}});
            QCOMPARE(getLocalString(key), u"Taking in"_s);
            QCOMPARE(getLocalString(u"IDS_LBL_EXPORT"_s), u"Export"_s);
        }
        QCOMPARE(getLocalString(key), u"Import"_s);
    }

    void substituteCanTakeAnEntryAway()
    {
        const QString key = u"IDS_LBL_IMPORT"_s;
        const DBCLocalizable::Substitute substitute({{key, std::nullopt}});
        QVERIFY(!DBCLocalizable::text(key));
        QCOMPARE(getLocalString(key), key);
    }
};

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    // environmentChoosesTheLanguage() starts this program again, with "--speak" and in another
    // locale, to see which texts the program prints.
    if (application.arguments().contains(u"--speak"_s)) {
        const QString texts = getLocalString(u"IDS_BUTTON_MSG_YES"_s) + u'/'
            + QCoreApplication::translate("QCommandLineParser", "Options:");
        std::fputs(texts.toUtf8().constData(), stdout);
        return 0;
    }
    tst_localizable test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_localizable.moc"
