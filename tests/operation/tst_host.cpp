// SPDX-License-Identifier: GPL-3.0-or-later
// Tests what DBCHost tells about the real machine. Other tests replace these answers.
#include "system/DBCHost.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t nobody = 65534;

QByteArray bytesOf(const QString& path)
{
    return QFile::encodeName(path);
}

// Runs a check without root's rights. It just runs the check if the test does not run as root.
template <typename Check> auto asOrdinaryUser(Check check)
{
    const bool wasRoot = geteuid() == 0;
    if (wasRoot && seteuid(nobody) != 0)
        qFatal("cannot drop root");
    const auto answer = check();
    if (wasRoot && seteuid(0) != 0)
        qFatal("cannot become root again");
    return answer;
}

// Sets or clears the immutable attribute. Returns false if the user may not change the attribute or
// if the file system does not have it.
bool setImmutable(const QString& path, bool immutable)
{
    const int file = open(bytesOf(path).constData(), O_RDONLY | O_CLOEXEC);
    int flags = 0;
    bool done = ioctl(file, FS_IOC_GETFLAGS, &flags) == 0;
    flags = immutable ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
    done = done && ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
    close(file);
    return done;
}

} // namespace

class tst_host : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freeBytesAreThoseOfTheFileSystemThatHoldsThePath()
    {
        const TestHome home;
        const std::optional<quint64> free = DBCHost::real().freeBytes(home.path());
        QVERIFY(free.has_value());
        QProcess df;
        df.start(u"df"_s, {u"--block-size=1"_s, u"--output=avail"_s, home.path()});
        QVERIFY(df.waitForFinished());
        const quint64 expected = df.readAllStandardOutput().split('\n').value(1).toULongLong();
        const quint64 drift = 512u << 20; // other processes may use or free space meanwhile
        QVERIFY(*free < expected + drift && expected < *free + drift);
    }

    void missingPathHasNoFreeBytes()
    {
        const TestHome home;
        QVERIFY(!DBCHost::real().freeBytes(home.path(u"missing"_s)).has_value());
    }

    void ordinaryFileAndFolderAreNotImmutable()
    {
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        QCOMPARE(DBCHost::real().isImmutable(file), std::optional(false));
        QCOMPARE(DBCHost::real().isImmutable(home.path()), std::optional(false));
    }

    void immutableAttributeIsSeenThroughALink()
    {
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        const QString link = home.path(u"link"_s);
        QVERIFY(QFile::link(file, link));
        if (!setImmutable(file, true))
            QSKIP("this user or file system cannot set the immutable attribute");
        const auto cleared = qScopeGuard([&file] { setImmutable(file, false); });
        QCOMPARE(DBCHost::real().isImmutable(file), std::optional(true));
        QCOMPARE(DBCHost::real().isImmutable(link), std::optional(true));
    }

    void fileSystemWithoutFlagsHasNoneSet()
    {
        QCOMPARE(DBCHost::real().isImmutable(u"/proc/self/comm"_s), std::optional(false));
    }

    void attributesOfAMissingFileCannotBeRead()
    {
        const TestHome home;
        QVERIFY(!DBCHost::real().isImmutable(home.path(u"missing"_s)).has_value());
    }

    void attributesOfAnUnreadableFileAreNotAFailure()
    {
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        QCOMPARE(chmod(bytesOf(home.path()).constData(), 0755), 0);
        QCOMPARE(chmod(bytesOf(file).constData(), 0000), 0);
        const auto immutable
            = asOrdinaryUser([&file] { return DBCHost::real().isImmutable(file); });
        QCOMPARE(immutable, std::optional(false));
    }

    void attributesOfAFileOutOfReachAreNotAFailure()
    {
        const TestHome home;
        const QString file = home.writeFile(u"closed/file"_s, "x");
        QCOMPARE(chmod(bytesOf(home.path()).constData(), 0755), 0);
        const ScopedMode mode(home.path(u"closed"_s), S_IRUSR);
        const auto immutable
            = asOrdinaryUser([&file] { return DBCHost::real().isImmutable(file); });
        QCOMPARE(immutable, std::optional(false));
    }

    void attributesOfAnUnreadableFileWithoutFlagsAreNotAFailure()
    {
        const QString file = u"/proc/self/auxv"_s; // belongs to root if root runs the test
        const auto immutable
            = asOrdinaryUser([&file] { return DBCHost::real().isImmutable(file); });
        QCOMPARE(immutable, std::optional(false));
    }

    void attributesOfAPipeAreReadWithoutWaiting()
    {
        const TestHome home;
        const QString pipe = home.path(u"pipe"_s);
        QCOMPARE(mkfifo(bytesOf(pipe).constData(), 0600), 0);
        QCOMPARE(DBCHost::real().isImmutable(pipe), std::optional(false));
    }

    void accessIsThatOfTheEffectiveUser_data()
    {
        QTest::addColumn<uint>("mode");
        QTest::addColumn<bool>("readable");
        QTest::addColumn<bool>("writable");
        QTest::newRow("none") << 0000u << false << false;
        QTest::newRow("read") << 0444u << true << false;
        QTest::newRow("write") << 0222u << false << true;
        QTest::newRow("both") << 0666u << true << true;
    }

    void accessIsThatOfTheEffectiveUser()
    {
        QFETCH(uint, mode);
        const TestHome home;
        const QString file = home.writeFile(u"file"_s, "x");
        QCOMPARE(chmod(bytesOf(home.path()).constData(), 0755), 0);
        QCOMPARE(chmod(bytesOf(file).constData(), mode), 0);
        QTEST(asOrdinaryUser([&file] { return DBCHost::real().isReadable(file); }), "readable");
        QTEST(asOrdinaryUser([&file] { return DBCHost::real().isWritable(file); }), "writable");
    }

    void missingFileIsNeitherReadableNorWritable()
    {
        const TestHome home;
        const QString missing = home.path(u"missing"_s);
        QVERIFY(!DBCHost::real().isReadable(missing));
        QVERIFY(!DBCHost::real().isWritable(missing));
    }

    void systemVersionCannotBeAsked() { QVERIFY(!DBCHost::real().systemVersion().has_value()); }

    void runningApplicationsHoldThisProgramByFileAndByName()
    {
        QCOMPARE(prctl(PR_SET_NAME, "renamed itself"), 0);
        const auto renamed = qScopeGuard([] { prctl(PR_SET_NAME, "tst_host"); });
        const QStringList names = DBCHost::real().runningApplications();
        QVERIFY(names.contains(u"tst_host"_s));
        QVERIFY(names.contains(u"renamed itself"_s));
    }

    void programFolderIsWhereThisProgramStands()
    {
        QCOMPARE(DBCHost::real().programFolder, QCoreApplication::applicationDirPath());
    }

    void placesAreThoseOfTheSystem()
    {
        const DBCHost host = DBCHost::real();
        QCOMPARE(host.applicationsFolder, u"/Applications"_s);
        QCOMPARE(host.diskUsageProgram, u"/usr/bin/du"_s);
        QCOMPARE(host.mountTable, u"/proc/self/mountinfo"_s);
    }
};

QTEST_GUILESS_MAIN(tst_host)
#include "tst_host.moc"
