// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLog.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

void setMode(const QString& path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

void setTime(const QString& path, time_t seconds)
{
    const timespec times[2] = {{seconds, 1}, {seconds, 2}};
    QCOMPARE(
        utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, AT_SYMLINK_NOFOLLOW), 0);
}

} // namespace

class tst_restore : public QObject {
    Q_OBJECT

private:
    DBCDataBaseController& database() { return *_f->database; }
    QString package() const { return _f->package.path(); }
    void backUp() { QCOMPARE(database().backup(), DBCResultCode::Success); }
    // The filter leaves out the log and the journal of the import, which lie in the same folder.
    QStringList packagesAndBackups() const
    {
        return snapshotOf(_f->home.path()).filter(QRegularExpression(u"^[^.][^/]*\\.vmdb"_s));
    }
    void expectFailureThatTouchesNothing()
    {
        const QStringList before = packagesAndBackups();
        QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        QCOMPARE(packagesAndBackups(), before);
    }

    std::unique_ptr<TransferFixture> _f;
    QString _backup;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _backup = _f->home.path(u"Velmora DB_bak.vmdb"_s);
    }
    void cleanup() { _f.reset(); }

    void withoutBackupThereIsNothingToRestore()
    {
        QCOMPARE(database().restore(), DBCResultCode::GeneralFailure);
    }

    void packageComesBackByteForByte()
    {
        _f->package.card().withPdf("pdf").withAttachment(u"a.txt"_s, "text");
        _f->package.writeFile(u"Extra/.hidden"_s, "hidden");
        _f->package.writeFile(u"Extra/run.sh"_s, "program");
        setMode(_f->packagePath(u"Extra/run.sh"_s), 0755);
        setMode(_f->packagePath(u"Files"_s), 0750);
        QVERIFY(QFile::link(u"../Version.txt"_s, _f->packagePath(u"Extra/link"_s)));
        QVERIFY(QFile::link(u"nowhere"_s, _f->packagePath(u"Extra/dangling"_s)));
        for (const char* name : {"Extra/link", "Extra/run.sh", "Extra", "Images", ""})
            setTime(_f->packagePath(QString::fromLatin1(name)), 1234567890);
        const QStringList before = snapshotOf(package());
        backUp();

        _f->package.card().withPdf("another pdf");
        _f->package.writeFile(u"Extra/run.sh"_s, "changed");
        _f->package.remove(u"Extra/.hidden"_s);
        _f->package.writeFile(u"Files/NEW/b.txt"_s, "new");
        QVERIFY(snapshotOf(package()) != before);

        const QStringList changed = snapshotOf(package());
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(package()), before);
        // These changes are not the import's own, so the changed package is kept, and the log says
        // where.
        QCOMPARE(snapshotOf(_f->home.path(u"Velmora DB_bak1.vmdb"_s)), changed);
        QCOMPARE(_f->log.warnings.size(), 1);
    }

    void packageThatNobodyChangedIsNotKept()
    {
        _f->package.card().withPdf("pdf");
        backUp();
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QVERIFY(!QFileInfo::exists(_f->home.path(u"Velmora DB_bak1.vmdb"_s)));
        QVERIFY(_f->log.isEmpty());
    }

    void cardsAreThoseOfBefore()
    {
        _f->package.card({{"ZFULL_NAME", u"Taro"_s}});
        backUp();
        _f->package.card({{"ZFULL_NAME", u"Jiro"_s}});
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(_f->package.value(u"SELECT group_concat(ZFULL_NAME) FROM ZCARD"_s),
            QVariant(u"Taro"_s));
    }

    void closingTheStoreAfterwardsChangesNothing()
    {
        _f.reset();
        TestHome home;
        PackageFixture package(home, {.writeAheadLog = true});
        package.card();
        auto controller = DBCDataBaseController::initDBwithPath(package.path());
        QVERIFY(controller);
        DBCError error;
        QVERIFY(controller->fetchCardDatas(&error));
        const QStringList before = snapshotOf(package.path());
        QCOMPARE(controller->backup(), DBCResultCode::Success);
        package.writeFile(u"Images/new.pdf"_s, "new");

        QCOMPARE(controller->restore(), DBCResultCode::Success);
        controller.reset();
        QCOMPARE(snapshotOf(package.path()), before);
    }

    void backupStaysInPlace()
    {
        backUp();
        const QStringList before = snapshotOf(_backup);
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(_backup), before);
        QCOMPARE(database().backupDBPath(), _backup);
    }

    void deletedPackageComesBack()
    {
        const QStringList before = snapshotOf(package());
        backUp();
        QVERIFY(QDir(package()).removeRecursively());
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(package()), before);
    }

    void slashBehindThePackageDoesNotMatter()
    {
        backUp();
        database().setDBPath(package() + u'/');
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QVERIFY(QFileInfo::exists(_f->package.storePath()));
    }

    void missingParentFolderIsAFailure()
    {
        backUp();
        database().setDBPath(_f->home.path(u"none/Velmora DB.vmdb"_s));
        expectFailureThatTouchesNothing();
    }

    void controllerWithoutPathCannotRestore()
    {
        backUp();
        database().setDBPath({});
        expectFailureThatTouchesNothing();
    }

    void readOnlyParentFolderIsAFailure()
    {
        backUp();
        ScopedHost host;
        host.makeReadOnly({_f->home.path()});
        expectFailureThatTouchesNothing();
    }

    void missingBackupIsAnErrorInTheLog()
    {
        backUp();
        QVERIFY(QDir(_backup).removeRecursively());
        expectFailureThatTouchesNothing();
        QCOMPARE(_f->log.errors,
            QStringList {TransferFixture::text("IDS_LOG_WRN_FILE_NO_EXISTS", {_backup})});
    }

    void backupWithoutStoreIsNotRestored()
    {
        backUp();
        QVERIFY(QFile::remove(_backup + u"/Velmora.sqldb"_s));
        expectFailureThatTouchesNothing();
    }

    void readOnlyBackupIsNotRestored()
    {
        backUp();
        ScopedHost host;
        host.makeReadOnly({_backup + u"/Velmora.sqldb"_s});
        expectFailureThatTouchesNothing();
    }

    void fileInPlaceOfThePackageStays()
    {
        backUp();
        QVERIFY(QDir(package()).removeRecursively());
        _f->home.writeFile(u"Velmora DB.vmdb"_s, "precious");
        expectFailureThatTouchesNothing();
    }

    void linkInPlaceOfThePackageIsNotFollowed()
    {
        backUp();
        const QString elsewhere = _f->home.path(u"elsewhere.vmdb"_s);
        QVERIFY(QDir().rename(package(), elsewhere));
        QVERIFY(QFile::link(elsewhere, package()));
        expectFailureThatTouchesNothing();
    }

    void packageOpenedThroughALinkComesBackWhereItLies()
    {
        const QString link = _f->home.path(u"Cards.vmdb"_s);
        QVERIFY(QFile::link(package(), link));
        database().setDBPath(link);
        const QStringList before = snapshotOf(package());
        backUp();
        _f->package.writeFile(u"Images/new.pdf"_s, "new");
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(package()), before);
        QVERIFY(QFileInfo(link).isSymLink());
    }

    void backupInsideThePackageIsNotRemovedWithIt()
    {
        backUp();
        const QString inside = _f->packagePath(u"inside.vmdb"_s);
        QVERIFY(QDir().rename(_backup, inside));
        database().setBackupDBPath(inside);
        expectFailureThatTouchesNothing();
    }

    void backupThatIsThePackageItselfIsNotRemoved()
    {
        QVERIFY(QFile::link(package(), _backup));
        database().setBackupDBPath(_backup);
        expectFailureThatTouchesNothing();
    }

    void failedCopyLeavesNoPartOfThePackage()
    {
        backUp();
        // A pipe makes the copy fail, because it cannot be copied. The package gets the same pipe,
        // so that it does not differ from its backup.
        for (const QString& folder : {_backup, package()}) {
            const QString pipe = folder + u"/zz-pipe"_s;
            QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
            setTime(pipe, 1234567890);
        }
        QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        QVERIFY(!QFileInfo::exists(package()));
        QVERIFY(QFileInfo::exists(_backup + u"/Velmora.sqldb"_s));
    }

    void failedCopyPutsAChangedPackageBack()
    {
        backUp();
        QCOMPARE(mkfifo(QFile::encodeName(_backup + u"/zz-pipe"_s).constData(), 0600), 0);
        _f->package.card();
        const QStringList changed = snapshotOf(package());
        QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        QCOMPARE(snapshotOf(package()), changed);
        QVERIFY(!QFileInfo::exists(_f->home.path(u"Velmora DB_bak1.vmdb"_s)));
    }

    void packageThatCannotBeRemovedIsAFailure()
    {
        _f->package.writeFile(u"Locked/a.txt"_s, "a");
        backUp();
        const QString locked = _f->packagePath(u"Locked"_s);
        setMode(_f->home.path(), 0777);
        for (const char* part : {"", "/Velmora.sqldb", "/Images", "/Files"})
            setMode(_backup + QString::fromLatin1(part), 0777);
        setMode(locked, 0555);
        {
            const AsOrdinaryUser user;
            QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        }
        setMode(locked, 0755);
        QVERIFY(QFileInfo::exists(locked + u"/a.txt"_s));
        QVERIFY(QFileInfo::exists(_backup + u"/Velmora.sqldb"_s));
    }

    void backupThatCannotBeRemovedIsOnlyAWarning()
    {
        _f->package.writeFile(u"Locked/a.txt"_s, "a");
        backUp();
        const QString locked = _backup + u"/Locked"_s;
        setMode(_f->home.path(), 0777);
        setMode(locked, 0555);
        QVERIFY(DBCLog::logInstance()); // Create the log while its folder is still writable.
        {
            const AsOrdinaryUser user;
            QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        }
        setMode(locked, 0755);
        QVERIFY(QFileInfo::exists(locked + u"/a.txt"_s));
        QCOMPARE(_f->log.warnings,
            QStringList {u"Remove the database failure! Database Path:["_s + _backup + u']'});
    }
};

QTEST_GUILESS_MAIN(tst_restore)
#include "tst_restore.moc"
