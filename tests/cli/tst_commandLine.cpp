// SPDX-License-Identifier: GPL-3.0-or-later
// What velmora-convert makes of its arguments.
#include "tests/cli/ConvertProgram.h"

#include <QDir>
#include <QtTest>

class tst_commandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wrongUsage_data();
    void wrongUsage();
    void wrongUsageChangesNothing();
    void helpNamesEveryCommandAndOption();
    void helpOfACommandIsTheHelp();
    void helpIsJapaneseInJapan();
    void wrongUsageIsJapaneseInJapan();
    void versionIsOneLine();
    void relativePathsAreOfTheWorkingFolder();
    void slashBehindAPackageIsTaken();
    void optionsMayStandAnywhere();
};

void tst_commandLine::wrongUsage_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    const auto row = [](const char* name, const QString& line, const QString& named) {
        QTest::newRow(name) << line.split(u' ', Qt::SkipEmptyParts) << named;
    };
    row("nothing", {}, QStringLiteral("import"));
    row("unknown command", QStringLiteral("convert a b"), QStringLiteral("convert"));
    row("import without package", QStringLiteral("import a"), QStringLiteral("FOLDER PACKAGE"));
    row("import of three", QStringLiteral("import a b c"), QStringLiteral("FOLDER PACKAGE"));
    row("export without parent", QStringLiteral("export a"), QStringLiteral("PACKAGE PARENT"));
    row("check of nothing", QStringLiteral("check"), QStringLiteral("check FOLDER"));
    row("verify of two", QStringLiteral("verify a b"), QStringLiteral("verify PACKAGE"));
    row("create of nothing", QStringLiteral("create"), QStringLiteral("create PACKAGE"));
    row("unknown option", QStringLiteral("check a --fast"), QStringLiteral("fast"));
    row("value for an option", QStringLiteral("check a --json=yes"), QStringLiteral("--help"));
    QTest::newRow("empty path") << QStringList({QStringLiteral("check"), QString()})
                                << QStringLiteral("check FOLDER");
}

void tst_commandLine::wrongUsage()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const TestHome home;

    const ProgramRun run = ConvertProgram(home).run(arguments);

    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.output.isEmpty());
    QVERIFY2(run.errors.contains(named), qPrintable(run.errors));
    QVERIFY(run.errors.contains(QStringLiteral("velmora-convert --help")));
    QVERIFY(!run.errors.contains(QStringLiteral("IDS_")));
}

void tst_commandLine::wrongUsageChangesNothing()
{
    const TestHome home;
    ConvertProgram(home).run({QStringLiteral("create"), QStringLiteral("--fast"),
        home.path(QStringLiteral("new.vmdb"))});
    QVERIFY(!QFile::exists(home.path(QStringLiteral("new.vmdb"))));
    QVERIFY(home.logText().isEmpty());
}

void tst_commandLine::helpNamesEveryCommandAndOption()
{
    const TestHome home;

    const ProgramRun run = ConvertProgram(home).run({QStringLiteral("--help")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.isEmpty());
    for (const char* word :
        {"import FOLDER PACKAGE", "export PACKAGE PARENT", "check FOLDER", "verify PACKAGE",
            "create PACKAGE", "--json", "--yes", "--quiet", "--help", "--version", "130"})
        QVERIFY2(run.output.contains(QLatin1String(word)), word);
    QVERIFY(!run.output.contains(QStringLiteral("IDS_")));
}

void tst_commandLine::helpOfACommandIsTheHelp()
{
    const TestHome home;
    const ConvertProgram program(home);
    const ProgramRun run = program.run({QStringLiteral("import"), QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, program.run({QStringLiteral("--help")}).output);
}

void tst_commandLine::helpIsJapaneseInJapan()
{
    const TestHome home;
    ConvertProgram program(home);
    program.language = QStringLiteral("ja_JP.UTF-8");

    const ProgramRun run = program.run({QStringLiteral("--help")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains(QStringLiteral("名刺")), qPrintable(run.output));
    QVERIFY(run.output.contains(QStringLiteral("import FOLDER PACKAGE")));
}

void tst_commandLine::wrongUsageIsJapaneseInJapan()
{
    const TestHome home;
    ConvertProgram program(home);
    program.language = QStringLiteral("ja_JP.UTF-8");

    const ProgramRun run = program.run({QStringLiteral("import")});

    QCOMPARE(run.exitCode, 2);
    QVERIFY2(run.errors.contains(QStringLiteral("パス")), qPrintable(run.errors));
}

void tst_commandLine::versionIsOneLine()
{
    const TestHome home;
    const ProgramRun run = ConvertProgram(home).run({QStringLiteral("--version")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QStringLiteral("velmora-convert " VELMORA_VERSION "\n"));
}

void tst_commandLine::relativePathsAreOfTheWorkingFolder()
{
    const TestHome home;
    ConvertProgram program(home);
    program.workingFolder = home.makeFolder(QStringLiteral("here and there"));

    const ProgramRun run
        = program.run({QStringLiteral("create"), QStringLiteral("../new cards.vmdb")});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::exists(home.path(QStringLiteral("new cards.vmdb/Velmora.sqldb"))));
}

void tst_commandLine::slashBehindAPackageIsTaken()
{
    const TestHome home;
    const ProgramRun run = ConvertProgram(home).run(
        {QStringLiteral("create"), home.path(QStringLiteral("new.vmdb")) + u'/'});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(QFile::exists(home.path(QStringLiteral("new.vmdb/Velmora.sqldb"))));
}

void tst_commandLine::optionsMayStandAnywhere()
{
    const TestHome home;
    const ProgramRun run = ConvertProgram(home).run({QStringLiteral("--quiet"),
        QStringLiteral("create"), home.path(QStringLiteral("new.vmdb")), QStringLiteral("--json")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.names(), QStringList(QStringLiteral("result")));
}

QTEST_GUILESS_MAIN(tst_commandLine)
#include "tst_commandLine.moc"
