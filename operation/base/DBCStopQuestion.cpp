// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/base/DBCStopQuestion.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int millisecondsBetweenQuestions = 500;

// This is a plain pointer, so that nothing has to be destroyed when the thread ends.
thread_local DBCStopQuestion* questionOfThread = nullptr;

} // namespace

DBCStopQuestion::DBCStopQuestion(std::function<bool()> isToStop)
    : _isToStop(std::move(isToStop))
    , _former(std::exchange(questionOfThread, this))
{
}

DBCStopQuestion::~DBCStopQuestion()
{
    questionOfThread = _former;
}

bool DBCStopQuestion::isToStop()
{
    _hasStopped = _hasStopped || _isToStop();
    return _hasStopped;
}

bool DBCLongWait::isToStop()
{
    DBCStopQuestion* question = questionOfThread;
    if (!question)
        return false;
    if (!question->_hasStopped && millisecondsToQuestion() > 0)
        return false;
    const bool isToStop = question->isToStop();
    _sinceLastQuestion.start();
    return isToStop;
}

int DBCLongWait::millisecondsToQuestion() const
{
    const DBCStopQuestion* question = questionOfThread;
    if (!question)
        return -1;
    if (question->_hasStopped)
        return 0;
    const qint64 left = millisecondsBetweenQuestions - _sinceLastQuestion.elapsed();
    return static_cast<int>(std::max<qint64>(0, left));
}
