// SPDX-License-Identifier: GPL-3.0-or-later
// The system calls by which a program touches files, on x86-64.
#pragma once

#include <string_view>

#include <sys/types.h>
#include <sys/user.h>

// What a call does to a file. Values are bits of a set.
enum class CallClass : unsigned {
    OpenToWrite = 1,
    OpenToRead = 2,
    Write = 4,
    Names = 8, // makes, moves, removes or marks what stands at a name
    Flush = 16,
    Lock = 32,
    Read = 64,
    List = 128,
    Look = 256,
    Close = 512,
};

using CallClasses = unsigned;

constexpr CallClasses operator|(CallClass a, CallClass b)
{
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}

constexpr CallClasses operator|(CallClasses a, CallClass b)
{
    return a | static_cast<unsigned>(b);
}

constexpr bool contains(CallClasses classes, CallClass one)
{
    return (classes & static_cast<unsigned>(one)) != 0;
}

// Where a call's arguments name a file.
enum class PathArgument : unsigned char {
    Path, // path
    FolderAndPath, // descriptor, path
    Descriptor, // descriptor
    ThirdDescriptor, // ..., ..., descriptor
    FifthDescriptor, // the one that is mapped into memory
    TwoPaths, // path, path
    FoldersAndPaths, // descriptor, path, descriptor, path
    SecondPath, // ..., path
    SecondFolderAndPath, // ..., descriptor, path
};

struct SystemCall {
    long number;
    std::string_view name;
    CallClass callClass;
    PathArgument argument;
};

// Null for a call that touches no file.
const SystemCall* systemCallWithNumber(long number);

// Calls visit with the number of every call of these classes.
template <typename Visit> void forEachCallOf(CallClasses classes, Visit visit);

// The errno that a disk or a system is most likely to give.
int likelyError(const SystemCall& call, bool creates);
// Whether the call can fail for want of space.
bool needsSpace(const SystemCall& call, bool creates);
// Which argument is the number of bytes; null where there is none.
unsigned long long* byteCountOf(const SystemCall& call, user_regs_struct& registers);

struct SystemCallRange {
    const SystemCall* first;
    const SystemCall* last;
    const SystemCall* begin() const { return first; }
    const SystemCall* end() const { return last; }
};
SystemCallRange allSystemCalls();

template <typename Visit> void forEachCallOf(CallClasses classes, Visit visit)
{
    for (const SystemCall& call : allSystemCalls()) {
        const bool isOpen = call.callClass == CallClass::OpenToWrite;
        if (contains(classes, call.callClass)
            || (isOpen && contains(classes, CallClass::OpenToRead)))
            visit(call.number);
    }
}
