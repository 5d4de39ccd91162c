// SPDX-License-Identifier: GPL-3.0-or-later
// What a command tells whoever started it. One reporter speaks to people, another to programs.
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

// What a command came to.
struct DBCCommandResult {
    DBCExitCode exitCode = DBCExitCode::Done;
    DBCResultCode code = DBCResultCode::Success;
    qint64 maxCount = 0; // cards there were
    qint64 finishedCount = 0; // cards done
    quint32 warningCount = 0; // in the log
    quint32 errorCount = 0; // in the log
    QString backupPath = {}; // empty: there is none
    QString reportPath = {}; // of the page about a conversion; empty: none could be written
    std::optional<qint64> problemCount = {}; // of a command that looks for problems
    std::optional<quint64> bytesNeeded = {}; // free space that an import of the folder asks for
    QStringList summary = {}; // for people

    bool isOk() const
    {
        return exitCode == DBCExitCode::Done
            || (exitCode == DBCExitCode::DoneWithWarnings && !problemCount);
    }
};

class DBCReporter {
public:
    virtual ~DBCReporter() = default;

    virtual void event(const DBCEvent& event) = 0;
    // number: of the table's messages; none for a text of the terminal's own.
    virtual void message(std::optional<quint32> number, const QString& text) = 0;
    virtual void answered(const DBCQuestion& question, DBCAnswer answer) = 0;
    virtual void logged(DBCLogType type, const QString& text) = 0;
    virtual void problem(const DBCProblem& problem) = 0;
    virtual void backups(const std::vector<DBCBackup>& backups) = 0;
    virtual void verifying(qint64 finishedCount, qint64 maxCount) = 0;
    virtual void result(const DBCCommandResult& result) = 0;
    // Leaves the terminal clean for a question.
    virtual void makeRoomForQuestion() = 0;
};
