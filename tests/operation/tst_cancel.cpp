// SPDX-License-Identifier: GPL-3.0-or-later
// The two threads of a conversion: events that cross over, and a cancel that is asked for on one
// thread and found on the other.
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <thread>

// In place of the one that starts "du": until it has become that program, a child process shares
// its parent's memory, and the thread sanitizer takes what it does for this thread's doing.
quint64 getSizeWithPath(const QString& /*path*/, DBCError* /*outError*/)
{
    return 0;
}

namespace {

const QString endedWell = QStringLiteral("DBC_OperationDidFinishedNotification ok=true");
const QString backupBegins = QStringLiteral("DBC_DatabaseBackupWillBeginNotification");
const QString backupEnds = QStringLiteral("DBC_DatabaseBackupDidFinishedNotification ok=true");
const QString cancelConfirmed = QStringLiteral("DBC_OperationDidCanceledNotification cancel=true");
const QString cancelDeclined = QStringLiteral("DBC_OperationDidCanceledNotification cancel=false");

QString importRunning(int max, int finished)
{
    return QStringLiteral("DBC_ImportIsRunningNotification max=%1 finished=%2")
        .arg(max)
        .arg(finished);
}

QStringList threeNames()
{
    return {QStringLiteral("Sato"), QStringLiteral("Suzuki"), QStringLiteral("Tanaka")};
}

// Runs the conversion on a thread of its own, as a window does, with events handled here.
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
    void eventsArriveOnTheReceiversThreadInOrder();
    void operationWaitsWhileAnEventIsHandled();
    void importCancelledInTheLoopIsRestoredAndItsBackupRemoved();
    void importCancelledAtTheLastRecordIsRestored();
    void cancelDeclinedThenConfirmed();
    void cancelDeclinedGoesOnToTheEnd();
    void importCancelledDuringTheBackup();
    void importCancelledAfterTheBackupWasWhole();
    void cancelledImportThatCannotBeRestoredIsAnError();
    void exportCancelledInTheLoopRemovesItsFolder();
    void cancelAfterTheLastRecordIsNotAskedAnyMore();
    void cancelAskedForAgainAndAgainWhileItRuns();
};

void tst_cancel::eventsArriveOnTheReceiversThreadInOrder()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards(threeNames());

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QCOMPARE(conversion.receiver.events,
        QStringList({backupBegins, backupEnds, QStringLiteral("DBC_ImportWillBeginNotification"),
            QStringLiteral("DBC_ImportDataLoadDidFinishedNotification max=3 finished=0"),
            importRunning(3, 1), importRunning(3, 2), importRunning(3, 3),
            QStringLiteral("DBC_ImportDidFinishedNotification max=3 finished=3"), endedWell}));
    for (const QThread* thread : std::as_const(conversion.receiver.threads))
        QCOMPARE(thread, QThread::currentThread());
    QVERIFY(conversion.controller->isOperationFinished());
}

void tst_cancel::operationWaitsWhileAnEventIsHandled()
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

void tst_cancel::importCancelledInTheLoopIsRestoredAndItsBackupRemoved()
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
            QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
            QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification ok=true"), endedWell}));
    QCOMPARE(conversion.log().mid(5),
        QStringList({QStringLiteral("[Info] cancelled"), QStringLiteral("[Info] begin RESTORE"),
            QStringLiteral("[Info] end RESTORE")}));
    QCOMPARE(conversion.script.calls.filter(QStringLiteral("add")),
        QStringList(QStringLiteral("add Sato")));
    QVERIFY(!conversion.script.calls.contains(QStringLiteral("save")));
    QVERIFY(!conversion.hasBackup());
    QVERIFY(conversion.controller->isStopRunning());
    QCOMPARE(conversion.controller->outcome().code, DBCResultCode::Success);
    QVERIFY(conversion.controller->outcome().backupPath.isEmpty());
}

void tst_cancel::importCancelledAtTheLastRecordIsRestored()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards(threeNames());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.cancelWhen(importRunning(3, 2));

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QVERIFY(conversion.script.calls.contains(QStringLiteral("restore")));
    QCOMPARE(conversion.script.calls.filter(QStringLiteral("add")).size(), 2);
}

void tst_cancel::cancelDeclinedThenConfirmed()
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
            QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
            QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification ok=true"), endedWell}));
    QCOMPARE(conversion.presenter.questions.size(), 2);
}

void tst_cancel::cancelDeclinedGoesOnToTheEnd()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards(threeNames());
    conversion.cancelWhen(importRunning(3, 1));

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QCOMPARE(conversion.receiver.events.mid(4),
        QStringList({importRunning(3, 1), cancelDeclined, importRunning(3, 2), importRunning(3, 3),
            QStringLiteral("DBC_ImportDidFinishedNotification max=3 finished=3"), endedWell}));
    QVERIFY(conversion.hasBackup());
}

void tst_cancel::importCancelledDuringTheBackup()
{
    ScriptedConversion conversion(OperationType::Import);
    const DBCLocalizable::Substitute texts(shortTexts());
    conversion.hasCards(threeNames());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.cancelWhen(backupBegins);
    // The copy asks, is told to stop, and leaves nothing.
    conversion.script.onBackup
        = [&] { QVERIFY(!conversion.controller->fileManager(nullptr, QString(), QString())); };
    conversion.script.backupResult = DBCResultCode::BackupFailure;

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QCOMPARE(conversion.receiver.events, QStringList({backupBegins, cancelConfirmed, endedWell}));
    QCOMPARE(conversion.log().mid(2),
        QStringList({QStringLiteral("[Info] begin BACKUP"), QStringLiteral("[Info] cancelled")}));
    QVERIFY(!conversion.script.calls.contains(QStringLiteral("restore")));
    QVERIFY(!conversion.script.calls.contains(QStringLiteral("load")));
    QCOMPARE(conversion.controller->outcome().code, DBCResultCode::Success);
    QVERIFY(QFile::exists(conversion.package));
}

void tst_cancel::importCancelledAfterTheBackupWasWhole()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.script.onBackup = [&] {
        conversion.controller->setConfirmCancelOperation(true);
        conversion.controller->checkIsNeedToConfirmCancelOperation();
    };

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QVERIFY(!conversion.hasBackup());
    QVERIFY(QFile::exists(conversion.package));
    QCOMPARE(conversion.receiver.events, QStringList({backupBegins, cancelConfirmed, endedWell}));
    QVERIFY(conversion.controller->outcome().backupPath.isEmpty());
}

void tst_cancel::cancelledImportThatCannotBeRestoredIsAnError()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards(threeNames());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.script.restoreResult = DBCResultCode::RestoreFailure;
    conversion.cancelWhen(importRunning(3, 1));

    QVERIFY(!runOnItsOwnThread(*conversion.controller));

    QCOMPARE(conversion.controller->outcome().code, DBCResultCode::RestoreFailure);
    QCOMPARE(conversion.presenter.numbers, QList<quint32> {311});
    QVERIFY(conversion.hasBackup());
    QCOMPARE(conversion.receiver.events.mid(6),
        QStringList({QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
            QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification ok=false"),
            QStringLiteral("DBC_OperationDidFinishedNotification ok=false")}));
}

void tst_cancel::exportCancelledInTheLoopRemovesItsFolder()
{
    ScriptedConversion conversion(OperationType::Export);
    const DBCLocalizable::Substitute texts(shortTexts());
    conversion.hasCards(threeNames());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.cancelWhen(QStringLiteral("DBC_ExportIsRunningNotification max=3 finished=2"));

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QCOMPARE(conversion.receiver.events,
        QStringList({QStringLiteral("DBC_ExportWillBeginNotification"),
            QStringLiteral("DBC_ExportDataFetchDidFinishedNotification max=3 finished=0"),
            QStringLiteral("DBC_ExportIsRunningNotification max=3 finished=1"),
            QStringLiteral("DBC_ExportIsRunningNotification max=3 finished=2"), cancelConfirmed,
            endedWell}));
    QCOMPARE(conversion.log().mid(2), QStringList(QStringLiteral("[Info] cancelled")));
    QVERIFY(!QFile::exists(conversion.folder));
    QVERIFY(QFile::exists(conversion.home.path(QStringLiteral("interchange"))));
    QVERIFY(QFile::exists(conversion.package));
}

void tst_cancel::cancelAfterTheLastRecordIsNotAskedAnyMore()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards(threeNames());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.cancelWhen(importRunning(3, 3));

    QVERIFY(runOnItsOwnThread(*conversion.controller));

    QVERIFY(conversion.presenter.questions.isEmpty());
    QVERIFY(conversion.script.calls.contains(QStringLiteral("save")));
    QVERIFY(conversion.hasBackup());
}

void tst_cancel::cancelAskedForAgainAndAgainWhileItRuns()
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
    QCOMPARE(conversion.script.calls.filter(QStringLiteral("add")).size(), 3);
    QVERIFY(conversion.script.calls.contains(QStringLiteral("save")));
}

QTEST_GUILESS_MAIN(tst_cancel)
#include "tst_cancel.moc"
