// SPDX-License-Identifier: GPL-3.0-or-later
// Makes one kind of system call fail at a time, and tests how the program then copies, compares and
// examines files.
#include "operation/copy/DBCTreeComparison.h"
#include "operation/copy/DBCTreeCopy.h"
#include "system/DBCDescriptor.h"
#include "system/DBCDiskFlush.h"
#include "system/DBCExtendedAttributes.h"
#include "system/DBCHost.h"
#include "system/DBCOpenInside.h"
#include "system/DBCPathChecks.h"
#include "system/DBCStandardDescriptors.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FailingCall.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QtTest>

#include <cerrno>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/xattr.h>

using namespace Qt::StringLiterals;

namespace {

struct Tree {
    Tree()
    {
        home.writeFile(u"tree/file"_s, "text");
        home.writeFile(u"tree/folder/inner"_s, "inner");
        QFile::link(u"file"_s, home.path(u"tree/link"_s));
    }

    TestHome home;
    QByteArray source = QFile::encodeName(home.makeFolder(u"tree"_s));
    QByteArray target = QFile::encodeName(home.path(u"copy"_s));
};

DBCDescriptor opened(const QString& path)
{
    return DBCDescriptor(open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC));
}

// Binds the socket to a relative path, because the system limits a socket's path to about a hundred
// bytes.
void makeSocket(const QString& path)
{
    const QString old = QDir::currentPath();
    QVERIFY(QDir::setCurrent(QFileInfo(path).path()));
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(QFileInfo(path).fileName()).constData(),
        sizeof address.sun_path);
    const DBCDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    // bind() expects the general type of an address.
    QCOMPARE(bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    QDir::setCurrent(old);
}

// Sets or clears the immutable attribute. Returns false if the user may not change the attribute or
// if the file system does not have it.
bool setImmutable(const QString& path, bool immutable)
{
    const DBCDescriptor file = opened(path);
    int flags = 0;
    if (ioctl(file.get(), FS_IOC_GETFLAGS, &flags) != 0)
        return false;
    flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
    return ioctl(file.get(), FS_IOC_SETFLAGS, &flags) == 0;
}

} // namespace

class tst_badDisk_files : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!FailingCall(SYS_fsync, EIO).during([] {}))
            QSKIP("calls cannot be made to fail here");
    }

    void copyThatFailsInTheMiddleSaysSo_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::newRow("looking") << qlonglong(SYS_newfstatat);
        QTest::newRow("opening") << qlonglong(SYS_openat);
        QTest::newRow("listing") << qlonglong(SYS_getdents64);
        QTest::newRow("contents") << qlonglong(SYS_copy_file_range);
        QTest::newRow("reading a link") << qlonglong(SYS_readlinkat);
        QTest::newRow("making a link") << qlonglong(SYS_symlinkat);
        QTest::newRow("making a folder") << qlonglong(SYS_mkdirat);
        QTest::newRow("permissions") << qlonglong(SYS_fchmod);
        QTest::newRow("times") << qlonglong(SYS_utimensat);
        QTest::newRow("listing attributes") << qlonglong(SYS_flistxattr);
        QTest::newRow("closing") << qlonglong(SYS_close);
    }
    void copyThatFailsInTheMiddleSaysSo()
    {
        QFETCH(qlonglong, call);
        const Tree tree;
        bool isCopied = true;
        QVERIFY(FailingCall(call, EIO).during(
            [&] { isCopied = DBCTreeCopy().copy(tree.source, tree.target); }));
        QVERIFY(!isCopied);
    }

    void whatCannotBeLookedAtCountsAsThere()
    {
        const Tree tree;
        const QString path = QFile::decodeName(tree.source);
        bool isTaken = false;
        QVERIFY(FailingCall(SYS_newfstatat, EIO).during([&] { isTaken = ::isTaken(path); }));
        QVERIFY(isTaken);
        QVERIFY(!::isTaken(QFile::decodeName(tree.target)));
        QVERIFY(!::isTaken(path + u"/file/below"_s));
    }

    void ownerThatCannotBeKeptIsNoFailure()
    {
        const Tree tree;
        bool isCopied = false;
        QVERIFY(FailingCall(SYS_fchown, EPERM).during([&] {
            isCopied = DBCTreeCopy().copy(tree.source, tree.target);
        }));
        QVERIFY(isCopied);
    }

    void comparisonThatFailsFindsNothingTheSame_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::newRow("looking") << qlonglong(SYS_newfstatat);
        QTest::newRow("opening") << qlonglong(SYS_openat);
        QTest::newRow("listing") << qlonglong(SYS_getdents64);
        QTest::newRow("reading") << qlonglong(SYS_read);
        QTest::newRow("reading a link") << qlonglong(SYS_readlinkat);
    }
    void comparisonThatFailsFindsNothingTheSame()
    {
        QFETCH(qlonglong, call);
        const Tree tree;
        QVERIFY(DBCTreeCopy().copy(tree.source, tree.target));
        QVERIFY(DBCTreeComparison().areEqual(tree.source, tree.target));
        bool areEqual = true;
        QVERIFY(FailingCall(call, EIO).during(
            [&] { areEqual = DBCTreeComparison().areEqual(tree.source, tree.target); }));
        QVERIFY(!areEqual);
    }

    void failedFlushIsToldAndWorksAgainLater()
    {
        const TestHome home;
        bool disk = true;
        bool folder = true;
        QVERIFY(FailingCall(SYS_syncfs, EIO).during([&] {
            disk = DBCDiskFlush::fileSystemOf(home.path());
        }));
        QVERIFY(FailingCall(SYS_fsync, EIO).during([&] {
            folder = DBCDiskFlush::folder(home.path());
        }));
        QVERIFY(!disk);
        QVERIFY(!folder);
        QVERIFY(DBCDiskFlush::fileSystemOf(home.path()));
        QVERIFY(DBCDiskFlush::folder(home.path()));
        QVERIFY(!DBCDiskFlush::fileSystemOf(home.path(u"none"_s)));
        QVERIFY(!DBCDiskFlush::folder(home.path(u"none"_s)));
    }

    void attributesThatCannotBeKept_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::addColumn<int>("error");
        QTest::addColumn<bool>("isFailure");
        const auto row = [](const char* name, long call, int error, bool isFailure) {
            QTest::newRow(name) << qlonglong(call) << error << isFailure;
        };
        row("a list that cannot be read", SYS_flistxattr, EIO, true);
        row("a system without them", SYS_flistxattr, ENOSYS, false);
        row("a value that cannot be read", SYS_fgetxattr, EIO, true);
        row("a value that vanished", SYS_fgetxattr, ENODATA, false);
        row("a full disk", SYS_fsetxattr, ENOSPC, true);
        row("a target without them", SYS_fsetxattr, EOPNOTSUPP, false);
    }
    void attributesThatCannotBeKept()
    {
        QFETCH(qlonglong, call);
        QFETCH(int, error);
        QFETCH(bool, isFailure);
        const TestHome home;
        const DBCDescriptor from = opened(home.writeFile(u"from"_s, "x"));
        const DBCDescriptor to = opened(home.writeFile(u"to"_s, "x"));
        if (fsetxattr(from.get(), "user.comment", "x", 1, 0) != 0)
            QSKIP("this file system keeps no attributes");
        bool areCopied = isFailure;
        QVERIFY(FailingCall(call, error).during([&] {
            areCopied = copyExtendedAttributes(from.get(), to.get());
        }));
        QCOMPARE(areCopied, !isFailure);
    }

    void systemWithoutTheCallOpensNoLinksAtTheEnd_data()
    {
        QTest::addColumn<int>("error");
        QTest::newRow("old system") << ENOSYS;
        QTest::newRow("container") << EPERM;
    }
    void systemWithoutTheCallOpensNoLinksAtTheEnd()
    {
        QFETCH(int, error);
        const Tree tree;
        const QString folder = tree.home.path(u"tree"_s);
        bool isFileOpen = false;
        bool isLinkOpen = true;
        QVERIFY(FailingCall(SYS_openat2, error).during([&] {
            isFileOpen = bool(openInside(folder, folder + u"/folder/inner"_s, O_RDONLY));
            isLinkOpen = bool(openInside(folder, folder + u"/link"_s, O_RDONLY));
        }));
        QVERIFY(isFileOpen);
        QVERIFY(!isLinkOpen);
    }

    void immutableAttributeIsSeenOnAnOldSystem()
    {
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        const bool canBeSet = setImmutable(file, true);
        const auto cleared = qScopeGuard([&file] { setImmutable(file, false); });
        std::optional<bool> immutable;
        QVERIFY(FailingCall(SYS_statx, ENOSYS).during([&] {
            immutable = DBCHost::real().isImmutable(file);
        }));
        QCOMPARE(immutable, std::optional(canBeSet));
    }

    void whatHasNoFlagsIsNotImmutableOnAnOldSystem_data()
    {
        QTest::addColumn<QString>("path"); // %1 is replaced by the home folder
        QTest::addColumn<int>("immutable"); // -1 if the attribute cannot be read
        const auto row = [](const char* name, const char* path, int immutable) {
            QTest::newRow(name) << QString::fromLatin1(path) << immutable;
        };
        row("folder", "%1", 0);
        row("pipe", "%1/pipe", 0);
        row("socket", "%1/socket", 0);
        row("unreadable file", "%1/unreadable", 0);
        row("kernel's own", "/proc/self/comm", 0);
        row("missing", "%1/none", -1);
    }
    void whatHasNoFlagsIsNotImmutableOnAnOldSystem()
    {
        QFETCH(QString, path);
        QFETCH(int, immutable);
        const AsOrdinaryUser user;
        const TestHome home;
        QCOMPARE(mkfifo(QFile::encodeName(home.path(u"pipe"_s)).constData(), 0600), 0);
        makeSocket(home.path(u"socket"_s));
        const ScopedMode mode(home.writeFile(u"unreadable"_s, "x"), 0);
        std::optional<bool> found;
        QVERIFY(FailingCall(SYS_statx, ENOSYS).during([&] {
            found = DBCHost::real().isImmutable(path.replace(u"%1"_s, home.path()));
        }));
        QCOMPARE(found, immutable < 0 ? std::nullopt : std::optional(immutable != 0));
    }

    void attributesThatCannotBeReadAreNotTakenForNone_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<bool>("isTold");
        QTest::newRow("no such question") << ENOTTY << true;
        QTest::newRow("no support") << EOPNOTSUPP << true;
        QTest::newRow("no sense") << EINVAL << true;
        QTest::newRow("old system") << ENOSYS << true;
        QTest::newRow("no right") << EACCES << true;
        QTest::newRow("no permission") << EPERM << true;
        QTest::newRow("bad disk") << EIO << false;
    }
    void attributesThatCannotBeReadAreNotTakenForNone()
    {
        QFETCH(int, error);
        QFETCH(bool, isTold);
        const TestHome home;
        std::optional<bool> immutable;
        QVERIFY(FailingCall(SYS_statx, EPERM).during([&] {
            QVERIFY(FailingCall(SYS_ioctl, error).during([&] {
                immutable = DBCHost::real().isImmutable(home.path());
            }));
        }));
        QCOMPARE(immutable, isTold ? std::optional(false) : std::nullopt);
        QVERIFY(FailingCall(SYS_statx, EIO).during([&] {
            immutable = DBCHost::real().isImmutable(home.path());
        }));
        QCOMPARE(immutable, std::nullopt);
    }

    void processWithoutFreeDescriptorsKeepsThoseItHas()
    {
        QVERIFY(FailingCall(SYS_openat, EMFILE).during(keepStandardDescriptorsOpen));
        QVERIFY(fcntl(STDERR_FILENO, F_GETFD) != -1);
    }
};

QTEST_GUILESS_MAIN(tst_badDisk_files)
#include "tst_badDisk_files.moc"
