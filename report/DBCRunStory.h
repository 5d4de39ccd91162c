// SPDX-License-Identifier: GPL-3.0-or-later
// Gathers the contents of the report while a conversion runs: it follows the driver's events and
// listens to the log.
#pragma once

#include "operation/base/DBCEvent.h"
#include "operation/log/DBCLogObserver.h"
#include "report/DBCRunReport.h"

#include <QElapsedTimer>
#include <QSet>

class DBCRunStory {
public:
    // How many warnings are kept; further ones are only counted. The report of a folder in which
    // every card has a problem must not use up the memory of the program or of the browser. Errors
    // are always kept.
    static constexpr std::size_t mostEntries = 5000;

    // The time that the report gives for the conversion begins when the object is made. The object
    // is made, used and destroyed on the operation thread, and ignores what other threads log in
    // the meantime.
    DBCRunStory();

    // Takes note of an event that the driver sends.
    void follow(const DBCEvent& event);

    enum class Stop : bool { NotAsked, Confirmed };
    // The report so far. The caller adds the operation, its paths and the log's path.
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
    QSet<qint64> _concernedNumbers; // the numbers of all cards with warnings or errors
    Qt::HANDLE _thread; // the operation thread
    DBCLogObserver _observer; // the last member, since it calls take() as soon as it exists
};
