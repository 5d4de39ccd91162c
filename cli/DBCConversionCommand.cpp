// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommands.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConverterController.h"
#include "operation/DBCPreconditions.h"
#include "operation/log/DBCLog.h"
#include "system/DBCSignalWatcher.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <atomic>
#include <functional>
#include <optional>
#include <system_error>
#include <thread>

namespace {

// The type and the two paths of a conversion, as DBCConverterController needs them.
struct Conversion {
    OperationType type;
    QString dataPath; // in an export, the folder in which the interchange folder is created
    QString package;

    explicit Conversion(const DBCRequest& request)
        : type(
            request.command == DBCCommand::Import ? OperationType::Import : OperationType::Export)
        , dataPath(request.paths.at(type == OperationType::Import ? 0 : 1))
        , package(request.paths.at(type == OperationType::Import ? 1 : 0))
    {
    }
    bool isImport() const { return type == OperationType::Import; }
    QString exportedFolder() const { return DBCInterchangeNames::exportFolder(dataPath); }
};

// Passes the operation's events to the reporter.
class EventForwarder : public DBCEventReceiver {
public:
    EventForwarder(DBCConverterController& controller, DBCReporter& reporter)
        : _controller(controller)
        , _reporter(reporter)
    {
    }
    void refreshProgress(const DBCEvent& event) override
    {
        // The user has just answered the question whether to cancel. If a second signal came during
        // the question, its request to cancel is dropped, so that the user is not asked again.
        if (event.name == DBCEventName::OperationDidCanceled)
            _controller.setConfirmCancelOperation(false);
        _reporter.event(event);
    }

private:
    DBCConverterController& _controller;
    DBCReporter& _reporter;
};

// Starts work on a new thread. Returns std::nullopt if the system refuses to create a thread.
std::optional<std::thread> startThread(const std::function<void()>& work)
{
    try {
        return std::thread(work);
    } catch (const std::system_error&) {
        return std::nullopt;
    }
}

// Runs the operation on a thread of its own, and handles the events of this thread until the
// operation has ended. The thread is a std::thread, because QThread::wait() returns before the
// thread has destroyed its thread-local objects. The program could then end too early and destroy
// global objects that these thread-local objects still use.
bool runToItsEnd(DBCConverterController& controller, DBCReporter& reporter)
{
    EventForwarder forwarder(controller, reporter);
    controller.setWindowController(&forwarder);
    const DBCSignalWatcher signalWatcher([&] { controller.setConfirmCancelOperation(true); });

    bool isOk = false;
    std::atomic<bool> hasEnded = false;
    QAbstractEventDispatcher* events = QAbstractEventDispatcher::instance();
    std::optional<std::thread> operation = startThread([&] {
        isOk = controller.run();
        hasEnded = true;
        events->wakeUp();
    });
    if (!operation) {
        controller.endWithoutThread();
        return false;
    }
    while (!hasEnded)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    operation->join();
    return isOk;
}

DBCExitCode exitCodeOf(bool isOk, const DBCConverterController& controller)
{
    if (!isOk)
        return DBCExitCode::Failed;
    if (controller.isStopRunning())
        return DBCExitCode::Cancelled;
    const DBCLog* log = DBCLog::logInstance();
    return log && log->hasWarningOrError() ? DBCExitCode::DoneWithWarnings : DBCExitCode::Done;
}

QString outcomeText(const Conversion& conversion, const DBCCommandResult& result)
{
    const bool isImport = conversion.isImport();
    if (result.exitCode == DBCExitCode::Cancelled)
        return isImport ? getLocalString("IDS_CLI_IMPORT_CANCELLED", {conversion.package})
                        : getLocalString("IDS_CLI_EXPORT_CANCELLED", {conversion.exportedFolder()});
    const DBCMessageArguments arguments {result.finishedCount, result.maxCount,
        isImport ? conversion.package : conversion.exportedFolder()};
    if (result.exitCode == DBCExitCode::Failed)
        return isImport ? getLocalString("IDS_CLI_IMPORT_FAILED", arguments)
                        : getLocalString("IDS_CLI_EXPORT_FAILED", arguments);
    return isImport ? getLocalString("IDS_CLI_IMPORTED", arguments)
                    : getLocalString("IDS_CLI_EXPORTED", arguments);
}

QStringList summaryOf(const Conversion& conversion, const DBCCommandResult& result)
{
    QStringList lines {outcomeText(conversion, result)};
    if (!result.backupPath.isEmpty())
        lines << getLocalString("IDS_CLI_BACKUP", {result.backupPath});
    if (!result.reportPath.isEmpty())
        lines << getLocalString("IDS_CLI_REPORT", {result.reportPath});
    const DBCLog* log = DBCLog::logInstance();
    if (!log)
        return lines << getLocalString("IDS_CLI_NO_LOG", {DBCLog::_defaultLogFilePath()});
    return lines << getLocalString("IDS_CLI_LOG",
               {log->logFilePath(), qint64 {result.warningCount}, qint64 {result.errorCount}});
}

} // namespace

DBCCommandResult runConversion(const DBCRequest& request, DBCReporter& reporter)
{
    const Conversion conversion(request);
    if (!DBCPreconditions(conversion.dataPath, conversion.package, conversion.type)
             ._checkPrecondition())
        return {.exitCode = DBCExitCode::Refused, .code = DBCResultCode::GeneralFailure};

    const auto controller = DBCConverterController::initWith(
        conversion.dataPath, conversion.package, conversion.type);
    const bool isOk = runToItsEnd(*controller, reporter);

    const DBCConverterController::Outcome& outcome = controller->outcome();
    DBCCommandResult result {
        .exitCode = exitCodeOf(isOk, *controller),
        .code = outcome.code,
        .maxCount = outcome.maxCount,
        .finishedCount = outcome.finishedCount,
        .backupPath = outcome.backupPath,
        .reportPath = outcome.reportPath,
    };
    if (const DBCLog* log = DBCLog::logInstance()) {
        result.warningCount = log->warningLogCount();
        result.errorCount = log->errorLogCount();
    }
    result.summary = summaryOf(conversion, result);
    return result;
}
