// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCMountTable.h"

#include "system/DBCHost.h"
#include "tests/support/TestHome.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray line(const QByteArray& mountPoint, const QByteArray& type, const QByteArray& device)
{
    return "36 35 98:0 / " + mountPoint + " rw,noatime master:1 - " + type + ' ' + device
        + " rw,errors=continue\n";
}

QString deviceOf(const QByteArray& table, const QString& path)
{
    const auto volume = DBCMountTable::parse(table).volumeOf(path);
    return volume ? volume->device : u"(none)"_s;
}

} // namespace

class tst_mountTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void longestMountPointHoldsThePath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("device");
        QTest::newRow("root") << u"/"_s << u"/dev/a"_s;
        QTest::newRow("under root") << u"/etc/x"_s << u"/dev/a"_s;
        QTest::newRow("mount point itself") << u"/home"_s << u"/dev/b"_s;
        QTest::newRow("under it") << u"/home/u/x"_s << u"/dev/b"_s;
        QTest::newRow("mount in a mount") << u"/home/u/share/x"_s << u"server:/e"_s;
        QTest::newRow("longer name") << u"/homes/u"_s << u"/dev/a"_s;
    }
    void longestMountPointHoldsThePath()
    {
        QFETCH(QString, path);
        const QByteArray table = line("/home/u/share", "nfs4", "server:/e")
            + line("/", "ext4", "/dev/a") + line("/home", "xfs", "/dev/b");
        QTEST(deviceOf(table, path), "device");
    }

    void laterMountOnTheSamePointHidesTheEarlier()
    {
        const QByteArray table
            = line("/data", "autofs", "systemd-1") + line("/data", "ext4", "/dev/c");
        QCOMPARE(deviceOf(table, u"/data/x"_s), u"/dev/c"_s);
    }

    void pathThatNoMountHoldsHasNoVolume()
    {
        QVERIFY(
            !DBCMountTable::parse(line("/home", "ext4", "/dev/a")).volumeOf(u"/etc"_s).has_value());
    }

    void escapedCharactersAreRead()
    {
        const QByteArray table = line("/a\\040b\\011c\\012d\\134e", "cifs", "//server/my\\040share")
            + line("/\xE5\x90\x8D", "ext4", "/dev/j");
        QCOMPARE(deviceOf(table, u"/a b\tc\nd\\e/file"_s), u"//server/my share"_s);
        QCOMPARE(deviceOf(table, u"/\u540D/x"_s), u"/dev/j"_s);
    }

    void backslashWithoutThreeOctalDigitsStandsForItself()
    {
        QCOMPARE(deviceOf(line("/x", "9p", "C:\\134"), u"/x"_s), u"C:\\"_s);
        QCOMPARE(deviceOf(line("/x", "9p", "a\\9b\\12"), u"/x"_s), u"a\\9b\\12"_s);
        QCOMPARE(deviceOf(line("/x", "9p", "\\-12\\1-2\\12-"), u"/x"_s), u"\\-12\\1-2\\12-"_s);
    }

    void linesWithAnyNumberOfOptionalFieldsAreRead()
    {
        const QByteArray none = "1 2 8:1 / /a rw - ext4 /dev/a rw\n";
        const QByteArray two = "1 2 8:1 / /b rw shared:1 master:2 - ext4 /dev/b rw\n";
        const QByteArray dash = "1 2 8:1 - /c rw - ext4 /dev/c rw\n";
        QCOMPARE(deviceOf(none + two + dash, u"/a"_s), u"/dev/a"_s);
        QCOMPARE(deviceOf(none + two + dash, u"/b"_s), u"/dev/b"_s);
        QCOMPARE(deviceOf(none + two + dash, u"/c"_s), u"/dev/c"_s);
    }

    void linesOfAnotherFormArePassedOver()
    {
        const QByteArray table = "\n1 2 3\nno separator here at all rw ext4 /dev/x rw\n"
                                 "1 2 8:1 / /a rw -\n1 2 8:1 / /a rw - ext4\n"
            + line("/", "ext4", "/dev/a");
        QCOMPARE(deviceOf(table, u"/a"_s), u"/dev/a"_s);
    }

    void missingTableCannotBeRead()
    {
        const TestHome home;
        QVERIFY(!DBCMountTable::read(home.path(u"missing"_s)).has_value());
        QVERIFY(!DBCMountTable::read(home.path()).has_value());
        // Opening this file succeeds, and reading it fails.
        QVERIFY(!DBCMountTable::read(u"/proc/self/mem"_s).has_value());
    }

    void realTableCoversTheKernelsOwnFolder()
    {
        const auto table = DBCMountTable::read(DBCHost::real().mountTable);
        QVERIFY(table.has_value());
        const auto volume = table->volumeOf(u"/proc"_s);
        QVERIFY(volume.has_value());
        QCOMPARE(volume->type, u"proc"_s);
    }

    void fileSystemIsToldByItsNumber()
    {
        QVERIFY(!isOnNetworkFileSystem(u"/proc"_s));
        QVERIFY(isOnNetworkFileSystem(u"/proc/no such place"_s));
    }

    void volumesAreLocalOrOnTheNetwork_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("device");
        QTest::addColumn<bool>("network");
        const auto row = [](const char* type, const char* device, bool network) {
            QTest::addRow("%s %s", type, device)
                << QString::fromLatin1(type) << QString::fromLatin1(device) << network;
        };
        row("ext4", "/dev/sda1", false);
        row("xfs", "/dev/mapper/vg-home", false);
        row("btrfs", "/dev/nvme0n1p2", false);
        row("vfat", "/dev/sdb1", false);
        row("fuseblk", "/dev/disk/by-path/pci-0000:00:1f.2", false);
        row("overlay", "overlay", false);
        row("tmpfs", "tmpfs", false);
        row("zfs", "pool/home", false);
        row("fuse.bindfs", "/srv/cards", false);
        row("fuse.mergerfs", "/mnt/a:/mnt/b", false);
        row("nfs", "server:/export", true);
        row("nfs4", "server:/dev", true);
        row("cifs", "//server/share", true);
        row("smb3", "//server/share", true);
        row("9p", "/dev/root", true);
        row("fuse.sshfs", "user@host:", true);
        row("fuse.unknown", "user@host:", true);
        row("fuse.unknown", "cards", false);
        row("fuse", "https://host/dav", true);
        row("fuse.rclone", "remote:folder", true);
        row("fuse.unknown", "//host/share", true);
        row("davfs", "http://host", true);
        row("afs", "AFS", true);
        row("ceph", "mon1,mon2:/", true);
        row("autofs", "/etc/auto.misc", true);
    }
    void volumesAreLocalOrOnTheNetwork()
    {
        QFETCH(QString, type);
        QFETCH(QString, device);
        const DBCMountedVolume volume {u"/x"_s, type, device};
        QTEST(volume.isNetwork(), "network");
    }
};

QTEST_GUILESS_MAIN(tst_mountTable)
#include "tst_mountTable.moc"
