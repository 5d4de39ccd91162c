// SPDX-License-Identifier: GPL-3.0-or-later
// The import's steps with a scripted database and data file: what is sent, logged, shown and undone
// in each situation.
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

namespace {

const QStringList backupEvents {
    QStringLiteral("DBC_DatabaseBackupWillBeginNotification"),
    QStringLiteral("DBC_DatabaseBackupDidFinishedNotification ok=true"),
};
const QStringList restoreEvents {
    QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
    QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification ok=true"),
};
const QString endedWell = QStringLiteral("DBC_OperationDidFinishedNotification ok=true");
const QString endedBadly = QStringLiteral("DBC_OperationDidFinishedNotification ok=false");

QString running(int max, int finished)
{
    return QStringLiteral("DBC_ImportIsRunningNotification max=%1 finished=%2")
        .arg(max)
        .arg(finished);
}

QString loaded(int max)
{
    return QStringLiteral("DBC_ImportDataLoadDidFinishedNotification max=%1 finished=0").arg(max);
}

struct Import : ScriptedConversion {
    Import()
        : ScriptedConversion(OperationType::Import)
    {
    }
    DBCLocalizable::Substitute texts {shortTexts()};

    DBCResultCode code() const { return controller->outcome().code; }
    QString startLine() const
    {
        return QStringLiteral("[Info] begin IMPORT From:[%1]  To:[%2]").arg(folder, package);
    }
    QStringList backupLines() const
    {
        return {QStringLiteral("[Info] begin BACKUP"), QStringLiteral("[Info] end BACKUP"),
            QStringLiteral("[Info] backup at ") + script.backupPath};
    }
    // The log without its separator line, which every run begins with.
    QStringList logAfterSeparator() const { return log().mid(1); }
};

const QStringList restoreLines {
    QStringLiteral("[Info] begin RESTORE"),
    QStringLiteral("[Info] end RESTORE"),
};
const QString importBegins = QStringLiteral("DBC_ImportWillBeginNotification");

} // namespace

class tst_importSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoRecordsAreStoredAndSaved();
    void zeroRecordsAreSavedAsZeroOfZero();
    void warningsAreNoticedInTheEndLine();

    void folderOfTheRefusedProductIsTurnedAway();
    void versionFileIsJudgedBeforeAnythingElse_data();
    void versionFileIsJudgedBeforeAnythingElse();
    void folderThatCannotBeMeasuredEndsTheImport();
    void missingPackageIsAnError();
    void tooLittleSpaceIsAnError();
    void spaceForTheFolderAndTheMarginIsEnough();
    void packageThatDoesNotOpenIsAnError();
    void failedBackupEndsTheImportWithoutRestore_data();
    void failedBackupEndsTheImportWithoutRestore();
    void blankBackupPathStaysOutOfTheMessage();

    void readerThatCannotBeMadeIsRestored();
    void readersErrorIsRestored_data();
    void readersErrorIsRestored();
    void recordsBeforeABadLineAreNotStored();
    void errorAtTheLastRecordIsRestored();
    void folderDeletedWhileImportingIsAnError();
    void packageDeletedWhileImportingIsAnError();
    void exceptionWhileStoringIsRestored();
    void failedSaveIsRestored();
    void failedRestoreReplacesTheError();
    void failedRestoreWithoutBackupPath();

    void withoutErrorSlotNothingHappens();
    void estimateWithoutErrorSlotIsZero();
    void estimateIsTheFoldersDiskUsage();
    void errorsBecomeTheirMessages_data();
    void errorsBecomeTheirMessages();
};

void tst_importSequence::twoRecordsAreStoredAndSaved()
{
    Import import;
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    import.makesBackup();

    QVERIFY(import.controller->run());

    QCOMPARE(import.receiver.events,
        backupEvents
            + QStringList({importBegins, loaded(2), running(2, 1), running(2, 2),
                QStringLiteral("DBC_ImportDidFinishedNotification max=2 finished=2"), endedWell}));
    QCOMPARE(import.logAfterSeparator(),
        QStringList(import.startLine()) + import.backupLines()
            + QStringList(QStringLiteral("[Info] end IMPORT| |2|2")));
    QCOMPARE(import.script.calls,
        QStringList({QStringLiteral("open Velmora DB.vmdb"), QStringLiteral("backup"),
            QStringLiteral("load"), QStringLiteral("release reader"), QStringLiteral("add Sato"),
            QStringLiteral("add Suzuki"), QStringLiteral("save"), QStringLiteral("close")}));
    QVERIFY(import.hasBackup());
    QVERIFY(import.presenter.numbers.isEmpty());
    QCOMPARE(import.code(), DBCResultCode::Success);
    QCOMPARE(import.controller->outcome().maxCount, 2);
    QCOMPARE(import.controller->outcome().finishedCount, 2);
    QCOMPARE(import.controller->outcome().backupPath, import.script.backupPath);
}

void tst_importSequence::zeroRecordsAreSavedAsZeroOfZero()
{
    Import import;
    import.makesBackup();

    QVERIFY(import.controller->run());

    QCOMPARE(import.receiver.events,
        backupEvents
            + QStringList({importBegins, loaded(0),
                QStringLiteral("DBC_ImportDidFinishedNotification max=0 finished=0"), endedWell}));
    QVERIFY(import.script.calls.contains(QStringLiteral("save")));
    QCOMPARE(import.log().constLast(), QStringLiteral("[Info] end IMPORT| |0|0"));
}

void tst_importSequence::warningsAreNoticedInTheEndLine()
{
    Import import;
    import.hasCards({QStringLiteral("Sato")});
    import.makesBackup();
    import.script.onAdd = [](int) { DBCLog::warning(QStringLiteral("no such image"));
    return DBCError();
};

QVERIFY(import.controller->run());

QCOMPARE(import.log().constLast(), QStringLiteral("[Info] end IMPORT|SEE LOG|1|1"));
}

void tst_importSequence::folderOfTheRefusedProductIsTurnedAway()
{
    Import import;
    import.hasCards({QStringLiteral("Sato")});
    import.writeVersion(QStringLiteral("TELKA\tV1.0L10\r\n"));

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::VersionFileRefusedProduct);
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QCOMPARE(import.logAfterSeparator(),
        QStringList({import.startLine(), QStringLiteral("[Error] message 314"),
            QStringLiteral("[Info] end IMPORT|SEE LOG|0|0")}));
    QCOMPARE(import.presenter.numbers, QList<quint32> {314});
    QVERIFY(import.script.calls.isEmpty());
}

void tst_importSequence::versionFileIsJudgedBeforeAnythingElse_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("other version") << QStringLiteral("ACME\tV1.0L11\r\n");
    QTest::newRow("no tab") << QStringLiteral("ACME V1.0L10\r\n");
    QTest::newRow("empty") << QString();
}

void tst_importSequence::versionFileIsJudgedBeforeAnythingElse()
{
    QFETCH(QString, text);
    Import import;
    import.writeVersion(text);
    QVERIFY(QDir(import.package).removeRecursively());

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::VersionFileMismatch);
    QCOMPARE(import.presenter.numbers, QList<quint32> {316});
    QVERIFY(import.script.calls.isEmpty());
}

void tst_importSequence::folderThatCannotBeMeasuredEndsTheImport()
{
    Import import;
    import.measuresBy("exit 1");

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::SizeMeasureFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QVERIFY(import.script.calls.isEmpty());
}

void tst_importSequence::missingPackageIsAnError()
{
    Import import;
    QVERIFY(QDir(import.package).removeRecursively());

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QVERIFY(import.script.calls.isEmpty());
}

void tst_importSequence::tooLittleSpaceIsAnError()
{
    Import import;
    import.host.setFreeBytes(0x80000);

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::NoSpace);
    QCOMPARE(import.presenter.numbers, QList<quint32> {103});
    QCOMPARE(import.logAfterSeparator(),
        QStringList({import.startLine(), QStringLiteral("[Error] message 103"),
            QStringLiteral("[Info] end IMPORT|SEE LOG|0|0")}));
    QVERIFY(import.script.calls.isEmpty());
}

void tst_importSequence::spaceForTheFolderAndTheMarginIsEnough()
{
    Import import;
    import.makesBackup();
    import.measuresBy("printf '100\\t%s\\n' \"$3\"");
    import.host.setFreeBytes(100 * 1024 + 0x80000);
    QVERIFY(import.controller->run());

    Import shortOfOne;
    shortOfOne.measuresBy("printf '100\\t%s\\n' \"$3\"");
    shortOfOne.host.setFreeBytes(100 * 1024 + 0x80000 - 1);
    QVERIFY(!shortOfOne.controller->run());
    QCOMPARE(shortOfOne.code(), DBCResultCode::NoSpace);
}

void tst_importSequence::packageThatDoesNotOpenIsAnError()
{
    Import import;
    import.script.opens = false;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::DatabaseOpenFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QCOMPARE(import.logAfterSeparator(),
        QStringList({import.startLine(), QStringLiteral("[Error] message 313"),
            QStringLiteral("[Info] end IMPORT|SEE LOG|0|0")}));
}

void tst_importSequence::failedBackupEndsTheImportWithoutRestore_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::newRow("copy failed") << DBCResultCode::BackupFailure;
    QTest::newRow("no space") << DBCResultCode::NoSpaceForBackup;
}

void tst_importSequence::failedBackupEndsTheImportWithoutRestore()
{
    QFETCH(DBCResultCode, code);
    Import import;
    import.hasCards({QStringLiteral("Sato")});
    import.script.backupResult = code;
    import.script.backupPath = QStringLiteral("/somewhere/DB_bak.vmdb");

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), code);
    QCOMPARE(import.receiver.events,
        QStringList({QStringLiteral("DBC_DatabaseBackupWillBeginNotification"),
            QStringLiteral("DBC_DatabaseBackupDidFinishedNotification ok=false"), endedBadly}));
    QCOMPARE(import.logAfterSeparator(),
        QStringList(import.startLine()) + import.backupLines()
            + QStringList({
                QStringLiteral("[Error] message 311 BACKUP Backup DB:[/somewhere/DB_bak.vmdb]"),
                QStringLiteral("[Info] end IMPORT|SEE LOG|0|0"),
            }));
    QVERIFY(!import.script.calls.contains(QStringLiteral("restore")));
}

void tst_importSequence::blankBackupPathStaysOutOfTheMessage()
{
    Import import;
    import.script.backupResult = DBCResultCode::BackupFailure;
    import.script.backupPath = QStringLiteral("  ");

    QVERIFY(!import.controller->run());

    QCOMPARE(import.presenter.texts, QStringList(QStringLiteral("message 311 BACKUP")));
}

void tst_importSequence::readerThatCannotBeMadeIsRestored()
{
    Import import;
    import.makesBackup();
    import.readerCanBeMade = false;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::DataFileOpenFailure);
    QCOMPARE(import.receiver.events,
        backupEvents + QStringList(importBegins) + restoreEvents + QStringList(endedBadly));
    QCOMPARE(import.presenter.numbers, QList<quint32> {310});
}

void tst_importSequence::readersErrorIsRestored_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<QString>("message");
    QTest::newRow("title line") << DBCResultCode::TitleLineFormatError
                                << QStringLiteral("message 307 line 7");
    QTest::newRow("data line") << DBCResultCode::DataLineFormatError
                               << QStringLiteral("message 307 line 7");
    QTest::newRow("bytes") << DBCResultCode::DataFileDecodeFailure << QStringLiteral("message 310");
    QTest::newRow("empty") << DBCResultCode::DataFileEmpty << QStringLiteral("message 306");
}

void tst_importSequence::readersErrorIsRestored()
{
    QFETCH(DBCResultCode, code);
    QFETCH(QString, message);
    Import import;
    import.makesBackup();
    import.script.loadError = DBCError(code).withLineNo(7);

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), code);
    QCOMPARE(import.receiver.events,
        backupEvents + QStringList(importBegins) + restoreEvents + QStringList(endedBadly));
    QCOMPARE(import.logAfterSeparator().mid(4),
        QStringList(
            {QStringLiteral("[Error] ") + message, QStringLiteral("[Info] end IMPORT|SEE LOG|0|0")})
            + restoreLines);
    QVERIFY(import.hasBackup());
}

void tst_importSequence::recordsBeforeABadLineAreNotStored()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    import.script.loadError = DBCError(DBCResultCode::DataLineFormatError).withLineNo(4);

    QVERIFY(!import.controller->run());

    QVERIFY(import.script.calls.filter(QStringLiteral("add")).isEmpty());
    QVERIFY(!import.receiver.events.contains(loaded(2)));
}

void tst_importSequence::errorAtTheLastRecordIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki"), QStringLiteral("Tanaka")});
    import.script.onAdd = [](int index) {
        return index == 2 ? DBCError(DBCResultCode::NoSpaceForImport) : DBCError();
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::NoSpaceForImport);
QCOMPARE(import.receiver.events,
    backupEvents + QStringList({importBegins, loaded(3), running(3, 1), running(3, 2)})
        + restoreEvents + QStringList(endedBadly));
QCOMPARE(import.logAfterSeparator(),
    QStringList(import.startLine()) + import.backupLines()
        + QStringList({QStringLiteral("[Error] message 301"),
            QStringLiteral("[Info] end IMPORT|SEE LOG|3|2")})
        + restoreLines);
QVERIFY(!import.script.calls.contains(QStringLiteral("save")));
QVERIFY(import.hasBackup());
QCOMPARE(import.controller->outcome().finishedCount, 2);
}

void tst_importSequence::folderDeletedWhileImportingIsAnError()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    import.script.onAdd = [&](int) { QDir(import.folder).removeRecursively();
    return DBCError();
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
QCOMPARE(
    import.script.calls.filter(QStringLiteral("add")), QStringList(QStringLiteral("add Sato")));
QCOMPARE(import.receiver.events,
    backupEvents + QStringList({importBegins, loaded(2), running(2, 1)}) + restoreEvents
        + QStringList(endedBadly));
}

void tst_importSequence::packageDeletedWhileImportingIsAnError()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    import.script.onAdd = [&](int) { QDir(import.package).removeRecursively();
    return DBCError();
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
QVERIFY(import.script.calls.contains(QStringLiteral("restore")));
}

void tst_importSequence::exceptionWhileStoringIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    import.script.onAdd = [](int index)->DBCError {
        if (index == 1) throw std::runtime_error("the disk went away");
    return {};
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::InternalException);
QCOMPARE(import.presenter.numbers, QList<quint32> {102});
QCOMPARE(import.receiver.events,
    backupEvents + QStringList({importBegins, loaded(2), running(2, 1)}) + restoreEvents
        + QStringList(endedBadly));
}

void tst_importSequence::failedSaveIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato")});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::DatabaseSaveFailure);
    QCOMPARE(import.receiver.events,
        backupEvents + QStringList({importBegins, loaded(1), running(1, 1)}) + restoreEvents
            + QStringList(endedBadly));
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QVERIFY(import.hasBackup());
}

void tst_importSequence::failedRestoreReplacesTheError()
{
    Import import;
    import.makesBackup();
    import.hasCards({QStringLiteral("Sato")});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;
    import.script.restoreResult = DBCResultCode::RestoreFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::RestoreFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32>({313, 311}));
    QCOMPARE(import.presenter.texts.constLast(),
        QStringLiteral("message 311 RESTORE\nBackup DB:[%1]").arg(import.script.backupPath));
    QCOMPARE(import.receiver.events.mid(5),
        QStringList({QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
            QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification ok=false"), endedBadly}));
    QVERIFY(import.hasBackup());
    QCOMPARE(import.controller->outcome().backupPath, import.script.backupPath);
}

void tst_importSequence::failedRestoreWithoutBackupPath()
{
    Import import;
    import.hasCards({QStringLiteral("Sato")});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;
    import.script.restoreResult = DBCResultCode::GeneralFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::GeneralFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32>({313, 102}));
}

void tst_importSequence::withoutErrorSlotNothingHappens()
{
    Import import;
    import.hasCards({QStringLiteral("Sato")});

    QVERIFY(!import.controller->_doImport(nullptr));

    QVERIFY(import.receiver.events.isEmpty());
    QVERIFY(import.log().isEmpty());
}

void tst_importSequence::estimateWithoutErrorSlotIsZero()
{
    Import import;
    QCOMPARE(import.controller->estimateDiskSpaceForImport(nullptr), 0ULL);
}

void tst_importSequence::estimateIsTheFoldersDiskUsage()
{
    Import import;
    import.measuresBy("printf '37\\t%s\\n' \"$3\"");

    DBCError error;
    QCOMPARE(import.controller->estimateDiskSpaceForImport(&error), 37888ULL);
    QVERIFY(!error);
}

void tst_importSequence::errorsBecomeTheirMessages_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<quint32>("number");
    QTest::newRow("export's disk error is generic") << DBCResultCode::NoSpaceForExport << 313U;
    QTest::newRow("attachment") << DBCResultCode::AttachmentImportFailure << 313U;
    QTest::newRow("space in the database") << DBCResultCode::NoSpaceForImport << 301U;
    QTest::newRow("general") << DBCResultCode::GeneralFailure << 102U;
}

void tst_importSequence::errorsBecomeTheirMessages()
{
    QFETCH(DBCResultCode, code);
    QFETCH(quint32, number);
    Import import;

    import.controller->_handleImportError(DBCError(code));

    QCOMPARE(import.presenter.numbers, QList<quint32> {number});
    QCOMPARE(import.log(), QStringList(QStringLiteral("[Error] message %1").arg(number)));
}

QTEST_GUILESS_MAIN(tst_importSequence)
#include "tst_importSequence.moc"
