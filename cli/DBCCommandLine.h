// SPDX-License-Identifier: GPL-3.0-or-later
// Parses the commands and options of velmora-convert.
#pragma once

#include "cli/DBCExitCode.h"
#include "operation/DBCUnfinishedImport.h"

#include <QString>
#include <QStringList>

#include <variant>

enum class DBCCommand : unsigned char { Import, Export, Check, Verify, Create, Recover, Backups };

struct DBCRequest {
    DBCCommand command;
    QStringList paths; // as many as the command needs; absolute and without a slash at the end
    bool isJson = false;
    bool saysYes = false;
    bool isQuiet = false;
    QString backupToRestore = {}; // name of a backup; empty if none is to be restored
    QString backupToDelete = {}; // name of a backup; empty if none is to be deleted
    DBCSettlementChoice settlement = DBCSettlementChoice::Ask; // what recover does
};

// A text that is printed instead of running a command: the help, the version or a usage error.
struct DBCUsage {
    DBCExitCode exitCode = DBCExitCode::Done; // Done: text goes to stdout; WrongUsage: to stderr
    QString text;
};

std::variant<DBCRequest, DBCUsage> parseCommandLine(const QStringList& arguments);
