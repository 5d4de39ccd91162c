// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the driver that works with its window: it sends the events, and it handles the cancel
// that the user requests in the window and then confirms.
#include "operation/DBCConverterController.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCRecord.h"
#include "operation/log/DBCLog.h"
#include "report/DBCRunStory.h"

#include <QThread>

using namespace Qt::StringLiterals;

namespace {

// Returns an empty key if there is no operation, because the question cannot be asked then.
QString cancelQuestionKey(OperationType type)
{
    switch (type) {
    case OperationType::Import:
        return DBCMessage::keyOf(DBCQuestionId::CancelImport);
    case OperationType::Export:
        return DBCMessage::keyOf(DBCQuestionId::CancelExport);
    case OperationType::None:
        break;
    }
    return {};
}

} // namespace

void DBCConverterController::_send(DBCEvent event) const
{
    if (_story)
        _story->follow(event);
    DBCEventReceiver* receiver = _windowController;
    if (!receiver)
        return;
    event.sender = this;
    const bool isOwnThread = receiver->thread() == QThread::currentThread();
    _handOver.cross();
    QMetaObject::invokeMethod(
        receiver,
        [&] {
            _handOver.cross();
            receiver->refreshProgress(event);
            _handOver.cross();
        },
        isOwnThread ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
    _handOver.cross();
}

void DBCConverterController::_sendProgress(
    DBCEventName name, const std::vector<DBCRecord>& cards) const
{
    const auto next = static_cast<std::size_t>(_outcome.finishedCount);
    _send({
        .name = name,
        .maxCount = _outcome.maxCount,
        .finishedCount = _outcome.finishedCount,
        .currentCard
        = next < cards.size() ? cards[next].textOrEmpty(DBCRecordKey::full_Name) : QString(),
    });
}

bool DBCConverterController::checkIsNeedToConfirmCancelOperation()
{
    if (_isConfirmCancelOperation.exchange(false))
        _askToConfirmCancel();
    return _isStopRunning;
}

void DBCConverterController::_askToConfirmCancel()
{
    const DBCAnswer answer = DBCMessage::ShowInfoMessage(
        cancelQuestionKey(_operationType), DBCButton::Yes, DBCButton::No);
    const bool isConfirmed = answer == DBCAnswer::Default;
    _isStopRunning = isConfirmed;
    if (isConfirmed)
        DBCLog::info(getLocalString(u"IDS_LOG_INF_CANCEL_OPERATION"_s));
    _send({.name = DBCEventName::OperationDidCanceled, .confirmCancelResult = isConfirmed});
}

bool DBCConverterController::fileManager(
    const DBCFileManager* /*manager*/, const QString& /*shouldCopyItemAtPath*/, const QString&)
{
    return !checkIsNeedToConfirmCancelOperation();
}

DBCError DBCConverterController::_stopIfCancelled()
{
    return checkIsNeedToConfirmCancelOperation() ? DBCError(DBCResultCode::CancelledByUser)
                                                 : DBCError();
}
