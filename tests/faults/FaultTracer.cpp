// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a program and lets something go wrong at its n-th file call. Works on system calls, so that
// threads, child processes and what libraries do inside themselves are all seen.
//
//   fault_tracer [OPTION...] -- PROGRAM ARGUMENT...
//     --below PATH      count the calls on files below PATH; several: any of them
//     --calls LIST      of these kinds: open, openr, write, names, flush, lock, read, list, look,
//                       close
//     --fault KIND      none (count only, the default), error, forever, full, short, kill, torn,
//                       hook
//     --at N            at the N-th counted call
//     --errno N         instead of the most likely error
//     --kill-after N    kill the program N counted calls after the fault
//     --signal-at N     send SIGTERM at the N-th counted call and go on
//     --hook COMMAND    what fault "hook" runs, with the program stopped, before it is killed
//     --user ID         run as this user and group
//     --timeout SECONDS kill everything then
//     --log FILE        a line a counted call: number, name, path
//     --report FILE     what happened, as JSON
//
// error: the call fails once. forever: it and every later one. full: from then on every call that
// needs space fails with ENOSPC. short: a write writes half. kill: SIGKILL before the call. torn:
// half of a write is written, then SIGKILL.
// Ends with 0 whenever the report was written, 77 where tracing is not allowed, 2 for wrong usage.
#include "Tracer.h"

#include <cstddef>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iomanip>

#include <csignal>
#include <grp.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <unistd.h>

namespace {

constexpr int wrongUsage = 2;

sock_filter statement(int code, unsigned value)
{
    return {static_cast<unsigned short>(code), 0, 0, value};
}

sock_filter jump(unsigned value, std::size_t whenTrue, std::size_t whenFalse)
{
    return {BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned char>(whenTrue),
        static_cast<unsigned char>(whenFalse), value};
}

// Only the calls of interest stop the program; the others cost nothing.
bool stopAtCalls(CallClasses classes)
{
    std::vector<long> numbers;
    forEachCallOf(classes, [&](long number) { numbers.push_back(number); });
    std::vector<sock_filter> filter {
        statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, arch)),
        jump(AUDIT_ARCH_X86_64, 1, 0),
        statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
    };
    for (std::size_t i = 0; i < numbers.size(); ++i)
        filter.push_back(jump(static_cast<unsigned>(numbers[i]), numbers.size() - i, 0));
    filter.push_back(statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    filter.push_back(statement(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    sock_fprog program {static_cast<unsigned short>(filter.size()), filter.data()};
    if (geteuid() != 0)
        prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

bool becomeUser(int user)
{
    const auto id = static_cast<uid_t>(user);
    return user < 0 || (setgroups(0, nullptr) == 0 && setgid(id) == 0 && setuid(id) == 0);
}

[[noreturn]] void runProgram(const FaultOptions& options)
{
    setpgid(0, 0);
    if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) < 0)
        _exit(notAllowed);
    raise(SIGSTOP);
    if (!stopAtCalls(options.classes) || !becomeUser(options.user))
        _exit(notAllowed);
    execvp(options.program.front(), options.program.data());
    std::perror(options.program.front());
    _exit(notAllowed);
}

void write(const TracerReport& report, const std::string& file)
{
    std::ofstream out(file);
    out << "{\"calls\": " << report.calls << ", \"fired\": " << (report.fired ? "true" : "false")
        << ", \"call\": " << std::quoted(report.call) << ", \"path\": " << std::quoted(report.path)
        << ", \"exit\": " << report.exitCode << ", \"signal\": " << report.signal
        << ", \"timeout\": " << (report.timedOut ? "true" : "false") << "}\n";
}

} // namespace

int main(int argc, char** argv)
{
    FaultOptions options;
    try {
        options = parseOptions(argc, argv);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "fault_tracer: wrong usage: %s\n", exception.what());
        return wrongUsage;
    }
    const pid_t program = fork();
    if (program == 0)
        runProgram(options);
    Tracer tracer(options, program);
    if (program < 0 || !tracer.run()) {
        std::fprintf(stderr, "fault_tracer: tracing is not allowed here\n");
        return notAllowed;
    }
    write(tracer.report(), options.reportFile);
    return 0;
}
