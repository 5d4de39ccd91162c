// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConverterController.h"

#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/CapturedStandardError.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

namespace {

const QString endedBadly = QStringLiteral("DBC_OperationDidFinishedNotification ok=false");

struct NoConversion { };

} // namespace

class tst_converterController : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newControllerHasNothingSet();
    void importKeepsTheFolderAsGiven();
    void exportGoesIntoTheRootFolderBelow();
    void supportedTypesAreImportAndExport_data();
    void supportedTypesAreImportAndExport();
    void flagsAreKept();

    void emptyFolderRunsNothing();
    void emptyPackagePathRunsNothing();
    void unsupportedTypeRunsNothing();
    void runWithoutReceiverIsSilent();
    void runBeginsWithASeparatorAndFreshCounts();
    void runWritesToItsOwnLog();
    void exceptionEscapingASequenceIsMessage102();
    void otherThrownObjectsPassThrough();
    void exceptionsAndErrorsAreOnTheConsoleInConsoleMode();
    void everyEventNamesItsSender();
    void eventsHaveTheirPublicNames();

    void noCancelAskedMeansNoQuestion();
    void confirmedCancelStops_data();
    void confirmedCancelStops();
    void declinedCancelGoesOn();
    void cancelWithoutOperationCannotBeAsked();
    void copyGoesOnUntilACancelIsConfirmed();
};

void tst_converterController::newControllerHasNothingSet()
{
    const DBCConverterController controller;
    QCOMPARE(controller.operationType(), OperationType::None);
    QVERIFY(controller.logFilePath().isEmpty());
    QVERIFY(!controller.isStopRunning());
    QVERIFY(!controller.isConfirmCancelOperation());
    QVERIFY(!controller.isOperationFinished());
}

void tst_converterController::importKeepsTheFolderAsGiven()
{
    const TestHome home;
    const RecordingPresenter presenter;
    const QString folder = home.makeFolder(QStringLiteral("cards"));
    const auto controller = DBCConverterController::initWith(
        folder, home.path(QStringLiteral("no.vmdb")), OperationType::Import);

    QCOMPARE(controller->operationType(), OperationType::Import);
    QCOMPARE(controller->logFilePath(),
        home.path(QStringLiteral("home/Library/Logs/VelmoraConverter.log")));
    controller->run();
    QVERIFY(home.logText().contains(
        QStringLiteral(" From:[%1]  To:[%2]").arg(folder, home.path(QStringLiteral("no.vmdb")))));
}

void tst_converterController::exportGoesIntoTheRootFolderBelow()
{
    const TestHome home;
    const RecordingPresenter presenter;
    const QString package = home.path(QStringLiteral("no.vmdb"));
    const auto controller = DBCConverterController::initWith(
        home.path(QStringLiteral("out")), package, OperationType::Export);

    controller->run();

    const QString folder = home.path(QStringLiteral("out")) + u'/'
        + getLocalString(QStringLiteral("IDS_FOLDER_STRUCT_ROOT"));
    QVERIFY(home.logText().contains(QStringLiteral(" From:[%1]  To:[%2]").arg(package, folder)));
}

void tst_converterController::supportedTypesAreImportAndExport_data()
{
    QTest::addColumn<qint32>("number");
    QTest::addColumn<bool>("isSupported");
    QTest::newRow("below") << 0x1ffff << false;
    QTest::newRow("none") << 0x20000 << false;
    QTest::newRow("import") << 0x20001 << true;
    QTest::newRow("export") << 0x20002 << true;
    QTest::newRow("above") << 0x20003 << false;
}

void tst_converterController::supportedTypesAreImportAndExport()
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

void tst_converterController::flagsAreKept()
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

void tst_converterController::emptyFolderRunsNothing()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.controller->setFullPathFolder(QString());

    QVERIFY(!conversion.controller->run());

    QVERIFY(conversion.receiver.events.isEmpty());
    QVERIFY(conversion.log().isEmpty());
    QVERIFY(conversion.presenter.numbers.isEmpty());
}

void tst_converterController::emptyPackagePathRunsNothing()
{
    ScriptedConversion conversion(OperationType::Export);
    conversion.controller->setFullPathDB(QString());

    QVERIFY(!conversion.controller->run());

    QVERIFY(conversion.receiver.events.isEmpty());
    QVERIFY(conversion.log().isEmpty());
}

void tst_converterController::unsupportedTypeRunsNothing()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.controller->setOperationType(static_cast<OperationType>(0x20003));

    QVERIFY(!conversion.controller->run());

    QVERIFY(conversion.receiver.events.isEmpty());
    QVERIFY(conversion.log().isEmpty());
    QVERIFY(conversion.script.calls.isEmpty());
}

void tst_converterController::runWithoutReceiverIsSilent()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.controller->setWindowController(nullptr);

    QVERIFY(conversion.controller->run());

    QVERIFY(conversion.receiver.events.isEmpty());
    QVERIFY(conversion.controller->isOperationFinished());
}

void tst_converterController::runBeginsWithASeparatorAndFreshCounts()
{
    ScriptedConversion conversion(OperationType::Import);
    const DBCLocalizable::Substitute texts(shortTexts());
    conversion.makesBackup();
    DBCLog::warning(QStringLiteral("of an earlier operation"));

    QVERIFY(conversion.controller->run());

    QCOMPARE(conversion.log().at(1), QStringLiteral("[Info] ") + QString(66, u'='));
    QCOMPARE(conversion.log().constLast(), QStringLiteral("[Info] end IMPORT| |0|0"));
}

void tst_converterController::runWritesToItsOwnLog()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.controller->setLogFilePath(conversion.home.path(QStringLiteral("other.log")));

    QVERIFY(conversion.controller->run());

    const QString text = QString::fromUtf8(conversion.home.readFile(QStringLiteral("other.log")));
    QVERIFY(text.contains(QString(66, u'=')));
    QVERIFY(text.contains(QStringLiteral("  To:[")));
    QVERIFY(conversion.log().isEmpty());
}

void tst_converterController::exceptionEscapingASequenceIsMessage102()
{
    ScriptedConversion conversion(OperationType::Import);
    const DBCLocalizable::Substitute texts(shortTexts());
    conversion.script.onOpen = [] { throw std::runtime_error("no memory for a store"); };

    QVERIFY(!conversion.controller->run());

    QCOMPARE(conversion.controller->outcome().code, DBCResultCode::InternalException);
    QCOMPARE(conversion.presenter.numbers, QList<quint32> {102});
    QCOMPARE(conversion.log().constLast(), QStringLiteral("[Error] message 102"));
    QCOMPARE(conversion.receiver.events, QStringList(endedBadly));
    QVERIFY(conversion.controller->isOperationFinished());
}

void tst_converterController::otherThrownObjectsPassThrough()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.script.onOpen = [] { throw NoConversion(); };

    QVERIFY_THROWS_EXCEPTION(NoConversion, conversion.controller->run());
}

void tst_converterController::exceptionsAndErrorsAreOnTheConsoleInConsoleMode()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.makesBackup();
    conversion.hasCards({QStringLiteral("Sato")});
    conversion.script.onAdd = [](int) -> DBCError { throw std::runtime_error("the disk is gone"); };
    conversion.home.writeFile(
        QStringLiteral("home/Library/Preferences/com.velmora.VelmoraConverter.plist"),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
        "<key>Log Level</key><integer>0</integer></dict></plist>");
    conversion.controller->setLogFilePath(conversion.home.path(QStringLiteral("console.log")));
    CapturedStandardError console;

    QVERIFY(!conversion.controller->run());

    const QString text = console.text();
    QVERIFY(text.contains(
        QStringLiteral("[Debug] Exception happended when importing.[the disk is gone]\n")));
    QVERIFY(text.contains(QRegularExpression(
        QStringLiteral("\\[Debug\\] Operation Finished! Error:\\[.*-107.*\\]\n"))));
}

void tst_converterController::everyEventNamesItsSender()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.hasCards({QStringLiteral("Sato")});
    conversion.makesBackup();

    QVERIFY(conversion.controller->run());

    QCOMPARE(conversion.receiver.senders.size(), 7);
    for (const DBCConverterController* sender : std::as_const(conversion.receiver.senders))
        QCOMPARE(sender, conversion.controller.get());
}

void tst_converterController::eventsHaveTheirPublicNames()
{
    const QStringList expected {
        QStringLiteral("DBC_DatabaseBackupWillBeginNotification"),
        QStringLiteral("DBC_DatabaseBackupDidFinishedNotification"),
        QStringLiteral("DBC_ImportWillBeginNotification"),
        QStringLiteral("DBC_ImportDataLoadDidFinishedNotification"),
        QStringLiteral("DBC_ImportIsRunningNotification"),
        QStringLiteral("DBC_ImportDidFinishedNotification"),
        QStringLiteral("DBC_ExportWillBeginNotification"),
        QStringLiteral("DBC_ExportDataFetchDidFinishedNotification"),
        QStringLiteral("DBC_ExportIsRunningNotification"),
        QStringLiteral("DBC_ExportDidFinishedNotification"),
        QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
        QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification"),
        QStringLiteral("DBC_OperationDidCanceledNotification"),
        QStringLiteral("DBC_OperationDidFinishedNotification"),
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

void tst_converterController::noCancelAskedMeansNoQuestion()
{
    ScriptedConversion conversion(OperationType::Import);

    QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

    QVERIFY(conversion.presenter.questions.isEmpty());
    QVERIFY(conversion.receiver.events.isEmpty());
}

void tst_converterController::confirmedCancelStops_data()
{
    QTest::addColumn<OperationType>("type");
    QTest::addColumn<QString>("key");
    QTest::newRow("import") << OperationType::Import << QStringLiteral("IDS_MSG_ERR_0315");
    QTest::newRow("export") << OperationType::Export << QStringLiteral("IDS_MSG_ERR_0210");
}

void tst_converterController::confirmedCancelStops()
{
    QFETCH(OperationType, type);
    QFETCH(QString, key);
    ScriptedConversion conversion(type);
    const DBCLocalizable::Substitute texts(shortTexts());
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.controller->setConfirmCancelOperation(true);

    QVERIFY(conversion.controller->checkIsNeedToConfirmCancelOperation());

    QVERIFY(conversion.controller->isStopRunning());
    QVERIFY(!conversion.controller->isConfirmCancelOperation());
    QCOMPARE(conversion.presenter.questions.size(), 1);
    const DBCQuestion question = conversion.presenter.questions.constFirst();
    QCOMPARE(question.key, key);
    QCOMPARE(question.defaultButton, getLocalString(QStringLiteral("IDS_BUTTON_MSG_YES")));
    QCOMPARE(question.alternateButton, getLocalString(QStringLiteral("IDS_BUTTON_MSG_NO")));
    QVERIFY(question.otherButton.isEmpty());
    QCOMPARE(conversion.log(), QStringList(QStringLiteral("[Info] cancelled")));
    QCOMPARE(conversion.receiver.events,
        QStringList(QStringLiteral("DBC_OperationDidCanceledNotification cancel=true")));
}

void tst_converterController::declinedCancelGoesOn()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.presenter.answer = DBCAnswer::Alternate;
    conversion.controller->setConfirmCancelOperation(true);
    conversion.controller->setStopRunning(true);

    QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

    QVERIFY(!conversion.controller->isStopRunning());
    QVERIFY(conversion.log().isEmpty());
    QCOMPARE(conversion.receiver.events,
        QStringList(QStringLiteral("DBC_OperationDidCanceledNotification cancel=false")));
    QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());
    QCOMPARE(conversion.presenter.questions.size(), 1);
}

void tst_converterController::cancelWithoutOperationCannotBeAsked()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.controller->setOperationType(OperationType::None);
    conversion.controller->setConfirmCancelOperation(true);

    QVERIFY(!conversion.controller->checkIsNeedToConfirmCancelOperation());

    QVERIFY(conversion.presenter.questions.isEmpty());
    QCOMPARE(conversion.presenter.numbers, QList<quint32> {102});
}

void tst_converterController::copyGoesOnUntilACancelIsConfirmed()
{
    ScriptedConversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Alternate, DBCAnswer::Default};
    const auto mayCopy = [&] {
        return conversion.controller->fileManager(
            nullptr, QStringLiteral("/a"), QStringLiteral("/b"));
    };

    QVERIFY(mayCopy());
    conversion.controller->setConfirmCancelOperation(true);
    QVERIFY(mayCopy());
    conversion.controller->setConfirmCancelOperation(true);
    QVERIFY(!mayCopy());
    QVERIFY(!mayCopy());
}

QTEST_GUILESS_MAIN(tst_converterController)
#include "tst_converterController.moc"
