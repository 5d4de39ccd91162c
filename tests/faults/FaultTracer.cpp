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
#include "TracedCall.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iomanip>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <grp.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int wrongUsage = 2;
constexpr int notAllowed = 77;

enum class Fault : unsigned char { None, Error, Forever, Full, Short, Kill, Torn, Hook };

const std::map<std::string, Fault> faultNames {
    {"none", Fault::None},
    {"error", Fault::Error},
    {"forever", Fault::Forever},
    {"full", Fault::Full},
    {"short", Fault::Short},
    {"kill", Fault::Kill},
    {"torn", Fault::Torn},
    {"hook", Fault::Hook},
};

const std::map<std::string, CallClass> classNames {
    {"open", CallClass::OpenToWrite},
    {"openr", CallClass::OpenToRead},
    {"write", CallClass::Write},
    {"names", CallClass::Names},
    {"flush", CallClass::Flush},
    {"lock", CallClass::Lock},
    {"read", CallClass::Read},
    {"list", CallClass::List},
    {"look", CallClass::Look},
    {"close", CallClass::Close},
};

struct Options {
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

struct Report {
    long calls = 0;
    bool fired = false;
    std::string call;
    std::string path;
    int exitCode = -1;
    int signal = 0;
    bool timedOut = false;
};

volatile std::sig_atomic_t hasTimedOut = 0;

CallClasses classesIn(const std::string& list)
{
    CallClasses classes = 0;
    for (std::size_t start = 0; start <= list.size();) {
        const std::size_t comma = std::min(list.find(',', start), list.size());
        classes = classes | classNames.at(list.substr(start, comma - start));
        start = comma + 1;
    }
    return classes;
}

Options parse(int argc, char** argv)
{
    Options options;
    const std::map<std::string, std::function<void(const std::string&)>> setters {
        {"--below", [&](const std::string& value) { options.below.push_back(value); }},
        {"--calls", [&](const std::string& value) { options.classes = classesIn(value); }},
        {"--fault", [&](const std::string& value) { options.fault = faultNames.at(value); }},
        {"--at", [&](const std::string& value) { options.at = std::stol(value); }},
        {"--errno", [&](const std::string& value) { options.error = std::stoi(value); }},
        {"--kill-after", [&](const std::string& value) { options.killAfter = std::stol(value); }},
        {"--signal-at", [&](const std::string& value) { options.signalAt = std::stol(value); }},
        {"--hook", [&](const std::string& value) { options.hook = value; }},
        {"--user", [&](const std::string& value) { options.user = std::stoi(value); }},
        {"--timeout",
            [&](const std::string& value) {
                options.timeoutSeconds = static_cast<unsigned>(std::stoul(value));
            }},
        {"--log", [&](const std::string& value) { options.logFile = value; }},
        {"--report", [&](const std::string& value) { options.reportFile = value; }},
    };
    int i = 1;
    for (; i + 1 < argc && argv[i] != std::string("--"); i += 2)
        setters.at(argv[i])(argv[i + 1]);
    options.program.assign(argv + std::min(i + 1, argc), argv + argc);
    if (options.program.empty())
        throw std::out_of_range("no program");
    options.program.push_back(nullptr);
    return options;
}

bool isBelow(const std::string& path, const std::string& folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

// --- the child ---

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

[[noreturn]] void runProgram(const Options& options)
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

// --- the tracer ---

class Tracer {
public:
    Tracer(const Options& options, pid_t program)
        : _options(options)
        , _program(program)
        , _log(options.logFile)
    {
    }

    // False where tracing is not allowed.
    bool run();
    const Report& report() const { return _report; }

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

    const Options& _options;
    pid_t _program;
    std::ofstream _log;
    Report _report;
    std::set<pid_t> _known;
    int _resumption = PTRACE_CONT; // how the thread at hand goes on
    pid_t _torn = 0; // the thread whose call is made by half before the end
};

bool Tracer::run()
{
    int status = 0;
    if (waitpid(_program, &status, __WALL) < 0 || !WIFSTOPPED(status))
        return false;
    constexpr long traceOptions = PTRACE_O_TRACESECCOMP | PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK
        | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC | PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
    if (ptrace(PTRACE_SETOPTIONS, _program, nullptr, traceOptions) < 0)
        return false;
    _known.insert(_program);
    ptrace(PTRACE_CONT, _program, nullptr, nullptr);
    while (true) {
        const pid_t thread = waitpid(-1, &status, __WALL);
        if (hasTimedOut != 0)
            kill(-_program, SIGKILL);
        if (thread < 0 && errno == EINTR)
            continue;
        if (thread < 0)
            break;
        if (WIFSTOPPED(status))
            goOn(thread, status);
        else
            ended(thread, status);
    }
    _report.timedOut = hasTimedOut != 0;
    return !(WIFEXITED(status) && _report.exitCode == notAllowed);
}

void Tracer::ended(pid_t thread, int status)
{
    if (thread != _program)
        return;
    _report.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    _report.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    kill(-_program, SIGKILL); // children that it left behind
}

void Tracer::goOn(pid_t thread, int status)
{
    const int signal = WSTOPSIG(status);
    const int event = status >> 16;
    long delivered = 0;
    _resumption = PTRACE_CONT;
    if (event == PTRACE_EVENT_SECCOMP)
        atCall(thread);
    else if (event != 0 || signal == SIGTRAP)
        delivered = 0;
    else if (signal == (SIGTRAP | 0x80)) {
        if (thread == _torn)
            killProgram();
    } else if (signal != SIGSTOP || !_known.insert(thread).second)
        delivered = signal; // the first SIGSTOP of a thread is the tracer's own
    ptrace(static_cast<__ptrace_request>(_resumption), thread, nullptr, delivered);
}

bool Tracer::counts(const TracedCall& call) const
{
    if (!contains(_options.classes, call.callClass()))
        return false;
    return std::any_of(
        _options.below.begin(), _options.below.end(), [&](const std::string& folder) {
            return isBelow(call.path(), folder) || isBelow(call.secondPath(), folder);
        });
}

void Tracer::atCall(pid_t thread)
{
    auto call = TracedCall::of(thread);
    if (!call || !counts(*call))
        return;
    ++_report.calls;
    _log << _report.calls << '\t' << call->call().name << '\t'
         << (call->secondPath().empty() ? call->path() : call->secondPath()) << '\n';
    if (_report.calls == _options.signalAt)
        kill(_program, SIGTERM);
    if (_report.fired && _options.killAfter > 0
        && _report.calls == _options.at + _options.killAfter) {
        killProgram();
        return;
    }
    if (_report.calls == _options.at)
        note(*call);
    if (_report.fired)
        faultAt(thread, *call);
}

void Tracer::note(const TracedCall& call)
{
    _report.fired = _options.fault != Fault::None;
    _report.call = call.call().name;
    _report.path = call.secondPath().empty() ? call.path() : call.secondPath();
}

bool Tracer::fails(const TracedCall& call) const
{
    switch (_options.fault) {
    case Fault::Forever:
        return true;
    case Fault::Full:
        return needsSpace(call.call(), call.creates());
    default:
        return _report.calls == _options.at;
    }
}

void Tracer::faultAt(pid_t thread, TracedCall& call)
{
    if (!fails(call))
        return;
    switch (_options.fault) {
    case Fault::Kill:
        killProgram();
        return;
    case Fault::Hook:
        runHook();
        killProgram();
        return;
    case Fault::Torn:
        call.halve();
        _torn = thread;
        _resumption = PTRACE_SYSCALL;
        return;
    case Fault::Short:
        if (call.halve())
            return;
        break;
    default:
        break;
    }
    const int likely
        = _options.fault == Fault::Full ? ENOSPC : likelyError(call.call(), call.creates());
    call.replaceByError(_options.error != 0 ? _options.error : likely);
}

void Tracer::runHook() const
{
    const pid_t hook = fork();
    if (hook == 0) {
        execl("/bin/sh", "sh", "-c", _options.hook.c_str(), nullptr);
        _exit(notAllowed);
    }
    while (waitpid(hook, nullptr, 0) < 0 && errno == EINTR) { }
}

void write(const Report& report, const std::string& file)
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
    Options options;
    try {
        options = parse(argc, argv);
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "fault_tracer: wrong usage: %s\n", exception.what());
        return wrongUsage;
    }
    const pid_t program = fork();
    if (program == 0)
        runProgram(options);
    struct sigaction action { };
    action.sa_handler = [](int) { hasTimedOut = 1; };
    sigaction(SIGALRM, &action, nullptr);
    alarm(options.timeoutSeconds);
    Tracer tracer(options, program);
    if (program < 0 || !tracer.run()) {
        std::fprintf(stderr, "fault_tracer: tracing is not allowed here\n");
        return notAllowed;
    }
    write(tracer.report(), options.reportFile);
    return 0;
}
