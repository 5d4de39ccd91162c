// SPDX-License-Identifier: GPL-3.0-or-later
// Gathers, while a conversion runs, what its report will say.
#pragma once

#include "operation/base/DBCEvent.h"
#include "operation/log/DBCLogObserver.h"
#include "report/DBCRunReport.h"

#include <QElapsedTimer>
#include <QSet>

class DBCRunStory {
public:
    // Warnings and errors beyond these are only counted: the report of a folder in which everything
    // is wrong must neither take all memory nor the browser with it.
    static constexpr std::size_t mostEntries = 5000;

    // Begins now. Made, used and destroyed on the thread of the conversion; what other threads log
    // meanwhile is not its business.
    DBCRunStory();

    void follow(const DBCEvent& event);

    enum class Stop : bool { NotAsked, Confirmed };
    // What the events and the log tell, to be completed with what was asked.
    DBCRunReport reportOf(const DBCOutcome& outcome, Stop stop) const;

private:
    void take(const DBCLogEntry& entry) noexcept;
    void keep(const DBCLogEntry& entry);
    DBCRunEnd endOf(DBCResultCode code, Stop stop) const;
    void fillInEntries(DBCRunReport* report) const;

    QDateTime _started;
    QElapsedTimer _clock;
    bool _hasImportBegun = false; // the card database may have been written to
    bool _isRestored = false;
    qint64 _warningCount = 0;
    qint64 _errorCount = 0;
    qint64 _leftOutCount = 0;
    std::vector<DBCLogEntry> _entries;
    QSet<qint64> _concernedNumbers;
    Qt::HANDLE _thread;
    DBCLogObserver _observer; // last: it calls take()
};
