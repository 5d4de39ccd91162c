// SPDX-License-Identifier: GPL-3.0-or-later
// Every write beyond that many bytes of a file fails, as on a disk that fills up, for as long as
// the object lives.
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
