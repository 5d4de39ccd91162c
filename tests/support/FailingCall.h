// SPDX-License-Identifier: GPL-3.0-or-later
// Lets one system call fail for what a test does, as it does when a disk goes bad or an old system
// does not know it:
//
//     QVERIFY(FailingCall(SYS_fsync, EIO).during([&] { saved = database.save(); }));
#pragma once

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

class FailingCall {
public:
    // number: SYS_...; error: what errno becomes.
    FailingCall(long number, int error)
        : FailingCall(std::vector<long> {number}, error)
    {
    }

    // Looking at an open file, for which C libraries make one call or the other.
    static FailingCall lookingAtAFile(int error)
    {
        return FailingCall(std::vector<long> {SYS_newfstatat, SYS_fstat}, error);
    }

    // Does the work on a thread of its own, on which the call fails each time, and for the programs
    // that are started from there. False where this system does not allow such a thing; the work is
    // not done then.
    [[nodiscard]] bool during(const std::function<void()>& work) const
    {
        bool isSet = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            isSet = setUp();
            if (isSet)
                work();
        }));
        thread->start();
        // Looked after rather than waited for: a conversion sends its events to this thread, and
        // cannot wake it where no write succeeds.
        while (!thread->wait(pollInterval))
            QCoreApplication::processEvents();
        return isSet;
    }

private:
    FailingCall(std::vector<long> numbers, int error)
        : _numbers(std::move(numbers))
        , _error(static_cast<unsigned>(error))
    {
    }

    bool setUp() const
    {
        return std::all_of(_numbers.begin(), _numbers.end(),
            [this](long number) { return addFilter(static_cast<unsigned>(number)); });
    }

    // The kernel's filter: it stays with the thread for good and ends with it.
    bool addFilter(unsigned number) const
    {
        std::array<sock_filter, 4> steps {{
            {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
            {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, number},
            {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | _error},
            {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
        }};
        const sock_fprog filter {static_cast<unsigned short>(steps.size()), steps.data()};
        return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0
            && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
    }

    static constexpr unsigned long pollInterval = 2; // ms

    std::vector<long> _numbers;
    unsigned _error;
};
