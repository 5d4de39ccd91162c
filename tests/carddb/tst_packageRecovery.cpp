// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageRecovery.h"

#include "carddb/DBCPackageGuard.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/DeadImport.h"
#include "tests/support/ScopedMode.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

using namespace Qt::StringLiterals;

using Stage = DBCPackageJournal::Stage;
using State = DBCPackageRecovery::State;

namespace {

State stateFound(const DeadImport& dead)
{
    return DBCPackageRecovery(dead.package.path()).state();
}

} // namespace

class tst_packageRecovery : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packageWithoutAJournalHasNothingToSettle()
    {
        const StandardInputKeeper keeper;
        const TestHome home;
        const PackageFixture package(home);
        DBCPackageRecovery recovery(package.path());
        QCOMPARE(recovery.state(), State::Nothing);
        QVERIFY(recovery.backupPath().isEmpty());
        QCOMPARE(recovery.restore(), DBCResultCode::RestoreFailure);
        QVERIFY(!recovery.keep());
    }

    void importThatDiedInItsBackupIsCleanedUp()
    {
        DeadImport dead(Stage::Backup);
        dead.home.writeFile(u".Velmora DB_bak.vmdb.velmora-copy/half"_s, "half");
        QCOMPARE(stateFound(dead), State::Nothing);
        QVERIFY(!dead.hasJournal());
        QVERIFY(!QFileInfo::exists(dead.home.path(u".Velmora DB_bak.vmdb.velmora-copy"_s)));
        QVERIFY(QFileInfo::exists(dead.backup));
    }

    void importThatDiedBehindItsRestoreIsCleanedUp()
    {
        DeadImport dead(Stage::Restored);
        QCOMPARE(stateFound(dead), State::Nothing);
        QVERIFY(!dead.hasJournal());
    }

    void importThatDiedBeforeItsSaveIsUnfinished()
    {
        DeadImport dead(Stage::Import);
        const DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.state(), State::Unfinished);
        QCOMPARE(recovery.backupPath(), dead.backup);
        QCOMPARE(recovery.package(), dead.package.path());
        QVERIFY(dead.hasJournal());
    }

    void importThatDiedBehindItsSaveIsDone()
    {
        DeadImport dead(Stage::Import);
        dead.hasNewCards(2);
        QCOMPARE(stateFound(dead), State::Nothing);
        QVERIFY(!dead.hasJournal());
        QVERIFY(QFileInfo::exists(dead.backup));
    }

    void importThatDiedInItsRestoreIsUnfinished()
    {
        DeadImport dead(Stage::Restore);
        dead.hasNewCards(1);
        QCOMPARE(stateFound(dead), State::Unfinished);
        QVERIFY(dead.hasJournal());
    }

    void importWhosePackageIsGoneIsUnfinished()
    {
        DeadImport dead(Stage::Import);
        QVERIFY(QDir(dead.package.path()).removeRecursively());
        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.state(), State::Unfinished);
        QVERIFY(!recovery.keep()); // there is no package to keep
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(dead.package.path()), dead.original);
    }

    void storeWithADamagedPageIsForSomebodyToDecide()
    {
        DeadImport dead(Stage::Import);
        dead.hasNewCards(100);
        // Damages the page with the last cards. The pages that are read when the store is opened
        // stay sound.
        constexpr qsizetype page = 4096;
        const QByteArray store = dead.package.readFile(u"Velmora.sqldb"_s);
        dead.package.writeFile(u"Velmora.sqldb"_s, store.chopped(page) + QByteArray(page, '\xFF'));
        QCOMPARE(stateFound(dead), State::Unfinished);
    }

    void storeThatCannotBeReadIsForSomebodyToDecide_data()
    {
        QTest::addColumn<QByteArray>("store");
        QTest::newRow("text") << QByteArray("these are no cards");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("damaged") << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x');
    }
    void storeThatCannotBeReadIsForSomebodyToDecide()
    {
        QFETCH(QByteArray, store);
        DeadImport dead(Stage::Import);
        dead.package.writeFile(u"Velmora.sqldb"_s, store);
        QCOMPARE(stateFound(dead), State::Unfinished);
    }

    void restoreBringsThePackageBackAndKeepsTheBackup()
    {
        DeadImport dead(Stage::Import);
        dead.package.writeFile(u"Images/NEW-1_N1.pdf"_s, "new");
        dead.package.remove(u"Files"_s);
        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QCOMPARE(recovery.state(), State::Nothing);
        QCOMPARE(snapshotOf(dead.package.path()), dead.original);
        QCOMPARE(snapshotOf(dead.backup), dead.original);
        QVERIFY(!dead.hasJournal());
    }

    void restoreWithoutItsBackupFailsAndStaysUnfinished()
    {
        DeadImport dead(Stage::Import);
        QVERIFY(QDir(dead.backup).removeRecursively());
        const auto before = dead.package.contents();
        const RecordedLog log;
        {
            DBCPackageRecovery recovery(dead.package.path());
            QCOMPARE(recovery.restore(), DBCResultCode::RestoreFailure);
            QCOMPARE(recovery.state(), State::Unfinished);
        }
        QCOMPARE(dead.package.contents(), before);
        QCOMPARE(log.errors.size(), 1);
        QVERIFY(log.errors.constFirst().contains(dead.backup));
        QCOMPARE(stateFound(dead), State::Unfinished);
    }

    void journalThatNamesNoBackupCannotBeRestoredFrom()
    {
        DeadImport dead(Stage::Import);
        dead.home.writeFile(u".Velmora DB.vmdb.velmora-import"_s, "{\"stage\":\"restore\"}\n");
        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.state(), State::Unfinished);
        QCOMPARE(recovery.restore(), DBCResultCode::RestoreFailure);
        QVERIFY(recovery.keep());
    }

    void keepLeavesPackageAndBackupAsTheyAre()
    {
        DeadImport dead(Stage::Import);
        dead.package.writeFile(u"Images/NEW-1_N1.pdf"_s, "new");
        const QStringList before = snapshotOf(dead.package.path());
        DBCPackageRecovery recovery(dead.package.path());
        QVERIFY(recovery.keep());
        QCOMPARE(recovery.state(), State::Nothing);
        QCOMPARE(snapshotOf(dead.package.path()), before);
        QCOMPARE(snapshotOf(dead.backup), dead.original);
        QVERIFY(!dead.hasJournal());
    }

    void journalThatCannotBeRemovedStaysUnsettled()
    {
        const AsOrdinaryUser user;
        DeadImport dead(Stage::Import);
        const ScopedMode mode(dead.home.path(), S_IRUSR | S_IXUSR);
        DBCPackageRecovery recovery(dead.package.path());
        QVERIFY(!recovery.keep());
        QCOMPARE(recovery.state(), State::Unfinished);
        QVERIFY(dead.hasJournal());
    }

    void leftoversInAReadOnlyFolderAreNotTakenForSettled()
    {
        const AsOrdinaryUser user;
        DeadImport dead(Stage::Backup);
        const ScopedMode mode(dead.home.path(), S_IRUSR | S_IXUSR);
        QCOMPARE(stateFound(dead), State::Unreadable);
    }

    void savedImportInAReadOnlyFolderIsNotTakenForSettled()
    {
        const AsOrdinaryUser user;
        DeadImport dead(Stage::Import);
        dead.hasNewCards(1);
        const ScopedMode mode(dead.home.path(), S_IRUSR | S_IXUSR);
        QCOMPARE(stateFound(dead), State::Unreadable);
    }

    void journalThatMayNotBeReadIsReported()
    {
        const AsOrdinaryUser user;
        DeadImport dead(Stage::Import);
        const ScopedMode mode(dead.journalPath(), 0);
        const DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.state(), State::Unreadable);
        QCOMPARE(recovery.journalPath(), dead.journalPath());
    }

    void runningImportIsInUse()
    {
        const StandardInputKeeper keeper;
        const TestHome home;
        const PackageFixture package(home);
        const auto journal = DBCPackageJournal::begin(package.path(), home.path(u"bak.vmdb"_s));
        QCOMPARE(DBCPackageRecovery(package.path()).state(), State::InUse);
    }

    void packageThatSomebodyReadsIsInUse()
    {
        DeadImport dead(Stage::Backup);
        auto reading = DBCPackageGuard::hold(dead.package.path(), DBCPackageGuard::Use::Reading);
        QCOMPARE(stateFound(dead), State::InUse);
        QVERIFY(dead.hasJournal());
        reading.reset();
        QCOMPARE(stateFound(dead), State::Nothing);
    }

    void packageThatSomebodyBeginsToReadIsNotRestoredOver()
    {
        DeadImport dead(Stage::Import);
        DBCPackageRecovery recovery(dead.package.path());
        const auto reading
            = DBCPackageGuard::hold(dead.package.path(), DBCPackageGuard::Use::Reading);
        QVERIFY(reading);
        QCOMPARE(recovery.restore(), DBCResultCode::RestoreFailure);
        QVERIFY(QFileInfo::exists(dead.package.storePath()));
    }

    void linkToThePackageFindsItsJournal()
    {
        DeadImport dead(Stage::Import);
        const QString link = dead.home.path(u"link.vmdb"_s);
        QVERIFY(QFile::link(dead.package.path(), link));
        const DBCPackageRecovery recovery(link);
        QCOMPARE(recovery.state(), State::Unfinished);
        QCOMPARE(recovery.package(), QFileInfo(dead.package.path()).canonicalFilePath());
    }

    void restoreKeepsCardsThatWereAddedSince()
    {
        DeadImport dead(Stage::Import);
        dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        dead.package.card({{"ZCARDID", u"ELSE-2"_s}});
        dead.package.writeFile(u"Images/ELSE-1_N1.pdf"_s, "theirs");
        dead.package.writeFile(u"Images/NEW-1_N1.pdf"_s, "ours");
        const auto changed = snapshotOf(dead.package.path());

        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.changes().addedCards, 2);
        QCOMPARE(recovery.changes().changedCards, 0);
        QCOMPARE(recovery.changes().removedCards, 0);
        QCOMPARE(recovery.changes().otherFiles, 1);
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QCOMPARE(recovery.keptPackagePath(), dead.home.path(u"Velmora DB_bak1.vmdb"_s));
        QCOMPARE(snapshotOf(recovery.keptPackagePath()), changed);
        QCOMPARE(snapshotOf(dead.package.path()), dead.original);
        QVERIFY(!dead.hasJournal());
    }

    void keepMakesACopyOfWhatWasChangedSince()
    {
        DeadImport dead(Stage::Import);
        dead.package.execute(u"UPDATE ZCARD SET ZMEMO = 'changed'"_s);
        const auto changed = snapshotOf(dead.package.path());

        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.changes().changedCards, 1);
        QVERIFY(recovery.keep());
        QCOMPARE(snapshotOf(recovery.keptPackagePath()), changed);
        QCOMPARE(snapshotOf(dead.package.path()), changed);
    }

    void whatTheImportWroteIsNoChange_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("PDF") << u"Images/NEW-7_N1.pdf"_s;
        QTest::newRow("attachment") << u"Files/NEW-7/a.txt"_s;
        QTest::newRow("index of the log") << u"Velmora.sqldb-shm"_s;
        QTest::newRow("lock file") << u".VMLock.vmlk"_s;
    }
    void whatTheImportWroteIsNoChange()
    {
        QFETCH(QString, file);
        DeadImport dead(Stage::Import);
        dead.package.writeFile(file, "any");
        DBCPackageRecovery recovery(dead.package.path());
        QVERIFY(!recovery.changes().any());
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QVERIFY(recovery.keptPackagePath().isEmpty());
    }

    void anotherPackageAtTheOldPathIsKept()
    {
        DeadImport dead(Stage::Import);
        QVERIFY(QDir(dead.package.path()).removeRecursively());
        const PackageFixture other(dead.home);
        const auto contents = snapshotOf(other.path());
        DBCPackageRecovery recovery(dead.package.path());
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(recovery.keptPackagePath()), contents);
    }

    void storeThatCannotBeReadIsKept()
    {
        DeadImport dead(Stage::Import);
        dead.package.writeFile(u"Velmora.sqldb"_s, "these are no cards");
        DBCPackageRecovery recovery(dead.package.path());
        QVERIFY(recovery.changes().isUnknown);
        QCOMPARE(recovery.restore(), DBCResultCode::Success);
        QVERIFY(QFileInfo::exists(recovery.keptPackagePath() + u"/Velmora.sqldb"_s));
    }
};

QTEST_GUILESS_MAIN(tst_packageRecovery)
#include "tst_packageRecovery.moc"
