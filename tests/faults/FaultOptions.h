// SPDX-License-Identifier: GPL-3.0-or-later
// What goes wrong, and where.
#pragma once

#include "SystemCalls.h"

#include <string>
#include <vector>

enum class Fault : unsigned char { None, Error, Forever, Full, Short, Kill, Torn, Hook };

struct FaultOptions {
    std::vector<std::string> below;
    CallClasses classes
        = CallClass::OpenToWrite | CallClass::Write | CallClass::Names | CallClass::Flush;
    Fault fault = Fault::None;
    long at = 0;
    int error = 0; // 0: the most likely one
    long killAfter = 0;
    long signalAt = 0;
    std::string hook;
    int user = -1;
    unsigned timeoutSeconds = 0;
    std::string logFile;
    std::string reportFile;
    std::vector<char*> program; // with a null at the end
};

// Throws std::exception for wrong usage. The program's arguments point into argv.
FaultOptions parseOptions(int argc, char** argv);
