// SPDX-License-Identifier: GPL-3.0-or-later
// Limits the size of files for as long as the object lives: a write beyond the given number of
// bytes of a file fails, as it does on a disk that fills up.
#pragma once

#include <csignal>

#include <sys/resource.h>

class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : _oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &_old);
        const rlimit limited {bytes, _old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &_old);
        std::signal(SIGXFSZ, _oldHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    void (*_oldHandler)(int);
    rlimit _old {};
};
