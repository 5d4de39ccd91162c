// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/DBCCommandLine.h"
#include "cli/DBCReporter.h"

// Each runs one command to its end and says what it came to. They need a running application
// object; messages and questions go through the presenter of DBCMessage.

// Import and export.
DBCCommandResult runConversion(const DBCRequest& request, DBCReporter& reporter);

DBCCommandResult checkFolder(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult verifyPackage(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult createPackage(const DBCRequest& request, DBCReporter& reporter);
DBCCommandResult recoverPackage(const DBCRequest& request, DBCReporter& reporter);
// Lists, restores or deletes.
DBCCommandResult manageBackups(const DBCRequest& request, DBCReporter& reporter);
