// SPDX-License-Identifier: GPL-3.0-or-later
// Reports to people: writes a progress line, messages and errors to standard error, and problems
// and a summary to standard output.
#pragma once

#include "cli/DBCProgressLine.h"
#include "cli/DBCReporter.h"

class DBCPlainReporter : public DBCReporter {
public:
    enum class Amount : bool { Everything, ErrorsAndProblems };
    explicit DBCPlainReporter(Amount amount);

    void event(const DBCEvent& event) override;
    void message(std::optional<quint32> number, const QString& text) override;
    void answered(const DBCQuestion& question, DBCAnswer answer) override;
    void logged(DBCLogType type, const QString& text) override;
    void problem(const DBCProblem& problem) override;
    void backups(const std::vector<DBCBackup>& backups) override;
    void verifying(qint64 finishedCount, qint64 maxCount) override;
    void result(const DBCCommandResult& result) override;
    void makeRoomForQuestion() override { _progress.clear(); }

private:
    Amount _amount;
    DBCProgressLine _progress;
    QString _lastMessage; // empty before the first message
};
