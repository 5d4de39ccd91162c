// SPDX-License-Identifier: GPL-3.0-or-later
// The import's steps with a scripted database and data file: what is sent, logged, shown and undone
// in each situation.
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QStringList backupEvents {
    u"DBC_DatabaseBackupWillBeginNotification"_s,
    u"DBC_DatabaseBackupDidFinishedNotification ok=true"_s,
};
const QStringList restoreEvents {
    u"DBC_DatabaseRestoreWillBeginNotification"_s,
    u"DBC_DatabaseRestoreDidFinishedNotification ok=true"_s,
};
const QString endedWell = u"DBC_OperationDidFinishedNotification ok=true"_s;
const QString endedBadly = u"DBC_OperationDidFinishedNotification ok=false"_s;

QString running(int max, int finished)
{
    return u"DBC_ImportIsRunningNotification max=%1 finished=%2"_s.arg(max).arg(finished);
}

QString loaded(int max)
{
    return u"DBC_ImportDataLoadDidFinishedNotification max=%1 finished=0"_s.arg(max);
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
        return u"[Info] begin IMPORT From:[%1]  To:[%2]"_s.arg(folder, package);
    }
    QStringList backupLines() const
    {
        return {u"[Info] begin BACKUP"_s, u"[Info] end BACKUP"_s,
            u"[Info] backup at "_s + script.backupPath};
    }
    // The log without its separator line, which every run begins with.
    QStringList logAfterSeparator() const { return log().mid(1); }
};

const QStringList restoreLines {
    u"[Info] begin RESTORE"_s,
    u"[Info] end RESTORE"_s,
};
const QString importBegins = u"DBC_ImportWillBeginNotification"_s;

} // namespace

class tst_importSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoRecordsAreStoredAndSaved()
    {
        Import import;
        import.hasCards({u"Sato"_s, u"Suzuki"_s});
        import.makesBackup();

        QVERIFY(import.controller->run());

        QCOMPARE(import.receiver.events,
            backupEvents
                + QStringList({importBegins, loaded(2), running(2, 1), running(2, 2),
                    u"DBC_ImportDidFinishedNotification max=2 finished=2"_s, endedWell}));
        QCOMPARE(import.logAfterSeparator(),
            QStringList(import.startLine()) + import.backupLines()
                + QStringList(u"[Info] end IMPORT| |2|2"_s));
        QCOMPARE(import.script.calls,
            QStringList({u"open Velmora DB.vmdb"_s, u"backup"_s, u"load"_s, u"release reader"_s,
                u"add Sato"_s, u"add Suzuki"_s, u"save"_s, u"close"_s}));
        QVERIFY(import.hasBackup());
        QVERIFY(import.presenter.numbers.isEmpty());
        QCOMPARE(import.code(), DBCResultCode::Success);
        QCOMPARE(import.controller->outcome().maxCount, 2);
        QCOMPARE(import.controller->outcome().finishedCount, 2);
        QCOMPARE(import.controller->outcome().backupPath, import.script.backupPath);
    }

    void zeroRecordsAreSavedAsZeroOfZero()
    {
        Import import;
        import.makesBackup();

        QVERIFY(import.controller->run());

        QCOMPARE(import.receiver.events,
            backupEvents
                + QStringList({importBegins, loaded(0),
                    u"DBC_ImportDidFinishedNotification max=0 finished=0"_s, endedWell}));
        QVERIFY(import.script.calls.contains(u"save"_s));
        QCOMPARE(import.log().constLast(), u"[Info] end IMPORT| |0|0"_s);
    }

    void warningsAreNoticedInTheEndLine()
    {
        Import import;
        import.hasCards({u"Sato"_s});
        import.makesBackup();
        import.script.onAdd = [](int) { DBCLog::warning(u"no such image"_s);
        return DBCError();
    };

    QVERIFY(import.controller->run());

    QCOMPARE(import.log().constLast(), u"[Info] end IMPORT|SEE LOG|1|1"_s);
}

void folderOfTheRefusedProductIsTurnedAway()
{
    Import import;
    import.hasCards({u"Sato"_s});
    import.writeVersion(u"TELKA\tV1.0L10\r\n"_s);

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::VersionFileRefusedProduct);
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QCOMPARE(import.logAfterSeparator(),
        QStringList(
            {import.startLine(), u"[Error] message 314"_s, u"[Info] end IMPORT|SEE LOG|0|0"_s}));
    QCOMPARE(import.presenter.numbers, QList<quint32> {314});
    QVERIFY(import.script.calls.isEmpty());
}

void versionFileIsJudgedBeforeAnythingElse_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("other version") << u"ACME\tV1.0L11\r\n"_s;
    QTest::newRow("no tab") << u"ACME V1.0L10\r\n"_s;
    QTest::newRow("empty") << QString();
}
void versionFileIsJudgedBeforeAnythingElse()
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

void folderThatCannotBeMeasuredEndsTheImport()
{
    Import import;
    import.measuresBy("exit 1");

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::SizeMeasureFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QVERIFY(import.script.calls.isEmpty());
}

void missingPackageIsAnError()
{
    Import import;
    QVERIFY(QDir(import.package).removeRecursively());

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QVERIFY(import.script.calls.isEmpty());
}

void tooLittleSpaceIsAnError()
{
    Import import;
    import.host.setFreeBytes(0x80000);

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::NoSpace);
    QCOMPARE(import.presenter.numbers, QList<quint32> {103});
    QCOMPARE(import.logAfterSeparator(),
        QStringList(
            {import.startLine(), u"[Error] message 103"_s, u"[Info] end IMPORT|SEE LOG|0|0"_s}));
    QVERIFY(import.script.calls.isEmpty());
}

void spaceForTheFolderAndTheMarginIsEnough()
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

void packageThatDoesNotOpenIsAnError()
{
    Import import;
    import.script.opens = false;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::DatabaseOpenFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QCOMPARE(import.receiver.events, QStringList(endedBadly));
    QCOMPARE(import.logAfterSeparator(),
        QStringList(
            {import.startLine(), u"[Error] message 313"_s, u"[Info] end IMPORT|SEE LOG|0|0"_s}));
}

void failedBackupEndsTheImportWithoutRestore_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::newRow("copy failed") << DBCResultCode::BackupFailure;
    QTest::newRow("no space") << DBCResultCode::NoSpaceForBackup;
}
void failedBackupEndsTheImportWithoutRestore()
{
    QFETCH(DBCResultCode, code);
    Import import;
    import.hasCards({u"Sato"_s});
    import.script.backupResult = code;
    import.script.backupPath = u"/somewhere/DB_bak.vmdb"_s;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), code);
    QCOMPARE(import.receiver.events,
        QStringList({u"DBC_DatabaseBackupWillBeginNotification"_s,
            u"DBC_DatabaseBackupDidFinishedNotification ok=false"_s, endedBadly}));
    QCOMPARE(import.logAfterSeparator(),
        QStringList(import.startLine()) + import.backupLines()
            + QStringList({
                u"[Error] message 311 BACKUP Backup DB:[/somewhere/DB_bak.vmdb]"_s,
                u"[Info] end IMPORT|SEE LOG|0|0"_s,
            }));
    QVERIFY(!import.script.calls.contains(u"restore"_s));
}

void blankBackupPathStaysOutOfTheMessage()
{
    Import import;
    import.script.backupResult = DBCResultCode::BackupFailure;
    import.script.backupPath = u"  "_s;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.presenter.texts, QStringList(u"message 311 BACKUP"_s));
}

void readerThatCannotBeMadeIsRestored()
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

void readersErrorIsRestored_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<QString>("message");
    QTest::newRow("title line") << DBCResultCode::TitleLineFormatError << u"message 307 line 7"_s;
    QTest::newRow("data line") << DBCResultCode::DataLineFormatError << u"message 307 line 7"_s;
    QTest::newRow("bytes") << DBCResultCode::DataFileDecodeFailure << u"message 310"_s;
    QTest::newRow("empty") << DBCResultCode::DataFileEmpty << u"message 306"_s;
}
void readersErrorIsRestored()
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
        QStringList({u"[Error] "_s + message, u"[Info] end IMPORT|SEE LOG|0|0"_s}) + restoreLines);
    QVERIFY(import.hasBackup());
}

void recordsBeforeABadLineAreNotStored()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s, u"Suzuki"_s});
    import.script.loadError = DBCError(DBCResultCode::DataLineFormatError).withLineNo(4);

    QVERIFY(!import.controller->run());

    QVERIFY(import.script.calls.filter(u"add"_s).isEmpty());
    QVERIFY(!import.receiver.events.contains(loaded(2)));
}

void errorAtTheLastRecordIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s, u"Suzuki"_s, u"Tanaka"_s});
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
        + QStringList({u"[Error] message 301"_s, u"[Info] end IMPORT|SEE LOG|3|2"_s})
        + restoreLines);
QVERIFY(!import.script.calls.contains(u"save"_s));
QVERIFY(import.hasBackup());
QCOMPARE(import.controller->outcome().finishedCount, 2);
}

void folderDeletedWhileImportingIsAnError()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s, u"Suzuki"_s});
    import.script.onAdd = [&](int) { QDir(import.folder).removeRecursively();
    return DBCError();
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
QCOMPARE(import.script.calls.filter(u"add"_s), QStringList(u"add Sato"_s));
QCOMPARE(import.receiver.events,
    backupEvents + QStringList({importBegins, loaded(2), running(2, 1)}) + restoreEvents
        + QStringList(endedBadly));
}

void packageDeletedWhileImportingIsAnError()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s, u"Suzuki"_s});
    import.script.onAdd = [&](int) { QDir(import.package).removeRecursively();
    return DBCError();
};

QVERIFY(!import.controller->run());

QCOMPARE(import.code(), DBCResultCode::FolderNotExist);
QVERIFY(import.script.calls.contains(u"restore"_s));
}

void exceptionWhileStoringIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s, u"Suzuki"_s});
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

void failedSaveIsRestored()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::DatabaseSaveFailure);
    QCOMPARE(import.receiver.events,
        backupEvents + QStringList({importBegins, loaded(1), running(1, 1)}) + restoreEvents
            + QStringList(endedBadly));
    QCOMPARE(import.presenter.numbers, QList<quint32> {313});
    QVERIFY(import.hasBackup());
}

void failedRestoreReplacesTheError()
{
    Import import;
    import.makesBackup();
    import.hasCards({u"Sato"_s});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;
    import.script.restoreResult = DBCResultCode::RestoreFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::RestoreFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32>({313, 311}));
    QCOMPARE(import.presenter.texts.constLast(),
        u"message 311 RESTORE\nBackup DB:[%1]"_s.arg(import.script.backupPath));
    QCOMPARE(import.receiver.events.mid(5),
        QStringList({u"DBC_DatabaseRestoreWillBeginNotification"_s,
            u"DBC_DatabaseRestoreDidFinishedNotification ok=false"_s, endedBadly}));
    QVERIFY(import.hasBackup());
    QCOMPARE(import.controller->outcome().backupPath, import.script.backupPath);
}

void failedRestoreWithoutBackupPath()
{
    Import import;
    import.hasCards({u"Sato"_s});
    import.script.saveResult = DBCResultCode::DatabaseSaveFailure;
    import.script.restoreResult = DBCResultCode::GeneralFailure;

    QVERIFY(!import.controller->run());

    QCOMPARE(import.code(), DBCResultCode::GeneralFailure);
    QCOMPARE(import.presenter.numbers, QList<quint32>({313, 102}));
}

void withoutErrorSlotNothingHappens()
{
    Import import;
    import.hasCards({u"Sato"_s});

    QVERIFY(!import.controller->_doImport(nullptr));

    QVERIFY(import.receiver.events.isEmpty());
    QVERIFY(import.log().isEmpty());
}

void estimateWithoutErrorSlotIsZero()
{
    Import import;
    QCOMPARE(import.controller->estimateDiskSpaceForImport(nullptr), 0ULL);
}

void estimateIsTheFoldersDiskUsage()
{
    Import import;
    import.measuresBy("printf '37\\t%s\\n' \"$3\"");

    DBCError error;
    QCOMPARE(import.controller->estimateDiskSpaceForImport(&error), 37888ULL);
    QVERIFY(!error);
}

void errorsBecomeTheirMessages_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<quint32>("number");
    QTest::newRow("export's disk error is generic") << DBCResultCode::NoSpaceForExport << 313U;
    QTest::newRow("attachment") << DBCResultCode::AttachmentImportFailure << 313U;
    QTest::newRow("space in the database") << DBCResultCode::NoSpaceForImport << 301U;
    QTest::newRow("general") << DBCResultCode::GeneralFailure << 102U;
}
void errorsBecomeTheirMessages()
{
    QFETCH(DBCResultCode, code);
    QFETCH(quint32, number);
    Import import;

    import.controller->_handleImportError(DBCError(code));

    QCOMPARE(import.presenter.numbers, QList<quint32> {number});
    QCOMPARE(import.log(), QStringList(u"[Error] message %1"_s.arg(number)));
}
}
;

QTEST_GUILESS_MAIN(tst_importSequence)
#include "tst_importSequence.moc"
