// SPDX-License-Identifier: GPL-3.0-or-later
// Tests a conversion on two threads: the operation thread sends its events to this thread, and
// notices when this thread requests a cancel.
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <thread>

using namespace Qt::StringLiterals;

// Replaces the function that measures a path by starting the program "du". A child process shares
// its parent's memory until it has become that program, and the thread sanitizer would take the
// child's accesses to that memory for races of this thread.
quint64 getSizeWithPath(const QString& /*path*/, DBCError* /*outError*/)
{
    return 0;
}

namespace {

const QString endedWell = u"DBC_OperationDidFinishedNotification ok=true"_s;
const QString backupBegins = u"DBC_DatabaseBackupWillBeginNotification"_s;
const QString backupEnds = u"DBC_DatabaseBackupDidFinishedNotification ok=true"_s;
const QString cancelConfirmed = u"DBC_OperationDidCanceledNotification cancel=true"_s;
const QString cancelDeclined = u"DBC_OperationDidCanceledNotification cancel=false"_s;

QString importRunning(int max, int finished)
{
    return u"DBC_ImportIsRunningNotification max=%1 finished=%2"_s.arg(max).arg(finished);
}

QStringList threeNames()
{
    return {u"Sato"_s, u"Suzuki"_s, u"Tanaka"_s};
}

// Runs the conversion on a new thread, as a window does, and handles its events on this thread.
bool runOnItsOwnThread(DBCConverterController& controller)
{
    bool isOk = false;
    QEventLoop loop;
    std::thread operation([&] {
        isOk = controller.run();
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec();
    operation.join();
    return isOk;
}

} // namespace

class tst_cancel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eventsArriveOnTheReceiversThreadInOrder()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.receiver.events,
            QStringList({backupBegins, backupEnds, u"DBC_ImportWillBeginNotification"_s,
                u"DBC_ImportDataLoadDidFinishedNotification max=3 finished=0"_s,
                importRunning(3, 1), importRunning(3, 2), importRunning(3, 3),
                u"DBC_ImportDidFinishedNotification max=3 finished=3"_s, endedWell}));
        for (const QThread* thread : std::as_const(conversion.receiver.threads))
            QCOMPARE(thread, QThread::currentThread());
        QVERIFY(conversion.controller->isOperationFinished());
    }

    void operationWaitsWhileAnEventIsHandled()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        std::atomic<bool> isHandling = false;
        std::atomic<bool> hasRunAhead = false;
        conversion.script.onAdd = [&](int) {
            if (isHandling)
                hasRunAhead = true;
            return DBCError();
        };
        conversion.receiver.onEvent = [&](const DBCEvent&) {
            isHandling = true;
            QThread::msleep(20);
            isHandling = false;
        };

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QVERIFY(!hasRunAhead);
    }

    void importCancelledInTheLoopIsRestoredAndItsBackupRemoved()
    {
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.cancelWhen(importRunning(3, 1));

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.receiver.events.mid(4),
            QStringList({importRunning(3, 1), cancelConfirmed,
                u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification ok=true"_s, endedWell}));
        QCOMPARE(conversion.log().mid(5),
            QStringList(
                {u"[Info] cancelled"_s, u"[Info] begin RESTORE"_s, u"[Info] end RESTORE"_s}));
        QCOMPARE(conversion.script.calls.filter(u"add"_s), QStringList(u"add Sato"_s));
        QVERIFY(!conversion.script.calls.contains(u"save"_s));
        QVERIFY(!conversion.hasBackup());
        QVERIFY(conversion.controller->isStopRunning());
        QCOMPARE(conversion.controller->outcome().code, DBCResultCode::Success);
        QVERIFY(conversion.controller->outcome().backupPath.isEmpty());
    }

    void importCancelledAtTheLastRecordIsRestored()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.cancelWhen(importRunning(3, 2));

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QVERIFY(conversion.script.calls.contains(u"restore"_s));
        QCOMPARE(conversion.script.calls.filter(u"add"_s).size(), 2);
    }

    void cancelDeclinedThenConfirmed()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.presenter.answers = {DBCAnswer::Alternate, DBCAnswer::Default};
        conversion.receiver.onEvent = [&](const DBCEvent& event) {
            if (event.name == DBCEventName::ImportIsRunning)
                conversion.controller->setConfirmCancelOperation(true);
        };

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.receiver.events.mid(4),
            QStringList({importRunning(3, 1), cancelDeclined, importRunning(3, 2), cancelConfirmed,
                u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification ok=true"_s, endedWell}));
        QCOMPARE(conversion.presenter.questions.size(), 2);
    }

    void cancelDeclinedGoesOnToTheEnd()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.cancelWhen(importRunning(3, 1));

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.receiver.events.mid(4),
            QStringList(
                {importRunning(3, 1), cancelDeclined, importRunning(3, 2), importRunning(3, 3),
                    u"DBC_ImportDidFinishedNotification max=3 finished=3"_s, endedWell}));
        QVERIFY(conversion.hasBackup());
    }

    void importCancelledDuringTheBackup()
    {
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.cancelWhen(backupBegins);
        // Does what a real backup does: it asks the controller whether to copy the next item, and
        // the controller must answer that the copy is to stop.
        conversion.script.onBackup
            = [&] { QVERIFY(!conversion.controller->fileManager(nullptr, QString(), QString())); };
        conversion.script.backupResult = DBCResultCode::BackupFailure;
        conversion.script.isBackupCancelled = true;

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(
            conversion.receiver.events, QStringList({backupBegins, cancelConfirmed, endedWell}));
        QCOMPARE(conversion.log().mid(2),
            QStringList({u"[Info] begin BACKUP"_s, u"[Info] cancelled"_s}));
        QVERIFY(!conversion.script.calls.contains(u"restore"_s));
        QVERIFY(!conversion.script.calls.contains(u"load"_s));
        QCOMPARE(conversion.controller->outcome().code, DBCResultCode::Success);
        QVERIFY(QFile::exists(conversion.package));
    }

    void importCancelledDuringTheBackupRemovesWhatIsAtTheBackupPath()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.script.onBackup = [&] {
            conversion.controller->setConfirmCancelOperation(true);
            conversion.controller->checkIsNeedToConfirmCancelOperation();
        };
        conversion.script.isBackupCancelled = true;

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QVERIFY(!conversion.hasBackup());
        QVERIFY(QFile::exists(conversion.package));
        QCOMPARE(
            conversion.receiver.events, QStringList({backupBegins, cancelConfirmed, endedWell}));
        QVERIFY(conversion.controller->outcome().backupPath.isEmpty());
    }

    void cancelledImportThatCannotBeRestoredIsAnError()
    {
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.script.restoreResult = DBCResultCode::RestoreFailure;
        conversion.cancelWhen(importRunning(3, 1));

        QVERIFY(!runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.controller->outcome().code, DBCResultCode::RestoreFailure);
        QCOMPARE(conversion.presenter.numbers, QList<quint32> {311});
        QVERIFY(conversion.hasBackup());
        QVERIFY(conversion.log().filter(u"end IMPORT"_s).isEmpty());
        QCOMPARE(conversion.receiver.events.mid(6),
            QStringList({u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification ok=false"_s,
                u"DBC_OperationDidFinishedNotification ok=false"_s}));
    }

    void exportCancelledInTheLoopRemovesItsFolder()
    {
        ScriptedConversion conversion(OperationType::Export);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.cancelWhen(u"DBC_ExportIsRunningNotification max=3 finished=2"_s);

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QCOMPARE(conversion.receiver.events,
            QStringList({u"DBC_ExportWillBeginNotification"_s,
                u"DBC_ExportDataFetchDidFinishedNotification max=3 finished=0"_s,
                u"DBC_ExportIsRunningNotification max=3 finished=1"_s,
                u"DBC_ExportIsRunningNotification max=3 finished=2"_s, cancelConfirmed,
                endedWell}));
        QCOMPARE(conversion.log().mid(2), QStringList(u"[Info] cancelled"_s));
        QVERIFY(!QFile::exists(conversion.folder));
        QVERIFY(QFile::exists(conversion.home.path(u"interchange"_s)));
        QVERIFY(QFile::exists(conversion.package));
    }

    void cancelAfterTheLastRecordIsNotAskedAnyMore()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.cancelWhen(importRunning(3, 3));

        QVERIFY(runOnItsOwnThread(*conversion.controller));

        QVERIFY(conversion.presenter.questions.isEmpty());
        QVERIFY(conversion.script.calls.contains(u"save"_s));
        QVERIFY(conversion.hasBackup());
    }

    void cancelAskedForAgainAndAgainWhileItRuns()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards(threeNames());
        std::thread impatientUser([&controller = *conversion.controller] {
            while (!controller.isOperationFinished() && !controller.isStopRunning()) {
                controller.setConfirmCancelOperation(true);
                std::this_thread::yield();
            }
        });

        const bool isOk = runOnItsOwnThread(*conversion.controller);
        impatientUser.join();

        QVERIFY(isOk);
        QCOMPARE(conversion.script.calls.filter(u"add"_s).size(), 3);
        QVERIFY(conversion.script.calls.contains(u"save"_s));
    }
};

QTEST_GUILESS_MAIN(tst_cancel)
#include "tst_cancel.moc"
