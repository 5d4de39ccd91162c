// SPDX-License-Identifier: GPL-3.0-or-later
// Tests imports that fail after their backup: the import restores the database and tells the user
// why it failed.
#include "tests/operation/ScriptedImport.h"

#include <QtTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

using Import = ScriptedImport;

class tst_importUndo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readerThatCannotBeMadeIsRestored()
    {
        Import importing;
        importing.makesBackup();
        importing.readerCanBeMade = false;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::DataFileOpenFailure);
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList(importBegins) + restoreEvents + QStringList(endedBadly));
        QCOMPARE(importing.presenter.numbers, QList<quint32> {310});
    }

    void readersErrorIsRestored_data()
    {
        QTest::addColumn<DBCResultCode>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("title line")
            << DBCResultCode::TitleLineFormatError << u"message 307 line 7"_s;
        QTest::newRow("data line") << DBCResultCode::DataLineFormatError << u"message 307 line 7"_s;
        QTest::newRow("bytes") << DBCResultCode::DataFileDecodeFailure << u"message 310"_s;
        QTest::newRow("empty") << DBCResultCode::DataFileEmpty << u"message 306"_s;
    }
    void readersErrorIsRestored()
    {
        QFETCH(DBCResultCode, code);
        QFETCH(QString, message);
        Import importing;
        importing.makesBackup();
        importing.script.loadError = DBCError(code).withLineNo(7);

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), code);
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList(importBegins) + restoreEvents + QStringList(endedBadly));
        QCOMPARE(importing.logAfterSeparator().mid(4),
            QStringList({u"[Error] "_s + message, u"[Info] end IMPORT|SEE LOG|0|0"_s})
                + restoreLines);
        QVERIFY(importing.hasBackup());
    }

    void recordsBeforeABadLineAreNotStored()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s, u"Suzuki"_s});
        importing.script.loadError = DBCError(DBCResultCode::DataLineFormatError).withLineNo(4);

        QVERIFY(!importing.controller->run());

        QVERIFY(importing.script.calls.filter(u"add"_s).isEmpty());
        QVERIFY(!importing.receiver.events.contains(loaded(2)));
    }

    void errorAtTheLastRecordIsRestored()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s, u"Suzuki"_s, u"Tanaka"_s});
        importing.script.onAdd = [](int index) {
            return index == 2 ? DBCError(DBCResultCode::NoSpaceForImport) : DBCError();
        };

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::NoSpaceForImport);
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList({importBegins, loaded(3), running(3, 1), running(3, 2)})
                + restoreEvents + QStringList(endedBadly));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList(importing.startLine()) + importing.backupLines()
                + QStringList({u"[Error] message 301"_s, u"[Info] end IMPORT|SEE LOG|3|2"_s})
                + restoreLines);
        QVERIFY(!importing.script.calls.contains(u"save"_s));
        QVERIFY(importing.hasBackup());
        QCOMPARE(importing.controller->outcome().finishedCount, 2);
    }

    void folderDeletedWhileImportingIsAnError()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s, u"Suzuki"_s});
        importing.script.onAdd = [&](int) {
            QDir(importing.folder).removeRecursively();
            return DBCError();
        };

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::FolderNotExist);
        QCOMPARE(importing.script.calls.filter(u"add"_s), QStringList(u"add Sato"_s));
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList({importBegins, loaded(2), running(2, 1)}) + restoreEvents
                + QStringList(endedBadly));
    }

    void packageDeletedWhileImportingIsAnError()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s, u"Suzuki"_s});
        importing.script.onAdd = [&](int) {
            QDir(importing.package).removeRecursively();
            return DBCError();
        };

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::FolderNotExist);
        QVERIFY(importing.script.calls.contains(u"restore"_s));
    }

    void exceptionWhileStoringIsRestored()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s, u"Suzuki"_s});
        importing.script.onAdd = [](int index) -> DBCError {
            if (index == 1)
                throw std::runtime_error("the disk went away");
            return {};
        };

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::InternalException);
        QCOMPARE(importing.presenter.numbers, QList<quint32> {102});
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList({importBegins, loaded(2), running(2, 1)}) + restoreEvents
                + QStringList(endedBadly));
    }

    void failedSaveIsRestored()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s});
        importing.script.saveResult = DBCResultCode::DatabaseSaveFailure;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::DatabaseSaveFailure);
        QCOMPARE(importing.receiver.events,
            backupEvents + QStringList({importBegins, loaded(1), running(1, 1)}) + restoreEvents
                + QStringList(endedBadly));
        QCOMPARE(importing.presenter.numbers, QList<quint32> {313});
        QVERIFY(importing.hasBackup());
    }

    void failedRestoreReplacesTheError()
    {
        Import importing;
        importing.makesBackup();
        importing.hasCards({u"Sato"_s});
        importing.script.saveResult = DBCResultCode::DatabaseSaveFailure;
        importing.script.restoreResult = DBCResultCode::RestoreFailure;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::RestoreFailure);
        QCOMPARE(importing.presenter.numbers, QList<quint32>({313, 311}));
        QCOMPARE(importing.presenter.texts.constLast(),
            u"message 311 RESTORE\nBackup DB:[%1]"_s.arg(importing.script.backupPath));
        QCOMPARE(importing.receiver.events.mid(5),
            QStringList({u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification ok=false"_s, endedBadly}));
        QCOMPARE(importing.logAfterSeparator(),
            QStringList(importing.startLine()) + importing.backupLines()
                + QStringList({u"[Error] message 313"_s, u"[Info] end IMPORT|SEE LOG|1|1"_s})
                + restoreLines
                + QStringList(u"[Error] message 311 RESTORE Backup DB:[%1]"_s.arg(
                    importing.script.backupPath)));
        QVERIFY(importing.hasBackup());
        QCOMPARE(importing.controller->outcome().backupPath, importing.script.backupPath);
    }

    void failedRestoreWithoutBackupPath()
    {
        Import importing;
        importing.hasCards({u"Sato"_s});
        importing.script.saveResult = DBCResultCode::DatabaseSaveFailure;
        importing.script.restoreResult = DBCResultCode::GeneralFailure;

        QVERIFY(!importing.controller->run());

        QCOMPARE(importing.code(), DBCResultCode::GeneralFailure);
        QCOMPARE(importing.presenter.numbers, QList<quint32>({313, 102}));
    }
};

QTEST_GUILESS_MAIN(tst_importUndo)
#include "tst_importUndo.moc"
