// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCBackupChange.h"

#include "carddb/DBCPackageGuard.h"
#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageRecovery.h"
#include "tests/carddb/BackupFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/ScopedMode.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/file.h>

using namespace Qt::StringLiterals;

using Outcome = DBCBackupChange::Outcome;

namespace {

const QString first = u"Velmora DB_bak.vmdb"_s;
const QString second = u"Velmora DB_bak1.vmdb"_s;

// A package with one backup. The package has one card more than the backup.
struct World : BackupFixture {
    World()
    {
        backup = backUp(first);
        package.card().withPdf("later");
        chosen = snapshotOf(backup);
        now = snapshotOf(package.path());
    }
    DBCBackupChange::Result restore(const DBCBackupChange::Events& events = {}) const
    {
        return DBCBackupChange(package.path(), first).restore(events);
    }
    DBCBackupChange::Result remove(const QString& name = first) const
    {
        return DBCBackupChange(package.path(), name).remove();
    }

    QString backup;
    QStringList chosen;
    QStringList now;
};

QStringList contentsOf(const QString& folder)
{
    QStringList snapshot = snapshotOf(folder);
    snapshot.removeFirst();
    return snapshot;
}

} // namespace

class tst_backupChange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void restoreKeepsWhatStoodThereAndTheBackup()
    {
        const World world;
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Done);
        QCOMPARE(result.keptPackage, world.home.path(second));
        QCOMPARE(snapshotOf(world.package.path()), world.chosen);
        QCOMPARE(snapshotOf(world.backup), world.chosen);
        QCOMPARE(snapshotOf(result.keptPackage), world.now);
        QVERIFY(!world.hasJournal());
    }

    void restoreTellsItsStages()
    {
        const World world;
        QStringList stages;
        world.restore([&](const DBCEvent& event) {
            stages << event.publicName()
                    + (event.operationIsOk ? *event.operationIsOk ? u" ok"_s : u" failed"_s
                                           : QString());
        });
        QCOMPARE(stages,
            (QStringList {u"DBC_DatabaseBackupWillBeginNotification"_s,
                u"DBC_DatabaseBackupDidFinishedNotification ok"_s,
                u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification ok"_s}));
    }

    void packageThatIsGoneComesBack()
    {
        const World world;
        world.removePackage();
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Done);
        QVERIFY(result.keptPackage.isEmpty());
        QCOMPARE(snapshotOf(world.package.path()), world.chosen);
    }

    void damagedPackageIsKeptAndReplaced_data()
    {
        QTest::addColumn<bool>("hasStore");
        QTest::newRow("damaged store") << true;
        QTest::newRow("no store") << false;
    }
    void damagedPackageIsKeptAndReplaced()
    {
        QFETCH(bool, hasStore);
        const World world;
        if (hasStore)
            world.damage(world.package.path());
        else
            world.removeStore(world.package.path());
        const QStringList damaged = snapshotOf(world.package.path());
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Done);
        QCOMPARE(snapshotOf(world.package.path()), world.chosen);
        QCOMPARE(snapshotOf(result.keptPackage), damaged);
    }

    void damagedBackupIsRefusedBeforeThePackageIsTouched_data()
    {
        QTest::addColumn<QByteArray>("store");
        QTest::newRow("text") << QByteArray("these are no cards");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("damaged") << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x');
        QTest::newRow("no store") << QByteArray();
    }
    void damagedBackupIsRefusedBeforeThePackageIsTouched()
    {
        QFETCH(QByteArray, store);
        const World world;
        if (store.isNull())
            world.removeStore(world.backup);
        else
            world.damage(world.backup, store);
        const QStringList before = world.everything();
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Refused);
        QVERIFY2(result.problem.text.contains(world.backup), qPrintable(result.problem.text));
        QCOMPARE(world.everything(), before);
    }

    void backupWithAFileThatCannotBeReadIsRefused()
    {
        const AsOrdinaryUser user;
        const World world;
        const ScopedMode mode(world.backup + u"/Files/CARD-2/note.txt"_s, 0);
        const QStringList before = snapshotOf(world.package.path());
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Refused);
        QVERIFY(result.problem.text.contains(u"Files/CARD-2/note.txt"_s));
        QCOMPARE(snapshotOf(world.package.path()), before);
        QVERIFY(!QFileInfo::exists(world.home.path(second)));
    }

    void nameThatIsNoBackupIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << second;
        QTest::newRow("the package") << u"Velmora DB.vmdb"_s;
        QTest::newRow("path") << u"./Velmora DB_bak.vmdb"_s;
        QTest::newRow("none") << QString();
    }
    void nameThatIsNoBackupIsRefused()
    {
        QFETCH(QString, name);
        const World world;
        const QStringList before = world.everything();
        QCOMPARE(DBCBackupChange(world.package.path(), name).restore({}).outcome, Outcome::Refused);
        QCOMPARE(world.remove(name).outcome, Outcome::Refused);
        QCOMPARE(world.everything(), before);
    }

    void whateverIsInUseIsLeftAlone_data()
    {
        QTest::addColumn<bool>("isPackage");
        QTest::newRow("package") << true;
        QTest::newRow("backup") << false;
    }
    void whateverIsInUseIsLeftAlone()
    {
        QFETCH(bool, isPackage);
        const World world;
        const QString used = isPackage ? world.package.path() : world.backup;
        const QStringList before = world.everything();
        auto reading = DBCPackageGuard::hold(used, DBCPackageGuard::Use::Reading);
        for (const auto& result : {world.restore(), world.remove()}) {
            QCOMPARE(result.outcome, Outcome::Refused);
            QVERIFY(result.problem.text.contains(used));
        }
        QCOMPARE(world.everything(), before);
        reading.reset();
        QCOMPARE(world.restore().outcome, Outcome::Done);
    }

    void packageThatTheMainApplicationHoldsIsLeftAlone()
    {
        const World world;
        world.package.writeFile(u".VMLock.vmlk"_s, "");
        const QStringList before = world.everything();
        const int lock = open(QFile::encodeName(world.package.path(u".VMLock.vmlk"_s)).constData(),
            O_RDWR | O_CLOEXEC);
        QCOMPARE(flock(lock, LOCK_EX), 0);
        QCOMPARE(world.restore().outcome, Outcome::Refused);
        QCOMPARE(world.remove().outcome, Outcome::Refused);
        close(lock);
        QCOMPARE(world.everything(), before);
    }

    void importThatDidNotFinishIsSettledFirst()
    {
        const World world;
        QVERIFY(
            DBCPackageJournal::begin(world.package.path(), world.backup)->enterImport(u"NEW-"_s));
        const QStringList before = world.everything();
        QCOMPARE(world.restore().outcome, Outcome::Refused);
        QCOMPARE(world.remove().outcome, Outcome::Refused);
        QCOMPARE(world.everything(), before);
    }

    void restoreWithoutRoomIsRefused()
    {
        const World world;
        const QStringList before = world.everything();
        ScopedHost host;
        host.setFreeBytes(diskUsage(world.package.path()));
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Refused);
        QVERIFY(result.problem.text.contains(world.home.path()));
        QCOMPARE(world.everything(), before);
    }

    void restoreIntoAReadOnlyFolderIsRefused()
    {
        const World world;
        const QStringList before = world.everything();
        ScopedHost host;
        host.makeReadOnly({world.home.path()});
        QCOMPARE(world.restore().outcome, Outcome::Refused);
        QCOMPARE(world.everything(), before);
    }

    void fileInThePlaceOfThePackageIsNotReplaced()
    {
        const World world;
        world.removePackage();
        world.home.writeFile(u"Velmora DB.vmdb"_s, "a file");
        const QStringList before = world.everything();
        QCOMPARE(world.restore().outcome, Outcome::Refused);
        QCOMPARE(world.everything(), before);
    }

    void packageThatCannotBeKeptIsNotReplaced()
    {
        const AsOrdinaryUser user;
        const World world;
        const ScopedMode mode(world.package.path(u"Images/CARD-1_N1.pdf"_s), 0);
        const QStringList before = contentsOf(world.package.path());
        const auto result = world.restore();
        QCOMPARE(result.outcome, Outcome::Failed);
        QVERIFY(result.problem.text.contains(world.package.path()));
        QVERIFY(!QFileInfo::exists(world.home.path(second)));
        QCOMPARE(contentsOf(world.package.path()), before);
        QVERIFY(!world.hasJournal());
    }

    // The test makes a file of the backup unreadable after all checks have passed, so that the copy
    // of the backup fails.
    void restoreThatFailsBringsBackWhatStoodThere()
    {
        const AsOrdinaryUser user;
        const World world;
        std::unique_ptr<ScopedMode> mode;
        const auto result = world.restore([&](const DBCEvent& event) {
            if (event.name == DBCEventName::DatabaseRestoreWillBegin)
                mode = std::make_unique<ScopedMode>(world.backup + u"/Files/CARD-2/note.txt"_s, 0);
        });
        QCOMPARE(result.outcome, Outcome::Failed);
        QCOMPARE(snapshotOf(world.package.path()), world.now);
        QCOMPARE(snapshotOf(world.home.path(second)), world.now);
        QVERIFY(!world.hasJournal());
    }

    void restoreThatLeavesNoPackageIsAskedAboutAtTheNextStart()
    {
        const AsOrdinaryUser user;
        const World world;
        std::unique_ptr<ScopedMode> mode;
        const auto result = world.restore([&](const DBCEvent& event) {
            if (event.name != DBCEventName::DatabaseRestoreWillBegin)
                return;
            mode = std::make_unique<ScopedMode>(world.backup + u"/Files/CARD-2/note.txt"_s, 0);
            QDir(world.home.path(second)).removeRecursively();
        });
        QCOMPARE(result.outcome, Outcome::Failed);
        mode.reset();
        DBCPackageRecovery recovery(world.package.path());
        QCOMPARE(recovery.state(), DBCPackageRecovery::State::Unfinished);
        QCOMPARE(recovery.backupPath(), world.backup);
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(world.package.path()), world.chosen);
    }

    // Reads the journal while the restore runs. It is what a next start would find if the program
    // were killed at this moment.
    void restoreIsNotedForAsLongAsThePackageChanges()
    {
        const World world;
        bool isNoted = false;
        world.restore([&](const DBCEvent& event) {
            if (event.name != DBCEventName::DatabaseRestoreWillBegin)
                return;
            const QByteArray journal = world.home.readFile(u".Velmora DB.vmdb.velmora-import"_s);
            isNoted = journal.contains("\"backup\":\"Velmora DB_bak.vmdb\"")
                && journal.contains("\"stage\":\"restore\"");
        });
        QVERIFY(isNoted);
    }

    void deletedBackupIsGoneAndNothingElse()
    {
        const World world;
        world.backUp(second);
        const QStringList other = snapshotOf(world.home.path(second));
        QCOMPARE(world.remove().outcome, Outcome::Done);
        QVERIFY(!QFileInfo::exists(world.backup));
        QCOMPARE(snapshotOf(world.home.path(second)), other);
        QCOMPARE(snapshotOf(world.package.path()), world.now);
    }

    void onlyBackupOfASoundPackageMayGo()
    {
        const World world;
        QCOMPARE(world.remove().outcome, Outcome::Done);
    }

    void damagedBackupMayGo()
    {
        const World world;
        world.damage(world.backup);
        QCOMPARE(world.remove().outcome, Outcome::Done);
    }

    void lastThingThatHoldsCardsStays_data()
    {
        QTest::addColumn<bool>("hasPackage");
        QTest::addColumn<bool>("hasOther");
        QTest::addColumn<bool>("isOtherSound");
        QTest::addColumn<bool>("mayGo");
        QTest::newRow("package gone") << false << false << false << false;
        QTest::newRow("package damaged") << true << false << false << false;
        QTest::newRow("other damaged, too") << true << true << false << false;
        QTest::newRow("other sound") << false << true << true << true;
    }
    void lastThingThatHoldsCardsStays()
    {
        QFETCH(bool, hasPackage);
        QFETCH(bool, hasOther);
        QFETCH(bool, isOtherSound);
        QFETCH(bool, mayGo);
        const World world;
        if (hasOther)
            world.backUp(second);
        if (hasOther && !isOtherSound)
            world.damage(world.home.path(second));
        if (hasPackage)
            world.damage(world.package.path());
        else
            world.removePackage();
        QCOMPARE(world.remove().outcome, mayGo ? Outcome::Done : Outcome::Refused);
        QCOMPARE(QFileInfo::exists(world.backup), !mayGo);
    }

    void backupThatCannotBeDeletedIsReported()
    {
        const AsOrdinaryUser user;
        const World world;
        const ScopedMode mode(world.home.path(), S_IRUSR | S_IXUSR);
        const ScopedMode inner(world.backup, S_IRUSR | S_IXUSR);
        QCOMPARE(world.remove().outcome, Outcome::Failed);
        QVERIFY(QFileInfo::exists(world.backup + u"/Velmora.sqldb"_s));
    }
};

QTEST_GUILESS_MAIN(tst_backupChange)
#include "tst_backupChange.moc"
