// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/DBCRunStory.h"

#include <QThread>

#include <algorithm>

namespace {

// Groups the entries about cards by card. The entries must be in the order of the log.
std::vector<DBCReportedCard> byCard(std::vector<DBCLogEntry> entries)
{
    // The entries of one card are not consecutive: those about its items come from reading the data
    // file, before the first card is stored.
    std::stable_sort(
        entries.begin(), entries.end(), [](const DBCLogEntry& a, const DBCLogEntry& b) {
            return a.origin.number < b.origin.number;
        });
    std::vector<DBCReportedCard> cards;
    for (DBCLogEntry& entry : entries) {
        const qint64 number = entry.origin.number.value_or(0);
        if (cards.empty() || cards.back().number != number)
            cards.push_back({number, entry.origin.cardName, {}});
        if (cards.back().name.isEmpty())
            cards.back().name = entry.origin.cardName;
        cards.back().problems.push_back(std::move(entry));
    }
    return cards;
}

} // namespace

DBCRunStory::DBCRunStory()
    : _started(QDateTime::currentDateTime())
    , _thread(QThread::currentThreadId())
    , _observer([this](const DBCLogEntry& entry) { take(entry); })
{
    _clock.start();
}

void DBCRunStory::follow(const DBCEvent& event)
{
    if (event.name == DBCEventName::ImportWillBegin)
        _hasImportBegun = true;
    else if (event.name == DBCEventName::DatabaseRestoreDidFinished)
        _isRestored = event.operationIsOk.value_or(false);
}

void DBCRunStory::take(const DBCLogEntry& entry) noexcept
{
    if (QThread::currentThreadId() != _thread)
        return;
    ++(entry.type == DBCLogType::Warning ? _warningCount : _errorCount);
    // If there is no memory left for the report, there may still be enough for the conversion.
    try {
        keep(entry);
    } catch (const std::bad_alloc&) {
        ++_leftOutCount;
    }
}

void DBCRunStory::keep(const DBCLogEntry& entry)
{
    if (entry.origin.number)
        _concernedNumbers.insert(*entry.origin.number);
    // Errors are always kept, because they are few and the last ones say why the conversion failed.
    if (_entries.size() < mostEntries || entry.type == DBCLogType::Error)
        _entries.push_back(entry);
    else
        ++_leftOutCount;
}

DBCRunReport DBCRunStory::reportOf(const DBCOutcome& outcome, Stop stop) const
{
    DBCRunReport report;
    report.backupPath = outcome.backupPath;
    report.end = endOf(outcome.code, stop);
    report.code = outcome.code;
    report.started = _started;
    report.milliseconds = _clock.elapsed();
    report.maxCount = outcome.maxCount;
    report.finishedCount = outcome.finishedCount;
    report.warningCount = _warningCount;
    report.errorCount = _errorCount;
    report.concernedCardCount = _concernedNumbers.size();
    report.leftOutCount = _leftOutCount;
    fillInEntries(&report);
    return report;
}

DBCRunEnd DBCRunStory::endOf(DBCResultCode code, Stop stop) const
{
    if (isFailure(code)) {
        return _hasImportBegun && !_isRestored ? DBCRunEnd::FailedAndNotRestored
                                               : DBCRunEnd::Failed;
    }
    if (stop == Stop::Confirmed)
        return DBCRunEnd::Cancelled;
    return _warningCount + _errorCount == 0 ? DBCRunEnd::Done : DBCRunEnd::DoneWithWarnings;
}

void DBCRunStory::fillInEntries(DBCRunReport* report) const
{
    std::vector<DBCLogEntry> ofCards;
    for (const DBCLogEntry& entry : _entries) {
        const bool isMessage = entry.origin.messageNumber.has_value();
        if (isMessage)
            report->messages.push_back(entry);
        if (entry.origin.number)
            ofCards.push_back(entry);
        else if (!isMessage)
            report->others.push_back(entry);
    }
    report->cards = byCard(std::move(ofCards));
}
