// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConverterController.h"

#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageGuard.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCStopQuestion.h"
#include "operation/log/DBCLog.h"
#include "report/DBCRunStory.h"
#include "system/DBCStandardDescriptors.h"

#include <QFileInfo>
#include <QThread>

#include <exception>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 unexpectedErrorMessage = 102;
constexpr qsizetype separatorLength = 66;

QString folderFor(const QString& fullPathFolder, OperationType type)
{
    return type == OperationType::Export ? DBCInterchangeNames::exportFolder(fullPathFolder)
                                         : fullPathFolder;
}

} // namespace

DBCConversionFactories DBCConversionFactories::real()
{
    return {
        .openDatabase =
            [](const QString& packagePath) {
                auto database = DBCDataBaseController::initDBwithPath(packagePath);
                // If the package could not be opened, the destructor of its controller has closed
                // descriptor 0. Reopen it here, so that the next file that is opened does not
                // become standard input.
                keepStandardDescriptorsOpen();
                return database;
            },
        .createReader =
            [](const QString& dataFilePath) {
                return DBCFileReader::initWithFullFileName(dataFilePath);
            },
    };
}

DBCConverterController::DBCConverterController()
    : _factories(DBCConversionFactories::real())
{
}

DBCConverterController::~DBCConverterController() = default;

std::unique_ptr<DBCConverterController> DBCConverterController::initWith(
    const QString& fullPathFolder, const QString& fullPathDB, OperationType operationType)
{
    auto controller = std::make_unique<DBCConverterController>();
    controller->setFullPathFolder(folderFor(fullPathFolder, operationType));
    controller->setFullPathDB(fullPathDB);
    controller->setOperationType(operationType);
    if (const DBCLog* log = DBCLog::logInstance())
        controller->setLogFilePath(log->logFilePath());
    return controller;
}

void DBCConverterController::setOperationType(OperationType type)
{
    _operationType = _isSupportOperation(type) ? type : OperationType::None;
}

bool DBCConverterController::_isSupportOperation(OperationType type)
{
    return type >= OperationType::Import && type <= OperationType::Export;
}

void DBCConverterController::setFactories(DBCConversionFactories factories)
{
    _factories = std::move(factories);
}

bool DBCConverterController::run()
{
    if (_fullPathFolder.isEmpty() || _fullPathDB.isEmpty() || !_isSupportOperation(_operationType))
        return false;

    // Code that waits for "du" or for a calculation in the store has no delegate. While it waits,
    // it calls this question's function to learn whether the operation is to stop.
    const DBCStopQuestion question([this] { return checkIsNeedToConfirmCancelOperation(); });
    if (DBCLog* log = _log())
        log->resetLogCount();
    _beginStory();
    _logInfo(QString(separatorLength, u'='));

    _outcome.code = _performOperation().code();
    _packageGuard.reset();
    _endStory();
    return _end();
}

bool DBCConverterController::start(QThread* thread)
{
    thread->start();
    if (thread->isRunning() || thread->isFinished())
        return true;
    endWithoutThread();
    return false;
}

void DBCConverterController::endWithoutThread()
{
    const DBCError error = DBCError(DBCResultCode::InternalException)
                               .withDescription(u"no thread for the operation"_s);
    _showAndLog({unexpectedErrorMessage, {}}, error);
    _outcome.code = error.code();
    _end();
}

bool DBCConverterController::_end()
{
    const bool isOk = !isFailure(_outcome.code);
    _send({.name = DBCEventName::OperationDidFinished,
        .operationIsOk = isOk,
        .reportPath = _outcome.reportPath,
        .concernedCardCount = _outcome.concernedCardCount});
    _isOperationFinished = true;
    return isOk;
}

// Each sequence shows its own errors. This function shows an error only if an exception has escaped
// from the sequence.
DBCError DBCConverterController::_performOperation()
{
    bool hasSequenceEnded = false;
    DBCError error = _guarded(u"Exception happended.[%1]"_s, [&] {
        DBCError sequenceError;
        if (_operationType == OperationType::Import)
            _doImport(&sequenceError);
        else
            _doExport(&sequenceError);
        hasSequenceEnded = true;
        return sequenceError;
    });
    if (!hasSequenceEnded)
        _showAndLog({unexpectedErrorMessage, {}}, error);
    else if (DBCLog* log = _log(); log && error)
        log->logDebug(u"Operation Finished! Error:[%1]"_s.arg(error.toString()));
    return error;
}

DBCError DBCConverterController::_guarded(
    const QString& debugFormat, const std::function<DBCError()>& steps) const
{
    try {
        return steps();
    } catch (const std::exception& exception) {
        const QString description = QString::fromUtf8(exception.what());
        if (DBCLog* log = _log())
            log->logDebug(debugFormat.arg(description));
        return DBCError(DBCResultCode::InternalException).withDescription(description);
    }
}

bool DBCConverterController::_isCancel(const DBCError& error)
{
    return error.code() == DBCResultCode::CancelledByUser;
}

DBCError DBCConverterController::_stopBefore(const DBCError& error) const
{
    return error && _isStopRunning ? DBCError(DBCResultCode::CancelledByUser) : error;
}

bool DBCConverterController::_isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

// The user sees the message for internal failures, which names no path, so the log says which path
// could not be measured and why.
DBCError DBCConverterController::_sizeError(const DBCError& error) const
{
    if (DBCLog* log = _log())
        log->logError(getLocalString(u"IDS_LOG_ERR_SIZE"_s,
            {error.pathName().value_or(QString()), error.localizedDescription()}));
    return error;
}

DBCError DBCConverterController::_openDatabase(std::unique_ptr<DBCDataBaseController>* database)
{
    const auto use = _operationType == OperationType::Import ? DBCPackageGuard::Use::Changing
                                                             : DBCPackageGuard::Use::Reading;
    _packageGuard = DBCPackageGuard::hold(_fullPathDB, use);
    if (!_packageGuard) {
        DBCLog::error(getLocalString(u"IDS_LOG_ERR_PACKAGE_IN_USE"_s, {_fullPathDB}));
        return DBCError(DBCResultCode::DatabaseOpenFailure);
    }
    *database = _factories.openDatabase(_fullPathDB);
    return *database ? DBCError() : DBCError(DBCResultCode::DatabaseOpenFailure);
}

void DBCConverterController::_handleImportError(const DBCError& error)
{
    _showAndLog(DBCMessage::messageForImportError(error), error);
}

void DBCConverterController::_handleExportError(const DBCError& error)
{
    _showAndLog(DBCMessage::messageForExportError(error), error);
}

void DBCConverterController::_showAndLog(
    const DBCMessage::Mapped& message, const DBCError& error) const
{
    const QString text = DBCMessage::ShowErrorMessage(message.number, message.arguments);
    if (DBCLog* log = _log()) {
        log->logError(text,
            {.key = DBCMessage::keyOf(message.number),
                .number = error.lineNo(),
                .messageNumber = message.number,
                .consequence = DBCConsequence::Stopped});
    }
}

DBCLog* DBCConverterController::_log() const
{
    return DBCLog::logInstance(_logFilePath);
}

void DBCConverterController::_logInfo(const QString& text) const
{
    if (DBCLog* log = _log())
        log->logInfo(text);
}

void DBCConverterController::_logStart(const char* labelKey, const QString& detail) const
{
    _logInfo(getLocalString(u"IDS_LOG_INF_START"_s, {getLocalString(labelKey), detail}));
}

void DBCConverterController::_logEnd(const char* labelKey) const
{
    _logInfo(getLocalString(u"IDS_LOG_INF_END"_s, {getLocalString(labelKey)}));
}

QString DBCConverterController::_endLine(const char* formatKey, const char* labelKey) const
{
    const DBCLog* log = DBCLog::logInstance();
    const QString notice = log && log->hasWarningOrError()
        ? getLocalString(u"IDS_LOG_INF_EXISTS_WRN_OR_ERR"_s)
        : u" "_s;
    return getLocalString(
        formatKey, {getLocalString(labelKey), notice, _outcome.maxCount, _outcome.finishedCount});
}
