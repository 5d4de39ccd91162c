// SPDX-License-Identifier: GPL-3.0-or-later
#include "Tracer.h"

#include <algorithm>

#include <cerrno>
#include <csignal>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t hasTimedOut = 0;

void setTimeout(unsigned seconds)
{
    struct sigaction action { };
    action.sa_handler = [](int) { hasTimedOut = 1; };
    sigaction(SIGALRM, &action, nullptr);
    alarm(seconds);
}

bool isBelow(const std::string& path, const std::string& folder)
{
    return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

} // namespace

bool Tracer::run()
{
    setTimeout(_options.timeoutSeconds);
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
    else if (event != 0)
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
