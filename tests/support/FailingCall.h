// SPDX-License-Identifier: GPL-3.0-or-later
// Makes one system call fail while a piece of work runs, as the call fails on a bad disk or on an
// old system that does not have the call:
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
    // number is the call's SYS_... constant, and error is the errno that the call fails with.
    FailingCall(long number, int error)
        : FailingCall(std::vector<long> {number}, error)
    {
    }

    // Makes both system calls fail that C libraries use to examine an open file.
    static FailingCall lookingAtAFile(int error)
    {
        return FailingCall(std::vector<long> {SYS_newfstatat, SYS_fstat}, error);
    }

    // Runs the work on a new thread. The call fails each time in that thread and in the programs
    // that it starts. Returns false, without running the work, if this system does not allow a
    // process to filter its calls.
    [[nodiscard]] bool during(const std::function<void()>& work) const
    {
        bool isSet = false;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            isSet = setUp();
            if (isSet)
                work();
        }));
        thread->start();
        // The work may be a conversion, which sends its events to this thread. The conversion wakes
        // this thread by a write, and writes may be the calls that fail. So this thread does not
        // wait to be woken, but looks for events every few milliseconds.
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

    // Adds a kernel filter to this thread. A filter cannot be removed, so it ends with the thread.
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
