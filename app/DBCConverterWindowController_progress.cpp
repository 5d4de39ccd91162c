// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the events of a running operation on the converter screen.
#include "app/DBCConverterWindowController.h"
#include "app/DBCConverterWindowTexts.h"
#include "app/DBCWindowFrame.h"
#include "app/desktop/DBCDesktopNotification.h"
#include "operation/log/DBCLog.h"
#include "operation/messages/DBCMessage.h"
#include "ui_DBCConverterView.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// In the progress bar, loading the data file or fetching the cards counts as two cards.
constexpr qint64 stepsBeforeCards = 2;

// The shortest time between two updates of the screen while cards are processed.
constexpr int millisecondsBetweenPaints = 50;

constexpr qint64 secondsPerMinute = 60;

qint64 percentage(qint64 finishedCount, qint64 maxCount)
{
    return (finishedCount + stepsBeforeCards) * 100 / (maxCount + stepsBeforeCards);
}

int barValue(qint64 steps)
{
    return static_cast<int>(std::min<qint64>(steps, std::numeric_limits<int>::max()));
}

QString remainingText(std::optional<qint64> seconds)
{
    if (!seconds)
        return {};
    if (*seconds < secondsPerMinute)
        return getLocalString("IDS_LABEL_SECONDS_LEFT");
    const qint64 minutes = (*seconds + secondsPerMinute - 1) / secondsPerMinute;
    return getLocalString("IDS_LABEL_MINUTES_LEFT", {minutes});
}

} // namespace

const DBCConverterWindowTexts& DBCConverterWindowController::_texts() const
{
    return DBCConverterWindowTexts::of(_operationType);
}

const std::array<DBCConverterWindowController::Subscription, DBCEventNames.size()>
    DBCConverterWindowController::subscriptions {{
        {DBCEventName::DatabaseBackupWillBegin, &DBCConverterWindowController::_backupWillBegin},
        {DBCEventName::DatabaseBackupDidFinished, &DBCConverterWindowController::_backupDidFinish},
        {DBCEventName::ImportWillBegin, &DBCConverterWindowController::_operationWillBegin},
        {DBCEventName::ImportDataLoadDidFinished, &DBCConverterWindowController::_cardsAreKnown},
        {DBCEventName::ImportIsRunning, &DBCConverterWindowController::_cardIsDone},
        {DBCEventName::ImportDidFinished, &DBCConverterWindowController::_allCardsAreDone},
        {DBCEventName::ExportWillBegin, &DBCConverterWindowController::_operationWillBegin},
        {DBCEventName::ExportDataFetchDidFinished, &DBCConverterWindowController::_cardsAreKnown},
        {DBCEventName::ExportIsRunning, &DBCConverterWindowController::_cardIsDone},
        {DBCEventName::ExportDidFinished, &DBCConverterWindowController::_allCardsAreDone},
        {DBCEventName::DatabaseRestoreWillBegin, &DBCConverterWindowController::_restoreWillBegin},
        {DBCEventName::DatabaseRestoreDidFinished,
            &DBCConverterWindowController::_restoreDidFinish},
        {DBCEventName::OperationDidCanceled, &DBCConverterWindowController::_cancelWasAnswered},
        {DBCEventName::OperationDidFinished, &DBCConverterWindowController::_operationDidFinish},
    }};

void DBCConverterWindowController::_registerObsever()
{
    for (const Subscription& subscription : subscriptions)
        _reactions.at(static_cast<std::size_t>(subscription.name)) = subscription.reaction;
}

void DBCConverterWindowController::refreshProgress(const DBCEvent& event)
{
    const QScopedValueRollback reacting(_isReacting, true);
    if (const Reaction reaction = _reactions.at(static_cast<std::size_t>(event.name)))
        (this->*reaction)(event);
}

// --- the progress area ---

void DBCConverterWindowController::_initMsgAndProgressBar()
{
    _ui->_progressHint->clear();
    _ui->_messageArea->clearTexts();
    _ui->openReportBtn->takeBack();
    _forgetCards();
    _showBar(0, 0);
}

void DBCConverterWindowController::_resetProgressAreaStatus()
{
    _ui->_progressHint->setText(u"0%"_s);
    _ui->_messageArea->clearTexts();
    _forgetCards();
    _ui->_progressBar->setValue(0);
    _redrawProgressBox();
}

// Clears the name of the current card and the remaining time, and drops the newest event if the
// screen has not shown it yet.
void DBCConverterWindowController::_forgetCards()
{
    _runningTimer.stop();
    _newestRunning.reset();
    _remainingTime.stop();
    _ui->currentCard->clear();
    _ui->remainingTime->clear();
}

// A range of 0 to 0 would make the bar move to and fro as if busy, so a maximum of 0 becomes 1.
void DBCConverterWindowController::_showBar(qint64 value, qint64 maximum)
{
    _ui->_progressBar->setRange(0, std::max(1, barValue(maximum)));
    _ui->_progressBar->setValue(barValue(value));
}

void DBCConverterWindowController::_showBusyBar()
{
    _ui->_progressBar->setRange(0, 0);
    _ui->_progressBar->setValue(0);
}

void DBCConverterWindowController::_showCounts(const DBCEvent& event)
{
    const qint64 maxCount = event.maxCount.value_or(0);
    const qint64 finishedCount = event.finishedCount.value_or(0);
    if (maxCount == 0)
        _showBar(0, 0);
    else
        _showBar(finishedCount + stepsBeforeCards, maxCount + stepsBeforeCards);
    _ui->_progressHint->setText(_texts().progress.text({percentage(finishedCount, maxCount)}));
}

void DBCConverterWindowController::_showCardAndTime(const DBCEvent& event)
{
    const QString name = event.currentCard.isEmpty()
        ? QString()
        : getLocalString("IDS_LABEL_CURRENT_CARD", {event.currentCard});
    _ui->currentCard->setText(_ui->currentCard->fontMetrics().elidedText(
        name, Qt::ElideRight, _ui->currentCard->width()));
    _ui->remainingTime->setText(remainingText(
        _remainingTime.seconds(event.finishedCount.value_or(0), event.maxCount.value_or(0))));
}

void DBCConverterWindowController::_updateProgressMessageResult(
    const DBCEvent& event, bool isFinished)
{
    if (!event.maxCount || !event.finishedCount
        || !DBCConverterController::_isSupportOperation(_operationType))
        return;
    const QString counts = getLocalString("IDS_MSG_DATA_COUNT", {*event.maxCount})
        + _texts().finishedCount.text({*event.finishedCount});
    const QString status
        = getLocalString(isFinished ? "IDS_MSG_PROCESS_IS_FINISHED" : "IDS_MSG_PROCESS_IS_RUNNING",
            {_texts().label.text()});
    if (isFinished && _hasWarningsInLog())
        _ui->_messageArea->showAttention(
            status + u'\n' + getLocalString("IDS_MSG_REFERENCE_LOG_FILE"), counts);
    else
        _ui->_messageArea->showTexts(status + u'\n' + counts);
}

// The box is painted in the next turn of the event loop, which comes before the operation's next
// step.
void DBCConverterWindowController::_redrawProgressBox()
{
    _ui->_progressBox->update();
}

bool DBCConverterWindowController::_hasWarningsInLog()
{
    const DBCLog* const log = DBCLog::logInstance();
    return log && log->hasWarningOrError();
}

bool DBCConverterWindowController::_isStopped() const
{
    return _ctrlDBCConverterController && _ctrlDBCConverterController->isStopRunning();
}

// --- reactions ---

void DBCConverterWindowController::_operationWillBegin(const DBCEvent& /*event*/)
{
    _ui->_messageArea->clearTexts();
    _showBar(0, 0);
    _ui->_progressHint->setText(_texts().progress.text({0}));
    if (!_isImport())
        _setToCanelBtn();
}

void DBCConverterWindowController::_cardsAreKnown(const DBCEvent& event)
{
    _ui->_messageArea->clearTexts();
    _showCounts(event);
    _remainingTime.start();
    _showCardAndTime(event);
    _redrawProgressBox();
}

void DBCConverterWindowController::_cardIsDone(const DBCEvent& event)
{
    _newestRunning = event;
    if (!_runningTimer.isActive())
        _runningTimer.start(millisecondsBetweenPaints);
}

void DBCConverterWindowController::_showRunning()
{
    const auto event = std::exchange(_newestRunning, std::nullopt);
    if (!event)
        return;
    _updateProgressMessageResult(*event, false);
    _showCounts(*event);
    _showCardAndTime(*event);
}

void DBCConverterWindowController::_allCardsAreDone(const DBCEvent& event)
{
    _forgetCards();
    _showCounts(event);
    _updateProgressMessageResult(event, true);
    _redrawProgressBox();
    if (!_isStopped() && !_hasWarningsInLog())
        _askToQuit(event);
}

void DBCConverterWindowController::_askToQuit(const DBCEvent& event)
{
    _notifyUnwatched();
    const DBCAnswer answer = DBCMessage::ShowInfoMessage(DBCMessage::keyOf(_texts().quitQuestion),
        DBCButton::Yes, DBCButton::No, QString(), {event.finishedCount.value_or(0)});
    _IsCloseApp = answer == DBCAnswer::Default;
}

void DBCConverterWindowController::_backupWillBegin(const DBCEvent& /*event*/)
{
    _ui->_progressHint->clear();
    _showBusyBar();
    _ui->_messageArea->showTexts(
        getLocalString("IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING", {getLocalString("IDS_LBL_BACKUP")}));
    _setToCanelBtn();
}

void DBCConverterWindowController::_backupDidFinish(const DBCEvent& event)
{
    _ui->_progressHint->clear();
    if (event.operationIsOk.value_or(false))
        _ui->_messageArea->showTexts(
            getLocalString("IDS_MSG_DB_OPERATION_SUCCESS", {getLocalString("IDS_LBL_BACKUP")}));
    else
        _resetProgressAreaStatus();
    _showBar(0, 0);
    _redrawProgressBox();
}

void DBCConverterWindowController::_restoreWillBegin(const DBCEvent& /*event*/)
{
    _forgetCards();
    _ui->_progressHint->clear();
    _showBusyBar();
    _ui->_messageArea->showTexts(getLocalString(
        "IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING", {getLocalString("IDS_LBL_RESTORE")}));
    _ui->_convertBtn->setEnabled(false);
}

void DBCConverterWindowController::_restoreDidFinish(const DBCEvent& /*event*/)
{
    _showBar(0, 0);
    _resetProgressAreaStatus();
    _ui->_messageArea->showAttention(
        getLocalString("IDS_MSG_DB_RESTORE_FINISH", {getLocalString("IDS_LBL_RESTORE")}) + u'\n'
        + getLocalString("IDS_MSG_REFERENCE_LOG_FILE"));
    _redrawProgressBox();
}

void DBCConverterWindowController::_cancelWasAnswered(const DBCEvent& event)
{
    const bool isConfirmed = event.confirmCancelResult.value_or(false);
    _ui->_convertBtn->setEnabled(!isConfirmed);
    if (!isConfirmed) {
        _ui->_convertBtn->setFocus();
        return;
    }
    _resetProgressAreaStatus();
    _showBar(0, 0);
}

void DBCConverterWindowController::_operationDidFinish(const DBCEvent& event)
{
    _forgetCards();
    _redrawProgressBox();
    _inhibitor.release();
    _enableMenuItem();
    _enableWindowsCloseBtnWith(true);
    const bool isStopped = _isStopped();
    _updateStatusAfterProcessBY(isStopped, event.operationIsOk.value_or(false));
    _restoreToConvertBtn();
    _isOperationRunning = false;
    _ui->openReportBtn->offer(event, *_ui->_messageArea);
    _ui->_messageArea->setFocus();
    const bool isAskedToClose = !isStopped && !_hasWarningsInLog() && _IsCloseApp;
    if (isAskedToClose || _isEnding)
        _mainWndCtrl.close();
    else if (!isStopped && _hasWarningsInLog())
        _notifyUnwatched();
}

// Shows the result as a note on the desktop if the user is working in another window.
void DBCConverterWindowController::_notifyUnwatched()
{
    if (!_mainWndCtrl.isActiveWindow())
        _notification.show(getLocalString("IDS_TITLE_WINDOW"), _ui->_messageArea->accessibleName());
}
