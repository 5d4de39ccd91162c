// SPDX-License-Identifier: GPL-3.0-or-later
// Tests whole conversions in an environment with a fault: no log can be written, the disk is full,
// rights are missing, another conversion uses the package, or no thread can be started.
#include "carddb/DBCPackageGuard.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/operation/ConversionWorld.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FailingCall.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/ScriptedConversion.h"

#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

using World = ConversionWorld;

namespace {

// Replaces the program "du", which measures files, by a script that fails for every path with the
// given ending and works for all other paths.
void failToMeasure(World& world, const char* ending)
{
    const QString program = world.home.writeFile(u"du"_s,
        QByteArray("#!/bin/sh\ncase \"$3\" in *") + ending
            + ") exit 1 ;; esac\nexec /usr/bin/du \"$@\"\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
    world.host->diskUsageProgram = program;
}

// Writes a file where the log's folder should be, so that the program cannot write a log.
void takeTheLogAway(World& world)
{
    world.home.writeFile(u"home/Library"_s, "no folder");
}

} // namespace

class tst_conversionFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importWithoutALogStoresTheCards()
    {
        World world;
        takeTheLogAway(world);

        QVERIFY(world.importCards());

        QCOMPARE(world.package.value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 4);
        QVERIFY(world.presenter.numbers.isEmpty());
        QVERIFY(world.controller->logFilePath().isEmpty());
    }

    void exportWithoutALogWritesTheCards()
    {
        World world;
        takeTheLogAway(world);

        QVERIFY(world.exportCards());

        QCOMPARE(world.exportedRows().size(), 2);
        QVERIFY(world.presenter.numbers.isEmpty());
    }

    void failedImportWithoutALogIsStillTold()
    {
        World world;
        takeTheLogAway(world);
        QVERIFY(QFile::remove(world.folder.dataFilePath()));
        const auto before = world.package.contents();

        QVERIFY(!world.importCards());

        QCOMPARE(world.presenter.numbers, QList<quint32> {313});
        QCOMPARE(world.package.contents(), before);
    }

    void folderThatCannotBeMeasuredWithoutALogIsStillTold()
    {
        World world;
        takeTheLogAway(world);
        failToMeasure(world, "");

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::SizeMeasureFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {313});
    }

    void imageThatCannotBeMeasuredEndsTheExport()
    {
        World world;
        failToMeasure(world, ".pdf");

        QVERIFY(!world.exportCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::SizeMeasureFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {208});
        QVERIFY(world.home.logText().contains(u".pdf"_s));
        QVERIFY(world.exportedRows().isEmpty());
    }

    void versionFileThatCannotBeWrittenIsTheExportsError()
    {
        World world;
        world.home.makeFolder(
            u"exported/"_s + DBCInterchangeNames::rootFolderName() + u"/Version.txt"_s);

        QVERIFY(!world.exportCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::VersionFileWriteFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {208});
        QCOMPARE(world.exportedRows().size(), 2); // the export keeps the rows that it wrote
    }

    void diskThatFillsUpInTheDataFileEndsTheExport()
    {
        World world;
        world.package.execute(u"DELETE FROM ZCARD"_s);
        world.package.card();
        world.package.card({{"ZMEMO", QString(4000, QChar(0x3042))}});
        bool hasEnded = true;
        {
            const FileSizeLimit full(4096);
            hasEnded = world.exportCards();
        }

        QVERIFY(!hasEnded);
        QCOMPARE(world.controller->outcome().code, DBCResultCode::DataFileWriteFailure);
        QCOMPARE(world.controller->outcome().finishedCount, 1);
        QCOMPARE(world.presenter.numbers, QList<quint32> {208});
    }

    void packageFolderThatCannotBeWrittenIsNotImportedInto()
    {
        const AsOrdinaryUser user;
        World world;
        const auto before = world.package.contents();
        {
            const ScopedMode mode(world.package.storePath(), S_IRUSR);
            QVERIFY(!world.importCards());
        }

        QCOMPARE(world.controller->outcome().code, DBCResultCode::BackupFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {311});
        QCOMPARE(world.package.contents(), before);
    }

    void dataFileThatCannotBeReadLeavesThePackageAsItWas()
    {
        const AsOrdinaryUser user;
        World world;
        const auto before = world.package.contents();
        const ScopedMode mode(world.folder.dataFilePath(), 0);

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::DataFileOpenFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {310});
        QCOMPARE(world.package.contents(), before);
    }

    void packageThatAnotherConversionChangesIsNotOpened()
    {
        World world;
        const auto other
            = DBCPackageGuard::hold(world.package.path(), DBCPackageGuard::Use::Changing);
        const auto before = world.package.contents();
        for (const bool isImport : {true, false}) {
            QVERIFY(isImport ? !world.importCards() : !world.exportCards());
            QCOMPARE(world.controller->outcome().code, DBCResultCode::DatabaseOpenFailure);
        }
        QCOMPARE(world.presenter.numbers, (QList<quint32> {313, 208}));
        QVERIFY(world.home.logText().contains(
            getLocalString(u"IDS_LOG_ERR_PACKAGE_IN_USE"_s, {world.package.path()})));
        QCOMPARE(world.package.contents(), before);
    }

    void packageThatAnotherConversionReadsIsOnlyExported()
    {
        World world;
        const auto other
            = DBCPackageGuard::hold(world.package.path(), DBCPackageGuard::Use::Reading);
        QVERIFY(!world.importCards());
        QCOMPARE(world.controller->outcome().code, DBCResultCode::DatabaseOpenFailure);
        QVERIFY(world.exportCards());
    }

    void systemWithoutAThreadForItFailsTheConversion()
    {
        const ScriptedConversion conversion(OperationType::Import);
        bool hasStarted = true;

        const bool wasPossible = FailingCall(SYS_clone3, EAGAIN).during([&] {
            const std::unique_ptr<QThread> operation(
                QThread::create([&] { conversion.controller->run(); }));
            hasStarted = conversion.controller->start(operation.get());
            operation->wait();
        });
        if (!wasPossible)
            QSKIP("system calls cannot be made to fail here");

        QVERIFY(!hasStarted);
        QCOMPARE(conversion.presenter.numbers, QList<quint32> {102});
        QCOMPARE(conversion.receiver.events,
            QStringList {u"DBC_OperationDidFinishedNotification ok=false"_s});
        QVERIFY(conversion.script.calls.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_conversionFaults)
#include "tst_conversionFaults.moc"
