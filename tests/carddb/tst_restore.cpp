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
    // The log lies in the home folder too, and the note that an import has begun.
    QStringList packagesAndBackups() const
    {
        return snapshotOf(_f->home.path())
            .filter(QRegularExpression(QStringLiteral("^[^.][^/]*\\.vmdb")));
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
        _backup = _f->home.path(QStringLiteral("Velmora DB_bak.vmdb"));
    }
    void cleanup() { _f.reset(); }

    void withoutBackupThereIsNothingToRestore()
    {
        QCOMPARE(database().restore(), DBCResultCode::GeneralFailure);
    }

    void packageComesBackByteForByte()
    {
        _f->package.card().withPdf("pdf").withAttachment(QStringLiteral("a.txt"), "text");
        _f->package.writeFile(QStringLiteral("Extra/.hidden"), "hidden");
        _f->package.writeFile(QStringLiteral("Extra/run.sh"), "program");
        setMode(_f->packagePath(QStringLiteral("Extra/run.sh")), 0755);
        setMode(_f->packagePath(QStringLiteral("Files")), 0750);
        QVERIFY(QFile::link(
            QStringLiteral("../Version.txt"), _f->packagePath(QStringLiteral("Extra/link"))));
        QVERIFY(QFile::link(
            QStringLiteral("nowhere"), _f->packagePath(QStringLiteral("Extra/dangling"))));
        for (const char* name : {"Extra/link", "Extra/run.sh", "Extra", "Images", ""})
            setTime(_f->packagePath(QString::fromLatin1(name)), 1234567890);
        const QStringList before = snapshotOf(package());
        backUp();

        _f->package.card().withPdf("another pdf");
        _f->package.writeFile(QStringLiteral("Extra/run.sh"), "changed");
        _f->package.remove(QStringLiteral("Extra/.hidden"));
        _f->package.writeFile(QStringLiteral("Files/NEW/b.txt"), "new");
        QVERIFY(snapshotOf(package()) != before);

        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(package()), before);
        QVERIFY(_f->log.isEmpty());
    }

    void cardsAreThoseOfBefore()
    {
        _f->package.card({{"ZFULL_NAME", QStringLiteral("Taro")}});
        backUp();
        _f->package.card({{"ZFULL_NAME", QStringLiteral("Jiro")}});
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(_f->package.value(QStringLiteral("SELECT group_concat(ZFULL_NAME) FROM ZCARD")),
            QVariant(QStringLiteral("Taro")));
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
        package.writeFile(QStringLiteral("Images/new.pdf"), "new");

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
        database().setDBPath(_f->home.path(QStringLiteral("none/Velmora DB.vmdb")));
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
        QVERIFY(QFile::remove(_backup + QStringLiteral("/Velmora.sqldb")));
        expectFailureThatTouchesNothing();
    }

    void readOnlyBackupIsNotRestored()
    {
        backUp();
        ScopedHost host;
        host.makeReadOnly({_backup + QStringLiteral("/Velmora.sqldb")});
        expectFailureThatTouchesNothing();
    }

    void fileInPlaceOfThePackageStays()
    {
        backUp();
        QVERIFY(QDir(package()).removeRecursively());
        _f->home.writeFile(QStringLiteral("Velmora DB.vmdb"), "precious");
        expectFailureThatTouchesNothing();
    }

    void linkInPlaceOfThePackageIsNotFollowed()
    {
        backUp();
        const QString elsewhere = _f->home.path(QStringLiteral("elsewhere.vmdb"));
        QVERIFY(QDir().rename(package(), elsewhere));
        QVERIFY(QFile::link(elsewhere, package()));
        expectFailureThatTouchesNothing();
    }

    void packageOpenedThroughALinkComesBackWhereItLies()
    {
        const QString link = _f->home.path(QStringLiteral("Cards.vmdb"));
        QVERIFY(QFile::link(package(), link));
        database().setDBPath(link);
        const QStringList before = snapshotOf(package());
        backUp();
        _f->package.writeFile(QStringLiteral("Images/new.pdf"), "new");
        QCOMPARE(database().restore(), DBCResultCode::Success);
        QCOMPARE(snapshotOf(package()), before);
        QVERIFY(QFileInfo(link).isSymLink());
    }

    void backupInsideThePackageIsNotRemovedWithIt()
    {
        backUp();
        const QString inside = _f->packagePath(QStringLiteral("inside.vmdb"));
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
        // A pipe cannot be copied.
        const QString pipe = _backup + QStringLiteral("/zz-pipe");
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        QVERIFY(!QFileInfo::exists(package()));
        QVERIFY(QFileInfo::exists(_backup + QStringLiteral("/Velmora.sqldb")));
    }

    void packageThatCannotBeRemovedIsAFailure()
    {
        _f->package.writeFile(QStringLiteral("Locked/a.txt"), "a");
        backUp();
        const QString locked = _f->packagePath(QStringLiteral("Locked"));
        setMode(_f->home.path(), 0777);
        for (const char* part : {"", "/Velmora.sqldb", "/Images", "/Files"})
            setMode(_backup + QString::fromLatin1(part), 0777);
        setMode(locked, 0555);
        {
            const AsOrdinaryUser user;
            QCOMPARE(database().restore(), DBCResultCode::RestoreFailure);
        }
        setMode(locked, 0755);
        QVERIFY(QFileInfo::exists(locked + QStringLiteral("/a.txt")));
        QVERIFY(QFileInfo::exists(_backup + QStringLiteral("/Velmora.sqldb")));
    }

    void backupThatCannotBeRemovedIsOnlyAWarning()
    {
        _f->package.writeFile(QStringLiteral("Locked/a.txt"), "a");
        backUp();
        const QString locked = _backup + QStringLiteral("/Locked");
        setMode(_f->home.path(), 0777);
        setMode(locked, 0555);
        QVERIFY(DBCLog::logInstance()); // made while its folder can be written
        {
            const AsOrdinaryUser user;
            QCOMPARE(database().removeBackupDB(), DBCResultCode::Success);
        }
        setMode(locked, 0755);
        QVERIFY(QFileInfo::exists(locked + QStringLiteral("/a.txt")));
        QCOMPARE(_f->log.warnings,
            QStringList {
                QStringLiteral("Remove the database failure! Database Path:[") + _backup + u']'});
    }
};

QTEST_GUILESS_MAIN(tst_restore)
#include "tst_restore.moc"
