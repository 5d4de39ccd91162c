// SPDX-License-Identifier: GPL-3.0-or-later
// Receives every warning and error of all logs as long as it exists, even those that the level
// filters out.
#pragma once

#include "operation/log/DBCLogEntry.h"

#include <functional>

class DBCLogObserver {
public:
    // onEntry is called on the thread that logs, never on two threads at once. Observers are called
    // in the order of their creation. onEntry may log, but must not create or destroy observers.
    using Handler = std::function<void(const DBCLogEntry& entry)>;
    explicit DBCLogObserver(Handler onEntry);
    ~DBCLogObserver();
    DBCLogObserver(const DBCLogObserver&) = delete;
    DBCLogObserver& operator=(const DBCLogObserver&) = delete;

private:
    friend class DBCLog;
    static void notifyAll(const DBCLogEntry& entry);

    Handler _onEntry;
};
