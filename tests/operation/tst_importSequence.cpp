// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the steps of an import with a scripted database and data file: which events it sends and
// what it logs and shows, both when it succeeds and when it ends before the first record.
#include "operation/log/DBCLog.h"
#include "tests/operation/ScriptedImport.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Import = ScriptedImport;

class tst_importSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoRecordsAreStoredAndSaved()
    {
        Import importing;
        importing.hasCards({u"Sato"_s, u"Suzuki"_s});
        importing.makesBackup();

        QVERIFY(importing.controller->run());

        QCOMPARE(importing.receiver.events,
            backupEvents
                + QStringList({importBegins, loaded(2), running(2, 1), running(2, 2),
                    u"DBC_ImportDidFinishedNotification max=2 finished=2"_s, endedWell}));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList(importing.startLine()) + importing.backupLines()
                + QStringList(u"[Info] end IMPORT| |2|2"_s));
        QCOMPARE(importing.script.calls,
            QStringList({u"open Velmora DB.vmdb"_s, u"backup"_s, u"load"_s, u"release reader"_s,
                u"add Sato"_s, u"add Suzuki"_s, u"save"_s, u"close"_s}));
        QVERIFY(importing.hasBackup());
        QVERIFY(importing.presenter.numbers.isEmpty());
        QCOMPARE(importing.code(), DBCResultCode::Success);
        QCOMPARE(importing.controller->outcome().maxCount, 2);
        QCOMPARE(importing.controller->outcome().finishedCount, 2);
        QCOMPARE(importing.controller->outcome().backupPath, importing.script.backupPath);
    }

    void zeroRecordsAreSavedAsZeroOfZero()
    {
        Import importing;
        importing.makesBackup();

        QVERIFY(importing.controller->run());

        QCOMPARE(importing.receiver.events,
            backupEvents
                + QStringList({importBegins, loaded(0),
                    u"DBC_ImportDidFinishedNotification max=0 finished=0"_s, endedWell}));
        QVERIFY(importing.script.calls.contains(u"save"_s));
        QCOMPARE(importing.log().constLast(), u"[Info] end IMPORT| |0|0"_s);
    }

    void warningsAreNoticedInTheEndLine()
    {
        Import importing;
        importing.hasCards({u"Sato"_s});
        importing.makesBackup();
        importing.script.onAdd = [](int) {
            DBCLog::warning(u"no such image"_s);
            return DBCError();
        };

        QVERIFY(importing.controller->run());

        QCOMPARE(importing.log().constLast(), u"[Info] end IMPORT|SEE LOG|1|1"_s);
    }

    void folderOfTheRefusedProductIsTurnedAway()
    {
        Import importing;
        importing.hasCards({u"Sato"_s});
        importing.writeVersion(u"TELKA\tV1.0L10\r\n"_s);

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::VersionFileRefusedProduct);
        QCOMPARE(importing.receiver.events, QStringList(endedBadly));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList({importing.startLine(), u"[Error] message 314"_s,
                u"[Info] end IMPORT|SEE LOG|0|0"_s}));
        QCOMPARE(importing.presenter.numbers, QList<quint32> {314});
        QVERIFY(importing.script.calls.isEmpty());
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
        Import importing;
        importing.writeVersion(text);
        QVERIFY(QDir(importing.package).removeRecursively());

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::VersionFileMismatch);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {316});
        QVERIFY(importing.script.calls.isEmpty());
    }

    void folderThatCannotBeMeasuredEndsTheImport()
    {
        Import importing;
        importing.measuresBy("exit 1");

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::SizeMeasureFailure);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {313});
        QVERIFY(importing.script.calls.isEmpty());
    }

    void missingPackageIsAnError()
    {
        Import importing;
        QVERIFY(QDir(importing.package).removeRecursively());

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::FolderNotExist);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {313});
        QCOMPARE(importing.receiver.events, QStringList(endedBadly));
        QVERIFY(importing.script.calls.isEmpty());
    }

    void tooLittleSpaceIsAnError()
    {
        Import importing;
        importing.host.setFreeBytes(0x80000);

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::NoSpace);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {103});
        QCOMPARE(importing.logAfterSeparator(),
            QStringList({importing.startLine(), u"[Error] message 103"_s,
                u"[Info] end IMPORT|SEE LOG|0|0"_s}));
        QVERIFY(importing.script.calls.isEmpty());
    }

    void spaceForTheFolderAndTheMarginIsEnough()
    {
        Import importing;
        importing.makesBackup();
        importing.measuresBy("printf '100\\t%s\\n' \"$3\"");
        importing.host.setFreeBytes(100 * 1024 + 0x80000);
        QVERIFY(importing.controller->run());

        Import shortOfOne;
        shortOfOne.measuresBy("printf '100\\t%s\\n' \"$3\"");
        shortOfOne.host.setFreeBytes(100 * 1024 + 0x80000 - 1);
        QVERIFY(!shortOfOne.controller->run());
        QCOMPARE(shortOfOne.code(), DBCResultCode::NoSpace);
    }

    void packageThatDoesNotOpenIsAnError()
    {
        Import importing;
        importing.script.opens = false;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::DatabaseOpenFailure);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {313});
        QCOMPARE(importing.receiver.events, QStringList(endedBadly));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList({importing.startLine(), u"[Error] message 313"_s,
                u"[Info] end IMPORT|SEE LOG|0|0"_s}));
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
        Import importing;
        importing.hasCards({u"Sato"_s});
        importing.script.backupResult = code;
        importing.script.backupPath = u"/somewhere/DB_bak.vmdb"_s;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), code);
        QCOMPARE(importing.receiver.events,
            QStringList({u"DBC_DatabaseBackupWillBeginNotification"_s,
                u"DBC_DatabaseBackupDidFinishedNotification ok=false"_s, endedBadly}));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList(importing.startLine()) + importing.backupLines()
                + QStringList({
                    u"[Error] message 311 BACKUP Backup DB:[/somewhere/DB_bak.vmdb]"_s,
                    u"[Info] end IMPORT|SEE LOG|0|0"_s,
                }));
        QVERIFY(!importing.script.calls.contains(u"restore"_s));
    }

    void blankBackupPathStaysOutOfTheMessage()
    {
        Import importing;
        importing.script.backupResult = DBCResultCode::BackupFailure;
        importing.script.backupPath = u"  "_s;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.presenter.texts, QStringList(u"message 311 BACKUP"_s));
    }

    void withoutErrorSlotNothingHappens()
    {
        Import importing;
        importing.hasCards({u"Sato"_s});

        QVERIFY(!importing.controller->_doImport(nullptr));

        QVERIFY(importing.receiver.events.isEmpty());
        QVERIFY(importing.log().isEmpty());
    }

    void estimateWithoutErrorSlotIsZero()
    {
        Import importing;
        QCOMPARE(importing.controller->estimateDiskSpaceForImport(nullptr), 0ULL);
    }

    void estimateIsTheFoldersDiskUsage()
    {
        Import importing;
        importing.measuresBy("printf '37\\t%s\\n' \"$3\"");

        DBCError error;
        QCOMPARE(importing.controller->estimateDiskSpaceForImport(&error), 37888ULL);
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
        Import importing;

        importing.controller->_handleImportError(DBCError(code));

        QCOMPARE(importing.presenter.numbers, QList<quint32> {number});
        QCOMPARE(importing.log(), QStringList(u"[Error] message %1"_s.arg(number)));
    }
};

QTEST_GUILESS_MAIN(tst_importSequence)
#include "tst_importSequence.moc"
