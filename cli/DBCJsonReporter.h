// SPDX-License-Identifier: GPL-3.0-or-later
// Reports to programs: writes one JSON object per line to standard output. Each object has a single
// member, whose name says what the line reports. The last line is the result.
#pragma once

#include "cli/DBCReporter.h"

class DBCJsonReporter : public DBCReporter {
public:
    void event(const DBCEvent& event) override;
    void message(std::optional<quint32> number, const QString& text) override;
    void answered(const DBCQuestion& question, DBCAnswer answer) override;
    void logged(DBCLogType type, const QString& text) override;
    void problem(const DBCProblem& problem) override;
    void backups(const std::vector<DBCBackup>& backups) override;
    void verifying(qint64 finishedCount, qint64 maxCount) override;
    void result(const DBCCommandResult& result) override;
    void makeRoomForQuestion() override { }
};
