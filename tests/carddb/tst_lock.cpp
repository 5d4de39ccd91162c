// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "operation/DBCChecker.h"
#include "tests/support/DebugLog.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/StandardInputKeeper.h"

#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#include <functional>

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// remove() calls this right after it has removed a file.
std::function<void(const char* path)> afterRemoval;

} // namespace

// Replaces the C library's remove(), so that a test can do at the worst moment what another program
// might do.
extern "C" int remove(const char* path)
{
    const int result = unlink(path) == 0 ? 0 : rmdir(path);
    if (afterRemoval)
        afterRemoval(path);
    return result;
}

namespace {

bool isOpen(int descriptor)
{
    return fcntl(descriptor, F_GETFD) != -1;
}

// Whether another descriptor can lock the file.
bool canLock(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    const bool locked = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    close(descriptor);
    return locked;
}

} // namespace

class tst_lock : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _package = std::make_unique<PackageFixture>(*_home);
        // Open standard input again, because some tests close it.
        if (!isOpen(STDIN_FILENO))
            QCOMPARE(open("/dev/null", O_RDONLY), STDIN_FILENO);
    }

    void cleanup()
    {
        _package.reset();
        _home.reset();
    }

    void withoutAPackagePathLockingIsAGeneralFailure()
    {
        DBCDataBaseController controller;
        QCOMPARE(controller._lock(), DBCResultCode::GeneralFailure);
    }

    void openingMakesTheLockFileWithAllPermissions()
    {
        const mode_t oldMask = umask(077);
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        umask(oldMask);
        QVERIFY(controller);
        QCOMPARE(lockStatus().st_mode & 07777, mode_t {0777});
        QVERIFY(S_ISREG(lockStatus().st_mode));
    }

    void staleLockFileIsDeletedAndMadeAfresh()
    {
        _package->writeFile(u".VMLock.vmlk"_s, "process 4711");
        QCOMPARE(chmod(QFile::encodeName(lockPath()).constData(), 0400), 0);
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        QVERIFY(controller);
        QCOMPARE(lockStatus().st_size, off_t {0});
        QCOMPARE(lockStatus().st_mode & 07777, mode_t {0777});
    }

    void lockFileThatAnotherHoldsIsDeletedAndMadeAfresh()
    {
        _package->writeFile(u".VMLock.vmlk"_s, {});
        const int other = open(QFile::encodeName(lockPath()).constData(), O_RDWR | O_CLOEXEC);
        QCOMPARE(flock(other, LOCK_EX | LOCK_NB), 0);
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        QVERIFY(controller);
        QVERIFY(!canLock(lockPath()));
        close(other);
    }

    void openPackageIsLockedUntilTheControllerIsGone()
    {
        auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        QVERIFY(DBCChecker::checkDBFileISLocked(lockPath()));
        controller.reset();
        QVERIFY(!DBCChecker::checkDBFileISLocked(lockPath()));
    }

    void lockFileStaysInThePackageAfterTheRelease()
    {
        DBCDataBaseController::initDBwithPath(_package->path()).reset();
        QVERIFY(QFileInfo::exists(lockPath()));
    }

    void secondControllerTakesTheLockOver()
    {
        auto first = DBCDataBaseController::initDBwithPath(_package->path());
        const ino_t firstFile = lockStatus().st_ino;
        auto second = DBCDataBaseController::initDBwithPath(_package->path());
        QVERIFY(second);
        QVERIFY(lockStatus().st_ino != firstFile);
        first.reset();
        QVERIFY(!canLock(lockPath()));
        second.reset();
        QVERIFY(canLock(lockPath()));
    }

    void lockIsNotInheritedByOtherPrograms()
    {
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        QProcess child;
        child.start(u"/bin/ls"_s, {u"-l"_s, u"/proc/self/fd"_s});
        QVERIFY(child.waitForFinished());
        const QByteArray descriptors = child.readAllStandardOutput();
        QVERIFY(descriptors.contains(" -> "));
        QVERIFY2(!descriptors.contains("VMLock"), descriptors.constData());
    }

    void lockFileThatCannotBeMadeFailsTheLock()
    {
        blockLockFile();
        DebugLog log(*_home);
        DBCDataBaseController controller;
        controller.setDBPath(_package->path());
        QCOMPARE(controller._lock(), DBCResultCode::DatabaseLockFailure);
        QVERIFY(log.text().contains(u"There is a lock failure of the Database!"_s));
    }

    void fileThatIsPutInTheLockFilesPlaceStaysAsItIs_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("hard link") << 0;
        QTest::newRow("symbolic link") << 1;
        QTest::newRow("pipe") << 2;
        QTest::newRow("file of another user") << 3;
    }
    void fileThatIsPutInTheLockFilesPlaceStaysAsItIs()
    {
        QFETCH(int, kind);
        constexpr uid_t anotherUser = 12345;
        if (kind == 3 && geteuid() != 0)
            QSKIP("only root can make a file of another user");
        const QByteArray victim = QFile::encodeName(_home->writeFile(u"key.txt"_s, "secret"));
        QCOMPARE(chmod(victim.constData(), 0600), 0);
        afterRemoval = [&](const char* path) {
            const int result = kind == 0 ? link(victim.constData(), path)
                : kind == 1              ? symlink(victim.constData(), path)
                : kind == 2              ? mkfifo(path, 0600)
                                         : rename(victim.constData(), path);
            if (result != 0 || (kind == 3 && chown(path, anotherUser, anotherUser) != 0))
                qFatal("cannot put a file in place");
        };
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        afterRemoval = {};
        QVERIFY(!controller);
        QCOMPARE(lockStatus().st_mode & 07777, mode_t {0600});
    }

    void missingPackageFailsTheLock()
    {
        DBCDataBaseController controller;
        controller.setDBPath(_home->path(u"Nowhere.vmdb"_s));
        QCOMPARE(controller._lock(), DBCResultCode::DatabaseLockFailure);
    }

    void failedLockLeavesNothingToRelease()
    {
        blockLockFile();
        DebugLog log(*_home);
        {
            DBCDataBaseController controller;
            controller.setDBPath(_package->path());
            QCOMPARE(controller._lock(), DBCResultCode::DatabaseLockFailure);
            QCOMPARE(controller._unlock(), DBCResultCode::Success);
        }
        QVERIFY(isOpen(STDIN_FILENO));
        QVERIFY(!log.text().contains(u"Unlock failure"_s));
    }

    void releasedLockIsNotReleasedTwice()
    {
        const auto controller = DBCDataBaseController::initDBwithPath(_package->path());
        QCOMPARE(controller->_unlock(), DBCResultCode::Success);
        QVERIFY(canLock(lockPath()));
        QCOMPARE(controller->_unlock(), DBCResultCode::Success);
        QVERIFY(isOpen(STDIN_FILENO));
    }

    void neverLockedControllerReleasesAndClosesDescriptor0()
    {
        const StandardInputKeeper keeper;
        const QString path = _home->writeFile(u"input"_s, "typed");
        const int file = open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
        QCOMPARE(dup2(file, STDIN_FILENO), STDIN_FILENO);
        QCOMPARE(flock(STDIN_FILENO, LOCK_EX | LOCK_NB), 0);
        {
            const DBCDataBaseController controller;
            QVERIFY(!canLock(path));
        }
        QVERIFY(!isOpen(STDIN_FILENO));
        // file is a second descriptor of the same open file and shares its lock. Closing the first
        // descriptor therefore does not release the lock: it is free only if the controller
        // released it explicitly.
        QVERIFY(isOpen(file));
        QVERIFY(canLock(path));
        close(file);
    }

    void neverLockedControllerWithoutDescriptor0DeletesTheLockFile()
    {
        const StandardInputKeeper keeper;
        _package->writeFile(u".VMLock.vmlk"_s, {});
        DebugLog log(*_home);
        DBCDataBaseController controller;
        controller.setDBPath(_package->path());
        close(STDIN_FILENO);
        QCOMPARE(controller._unlock(), DBCResultCode::DatabaseUnlockFailure);
        QVERIFY(!QFileInfo::exists(lockPath()));
        QVERIFY(log.text().contains(u"There is a Unlock failure of the Database!"_s));
        controller.setDBPath({});
    }

    void failedReleaseWithoutAPackagePathTouchesNothing()
    {
        const StandardInputKeeper keeper;
        DBCDataBaseController controller;
        close(STDIN_FILENO);
        QCOMPARE(controller._unlock(), DBCResultCode::DatabaseUnlockFailure);
    }

private:
    QString lockPath() const { return _package->path(u".VMLock.vmlk"_s); }
    struct stat lockStatus() const
    {
        struct stat status { };
        if (stat(QFile::encodeName(lockPath()).constData(), &status) != 0)
            qFatal("no lock file");
        return status;
    }
    // Puts a folder with a file in it at the lock file's path, because such a folder cannot be
    // removed to make room for a lock file.
    void blockLockFile() const { _package->writeFile(u".VMLock.vmlk/x"_s, "x"); }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

QTEST_GUILESS_MAIN(tst_lock)
#include "tst_lock.moc"
