// SPDX-License-Identifier: GPL-3.0-or-later
// Follows a program through its file calls and makes the one fault happen.
#pragma once

#include "FaultOptions.h"
#include "TracedCall.h"

#include <fstream>
#include <set>
#include <string>

#include <csignal>
#include <sys/ptrace.h>

struct TracerReport {
    long calls = 0;
    bool fired = false;
    std::string call;
    std::string path;
    int exitCode = -1;
    int signal = 0;
    bool timedOut = false;
};

class Tracer {
public:
    Tracer(const FaultOptions& options, pid_t program)
        : _options(options)
        , _program(program)
        , _log(options.logFile)
    {
    }

    // program: a child that waits to be traced. After so many seconds everything is killed; 0:
    // never. False where tracing is not allowed.
    bool run();
    const TracerReport& report() const { return _report; }

private:
    void ended(pid_t thread, int status);
    void goOn(pid_t thread, int status);
    void atCall(pid_t thread);
    bool counts(const TracedCall& call) const;
    void faultAt(pid_t thread, TracedCall& call);
    bool fails(const TracedCall& call) const;
    void note(const TracedCall& call);
    void runHook() const;
    void killProgram() const { kill(_program, SIGKILL); }

    const FaultOptions& _options;
    pid_t _program;
    std::ofstream _log;
    TracerReport _report;
    std::set<pid_t> _known;
    int _resumption = PTRACE_CONT; // how the thread at hand goes on
    pid_t _torn = 0; // the thread whose call is made by half before the end
};

// The exit code of a child that may not be traced.
inline constexpr int notAllowed = 77;
