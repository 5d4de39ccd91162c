// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLogObserver.h"

#include <mutex>
#include <vector>

namespace {

struct Observers {
    std::recursive_mutex mutex; // recursive, because an observer may log
    std::vector<DBCLogObserver*> list;
};

Observers& observers()
{
    static Observers theObservers;
    return theObservers;
}

} // namespace

DBCLogObserver::DBCLogObserver(Handler onEntry)
    : _onEntry(std::move(onEntry))
{
    const std::scoped_lock lock(observers().mutex);
    observers().list.push_back(this);
}

DBCLogObserver::~DBCLogObserver()
{
    const std::scoped_lock lock(observers().mutex);
    std::erase(observers().list, this);
}

void DBCLogObserver::notifyAll(const DBCLogEntry& entry)
{
    const std::scoped_lock lock(observers().mutex);
    for (const DBCLogObserver* const observer : observers().list)
        observer->_onEntry(entry);
}
