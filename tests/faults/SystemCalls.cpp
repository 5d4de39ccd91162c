// SPDX-License-Identifier: GPL-3.0-or-later
#include "SystemCalls.h"

#include <algorithm>
#include <array>

#include <cerrno>
#include <sys/syscall.h>

namespace {

using C = CallClass;
using P = PathArgument;

constexpr std::array calls {
    // Opening is sorted into reading and writing by its flags.
    SystemCall {SYS_open, "open", C::OpenToWrite, P::Path},
    SystemCall {SYS_creat, "creat", C::OpenToWrite, P::Path},
    SystemCall {SYS_openat, "openat", C::OpenToWrite, P::FolderAndPath},
    SystemCall {SYS_openat2, "openat2", C::OpenToWrite, P::FolderAndPath},

    SystemCall {SYS_write, "write", C::Write, P::Descriptor},
    SystemCall {SYS_pwrite64, "pwrite64", C::Write, P::Descriptor},
    SystemCall {SYS_writev, "writev", C::Write, P::Descriptor},
    SystemCall {SYS_pwritev, "pwritev", C::Write, P::Descriptor},
    SystemCall {SYS_pwritev2, "pwritev2", C::Write, P::Descriptor},
    SystemCall {SYS_ftruncate, "ftruncate", C::Write, P::Descriptor},
    SystemCall {SYS_truncate, "truncate", C::Write, P::Path},
    SystemCall {SYS_fallocate, "fallocate", C::Write, P::Descriptor},
    SystemCall {SYS_sendfile, "sendfile", C::Write, P::Descriptor},
    SystemCall {SYS_copy_file_range, "copy_file_range", C::Write, P::ThirdDescriptor},

    SystemCall {SYS_rename, "rename", C::Names, P::TwoPaths},
    SystemCall {SYS_renameat, "renameat", C::Names, P::FoldersAndPaths},
    SystemCall {SYS_renameat2, "renameat2", C::Names, P::FoldersAndPaths},
    SystemCall {SYS_unlink, "unlink", C::Names, P::Path},
    SystemCall {SYS_unlinkat, "unlinkat", C::Names, P::FolderAndPath},
    SystemCall {SYS_rmdir, "rmdir", C::Names, P::Path},
    SystemCall {SYS_mkdir, "mkdir", C::Names, P::Path},
    SystemCall {SYS_mkdirat, "mkdirat", C::Names, P::FolderAndPath},
    SystemCall {SYS_link, "link", C::Names, P::TwoPaths},
    SystemCall {SYS_linkat, "linkat", C::Names, P::FoldersAndPaths},
    SystemCall {SYS_symlink, "symlink", C::Names, P::SecondPath},
    SystemCall {SYS_symlinkat, "symlinkat", C::Names, P::SecondFolderAndPath},
    SystemCall {SYS_chmod, "chmod", C::Names, P::Path},
    SystemCall {SYS_fchmod, "fchmod", C::Names, P::Descriptor},
    SystemCall {SYS_fchmodat, "fchmodat", C::Names, P::FolderAndPath},
    SystemCall {SYS_chown, "chown", C::Names, P::Path},
    SystemCall {SYS_fchown, "fchown", C::Names, P::Descriptor},
    SystemCall {SYS_fchownat, "fchownat", C::Names, P::FolderAndPath},
    SystemCall {SYS_utimensat, "utimensat", C::Names, P::FolderAndPath},
    SystemCall {SYS_fsetxattr, "fsetxattr", C::Names, P::Descriptor},

    SystemCall {SYS_fsync, "fsync", C::Flush, P::Descriptor},
    SystemCall {SYS_fdatasync, "fdatasync", C::Flush, P::Descriptor},
    SystemCall {SYS_sync_file_range, "sync_file_range", C::Flush, P::Descriptor},
    SystemCall {SYS_syncfs, "syncfs", C::Flush, P::Descriptor},

    SystemCall {SYS_flock, "flock", C::Lock, P::Descriptor},

    SystemCall {SYS_read, "read", C::Read, P::Descriptor},
    SystemCall {SYS_pread64, "pread64", C::Read, P::Descriptor},
    SystemCall {SYS_readv, "readv", C::Read, P::Descriptor},
    SystemCall {SYS_mmap, "mmap", C::Read, P::FifthDescriptor},
    SystemCall {SYS_fgetxattr, "fgetxattr", C::Read, P::Descriptor},
    SystemCall {SYS_flistxattr, "flistxattr", C::Read, P::Descriptor},

    SystemCall {SYS_getdents64, "getdents64", C::List, P::Descriptor},
    SystemCall {SYS_readlink, "readlink", C::List, P::Path},
    SystemCall {SYS_readlinkat, "readlinkat", C::List, P::FolderAndPath},

    SystemCall {SYS_stat, "stat", C::Look, P::Path},
    SystemCall {SYS_lstat, "lstat", C::Look, P::Path},
    SystemCall {SYS_fstat, "fstat", C::Look, P::Descriptor},
    SystemCall {SYS_newfstatat, "newfstatat", C::Look, P::FolderAndPath},
    SystemCall {SYS_statx, "statx", C::Look, P::FolderAndPath},
    SystemCall {SYS_access, "access", C::Look, P::Path},
    SystemCall {SYS_faccessat, "faccessat", C::Look, P::FolderAndPath},
    SystemCall {SYS_faccessat2, "faccessat2", C::Look, P::FolderAndPath},
    SystemCall {SYS_statfs, "statfs", C::Look, P::Path},
    SystemCall {SYS_fstatfs, "fstatfs", C::Look, P::Descriptor},

    SystemCall {SYS_close, "close", C::Close, P::Descriptor},
};

bool makesAName(const SystemCall& call)
{
    return call.name.starts_with("mkdir") || call.name.starts_with("link")
        || call.name.starts_with("symlink");
}

} // namespace

SystemCallRange allSystemCalls()
{
    return {calls.data(), calls.data() + calls.size()};
}

const SystemCall* systemCallWithNumber(long number)
{
    const auto* found = std::find_if(calls.begin(), calls.end(),
        [number](const SystemCall& call) { return call.number == number; });
    return found == calls.end() ? nullptr : &*found;
}

int likelyError(const SystemCall& call, bool creates)
{
    switch (call.callClass) {
    case C::Write:
        return ENOSPC;
    case C::OpenToWrite:
        return creates ? ENOSPC : EACCES;
    case C::Lock:
        return EWOULDBLOCK;
    case C::Names:
        if (makesAName(call))
            return ENOSPC;
        return call.name.starts_with("ch") || call.name.starts_with("fch") ? EPERM : EACCES;
    default:
        return EIO;
    }
}

bool needsSpace(const SystemCall& call, bool creates)
{
    switch (call.callClass) {
    case C::Write:
        return call.number != SYS_ftruncate && call.number != SYS_truncate;
    case C::OpenToWrite:
        return creates;
    default:
        return makesAName(call);
    }
}

unsigned long long* byteCountOf(const SystemCall& call, user_regs_struct& registers)
{
    switch (call.number) {
    case SYS_write:
    case SYS_pwrite64:
        return &registers.rdx;
    case SYS_sendfile:
        return &registers.r10;
    case SYS_copy_file_range:
        return &registers.r8;
    default:
        return nullptr;
    }
}
