// SPDX-License-Identifier: GPL-3.0-or-later
// Sees, as long as it lives, each warning and error of every log, those that the level filters out
// included.
#pragma once

#include "operation/log/DBCLogEntry.h"

#include <functional>

class DBCLogObserver {
public:
    // onEntry is called on the thread that logs, one call at a time; observers are called in the
    // order in which they were made.
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
