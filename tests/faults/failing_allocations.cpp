// SPDX-License-Identifier: GPL-3.0-or-later
// To be preloaded: the n-th allocation fails, counted from the moment at which the program first
// opens something below a folder.
//
//   FAIL_ALLOCATION_BELOW  the folder
//   FAIL_ALLOCATION_AT     which allocation fails; 0: none
//   FAIL_ALLOCATION_COUNT  a file that the number of allocations is written to at the end
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>

extern "C" {
// The C library's own entry points: looking them up by name would allocate.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

namespace {

std::atomic<bool> isCounting = false;
std::atomic<long> count = 0;

long failing()
{
    static const char* const at = std::getenv("FAIL_ALLOCATION_AT");
    static const long number = at ? std::atol(at) : 0;
    return number;
}

bool failsNow()
{
    if (!isCounting || ++count != failing())
        return false;
    errno = ENOMEM;
    return true;
}

void notePath(const char* path)
{
    static const char* const below = std::getenv("FAIL_ALLOCATION_BELOW");
    if (below && std::strncmp(path, below, std::strlen(below)) == 0)
        isCounting = true;
}

__attribute__((destructor)) void writeCount()
{
    // Only the program under test writes its count. The tracer and the shells never start counting.
    const bool hasCounted = isCounting.exchange(false);
    const char* const path = std::getenv("FAIL_ALLOCATION_COUNT");
    if (hasCounted && path) {
        if (std::FILE* file = std::fopen(path, "w")) {
            std::fprintf(file, "%ld\n", count.load());
            std::fclose(file);
        }
    }
}

int openAndNote(const char* function, const char* path, int flags, va_list arguments)
{
    using Open = int (*)(const char*, int, ...);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    notePath(path);
    return reinterpret_cast<Open>(dlsym(RTLD_NEXT, function))(path, flags, mode);
}

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    return failsNow() ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t number, std::size_t size)
{
    return failsNow() ? nullptr : __libc_calloc(number, size);
}

void* realloc(void* block, std::size_t size)
{
    return failsNow() ? nullptr : __libc_realloc(block, size);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = openAndNote("open64", path, flags, arguments);
    va_end(arguments);
    return descriptor;
}

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = openAndNote("open", path, flags, arguments);
    va_end(arguments);
    return descriptor;
}

} // extern "C"
