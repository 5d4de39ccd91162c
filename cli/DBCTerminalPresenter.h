// SPDX-License-Identifier: GPL-3.0-or-later
// Passes the messages of an operation to the reporter and answers the operation's questions. The
// option --yes answers a question with yes, unless the question needs a decision of the user.
// Without --yes, the user at the terminal answers. If neither gives an answer, the answer to a
// question whether to cancel is yes, and any other question stays unanswered.
#pragma once

#include "cli/DBCReporter.h"
#include "cli/DBCTerminal.h"
#include "operation/messages/DBCMessage.h"

class DBCTerminalPresenter : public DBCMessagePresenter {
public:
    enum class Answers : bool { AskOrNo, AlwaysYes };

    // Makes this object the presenter of DBCMessage until it is destroyed. terminal and reporter
    // are not owned and must outlive this object.
    DBCTerminalPresenter(const DBCTerminal& terminal, DBCReporter& reporter, Answers answers);
    ~DBCTerminalPresenter() override;
    DBCTerminalPresenter(const DBCTerminalPresenter&) = delete;
    DBCTerminalPresenter& operator=(const DBCTerminalPresenter&) = delete;

    void showError(quint32 number, const QString& title, const QString& text) override;
    DBCAnswer askQuestion(const DBCQuestion& question) override;

private:
    // Returns Default for yes, Alternate for no, and NotShown if the question stays unanswered.
    DBCAnswer answerTo(const DBCQuestion& question);

    const DBCTerminal& _terminal;
    DBCReporter& _reporter;
    Answers _answers;
};
