// SPDX-License-Identifier: GPL-3.0-or-later
// Checks and starts an operation, and ends it when the program has to end.
#include "app/DBCConverterWindowController.h"
#include "app/DBCWindowFrame.h"
#include "app/desktop/DBCPaths.h"
#include "app/dialogs/DBCBackupsDialog.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetweenAnswers = 5;

} // namespace

DBCPreconditions DBCConverterWindowController::_preconditions() const
{
    return {_dataPath(), _databasePath(), _operationType};
}

bool DBCConverterWindowController::_checkPrecondition() const
{
    return _preconditions()._checkPrecondition();
}

bool DBCConverterWindowController::_dataPathCheck() const
{
    return _preconditions()._dataPathCheck();
}

bool DBCConverterWindowController::_vmdbPathCheck() const
{
    return _preconditions()._vmdbPathCheck();
}

bool DBCConverterWindowController::createExportFolder() const
{
    return _preconditions().createExportFolder();
}

DBCResultCode DBCConverterWindowController::_networkPathCheck(const QString& path)
{
    return DBCPreconditions::_networkPathCheck(path);
}

void DBCConverterWindowController::convertAction()
{
    if (!_checkPrecondition())
        return;
    _disenableAllButtons();
    _redrawProgressBox();
    _initMsgAndProgressBar();
    _disenableMenuItem();
    _enableWindowsCloseBtnWith(false);
    DBCPaths::rememberDataPath(_operationType, _dataPath());
    _startOperation();
}

void DBCConverterWindowController::_startOperation()
{
    if (_operationThread)
        _operationThread->wait();
    _IsCloseApp = false;
    _ctrlDBCConverterController
        = DBCConverterController::initWith(_dataPath(), _databasePath(), _operationType);
    _ctrlDBCConverterController->setWindowController(this);
    _ctrlDBCConverterController->setFactories(_factories);
    _inhibitor.hold(getLocalString(u"IDS_LABEL_KEEP_AWAKE"_s));
    _isOperationRunning = true;
    _operationThread.reset(
        QThread::create([controller = _ctrlDBCConverterController.get()] { controller->run(); }));
    _ctrlDBCConverterController->start(_operationThread.get());
}

void DBCConverterWindowController::endSoon()
{
    _presenter.leaveUnattended();
    if (!isBusy()) {
        _mainWndCtrl.close();
        return;
    }
    _isEnding = true;
    if (isRunning())
        _ctrlDBCConverterController->setConfirmCancelOperation(true);
}

void DBCConverterWindowController::windDown()
{
    _presenter.leaveUnattended();
    if (_backupsDialog)
        _backupsDialog->waitUntilChanged();
    // While _isReacting, the operation's thread waits for the function that handles an event. That
    // function is a caller of this one, so a wait for the thread here would never end. To return is
    // safe: the event is the last one, with the question whether to quit the program, and all data
    // is on the disk by then.
    if (!_operationThread || _isReacting)
        return;
    _ctrlDBCConverterController->setConfirmCancelOperation(true);
    // The operation's thread waits until this thread has handled each event. The event loop of this
    // thread may have ended already, so this loop delivers the events.
    while (!_operationThread->wait(QDeadlineTimer(millisecondsBetweenAnswers)))
        QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    _isOperationRunning = false;
}
