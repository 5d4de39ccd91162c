// SPDX-License-Identifier: GPL-3.0-or-later
// Tests "velmora-convert check", "verify" and "create".
#include "tests/cli/ConvertProgram.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"

#include <QDir>
#include <QtTest>

#include <csignal>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

const QString json = u"--json"_s;

struct Desk {
    Desk()
    {
        folder.dataFile(
            DataFileBuilder().titleLine().row({{Key::full_Name, u"Hoshino Taro"_s}}).build());
    }
    ProgramRun check(const QStringList& options = {}) const
    {
        return program.run(QStringList({u"check"_s, folder.path()}) + options);
    }
    ProgramRun verify(const QStringList& options = {}) const
    {
        return program.run(QStringList({u"verify"_s, package.path()}) + options);
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
    void cleanFolder()
    {
        const Desk desk;
        const ProgramRun run = desk.check();
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.errors.isEmpty());
        QVERIFY(run.output.contains(desk.folder.path()));
        QVERIFY(!run.output.contains(u"IDS_"_s));
    }

    void folderWithProblemsListsEachWithItsLine()
    {
        Desk desk;
        desk.folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .row(20)
                .row({{Key::full_Name, u"Hoshino Taro"_s}, {Key::face_Image_File, u"no.jpg"_s}})
                .row(22)
                .build());

        const ProgramRun run = desk.check();

        QCOMPARE(run.exitCode, 4);
        const QStringList lines = run.outputLines();
        QCOMPARE(lines.size(), 5);
        QVERIFY(lines.at(0).startsWith(u"Line 2 "_s));
        QVERIFY(lines.at(1).startsWith(u"Line 3 "_s));
        QVERIFY(lines.at(1).contains(desk.folder.imagePath(u"no.jpg"_s)));
        QVERIFY(lines.at(2).startsWith(u"Line 4 "_s));
    }

    void problemsAreShownThoughQuiet()
    {
        Desk desk;
        desk.folder.version(u"TELKA"_s);
        const ProgramRun run = desk.check({u"--quiet"_s});
        QCOMPARE(run.exitCode, 4);
        QCOMPARE(run.outputLines().size(), 1);
        QVERIFY(run.output.contains(u"Version.txt"_s));
    }

    void missingFolderCouldNotBeLookedAt()
    {
        const Desk desk;
        const ProgramRun run = desk.program.run({u"check"_s, desk.home.path(u"nowhere"_s)});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.output.isEmpty());
        QVERIFY(run.errors.contains(u"nowhere"_s));
    }

    void jsonOfACheck()
    {
        Desk desk;
        desk.folder.dataFile(DataFileBuilder().titleLine().row(21).row(20).build());

        const ProgramRun run = desk.check({json});

        QCOMPARE(run.exitCode, 4);
        QVERIFY(!run.names().contains(QString()));
        const QJsonObject problem = run.object(u"problem"_s);
        QCOMPARE(problem.value(u"line"_s), QJsonValue(3));
        QCOMPARE(problem.value(u"path"_s), QJsonValue(desk.folder.dataFilePath()));
        QVERIFY(!problem.value(u"text"_s).toString().isEmpty());
        const QJsonObject result = run.object(u"result"_s);
        QCOMPARE(result.value(u"ok"_s), QJsonValue(false));
        QCOMPARE(result.value(u"problems"_s).toInt(), run.names().count(u"problem"_s));
        QCOMPARE(result.value(u"max"_s), QJsonValue(1));
        QVERIFY(result.value(u"bytesNeeded"_s).toInt() > 0x80000);
    }

    void checkChangesNothing()
    {
        const Desk desk;
        const QStringList before = snapshotOf(desk.folder.path());
        desk.check();
        QCOMPARE(snapshotOf(desk.folder.path()), before);
    }

    void cleanPackage()
    {
        const Desk desk;
        const ProgramRun run = desk.verify();
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(desk.package.path()));
        QVERIFY(!run.output.contains(u"IDS_"_s));
    }

    void packageWithProblems()
    {
        Desk desk;
        desk.package.writeFile(u"Images/nobody's.pdf"_s, "x");
        const ProgramRun run = desk.verify();
        QCOMPARE(run.exitCode, 4);
        QVERIFY(run.outputLines().constFirst().contains(u"nobody's.pdf"_s));
    }

    void missingPackageCouldNotBeLookedAt()
    {
        const Desk desk;
        const ProgramRun run
            = desk.program.run({u"verify"_s, desk.home.path(u"none.vmdb"_s), json});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.object(u"message"_s).value(u"number"_s).isNull());
        QCOMPARE(run.object(u"result"_s).value(u"ok"_s), QJsonValue(false));
    }

    void jsonOfAVerification()
    {
        Desk desk;
        desk.package.card();

        const ProgramRun run = desk.verify({json});

        QCOMPARE(run.exitCode, 0);
        QVERIFY(!run.names().contains(QString()));
        QCOMPARE(run.object(u"result"_s).value(u"max"_s), QJsonValue(1));
        QCOMPARE(run.object(u"result"_s).value(u"problems"_s), QJsonValue(0));
    }

    void copiesOfTheStoreGoAwayWithASignal_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("number");
        QTest::newRow("verify, SIGINT") << u"verify"_s << SIGINT;
        QTest::newRow("verify, SIGTERM") << u"verify"_s << SIGTERM;
        QTest::newRow("verify, SIGHUP") << u"verify"_s << SIGHUP;
        QTest::newRow("backups, SIGTERM") << u"backups"_s << SIGTERM;
    }
    void copiesOfTheStoreGoAwayWithASignal()
    {
        QFETCH(QString, command);
        QFETCH(int, number);
        const Desk desk;
        desk.package.execute(u"WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM c "
                             "WHERE n < 100000) INSERT INTO ZCARD (Z_ENT, Z_OPT, ZDELETEDFLAG, "
                             "ZMEMO) SELECT 1, 1, 0, hex(zeroblob(200)) FROM c"_s);
        const QString backup = desk.home.makeFolder(u"Velmora DB_bak.vmdb"_s);
        QVERIFY(QFile::copy(desk.package.storePath(), backup + u"/Velmora.sqldb"_s));
        const QString temporary = desk.home.makeFolder(u"temporary"_s);

        qputenv("TMPDIR", QFile::encodeName(temporary));
        const auto process
            = desk.program.start(ConvertProgram::path(), {command, desk.package.path()});
        qunsetenv("TMPDIR");
        const QDir copies(temporary);
        const auto isCopied = [&] {
            const QStringList folders = copies.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
            return !folders.isEmpty()
                && QFile::exists(copies.filePath(folders.constFirst() + u"/Velmora.sqldb"_s));
        };
        QTRY_VERIFY_WITH_TIMEOUT(isCopied(), 60'000);
        kill(static_cast<pid_t>(process->processId()), number);

        const ProgramRun run = ConvertProgram::finish(process);
        QCOMPARE(run.exitCode, -1); // the signal ended the program
        QCOMPARE(run.output, QString());
        QCOMPARE(copies.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
            QStringList());
    }

    void createdPackageIsClean()
    {
        const Desk desk;
        const QString package = desk.home.path(u"New cards.vmdb"_s);

        const ProgramRun run = desk.program.run({u"create"_s, package});

        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(package));
        QCOMPARE(desk.program.run({u"verify"_s, package}).exitCode, 0);
    }

    void createRefuses_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("another extension") << u"cards.db"_s;
        QTest::newRow("what stands there") << u"Velmora DB.vmdb"_s;
        QTest::newRow("no folder") << u"nowhere/new.vmdb"_s;
    }
    void createRefuses()
    {
        QFETCH(QString, name);
        const Desk desk;
        const auto before = desk.package.contents();

        const ProgramRun run = desk.program.run({u"create"_s, desk.home.path(name)});

        QCOMPARE(run.exitCode, 3);
        QVERIFY(!run.errors.isEmpty());
        QCOMPARE(desk.package.contents(), before);
    }

    void samplesGoThereAndBack()
    {
        const Desk desk;
        const QString samples = u"" VELMORA_SOURCE_DIR "/samples/cards"_s;
        const QString package = desk.home.path(u"Samples.vmdb"_s);
        const QString parent = desk.home.makeFolder(u"parent"_s);
        const QString yes = u"--yes"_s;

        QCOMPARE(desk.program.run({u"check"_s, samples}).exitCode, 0);
        QCOMPARE(desk.program.run({u"create"_s, package}).exitCode, 0);
        QCOMPARE(desk.program.run({u"import"_s, samples, package, yes}).exitCode, 0);
        QCOMPARE(desk.program.run({u"verify"_s, package}).exitCode, 0);
        QCOMPARE(desk.program.run({u"export"_s, package, parent, yes}).exitCode, 0);
    }
};

QTEST_GUILESS_MAIN(tst_inspectionCommands)
#include "tst_inspectionCommands.moc"
