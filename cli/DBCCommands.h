// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of velmora-convert, one function for each.
#pragma once

#include "cli/DBCCommandLine.h"
#include "cli/DBCReporter.h"

// Each function runs its command to the end and returns the result; the caller passes the result to
// the reporter. The caller must have created an application object and a presenter for DBCMessage,
// which shows the messages and answers the questions.

// Runs an import or an export.
DBCCommandResult runConversion(const DBCRequest& request, DBCReporter& reporter);

DBCCommandResult checkFolder(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult verifyPackage(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult createPackage(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult recoverPackage(const DBCRequest& request, DBCReporter& reporter);
// Lists the backups, or restores or deletes one of them.
DBCCommandResult manageBackups(const DBCRequest& request, DBCReporter& reporter);
