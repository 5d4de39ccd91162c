// SPDX-License-Identifier: GPL-3.0-or-later
// Tests whole conversions on a machine where one kind of system call always fails: what the program
// tells the user, and that it neither loses data nor leaves files behind.
#include "tests/operation/ConversionWorld.h"
#include "tests/support/FailingCall.h"

#include <QDir>
#include <QtTest>

#include <cerrno>

using namespace Qt::StringLiterals;

using World = ConversionWorld;

namespace {

void addRow(const char* name, long call, int error, DBCResultCode code, quint32 message)
{
    QTest::newRow(name) << qlonglong(call) << error << code << message;
}

void addColumns()
{
    QTest::addColumn<qlonglong>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<quint32>("message");
}

QStringList everythingBeside(const World& world)
{
    QStringList names
        = QDir(world.home.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    names.removeAll(u"exported"_s);
    return names;
}

} // namespace

class tst_conversionOnABadDisk : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importFailsAndLeavesThePackageAsItWas_data()
    {
        addColumns();
        using Code = DBCResultCode;
        addRow("folders cannot be flushed", SYS_fsync, EIO, Code::BackupFailure, 311);
        addRow("files cannot be flushed", SYS_fdatasync, EIO, Code::BackupFailure, 311);
        addRow("the disk cannot be flushed", SYS_syncfs, EIO, Code::BackupFailure, 311);
        addRow("the disk is full at the last moment", SYS_syncfs, ENOSPC, Code::BackupFailure, 311);
        addRow("nothing can be renamed", SYS_renameat2, EIO, Code::BackupFailure, 311);
        addRow("contents cannot be copied", SYS_copy_file_range, EIO, Code::BackupFailure, 311);
        addRow("no times can be set", SYS_utimensat, EIO, Code::BackupFailure, 311);
        addRow("no folders can be made", SYS_mkdirat, ENOSPC, Code::BackupFailure, 311);
        addRow("folders cannot be listed", SYS_getdents64, EIO, Code::SizeMeasureFailure, 313);
        addRow("no rights can be set", SYS_fchmod, EPERM, Code::DatabaseOpenFailure, 313);
        addRow("nothing can be locked", SYS_flock, ENOLCK, Code::DatabaseOpenFailure, 313);
    }
    void importFailsAndLeavesThePackageAsItWas()
    {
        QFETCH(qlonglong, call);
        QFETCH(int, error);
        World world;
        const auto before = world.package.contents();
        const QStringList beside = everythingBeside(world);
        bool isDone = true;
        if (!FailingCall(call, error).during([&] { isDone = world.importCards(); }))
            QSKIP("calls cannot be made to fail here");

        QVERIFY(!isDone);
        QTEST(world.controller->outcome().code, "code");
        QCOMPARE(world.presenter.numbers.size(), 1);
        QTEST(world.presenter.numbers.constFirst(), "message");
        QCOMPARE(world.package.contents(), before);
        QCOMPARE(everythingBeside(world), beside);
        world.controller.reset();
        QVERIFY(world.importCards()); // the call no longer fails here
    }

    void exportFailsAndSaysSo_data()
    {
        addColumns();
        using Code = DBCResultCode;
        addRow("the disk cannot be flushed", SYS_syncfs, EIO, Code::VersionFileWriteFailure, 208);
        addRow("folders cannot be listed", SYS_getdents64, EIO, Code::SizeMeasureFailure, 208);
        addRow("contents cannot be copied", SYS_copy_file_range, EIO, Code::AttachmentExportFailure,
            207);
        addRow("nothing can be locked", SYS_flock, ENOLCK, Code::DatabaseOpenFailure, 208);
    }
    void exportFailsAndSaysSo()
    {
        QFETCH(qlonglong, call);
        QFETCH(int, error);
        World world;
        const auto before = world.package.contents();
        bool isDone = true;
        if (!FailingCall(call, error).during([&] { isDone = world.exportCards(); }))
            QSKIP("calls cannot be made to fail here");

        QVERIFY(!isDone);
        QTEST(world.controller->outcome().code, "code");
        QCOMPARE(world.presenter.numbers.size(), 1);
        QTEST(world.presenter.numbers.constFirst(), "message");
        QCOMPARE(world.package.contents(), before);
    }

    // Old systems lack some of the calls that the program prefers. The program must then convert by
    // other calls.
    void oldSystemConvertsAllTheSame_data()
    {
        QTest::addColumn<qlonglong>("call");
        QTest::addColumn<int>("error");
        QTest::newRow("openat2") << qlonglong(SYS_openat2) << ENOSYS;
        QTest::newRow("statx") << qlonglong(SYS_statx) << ENOSYS;
        QTest::newRow("copy_file_range") << qlonglong(SYS_copy_file_range) << ENOSYS;
        QTest::newRow("renameat2") << qlonglong(SYS_renameat2) << ENOSYS;
        QTest::newRow("renaming onto a free name only") << qlonglong(SYS_renameat2) << EINVAL;
    }
    void oldSystemConvertsAllTheSame()
    {
        QFETCH(qlonglong, call);
        QFETCH(int, error);
        World world;
        bool isImported = false;
        bool isExported = false;
        const bool wasPossible = FailingCall(call, error).during([&] {
            isImported = world.importCards();
            isExported = isImported && world.exportCards();
        });
        if (!wasPossible)
            QSKIP("calls cannot be made to fail here");
        QVERIFY(isImported);
        QVERIFY(isExported);
        QCOMPARE(world.exportedRows().size(), 5);
    }
};

QTEST_GUILESS_MAIN(tst_conversionOnABadDisk)
#include "tst_conversionOnABadDisk.moc"
