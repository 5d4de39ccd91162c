// SPDX-License-Identifier: GPL-3.0-or-later
// Passes the messages of the core to the reporter and answers its questions: by an option, by
// asking the user at the terminal, or with no answer if nobody can be asked.
#pragma once

#include "cli/DBCReporter.h"
#include "cli/DBCTerminal.h"
#include "operation/messages/DBCMessage.h"

class DBCTerminalPresenter : public DBCMessagePresenter {
public:
    enum class Answers : bool { AskOrNo, AlwaysYes };

    // Is the presenter of DBCMessage as long as it lives. Owns neither terminal nor reporter, which
    // must outlive this object.
    DBCTerminalPresenter(const DBCTerminal& terminal, DBCReporter& reporter, Answers answers);
    ~DBCTerminalPresenter() override;
    DBCTerminalPresenter(const DBCTerminalPresenter&) = delete;
    DBCTerminalPresenter& operator=(const DBCTerminalPresenter&) = delete;

    void showError(quint32 number, const QString& title, const QString& text) override;
    DBCAnswer askQuestion(const DBCQuestion& question) override;

private:
    // Returns Default for yes, Alternate for no, and NotShown if nobody can be asked.
    DBCAnswer answerTo(const DBCQuestion& question);

    const DBCTerminal& _terminal;
    DBCReporter& _reporter;
    Answers _answers;
};
