// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the core's messages and answers its questions, by asking where somebody sits at the
// terminal.
#pragma once

#include "cli/DBCReporter.h"
#include "cli/DBCTerminal.h"
#include "operation/messages/DBCMessage.h"

class DBCTerminalPresenter : public DBCMessagePresenter {
public:
    enum class Answers : bool { AskOrNo, AlwaysYes };

    // Installed as the presenter for as long as it lives. Nothing is owned.
    DBCTerminalPresenter(const DBCTerminal& terminal, DBCReporter& reporter, Answers answers);
    ~DBCTerminalPresenter() override;
    DBCTerminalPresenter(const DBCTerminalPresenter&) = delete;
    DBCTerminalPresenter& operator=(const DBCTerminalPresenter&) = delete;

    void showError(quint32 number, const QString& title, const QString& text) override;
    DBCAnswer askQuestion(const DBCQuestion& question) override;

private:
    // Default for yes, Alternate for no, NotShown where nobody can be asked.
    DBCAnswer answerTo(const DBCQuestion& question);

    const DBCTerminal& _terminal;
    DBCReporter& _reporter;
    Answers _answers;
};
