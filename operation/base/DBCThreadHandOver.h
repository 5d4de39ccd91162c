// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the thread sanitizer where one thread hands its data to another through Qt's event queue.
// The queue orders the two threads, but it belongs to a library without the sanitizer's
// instrumentation, so the sanitizer would report every hand-over as a race. In all other builds
// this class is empty.
#pragma once

#ifdef __SANITIZE_THREAD__

#include <QtGlobal>

#include <atomic>

class DBCThreadHandOver {
public:
    // Both threads call this on the same object: the giving thread before and after the hand-over,
    // the receiving thread at the beginning and at the end of the call that it receives.
    void cross() const { _crossings.fetch_add(1, std::memory_order_acq_rel); }

private:
    mutable std::atomic<quint64> _crossings = 0;
};

#else

class DBCThreadHandOver {
public:
    // NOLINTNEXTLINE(readability-convert-member-functions-to-static): called on an object
    void cross() const { }
};

#endif
