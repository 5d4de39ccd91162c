// SPDX-License-Identifier: GPL-3.0-or-later
// velmora-convert recover, and what the other commands do about an import that did not finish.
#include "tests/cli/ConvertProgram.h"
#include "tests/support/DeadImport.h"

#include <QDir>
#include <QtTest>

using Stage = DBCImportJournal::Stage;

namespace {

const QString yes = QStringLiteral("--yes");
const QString json = QStringLiteral("--json");

struct Desk {
    explicit Desk(Stage stage = Stage::Import)
        : dead(stage)
    {
        dead.package.writeFile(QStringLiteral("Images/NEW-1_N1.pdf"), "new");
        before = dead.package.contents();
    }
    ProgramRun recover(const QStringList& options = {}) const
    {
        return program.run(QStringList({QStringLiteral("recover"), dead.package.path()}) + options);
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
        const ProgramRun run
            = ConvertProgram(home).run({QStringLiteral("recover"), package.path()});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(package.path()));
        QVERIFY(run.errors.isEmpty());
    }

    void missingPackageIsRefused()
    {
        const TestHome home;
        const QString none = home.path(QStringLiteral("none.vmdb"));
        const ProgramRun run = ConvertProgram(home).run({QStringLiteral("recover"), none});
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
        const auto running
            = DBCImportJournal::begin(package.path(), home.path(QStringLiteral("bak.vmdb")));
        const ProgramRun run
            = ConvertProgram(home).run({QStringLiteral("recover"), package.path(), yes});
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
        const QJsonObject result = desk.recover({yes, json}).object(QStringLiteral("result"));
        QCOMPARE(result.value(QStringLiteral("ok")).toBool(), true);
        const QJsonObject refused = Desk().recover({json}).object(QStringLiteral("result"));
        QCOMPARE(refused.value(QStringLiteral("ok")).toBool(true), false);
    }

    void exportAsksBeforeItBegins()
    {
        const Desk desk;
        const QString parent = desk.dead.home.makeFolder(QStringLiteral("exported"));
        const ProgramRun run
            = desk.program.run({QStringLiteral("export"), desk.dead.package.path(), parent});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(desk.isUnchanged());
        QVERIFY(QDir(parent).isEmpty());
    }

    void exportWithYesRestoresFirst()
    {
        const Desk desk;
        const QString parent = desk.dead.home.makeFolder(QStringLiteral("exported"));
        const ProgramRun run
            = desk.program.run({QStringLiteral("export"), desk.dead.package.path(), parent, yes});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!desk.dead.hasJournal());
        QVERIFY(!desk.dead.package.contents().contains(QStringLiteral("Images/NEW-1_N1.pdf")));
        QVERIFY(!QDir(parent).isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_recoverCommand)
#include "tst_recoverCommand.moc"
