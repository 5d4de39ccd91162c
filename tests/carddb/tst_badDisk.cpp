// SPDX-License-Identifier: GPL-3.0-or-later
// Makes one kind of system call fail at a time, as if the disk went bad at the worst moment, and
// tests what the card database does then.
#include "carddb/DBCPackageCopy.h"
#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageRecovery.h"
#include "carddb/DBCPackageRestore.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "operation/base/DBCCancelDelegate.h"
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/DeadImport.h"
#include "tests/support/FailingCall.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScopedHost.h"

#include <QtTest>

#include <cerrno>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using Journal = DBCPackageJournal;

namespace {

const QString cardId = u"0A1B-1"_s;
const QString named = u"plans"_s;

struct Database : TransferFixture {
    Database()
    {
        // A script replaces "du", because the failing system calls would make "du" fail, too.
        const QString program = home.writeFile(u"du"_s, "#!/bin/sh\nprintf '4\\t%s\\n' \"$3\"\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        host->diskUsageProgram = program;
    }

    StandardInputKeeper standardInput;
    ScopedHost host;
};

} // namespace

class tst_badDisk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!FailingCall(SYS_fsync, EIO).during([] {}))
            QSKIP("calls cannot be made to fail here");
    }

    void cardsAreNotSavedBeforeTheirFilesAreOnTheDisk()
    {
        Database f;
        f.database->managedObjectContext()->insertNewCard();
        const auto before = f.package.contents();
        auto code = DBCResultCode::Success;
        QVERIFY(FailingCall(SYS_syncfs, EIO).during([&] { code = f.database->save(); }));
        QCOMPARE(code, DBCResultCode::DatabaseSaveFailure);
        QCOMPARE(f.log.errors,
            QStringList {Database::text("IDS_LOG_ERR_DISK_FLUSH", {f.package.path()})});
        QCOMPARE(f.package.contents(), before);
    }

    void storeThatCannotBeFlushedIsNotSavedInto()
    {
        Database f;
        f.database->managedObjectContext()->insertNewCard();
        auto code = DBCResultCode::Success;
        QVERIFY(FailingCall(SYS_fdatasync, EIO).during([&] { code = f.database->save(); }));
        QCOMPARE(code, DBCResultCode::DatabaseSaveFailure);
        f.database.reset();
        QCOMPARE(f.package.value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 0);
    }

    void saveWithoutNewCardsAsksNothingOfTheDisk()
    {
        Database f;
        auto code = DBCResultCode::GeneralFailure;
        QVERIFY(FailingCall(SYS_syncfs, EIO).during([&] { code = f.database->save(); }));
        QCOMPARE(code, DBCResultCode::Success);
    }

    void attachmentsThatCannotBeListedStopTheImport()
    {
        Database f;
        f.folder.attachment(named, u"a.txt"_s, "a");
        QVERIFY(FailingCall(SYS_getdents64, EIO).during([&] {
            f.database->_addAttachFileIntoDB(f.folder.path(),
                Database::record({{Key::attachmentFile, named}}), cardId, &f.error);
        }));
        QCOMPARE(f.error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(f.log));
    }

    void attachmentsThatCannotBeListedStopTheExport()
    {
        Database f;
        f.package.writeFile(u"Files/0A1B-1/a.txt"_s, "a");
        QVERIFY(FailingCall(SYS_getdents64, EIO).during([&] {
            f.database->_exportAttachFile(
                Database::record({{Key::cardID, cardId}}), f.home.path(u"export"_s), &f.error);
        }));
        QCOMPARE(f.error.code(), DBCResultCode::AttachmentExportFailure);
        QVERIFY(copyFailureWasLogged(f.log));
    }

    void attachmentFolderThatCannotBeOpenedStopsTheImport()
    {
        Database f;
        f.folder.attachment(named, u"a.txt"_s, "a");
        QVERIFY(FailingCall(SYS_openat2, EIO).during([&] {
            f.database->_addAttachFileIntoDB(f.folder.path(),
                Database::record({{Key::attachmentFile, named}}), cardId, &f.error);
        }));
        QCOMPARE(f.error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(f.log));
    }

    void storedFolderThatLeadsOutIsPassedOverWithAWarning()
    {
        Database f;
        f.home.writeFile(u"outside/secret.txt"_s, "secret");
        QVERIFY(QFile::link(f.home.path(u"outside"_s), f.packagePath(u"Files/0A1B-1"_s)));
        const QString target = f.home.path(u"export"_s);
        QCOMPARE(f.database->_exportAttachFile(
                     Database::record({{Key::cardID, cardId}}), target, &f.error),
            u""_s);
        QVERIFY(!f.error);
        QCOMPARE(f.log.warnings.size(), 1);
        QVERIFY(f.log.warnings.constFirst().contains(cardId));
        QVERIFY(!QFileInfo::exists(target));
    }

    // --- the journal ---

    void journalThatIsNotOnTheDiskIsNone_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::newRow("its bytes") << qlonglong(SYS_fdatasync);
        QTest::newRow("its name") << qlonglong(SYS_fsync);
        QTest::newRow("its lock") << qlonglong(SYS_flock);
    }
    void journalThatIsNotOnTheDiskIsNone()
    {
        QFETCH(qlonglong, call);
        const TestHome home;
        const PackageFixture package(home);
        std::unique_ptr<Journal> journal;
        QVERIFY(FailingCall(call, EIO).during(
            [&] { journal = Journal::begin(package.path(), home.path(u"bak.vmdb"_s)); }));
        QVERIFY(!journal);
        QCOMPARE(Journal::find(package.path()).search, Journal::Search::None);
    }

    void journalThatFailsToBeReadIsUnreadable()
    {
        const DeadImport dead(Journal::Stage::Import);
        auto search = Journal::Search::None;
        QVERIFY(FailingCall(SYS_pread64, EIO).during([&] {
            search = Journal::find(dead.package.path()).search;
        }));
        QCOMPARE(search, Journal::Search::Unreadable);
    }

    void journalWhoseRemovalIsNotOnTheDiskIsNotSettled()
    {
        const DeadImport dead(Journal::Stage::Import);
        bool isKept = true;
        QVERIFY(FailingCall(SYS_fsync, EIO).during([&] {
            isKept = DBCPackageRecovery(dead.package.path()).keep();
        }));
        QVERIFY(!isKept);
    }

    void backupWhoseJournalCannotBeKeptIsNone()
    {
        Database f;
        auto code = DBCResultCode::Success;
        QVERIFY(FailingCall(SYS_fdatasync, EIO).during([&] { code = f.database->backup(); }));
        QCOMPARE(code, DBCResultCode::BackupFailure);
        QCOMPARE(f.log.errors.size(), 1);
        QVERIFY(f.log.errors.constFirst().contains(u"velmora-import"_s));
        QVERIFY(!QFileInfo::exists(f.home.path(u"Velmora DB_bak.vmdb"_s)));
    }

    // The disk becomes too full for the next line of the journal once the copy is complete.
    void backupThatTheJournalCannotNoteIsRemoved()
    {
        struct Filler : DBCCancelDelegate {
            bool checkIsNeedToConfirmCancelOperation() override
            {
                if (QFileInfo(copy).lastModified() == QFileInfo(package).lastModified())
                    full.emplace(16); // the copy is complete and now being compared
                return false;
            }
            bool fileManager(const DBCFileManager*, const QString&, const QString&) override
            {
                return true;
            }
            QString package;
            QString copy;
            std::optional<FileSizeLimit> full;
        };
        Database f;
        Filler filler;
        filler.package = f.package.path();
        filler.copy = f.home.path(u".Velmora DB_bak.vmdb.velmora-copy"_s);
        f.database->setDelegate(&filler);
        QCOMPARE(f.database->backup(), DBCResultCode::BackupFailure);
        QVERIFY(filler.full);
        filler.full.reset();
        QStringList names = entries(f.home.path());
        QVERIFY(names.filter(u"bak"_s).isEmpty());
        QVERIFY(names.filter(u"velmora"_s).isEmpty());
    }

    void finishedImportWhoseJournalStaysIsDone()
    {
        Database f;
        QCOMPARE(f.database->backup(), DBCResultCode::Success);
        QVERIFY(FailingCall(SYS_fsync, EIO).during([&] { f.database->endImport(); }));
        QVERIFY(f.log.isEmpty());
        QVERIFY(f.home.logText().contains(u"velmora-import"_s));
    }

    // --- backups ---

    void copyIsNoneUntilItIsOnTheDisk_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::newRow("its files") << qlonglong(SYS_syncfs);
        QTest::newRow("its name") << qlonglong(SYS_fsync);
        QTest::newRow("its move") << qlonglong(SYS_renameat2);
    }
    void copyIsNoneUntilItIsOnTheDisk()
    {
        QFETCH(qlonglong, call);
        const TestHome home;
        const PackageFixture package(home);
        const QString copy = home.path(u"copy.vmdb"_s);
        auto outcome = DBCPackageCopy::Outcome::Copied;
        QVERIFY(FailingCall(call, EIO).during(
            [&] { outcome = DBCPackageCopy().copy(package.path(), copy); }));
        QCOMPARE(outcome, DBCPackageCopy::Outcome::Failed);
        QStringList names = entries(home.path());
        names.removeAll(u"home"_s);
        QCOMPARE(names, QStringList {u"Velmora DB.vmdb"_s});
    }

    void restoreThatFailsKeepsTheBackup()
    {
        const DeadImport dead(Journal::Stage::Import);
        auto code = DBCResultCode::Success;
        QVERIFY(FailingCall(SYS_copy_file_range, EIO).during([&] {
            code = DBCPackageRestore::restore(dead.package.path(), dead.backup);
        }));
        QCOMPARE(code, DBCResultCode::RestoreFailure);
        QCOMPARE(snapshotOf(dead.backup), dead.original);
        QCOMPARE(
            DBCPackageRestore::restore(dead.package.path(), dead.backup), DBCResultCode::Success);
        QCOMPARE(snapshotOf(dead.package.path()), dead.original);
    }

    void packageThatCannotBeRemovedIsNotRestoredOver()
    {
        const DeadImport dead(Journal::Stage::Import);
        dead.package.writeFile(u"new"_s, "new");
        const QStringList before = snapshotOf(dead.package.path());
        auto code = DBCResultCode::Success;
        QVERIFY(FailingCall(SYS_unlinkat, EIO).during([&] {
            code = DBCPackageRestore::restore(dead.package.path(), dead.backup);
        }));
        QCOMPARE(code, DBCResultCode::RestoreFailure);
        QCOMPARE(snapshotOf(dead.package.path()), before);
    }
};

QTEST_GUILESS_MAIN(tst_badDisk)
#include "tst_badDisk.moc"
