// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConverterController.h"

#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/CapturedStandardError.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString endedBadly = u"DBC_OperationDidFinishedNotification ok=false"_s;

struct NoConversion { };

} // namespace

class tst_converterController : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newControllerHasNothingSet()
    {
        const DBCConverterController controller;
        QCOMPARE(controller.operationType(), OperationType::None);
        QVERIFY(controller.logFilePath().isEmpty());
        QVERIFY(!controller.isStopRunning());
        QVERIFY(!controller.isConfirmCancelOperation());
        QVERIFY(!controller.isOperationFinished());
    }

    void importKeepsTheFolderAsGiven()
    {
        const TestHome home;
        const RecordingPresenter presenter;
        const QString folder = home.makeFolder(u"cards"_s);
        const auto controller = DBCConverterController::initWith(
            folder, home.path(u"no.vmdb"_s), OperationType::Import);

        QCOMPARE(controller->operationType(), OperationType::Import);
        QCOMPARE(controller->logFilePath(), home.path(u"home/Library/Logs/VelmoraConverter.log"_s));
        controller->run();
        QVERIFY(
            home.logText().contains(u" From:[%1]  To:[%2]"_s.arg(folder, home.path(u"no.vmdb"_s))));
    }

    void exportGoesIntoTheRootFolderBelow()
    {
        const TestHome home;
        const RecordingPresenter presenter;
        const QString package = home.path(u"no.vmdb"_s);
        const auto controller
            = DBCConverterController::initWith(home.path(u"out"_s), package, OperationType::Export);

        controller->run();

        const QString folder
            = home.path(u"out"_s) + u'/' + getLocalString(u"IDS_FOLDER_STRUCT_ROOT"_s);
        QVERIFY(home.logText().contains(u" From:[%1]  To:[%2]"_s.arg(package, folder)));
    }

    void supportedTypesAreImportAndExport_data()
    {
        QTest::addColumn<qint32>("number");
        QTest::addColumn<bool>("isSupported");
        QTest::newRow("below") << 0x1ffff << false;
        QTest::newRow("none") << 0x20000 << false;
        QTest::newRow("import") << 0x20001 << true;
        QTest::newRow("export") << 0x20002 << true;
        QTest::newRow("above") << 0x20003 << false;
    }
    void supportedTypesAreImportAndExport()
    {
        QFETCH(qint32, number);
        QFETCH(bool, isSupported);
        const auto type = static_cast<OperationType>(number);
        DBCConverterController controller;
        controller.setOperationType(OperationType::Import);

        controller.setOperationType(type);

        QCOMPARE(DBCConverterController::_isSupportOperation(type), isSupported);
        QCOMPARE(controller.operationType(), isSupported ? type : OperationType::None);
    }

    void flagsAreKept()
    {
        DBCConverterController controller;
        controller.setStopRunning(true);
        controller.setConfirmCancelOperation(true);
        QVERIFY(controller.isStopRunning());
        QVERIFY(controller.isConfirmCancelOperation());
        controller.setStopRunning(false);
        controller.setConfirmCancelOperation(false);
        QVERIFY(!controller.isStopRunning());
        QVERIFY(!controller.isConfirmCancelOperation());
    }

    void emptyFolderRunsNothing()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.controller->setFullPathFolder(QString());

        QVERIFY(!conversion.controller->run());

        QVERIFY(conversion.receiver.events.isEmpty());
        QVERIFY(conversion.log().isEmpty());
        QVERIFY(conversion.presenter.numbers.isEmpty());
    }

    void emptyPackagePathRunsNothing()
    {
        ScriptedConversion conversion(OperationType::Export);
        conversion.controller->setFullPathDB(QString());

        QVERIFY(!conversion.controller->run());

        QVERIFY(conversion.receiver.events.isEmpty());
        QVERIFY(conversion.log().isEmpty());
    }

    void unsupportedTypeRunsNothing()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.controller->setOperationType(static_cast<OperationType>(0x20003));

        QVERIFY(!conversion.controller->run());

        QVERIFY(conversion.receiver.events.isEmpty());
        QVERIFY(conversion.log().isEmpty());
        QVERIFY(conversion.script.calls.isEmpty());
    }

    void runWithoutReceiverIsSilent()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.controller->setWindowController(nullptr);

        QVERIFY(conversion.controller->run());

        QVERIFY(conversion.receiver.events.isEmpty());
        QVERIFY(conversion.controller->isOperationFinished());
    }

    void runBeginsWithASeparatorAndFreshCounts()
    {
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.makesBackup();
        DBCLog::warning(u"of an earlier operation"_s);

        QVERIFY(conversion.controller->run());

        QCOMPARE(conversion.log().at(1), u"[Info] "_s + QString(66, u'='));
        QCOMPARE(conversion.log().constLast(), u"[Info] end IMPORT| |0|0"_s);
    }

    void runWritesToItsOwnLog()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.controller->setLogFilePath(conversion.home.path(u"other.log"_s));

        QVERIFY(conversion.controller->run());

        const QString text = QString::fromUtf8(conversion.home.readFile(u"other.log"_s));
        QVERIFY(text.contains(QString(66, u'=')));
        QVERIFY(text.contains(u"  To:["_s));
        QVERIFY(conversion.log().isEmpty());
    }

    void endLineMentionsWarningsOfTheDefaultLogOnly_data()
    {
        QTest::addColumn<bool>("isDefault");
        QTest::addColumn<QString>("endLine");
        QTest::newRow("warning in the default log") << true << u"end IMPORT|SEE LOG|1|1"_s;
        QTest::newRow("warning in the operation's own") << false << u"end IMPORT| |1|1"_s;
    }
    void endLineMentionsWarningsOfTheDefaultLogOnly()
    {
        QFETCH(bool, isDefault);
        QFETCH(QString, endLine);
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.makesBackup();
        conversion.hasCards({u"Sato"_s});
        const QString own = conversion.home.path(u"other.log"_s);
        conversion.controller->setLogFilePath(own);
        conversion.script.onAdd = [&](int) {
            DBCLog* const log = isDefault ? DBCLog::logInstance() : DBCLog::logInstance(own);
            log->logWarning(u"no such image"_s);
            return DBCError();
        };

        QVERIFY(conversion.controller->run());

        const QString text = QString::fromUtf8(conversion.home.readFile(u"other.log"_s));
        QVERIFY2(text.endsWith(endLine + u'\n'), qPrintable(text));
    }

    void operationIsFinishedOnlyAfterItsLastEvent()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        QStringList early;
        conversion.receiver.onEvent = [&](const DBCEvent& event) {
            if (conversion.controller->isOperationFinished())
                early << RecordingReceiver::describe(event);
        };

        QVERIFY(conversion.controller->run());

        QCOMPARE(early, QStringList());
        QVERIFY(conversion.controller->isOperationFinished());
    }

    void exceptionEscapingASequenceIsMessage102()
    {
        ScriptedConversion conversion(OperationType::Import);
        const DBCLocalizable::Substitute texts(shortTexts());
        conversion.script.onOpen = [] { throw std::runtime_error("no memory for a store"); };

        QVERIFY(!conversion.controller->run());

        QCOMPARE(conversion.controller->outcome().code, DBCResultCode::InternalException);
        QCOMPARE(conversion.presenter.numbers, QList<quint32> {102});
        QCOMPARE(conversion.log().constLast(), u"[Error] message 102"_s);
        QCOMPARE(conversion.receiver.events, QStringList(endedBadly));
        QVERIFY(conversion.controller->isOperationFinished());
    }

    void otherThrownObjectsPassThrough()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.script.onOpen = [] { throw NoConversion(); };

        QVERIFY_THROWS_EXCEPTION(NoConversion, conversion.controller->run());
    }

    void exceptionsAndErrorsAreOnTheConsoleInConsoleMode()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.makesBackup();
        conversion.hasCards({u"Sato"_s});
        conversion.script.onAdd
            = [](int) -> DBCError { throw std::runtime_error("the disk is gone"); };
        conversion.home.writeFile(u"home/Library/Preferences/com.velmora.VelmoraConverter.plist"_s,
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
            "<key>Log Level</key><integer>0</integer></dict></plist>");
        conversion.controller->setLogFilePath(conversion.home.path(u"console.log"_s));
        CapturedStandardError console;

        QVERIFY(!conversion.controller->run());

        const QString text = console.text();
        QVERIFY(
            text.contains(u"[Debug] Exception happended when importing.[the disk is gone]\n"_s));
        QVERIFY(text.contains(
            QRegularExpression(u"\\[Debug\\] Operation Finished! Error:\\[.*-107.*\\]\n"_s)));
    }

    void everyEventNamesItsSender()
    {
        ScriptedConversion conversion(OperationType::Import);
        conversion.hasCards({u"Sato"_s});
        conversion.makesBackup();

        QVERIFY(conversion.controller->run());

        QCOMPARE(conversion.receiver.senders.size(), 7);
        for (const DBCConverterController* sender : std::as_const(conversion.receiver.senders))
            QCOMPARE(sender, conversion.controller.get());
    }

    void eventsHaveTheirPublicNames()
    {
        const QStringList expected {
            u"DBC_DatabaseBackupWillBeginNotification"_s,
            u"DBC_DatabaseBackupDidFinishedNotification"_s,
            u"DBC_ImportWillBeginNotification"_s,
            u"DBC_ImportDataLoadDidFinishedNotification"_s,
            u"DBC_ImportIsRunningNotification"_s,
            u"DBC_ImportDidFinishedNotification"_s,
            u"DBC_ExportWillBeginNotification"_s,
            u"DBC_ExportDataFetchDidFinishedNotification"_s,
            u"DBC_ExportIsRunningNotification"_s,
            u"DBC_ExportDidFinishedNotification"_s,
            u"DBC_DatabaseRestoreWillBeginNotification"_s,
            u"DBC_DatabaseRestoreDidFinishedNotification"_s,
            u"DBC_OperationDidCanceledNotification"_s,
            u"DBC_OperationDidFinishedNotification"_s,
        };
        QStringList names;
        for (const char* name : DBCEventNames)
            names << QString::fromLatin1(name);
        QCOMPARE(names, expected);
        QCOMPARE(DBCEvent {.name = DBCEventName::OperationDidFinished}.publicName(),
            QLatin1StringView("DBC_OperationDidFinishedNotification"));
        QCOMPARE(DBCEventOperationIsOk, "OperationIsOk");
        QCOMPARE(DBCEventMaxCount, "ProgressInfoMaxCount");
        QCOMPARE(DBCEventFinishedCount, "ProgressInfoFinishedCount");
        QCOMPARE(DBCEventConfirmCancelResult, "ConfirmCancelResult");
    }
};

QTEST_GUILESS_MAIN(tst_converterController)
#include "tst_converterController.moc"
