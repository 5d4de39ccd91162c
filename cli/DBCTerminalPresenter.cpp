// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCTerminalPresenter.h"

#include "datafile/helpers/DBCLocalizable.h"

using namespace Qt::StringLiterals;

DBCTerminalPresenter::DBCTerminalPresenter(
    const DBCTerminal& terminal, DBCReporter& reporter, Answers answers)
    : _terminal(terminal)
    , _reporter(reporter)
    , _answers(answers)
{
    DBCMessage::setPresenter(this);
}

DBCTerminalPresenter::~DBCTerminalPresenter()
{
    DBCMessage::setPresenter(nullptr);
}

void DBCTerminalPresenter::showError(quint32 number, const QString& /*title*/, const QString& text)
{
    _reporter.message(number, text);
}

DBCAnswer DBCTerminalPresenter::askQuestion(const DBCQuestion& question)
{
    const DBCAnswer answer = answerTo(question);
    _reporter.answered(question, answer);
    return answer;
}

DBCAnswer DBCTerminalPresenter::answerTo(const DBCQuestion& question)
{
    const bool needsDecision = question.needsDecision();
    if (_answers == Answers::AlwaysYes && !needsDecision)
        return DBCAnswer::Default;
    if (_answers != Answers::AlwaysYes && _terminal.isInteractive()) {
        _reporter.makeRoomForQuestion();
        return _terminal.confirms(question.text) ? DBCAnswer::Default : DBCAnswer::Alternate;
    }
    // A question whether to cancel is asked only after a signal. The signal counts as a yes,
    // because there is no terminal on which the user could confirm it.
    if (question.asksToCancel())
        return DBCAnswer::Default;
    _reporter.message({},
        getLocalString(
            needsDecision ? "IDS_CLI_NEEDS_DECISION" : "IDS_CLI_NEEDS_YES", {question.text}));
    return DBCAnswer::NotShown;
}
