// SPDX-License-Identifier: GPL-3.0-or-later
// Tests "velmora-convert recover", and how the other commands treat an import that did not finish.
#include "tests/cli/ConvertProgram.h"
#include "tests/support/DeadImport.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using Stage = DBCPackageJournal::Stage;

namespace {

const QString yes = u"--yes"_s;
const QString json = u"--json"_s;

struct Desk {
    explicit Desk(Stage stage = Stage::Import)
        : dead(stage)
    {
        dead.package.writeFile(u"Images/NEW-1_N1.pdf"_s, "new");
        before = dead.package.contents();
    }
    ProgramRun recover(const QStringList& options = {}) const
    {
        return program.run(QStringList({u"recover"_s, dead.package.path()}) + options);
    }
    bool isUnchanged() const { return dead.hasJournal() && dead.package.contents() == before; }

    DeadImport dead;
    ConvertProgram program {dead.home};
    QMap<QString, QByteArray> before;
};

} // namespace

class tst_recoverCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packageThatNeedsNothingIsSaidToBeFine()
    {
        const TestHome home;
        const PackageFixture package(home);
        const ProgramRun run = ConvertProgram(home).run({u"recover"_s, package.path()});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(package.path()));
        QVERIFY(run.errors.isEmpty());
    }

    void missingPackageIsRefused()
    {
        const TestHome home;
        const QString none = home.path(u"none.vmdb"_s);
        const ProgramRun run = ConvertProgram(home).run({u"recover"_s, none});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(none));
    }

    void yesRestores()
    {
        const Desk desk;
        const ProgramRun run = desk.recover({yes});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(desk.dead.package.path()));
        QCOMPARE(snapshotOf(desk.dead.package.path()), desk.dead.original);
        QVERIFY(!desk.dead.hasJournal());
    }

    void whereNobodyCanBeAskedNothingIsDone()
    {
        const Desk desk;
        const ProgramRun run = desk.recover();
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(yes));
        QVERIFY(run.errors.contains(desk.dead.backup));
        QVERIFY(desk.isUnchanged());
    }

    void runningImportIsRefused()
    {
        const TestHome home;
        const PackageFixture package(home);
        const auto running = DBCPackageJournal::begin(package.path(), home.path(u"bak.vmdb"_s));
        const ProgramRun run = ConvertProgram(home).run({u"recover"_s, package.path(), yes});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(package.path()));
    }

    void failedRestoreIsAFailure()
    {
        const Desk desk;
        QVERIFY(QDir(desk.dead.backup).removeRecursively());
        const ProgramRun run = desk.recover({yes});
        QCOMPARE(run.exitCode, 1);
        QVERIFY(run.errors.contains(desk.dead.backup));
        QVERIFY(desk.isUnchanged());
    }

    void jsonEndsWithAResult()
    {
        const Desk desk;
        const QJsonObject result = desk.recover({yes, json}).object(u"result"_s);
        QCOMPARE(result.value(u"ok"_s).toBool(), true);
        const QJsonObject refused = Desk().recover({json}).object(u"result"_s);
        QCOMPARE(refused.value(u"ok"_s).toBool(true), false);
    }

    void exportAsksBeforeItBegins()
    {
        const Desk desk;
        const QString parent = desk.dead.home.makeFolder(u"exported"_s);
        const ProgramRun run = desk.program.run({u"export"_s, desk.dead.package.path(), parent});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(desk.isUnchanged());
        QVERIFY(QDir(parent).isEmpty());
    }

    void exportWithYesRestoresFirst()
    {
        const Desk desk;
        const QString parent = desk.dead.home.makeFolder(u"exported"_s);
        const ProgramRun run
            = desk.program.run({u"export"_s, desk.dead.package.path(), parent, yes});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!desk.dead.hasJournal());
        QVERIFY(!desk.dead.package.contents().contains(u"Images/NEW-1_N1.pdf"_s));
        QVERIFY(!QDir(parent).isEmpty());
    }

    void yesDoesNotDecideAboutWhatOthersChanged_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("recover") << u"recover"_s;
        QTest::newRow("import") << u"import"_s;
        QTest::newRow("export") << u"export"_s;
    }
    void yesDoesNotDecideAboutWhatOthersChanged()
    {
        QFETCH(QString, command);
        Desk desk;
        desk.dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        desk.before = desk.dead.package.contents();
        const QString package = desk.dead.package.path();
        QStringList arguments {command, package, yes};
        if (command == u"import"_s)
            arguments.insert(1, u"" VELMORA_SOURCE_DIR "/samples/cards"_s);
        if (command == u"export"_s) {
            QVERIFY(QDir().mkpath(desk.dead.home.path(u"out"_s)));
            arguments.insert(2, desk.dead.home.path(u"out"_s));
        }
        const ProgramRun run = desk.program.run(arguments);
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(u"recover --restore"_s));
        QVERIFY(run.errors.contains(u"recover --keep"_s));
        QVERIFY(run.errors.contains(u"cards added: 1"_s));
        QVERIFY(desk.isUnchanged());
    }

    void scriptsDecideByAnOption_data()
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("restore") << u"--restore"_s;
        QTest::newRow("keep") << u"--keep"_s;
    }
    void scriptsDecideByAnOption()
    {
        QFETCH(QString, option);
        Desk desk;
        desk.dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        const auto changed = snapshotOf(desk.dead.package.path());
        const ProgramRun run = desk.program.run({u"recover"_s, option, desk.dead.package.path()});
        QCOMPARE(run.exitCode, 0);
        const QString kept = desk.dead.home.path(u"Velmora DB_bak1.vmdb"_s);
        QVERIFY(run.output.contains(kept));
        QCOMPARE(snapshotOf(kept), changed);
        QCOMPARE(snapshotOf(desk.dead.package.path()),
            option == u"--restore"_s ? desk.dead.original : changed);
        QVERIFY(!desk.dead.hasJournal());
    }

    void optionsOfRecoverBelongToRecover_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("both") << QStringList {
            u"recover"_s, u"--keep"_s, u"--restore"_s, u"a.vmdb"_s};
        QTest::newRow("keep of export") << QStringList {u"verify"_s, u"--keep"_s, u"a.vmdb"_s};
    }
    void optionsOfRecoverBelongToRecover()
    {
        QFETCH(QStringList, arguments);
        const Desk desk;
        const ProgramRun run = desk.program.run(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.errors.contains(u"--keep"_s));
        QVERIFY(desk.isUnchanged());
    }
};

QTEST_GUILESS_MAIN(tst_recoverCommand)
#include "tst_recoverCommand.moc"
