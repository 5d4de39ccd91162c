// SPDX-License-Identifier: GPL-3.0-or-later
// Tests which commands, paths and options velmora-convert reads from its arguments.
#include "tests/cli/ConvertProgram.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_commandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrongUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named");
        const auto row = [](const char* name, const QString& line, const QString& named) {
            QTest::newRow(name) << line.split(u' ', Qt::SkipEmptyParts) << named;
        };
        row("nothing", {}, u"import"_s);
        row("unknown command", u"convert a b"_s, u"convert"_s);
        row("import without package", u"import a"_s, u"FOLDER PACKAGE"_s);
        row("import of three", u"import a b c"_s, u"FOLDER PACKAGE"_s);
        row("export without parent", u"export a"_s, u"PACKAGE PARENT"_s);
        row("check of nothing", u"check"_s, u"check FOLDER"_s);
        row("verify of two", u"verify a b"_s, u"verify PACKAGE"_s);
        row("create of nothing", u"create"_s, u"create PACKAGE"_s);
        row("unknown option", u"check a --fast"_s, u"fast"_s);
        row("value for an option", u"check a --json=yes"_s, u"--help"_s);
        QTest::newRow("empty path") << QStringList({u"check"_s, QString()}) << u"check FOLDER"_s;
    }
    void wrongUsage()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        const TestHome home;

        const ProgramRun run = ConvertProgram(home).run(arguments);

        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.output.isEmpty());
        QVERIFY2(run.errors.contains(named), qPrintable(run.errors));
        QVERIFY(run.errors.contains(u"velmora-convert --help"_s));
        QVERIFY(!run.errors.contains(u"IDS_"_s));
    }

    void wrongUsageChangesNothing()
    {
        const TestHome home;
        ConvertProgram(home).run({u"create"_s, u"--fast"_s, home.path(u"new.vmdb"_s)});
        QVERIFY(!QFile::exists(home.path(u"new.vmdb"_s)));
        QVERIFY(home.logText().isEmpty());
    }

    void helpNamesEveryCommandAndOption()
    {
        const TestHome home;

        const ProgramRun run = ConvertProgram(home).run({u"--help"_s});

        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.errors.isEmpty());
        for (const char* word :
            {"import FOLDER PACKAGE", "export PACKAGE PARENT", "check FOLDER", "verify PACKAGE",
                "create PACKAGE", "--json", "--yes", "--quiet", "--help", "--version", "130"})
            QVERIFY2(run.output.contains(QLatin1String(word)), word);
        QVERIFY(!run.output.contains(u"IDS_"_s));
    }

    void helpOfACommandIsTheHelp()
    {
        const TestHome home;
        const ConvertProgram program(home);
        const ProgramRun run = program.run({u"import"_s, u"--help"_s});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output, program.run({u"--help"_s}).output);
    }

    void helpIsJapaneseInJapan()
    {
        const TestHome home;
        ConvertProgram program(home);
        program.language = u"ja_JP.UTF-8"_s;

        const ProgramRun run = program.run({u"--help"_s});

        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(u"名刺"_s), qPrintable(run.output));
        QVERIFY(run.output.contains(u"import FOLDER PACKAGE"_s));
    }

    void wrongUsageIsJapaneseInJapan()
    {
        const TestHome home;
        ConvertProgram program(home);
        program.language = u"ja_JP.UTF-8"_s;

        const ProgramRun run = program.run({u"import"_s});

        QCOMPARE(run.exitCode, 2);
        QVERIFY2(run.errors.contains(u"パス"_s), qPrintable(run.errors));
    }

    void versionIsOneLine()
    {
        const TestHome home;
        const ProgramRun run = ConvertProgram(home).run({u"--version"_s});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.output, u"velmora-convert " VELMORA_VERSION "\n"_s);
    }

    void relativePathsAreOfTheWorkingFolder()
    {
        const TestHome home;
        ConvertProgram program(home);
        program.workingFolder = home.makeFolder(u"here and there"_s);

        const ProgramRun run = program.run({u"create"_s, u"../new cards.vmdb"_s});

        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::exists(home.path(u"new cards.vmdb/Velmora.sqldb"_s)));
    }

    void slashBehindAPackageIsTaken()
    {
        const TestHome home;
        const ProgramRun run
            = ConvertProgram(home).run({u"create"_s, home.path(u"new.vmdb"_s) + u'/'});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::exists(home.path(u"new.vmdb/Velmora.sqldb"_s)));
    }

    void optionsMayStandAnywhere()
    {
        const TestHome home;
        const ProgramRun run = ConvertProgram(home).run(
            {u"--quiet"_s, u"create"_s, home.path(u"new.vmdb"_s), u"--json"_s});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.names(), QStringList(u"result"_s));
    }
};

QTEST_GUILESS_MAIN(tst_commandLine)
#include "tst_commandLine.moc"
