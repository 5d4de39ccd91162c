// SPDX-License-Identifier: GPL-3.0-or-later
#include "TracedCall.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include <climits>
#include <cstring>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>

namespace {

namespace fs = std::filesystem;

constexpr unsigned long pageSize = 4096;

std::string linkTarget(const std::string& link)
{
    std::error_code error;
    return fs::read_symlink(link, error).string();
}

bool readMemory(pid_t thread, unsigned long address, void* into, std::size_t size)
{
    iovec local {into, size};
    iovec remote {reinterpret_cast<void*>(address), size};
    return process_vm_readv(thread, &local, 1, &remote, 1, 0) == static_cast<ssize_t>(size);
}

} // namespace

std::optional<TracedCall> TracedCall::of(pid_t thread)
{
    TracedCall traced;
    traced._thread = thread;
    if (ptrace(PTRACE_GETREGS, thread, nullptr, &traced._registers) < 0)
        return std::nullopt;
    traced._call = systemCallWithNumber(static_cast<long>(traced._registers.orig_rax));
    if (!traced._call)
        return std::nullopt;
    traced._class = traced._call->callClass;
    if (!traced.readPaths())
        return std::nullopt;
    if (traced._class == CallClass::OpenToWrite && !traced.sortOpening())
        return std::nullopt;
    return traced;
}

bool TracedCall::readPaths()
{
    const user_regs_struct& r = _registers;
    switch (_call->argument) {
    case PathArgument::Path:
        _path = absolutePath(AT_FDCWD, r.rdi);
        break;
    case PathArgument::FolderAndPath:
        _path = absolutePath(static_cast<int>(r.rdi), r.rsi);
        break;
    case PathArgument::Descriptor:
        _path = pathOfDescriptor(static_cast<int>(r.rdi));
        break;
    case PathArgument::ThirdDescriptor:
        _path = pathOfDescriptor(static_cast<int>(r.rdx));
        break;
    case PathArgument::FifthDescriptor:
        if (static_cast<int>(r.r8) < 0)
            return false;
        _path = pathOfDescriptor(static_cast<int>(r.r8));
        break;
    case PathArgument::TwoPaths:
        _path = absolutePath(AT_FDCWD, r.rdi);
        _secondPath = absolutePath(AT_FDCWD, r.rsi);
        break;
    case PathArgument::FoldersAndPaths:
        _path = absolutePath(static_cast<int>(r.rdi), r.rsi);
        _secondPath = absolutePath(static_cast<int>(r.rdx), r.r10);
        break;
    case PathArgument::SecondPath:
        _path = absolutePath(AT_FDCWD, r.rsi);
        break;
    case PathArgument::SecondFolderAndPath:
        _path = absolutePath(static_cast<int>(r.rsi), r.rdx);
        break;
    }
    return true;
}

bool TracedCall::sortOpening()
{
    unsigned long flags = _registers.rdx;
    if (_call->number == SYS_open)
        flags = _registers.rsi;
    else if (_call->number == SYS_creat)
        flags = O_CREAT | O_WRONLY | O_TRUNC;
    else if (_call->number == SYS_openat2) {
        open_how how {};
        if (!readMemory(_thread, _registers.rdx, &how, sizeof how))
            return false;
        flags = how.flags;
    }
    _creates = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    const bool writes = (flags & O_ACCMODE) != O_RDONLY || _creates || (flags & O_TRUNC) != 0;
    _class = writes ? CallClass::OpenToWrite : CallClass::OpenToRead;
    return true;
}

std::string TracedCall::stringAt(unsigned long address) const
{
    std::string text;
    std::array<char, pageSize> page {};
    while (address != 0 && text.size() < PATH_MAX) {
        const unsigned long toPageEnd = pageSize - address % pageSize;
        if (!readMemory(_thread, address, page.data(), toPageEnd))
            break;
        const auto end = std::find(
            page.cbegin(), page.cbegin() + static_cast<std::ptrdiff_t>(toPageEnd), '\0');
        text.append(page.cbegin(), end);
        if (end != page.cbegin() + static_cast<std::ptrdiff_t>(toPageEnd))
            break;
        address += toPageEnd;
    }
    return text;
}

std::string TracedCall::pathOfDescriptor(int descriptor) const
{
    return linkTarget("/proc/" + std::to_string(_thread) + "/fd/" + std::to_string(descriptor));
}

std::string TracedCall::absolutePath(int folder, unsigned long address) const
{
    const std::string path = stringAt(address);
    if (path.starts_with('/'))
        return fs::path(path).lexically_normal().string();
    const std::string base = folder == AT_FDCWD
        ? linkTarget("/proc/" + std::to_string(_thread) + "/cwd")
        : pathOfDescriptor(folder);
    return path.empty() ? base : (fs::path(base) / path).lexically_normal().string();
}

bool TracedCall::halve()
{
    unsigned long long* count = byteCountOf(*_call, _registers);
    if (!count || *count < 2)
        return false;
    *count /= 2;
    return ptrace(PTRACE_SETREGS, _thread, nullptr, &_registers) == 0;
}

bool TracedCall::replaceByError(int error)
{
    // No call has this number, so the kernel makes none and leaves the result as it is set here.
    _registers.orig_rax = static_cast<unsigned long long>(-1);
    _registers.rax = static_cast<unsigned long long>(-static_cast<long long>(error));
    return ptrace(PTRACE_SETREGS, _thread, nullptr, &_registers) == 0;
}
