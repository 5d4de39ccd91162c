// SPDX-License-Identifier: GPL-3.0-or-later
// The interface through which a command reports to the user or script that started it. One reporter
// writes for people, another for programs.
#pragma once

#include "carddb/DBCPackageBackups.h"
#include "cli/DBCExitCode.h"
#include "operation/base/DBCEvent.h"
#include "operation/base/DBCProblem.h"
#include "operation/log/DBCLogEntry.h"
#include "operation/messages/DBCMessage.h"

#include <QString>
#include <QStringList>

#include <optional>

// The result of a command.
struct DBCCommandResult {
    DBCExitCode exitCode = DBCExitCode::Done;
    DBCResultCode code = DBCResultCode::Success;
    qint64 maxCount = 0; // cards in all
    qint64 finishedCount = 0; // cards processed
    quint32 warningCount = 0; // in the log
    quint32 errorCount = 0; // in the log
    QString backupPath = {}; // empty if there is no backup
    QString reportPath = {}; // the report about a conversion; empty if there is none
    std::optional<qint64> problemCount = {}; // set by the commands that look for problems
    std::optional<quint64> bytesNeeded = {}; // free space that an import of the folder needs
    QStringList summary = {}; // lines that only people get

    bool isOk() const
    {
        return exitCode == DBCExitCode::Done
            || (exitCode == DBCExitCode::DoneWithWarnings && !problemCount);
    }
};

// During an operation both the main thread and the operation's thread call these functions, but
// never at the same time, because the operation's thread waits while the main thread handles an
// event. result() is called last.
class DBCReporter {
public:
    virtual ~DBCReporter() = default;

    virtual void event(const DBCEvent& event) = 0;
    // number is the number of the message, or std::nullopt if the text has no number.
    virtual void message(std::optional<quint32> number, const QString& text) = 0;
    virtual void answered(const DBCQuestion& question, DBCAnswer answer) = 0;
    virtual void logged(DBCLogType type, const QString& text) = 0;
    virtual void problem(const DBCProblem& problem) = 0;
    virtual void backups(const std::vector<DBCBackup>& backups) = 0;
    virtual void verifying(qint64 finishedCount, qint64 maxCount) = 0;
    virtual void result(const DBCCommandResult& result) = 0;
    // Clears the progress line, so that a question can be asked on the terminal.
    virtual void makeRoomForQuestion() = 0;
};
