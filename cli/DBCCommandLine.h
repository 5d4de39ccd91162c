// SPDX-License-Identifier: GPL-3.0-or-later
// The commands and options of velmora-convert.
#pragma once

#include "cli/DBCExitCode.h"

#include <QString>
#include <QStringList>

#include <variant>

enum class DBCCommand : unsigned char { Import, Export, Check, Verify, Create, Recover, Backups };

struct DBCRequest {
    DBCCommand command;
    QStringList paths; // as many as the command takes; absolute, without a slash at the end
    bool isJson = false;
    bool saysYes = false;
    bool isQuiet = false;
    QString backupToRestore = {}; // name; empty: none
    QString backupToDelete = {}; // name; empty: none
};

// A text to print instead of running a command: help, version, or what is wrong with the usage.
struct DBCUsage {
    DBCExitCode exitCode = DBCExitCode::Done; // Done: for stdout; WrongUsage: for stderr
    QString text;
};

std::variant<DBCRequest, DBCUsage> parseCommandLine(const QStringList& arguments);
