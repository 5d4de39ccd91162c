// SPDX-License-Identifier: GPL-3.0-or-later
// velmora-convert check, verify and create.
#include "tests/cli/ConvertProgram.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"

#include <QDir>
#include <QtTest>

namespace {

using Key = DBCRecordKey;

const QString json = QStringLiteral("--json");

struct Desk {
    Desk()
    {
        folder.dataFile(DataFileBuilder()
                            .titleLine()
                            .row({{Key::full_Name, QStringLiteral("Hoshino Taro")}})
                            .build());
    }
    ProgramRun check(const QStringList& options = {}) const
    {
        return program.run(QStringList({QStringLiteral("check"), folder.path()}) + options);
    }
    ProgramRun verify(const QStringList& options = {}) const
    {
        return program.run(QStringList({QStringLiteral("verify"), package.path()}) + options);
    }

    TestHome home;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    ConvertProgram program {home};
};

} // namespace

class tst_inspectionCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanFolder();
    void folderWithProblemsListsEachWithItsLine();
    void problemsAreShownThoughQuiet();
    void missingFolderCouldNotBeLookedAt();
    void jsonOfACheck();
    void checkChangesNothing();

    void cleanPackage();
    void packageWithProblems();
    void missingPackageCouldNotBeLookedAt();
    void jsonOfAVerification();

    void createdPackageIsClean();
    void createRefuses_data();
    void createRefuses();
    void samplesGoThereAndBack();
};

void tst_inspectionCommands::cleanFolder()
{
    const Desk desk;
    const ProgramRun run = desk.check();
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.errors.isEmpty());
    QVERIFY(run.output.contains(desk.folder.path()));
    QVERIFY(!run.output.contains(QStringLiteral("IDS_")));
}

void tst_inspectionCommands::folderWithProblemsListsEachWithItsLine()
{
    Desk desk;
    desk.folder.dataFile(DataFileBuilder()
                             .titleLine()
                             .row(20)
                             .row({{Key::full_Name, QStringLiteral("Hoshino Taro")},
                                 {Key::face_Image_File, QStringLiteral("no.jpg")}})
                             .row(22)
                             .build());

    const ProgramRun run = desk.check();

    QCOMPARE(run.exitCode, 4);
    const QStringList lines = run.outputLines();
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.at(0).startsWith(QStringLiteral("Line 2 ")));
    QVERIFY(lines.at(1).startsWith(QStringLiteral("Line 3 ")));
    QVERIFY(lines.at(1).contains(desk.folder.imagePath(QStringLiteral("no.jpg"))));
    QVERIFY(lines.at(2).startsWith(QStringLiteral("Line 4 ")));
}

void tst_inspectionCommands::problemsAreShownThoughQuiet()
{
    Desk desk;
    desk.folder.version(QStringLiteral("TELKA"));
    const ProgramRun run = desk.check({QStringLiteral("--quiet")});
    QCOMPARE(run.exitCode, 4);
    QCOMPARE(run.outputLines().size(), 1);
    QVERIFY(run.output.contains(QStringLiteral("Version.txt")));
}

void tst_inspectionCommands::missingFolderCouldNotBeLookedAt()
{
    const Desk desk;
    const ProgramRun run
        = desk.program.run({QStringLiteral("check"), desk.home.path(QStringLiteral("nowhere"))});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.output.isEmpty());
    QVERIFY(run.errors.contains(QStringLiteral("nowhere")));
}

void tst_inspectionCommands::jsonOfACheck()
{
    Desk desk;
    desk.folder.dataFile(DataFileBuilder().titleLine().row(21).row(20).build());

    const ProgramRun run = desk.check({json});

    QCOMPARE(run.exitCode, 4);
    QVERIFY(!run.names().contains(QString()));
    const QJsonObject problem = run.object(QStringLiteral("problem"));
    QCOMPARE(problem.value(QStringLiteral("line")), QJsonValue(3));
    QCOMPARE(problem.value(QStringLiteral("path")), QJsonValue(desk.folder.dataFilePath()));
    QVERIFY(!problem.value(QStringLiteral("text")).toString().isEmpty());
    const QJsonObject result = run.object(QStringLiteral("result"));
    QCOMPARE(result.value(QStringLiteral("ok")), QJsonValue(false));
    QCOMPARE(result.value(QStringLiteral("problems")).toInt(),
        run.names().count(QStringLiteral("problem")));
    QCOMPARE(result.value(QStringLiteral("max")), QJsonValue(1));
    QVERIFY(result.value(QStringLiteral("bytesNeeded")).toInt() > 0x80000);
}

void tst_inspectionCommands::checkChangesNothing()
{
    const Desk desk;
    const QStringList before = snapshotOf(desk.folder.path());
    desk.check();
    QCOMPARE(snapshotOf(desk.folder.path()), before);
}

void tst_inspectionCommands::cleanPackage()
{
    const Desk desk;
    const ProgramRun run = desk.verify();
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains(desk.package.path()));
    QVERIFY(!run.output.contains(QStringLiteral("IDS_")));
}

void tst_inspectionCommands::packageWithProblems()
{
    Desk desk;
    desk.package.writeFile(QStringLiteral("Images/nobody's.pdf"), "x");
    const ProgramRun run = desk.verify();
    QCOMPARE(run.exitCode, 4);
    QVERIFY(run.outputLines().constFirst().contains(QStringLiteral("nobody's.pdf")));
}

void tst_inspectionCommands::missingPackageCouldNotBeLookedAt()
{
    const Desk desk;
    const ProgramRun run = desk.program.run(
        {QStringLiteral("verify"), desk.home.path(QStringLiteral("none.vmdb")), json});
    QCOMPARE(run.exitCode, 1);
    QVERIFY(run.object(QStringLiteral("message")).value(QStringLiteral("number")).isNull());
    QCOMPARE(run.object(QStringLiteral("result")).value(QStringLiteral("ok")), QJsonValue(false));
}

void tst_inspectionCommands::jsonOfAVerification()
{
    Desk desk;
    desk.package.card();

    const ProgramRun run = desk.verify({json});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(!run.names().contains(QString()));
    QCOMPARE(run.object(QStringLiteral("result")).value(QStringLiteral("max")), QJsonValue(1));
    QCOMPARE(run.object(QStringLiteral("result")).value(QStringLiteral("problems")), QJsonValue(0));
}

void tst_inspectionCommands::createdPackageIsClean()
{
    const Desk desk;
    const QString package = desk.home.path(QStringLiteral("New cards.vmdb"));

    const ProgramRun run = desk.program.run({QStringLiteral("create"), package});

    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains(package));
    QCOMPARE(desk.program.run({QStringLiteral("verify"), package}).exitCode, 0);
}

void tst_inspectionCommands::createRefuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another extension") << QStringLiteral("cards.db");
    QTest::newRow("what stands there") << QStringLiteral("Velmora DB.vmdb");
    QTest::newRow("no folder") << QStringLiteral("nowhere/new.vmdb");
}

void tst_inspectionCommands::createRefuses()
{
    QFETCH(QString, name);
    const Desk desk;
    const auto before = desk.package.contents();

    const ProgramRun run = desk.program.run({QStringLiteral("create"), desk.home.path(name)});

    QCOMPARE(run.exitCode, 3);
    QVERIFY(!run.errors.isEmpty());
    QCOMPARE(desk.package.contents(), before);
}

void tst_inspectionCommands::samplesGoThereAndBack()
{
    const Desk desk;
    const QString samples = QStringLiteral(VELMORA_SOURCE_DIR "/samples/cards");
    const QString package = desk.home.path(QStringLiteral("Samples.vmdb"));
    const QString parent = desk.home.makeFolder(QStringLiteral("parent"));
    const QString yes = QStringLiteral("--yes");

    QCOMPARE(desk.program.run({QStringLiteral("check"), samples}).exitCode, 0);
    QCOMPARE(desk.program.run({QStringLiteral("create"), package}).exitCode, 0);
    QCOMPARE(desk.program.run({QStringLiteral("import"), samples, package, yes}).exitCode, 0);
    QCOMPARE(desk.program.run({QStringLiteral("verify"), package}).exitCode, 0);
    QCOMPARE(desk.program.run({QStringLiteral("export"), package, parent, yes}).exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_inspectionCommands)
#include "tst_inspectionCommands.moc"
