// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "operation/base/DBCCancelDelegate.h"
#include "operation/copy/DBCFileManager.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/StandardInputKeeper.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A cancel delegate that counts the questions and gives the answers that the test has set.
struct Driver : DBCCancelDelegate {
    bool checkIsNeedToConfirmCancelOperation() override
    {
        ++cancelQuestions;
        return cancels;
    }
    bool fileManager(const DBCFileManager*, const QString& path, const QString&) override
    {
        items << path;
        return items.size() <= itemsAllowed;
    }

    bool cancels = false;
    int itemsAllowed = 1000;
    int cancelQuestions = 0;
    QStringList items;
};

} // namespace

class tst_backup : public QObject {
    Q_OBJECT

private:
    QString beside(const QString& name) const { return _f->home.path(name); }
    DBCDataBaseController& database() { return *_f->database; }
    void makeFile(const QString& name) const { _f->home.writeFile(name, "x"); }

    // Returns the name that the next backup of a package at this path would get.
    static std::optional<QString> nameFor(const QString& package)
    {
        StandardInputKeeper keeper;
        DBCDataBaseController controller;
        controller.setDBPath(package);
        return controller._generateBackupDBPath();
    }
    void expectNoBackup()
    {
        QCOMPARE(database().backupDBPath(), QString());
        QVERIFY(!QFileInfo::exists(_backup));
    }

    std::unique_ptr<TransferFixture> _f;
    QString _backup;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _backup = beside(u"Velmora DB_bak.vmdb"_s);
    }
    void cleanup() { _f.reset(); }

    void backupIsAFullCopyBesideThePackage()
    {
        _f->package.writeFile(u"Images/CARD-1_N1.pdf"_s, "pdf");
        _f->package.writeFile(u"Files/CARD-1/a.txt"_s, "text");
        _f->package.writeFile(u"Unknown/.hidden"_s, "hidden");
        QVERIFY(QFile::link(u"../Version.txt"_s, _f->packagePath(u"Unknown/link"_s)));
        QVERIFY(QFile::link(u"nowhere"_s, _f->packagePath(u"Unknown/dangling"_s)));

        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().backupDBPath(), _backup);
        QCOMPARE(snapshotOf(_backup), snapshotOf(_f->package.path()));
        QVERIFY(_f->log.isEmpty());
    }

    void thirdNameIsTakenWhenTwoBackupsStand()
    {
        _f->home.makeFolder(u"Velmora DB_bak.vmdb"_s);
        _f->home.makeFolder(u"Velmora DB_bak1.vmdb"_s);
        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().backupDBPath(), beside(u"Velmora DB_bak2.vmdb"_s));
        QVERIFY(QFileInfo::exists(beside(u"Velmora DB_bak2.vmdb/Velmora.sqldb"_s)));
        QVERIFY(QDir(_backup).isEmpty());
    }

    void fileTakesANameToo()
    {
        makeFile(u"Velmora DB_bak.vmdb"_s);
        QCOMPARE(database()._generateBackupDBPath(), beside(u"Velmora DB_bak1.vmdb"_s));
    }

    void linkThatLeadsNowhereTakesANameToo()
    {
        QVERIFY(QFile::link(u"nowhere"_s, _backup));
        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().backupDBPath(), beside(u"Velmora DB_bak1.vmdb"_s));
    }

    void tenThousandNamesAreTriedAndNoMore()
    {
        makeFile(u"Velmora DB_bak.vmdb"_s);
        for (int number = 1; number <= 9998; ++number)
            makeFile(u"Velmora DB_bak%1.vmdb"_s.arg(number));
        QCOMPARE(database()._generateBackupDBPath(), beside(u"Velmora DB_bak9999.vmdb"_s));

        makeFile(u"Velmora DB_bak9999.vmdb"_s);
        QVERIFY(!database()._generateBackupDBPath());
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        QCOMPARE(database().backupDBPath(), QString());
        QVERIFY(!QFileInfo::exists(beside(u"Velmora DB_bak10000.vmdb"_s)));
    }

    void backupNames_data()
    {
        QTest::addColumn<QString>("package");
        QTest::addColumn<QString>("backup");
        QTest::newRow("extension in capitals") << u"/none/A.VMDB"_s << u"/none/A_bak.VMDB"_s;
        QTest::newRow("dots in the name") << u"/none/a.b.vmdb"_s << u"/none/a.b_bak.vmdb"_s;
        QTest::newRow("dots in the folder") << u"/no.ne/a.vmdb"_s << u"/no.ne/a_bak.vmdb"_s;
        QTest::newRow("slash at the end") << u"/none/a.vmdb/"_s << u"/none/a_bak.vmdb"_s;
        QTest::newRow("relative path") << u"none/a.vmdb"_s << u"none/a_bak.vmdb"_s;
        QTest::newRow("at the root") << u"/a.vmdb"_s << u"/a_bak.vmdb"_s;
        QTest::newRow("placeholder in the name")
            << u"/none/%1%2.vmdb"_s << u"/none/%1%2_bak.vmdb"_s;
    }
    void backupNames()
    {
        QFETCH(QString, package);
        QFETCH(QString, backup);
        QCOMPARE(nameFor(package), backup);
    }

    void packageWithoutPathHasNoBackupName() { QVERIFY(!nameFor({})); }

    void slashBehindThePackageDoesNotMatter()
    {
        database().setDBPath(_f->package.path() + u'/');
        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().backupDBPath(), _backup);
    }

    void relativePackageIsBackedUpBesideItself()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(_f->home.path()));
        database().setDBPath(u"Velmora DB.vmdb"_s);
        const DBCResultCode code = database().backup();
        QVERIFY(QDir::setCurrent(before));
        QCOMPARE(code, DBCResultCode::Success);
        QVERIFY(QFileInfo::exists(_backup + u"/Velmora.sqldb"_s));
    }

    void linkedPackageIsBackedUpWhereItLies()
    {
        _f->home.makeFolder(u"desktop"_s);
        const QString link = beside(u"desktop/Cards.vmdb"_s);
        QVERIFY(QFile::link(_f->package.path(), link));
        database().setDBPath(link);
        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().backupDBPath(),
            QFileInfo(_f->home.path()).canonicalFilePath() + u"/Velmora DB_bak.vmdb"_s);
        QCOMPARE(snapshotOf(_backup), snapshotOf(_f->package.path()));
    }

    void controllerWithoutPathCannotBackUp()
    {
        database().setDBPath({});
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
    }

    void packageThatIsNotUsableIsNotBackedUp()
    {
        ScopedHost host;
        host.makeReadOnly({_f->package.storePath()});
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        expectNoBackup();
    }

    void packageWithoutStoreIsNotBackedUp()
    {
        _f->package.remove(u"Velmora.sqldb"_s);
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        expectNoBackup();
    }

    void parentFolderThatIsReadOnlyTakesNoBackup()
    {
        ScopedHost host;
        host.makeReadOnly({_f->home.path()});
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        expectNoBackup();
    }

    void failedMeasurementIsPassedOnAndLogged()
    {
        ScopedHost host;
        host->diskUsageProgram = u"/bin/false"_s;
        QCOMPARE(database().backup(), DBCResultCode::SizeMeasureFailure);
        expectNoBackup();
        QVERIFY(_f->home.logText().contains(
            u"The size of [%1] could not be measured"_s.arg(_f->package.path())));
    }

    void backupNeedsThePackagesSizeAndTheMargin()
    {
        _f->package.writeFile(u"Images/big.pdf"_s, QByteArray(300000, 'x'));
        const quint64 needed = diskUsage(_f->package.path()) + 524288;
        ScopedHost host;
        host.setFreeBytes(needed - 1);
        QCOMPARE(database().backup(), DBCResultCode::NoSpaceForBackup);
        expectNoBackup();
        host.setFreeBytes(needed);
        QCOMPARE(database().backup(), DBCResultCode::Success);
    }

    void failedCopyLeavesNothingBehind()
    {
        // A pipe makes the backup fail, because it cannot be copied.
        const QString pipe = _f->packagePath(u"zz-pipe"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        QVERIFY(!database().isBackupCancelled());
        expectNoBackup();
        QVERIFY(QFileInfo::exists(_f->package.storePath()));
    }

    void confirmedCancelLeavesNothingBehind()
    {
        Driver driver;
        driver.cancels = true;
        database().setDelegate(&driver);
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        QVERIFY(database().isBackupCancelled());
        QVERIFY(driver.cancelQuestions > 0);
        expectNoBackup();
    }

    void cancelBetweenItemsLeavesNothingBehind()
    {
        Driver driver;
        driver.itemsAllowed = 2;
        database().setDelegate(&driver);
        QCOMPARE(database().backup(), DBCResultCode::BackupFailure);
        QVERIFY(database().isBackupCancelled());
        QCOMPARE(driver.items.size(), 3);
        expectNoBackup();
    }

    void delegateIsLentForTheCopyAndPutBack()
    {
        Driver previous;
        Driver driver;
        DBCFileManager::defaultManager()->setDelegate(&previous);
        database().setDelegate(&driver);
        const DBCResultCode code = database().backup();
        const DBCCancelDelegate* after = DBCFileManager::defaultManager()->delegate();
        DBCFileManager::defaultManager()->setDelegate(nullptr);

        QCOMPARE(code, DBCResultCode::Success);
        QCOMPARE(after, &previous);
        QVERIFY(driver.cancelQuestions > 0);
        QVERIFY(driver.items.contains(_f->package.path()));
        QCOMPARE(previous.cancelQuestions, 0);
    }

    void delegateIsPutBackAfterAFailureToo()
    {
        Driver previous;
        Driver driver;
        driver.cancels = true;
        DBCFileManager::defaultManager()->setDelegate(&previous);
        database().setDelegate(&driver);
        const DBCResultCode code = database().backup();
        const DBCCancelDelegate* after = DBCFileManager::defaultManager()->delegate();
        DBCFileManager::defaultManager()->setDelegate(nullptr);
        QCOMPARE(code, DBCResultCode::BackupFailure);
        QCOMPARE(after, &previous);
    }

    void failedSecondBackupKeepsThePathOfTheFirst()
    {
        QCOMPARE(database().backup(), DBCResultCode::Success);
        ScopedHost host;
        host.setFreeBytes(1);
        QCOMPARE(database().backup(), DBCResultCode::NoSpaceForBackup);
        QCOMPARE(database().backupDBPath(), _backup);
    }

    void backupIsRemovedOnRequest()
    {
        QCOMPARE(database().backup(), DBCResultCode::Success);
        QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        QVERIFY(!QFileInfo::exists(_backup));
        QVERIFY(_f->log.isEmpty());
        QVERIFY(QFileInfo::exists(_f->package.storePath()));
    }

    void removingWithoutABackupDoesNothing()
    {
        QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        database().setBackupDBPath(beside(u"none.vmdb"_s));
        QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        QVERIFY(_f->log.isEmpty());
    }

    void backupThatCannotBeRemovedIsAWarning()
    {
        makeFile(u"a file.vmdb"_s);
        const QString path = beside(u"a file.vmdb"_s);
        database().setBackupDBPath(path);
        QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        QCOMPARE(_f->log.warnings,
            QStringList {u"Remove the database failure! Database Path:["_s + path + u']'});
        QVERIFY(QFileInfo::exists(path));
    }

    void linkInPlaceOfTheBackupIsNotRemovedAndNotFollowed()
    {
        _f->home.writeFile(u"elsewhere/precious.txt"_s, "x");
        QVERIFY(QFile::link(beside(u"elsewhere"_s), _backup));
        database().setBackupDBPath(_backup);
        QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        QCOMPARE(_f->log.warnings.size(), 1);
        QVERIFY(QFileInfo::exists(beside(u"elsewhere/precious.txt"_s)));
    }
};

QTEST_GUILESS_MAIN(tst_backup)
#include "tst_backup.moc"
