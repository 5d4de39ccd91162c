// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/DBCReportTexts.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <array>

namespace {

struct EndRow {
    const char* name;
    const char* titleKey;
    const char* importKey;
    const char* exportKey;
};

// The rows are in the order of DBCRunEnd.
constexpr std::array<EndRow, 5> ends {{
    {"done", "IDS_REPORT_TITLE_DONE", "IDS_REPORT_END_IMPORTED", "IDS_REPORT_END_EXPORTED"},
    {"doneWithWarnings", "IDS_REPORT_TITLE_WARNINGS", "IDS_REPORT_END_IMPORTED",
        "IDS_REPORT_END_EXPORTED"},
    {"cancelled", "IDS_REPORT_TITLE_CANCELLED", "IDS_REPORT_END_UNCHANGED",
        "IDS_REPORT_END_EXPORT_REMOVED"},
    {"failed", "IDS_REPORT_TITLE_FAILED", "IDS_REPORT_END_UNCHANGED",
        "IDS_REPORT_END_EXPORT_INCOMPLETE"},
    {"failedAndNotRestored", "IDS_REPORT_TITLE_FAILED", "IDS_REPORT_END_NOT_RESTORED",
        "IDS_REPORT_END_EXPORT_INCOMPLETE"},
}};

struct ConsequenceRow {
    const char* name;
    const char* key; // null if there is nothing to say
};

// The rows are in the order of DBCConsequence.
constexpr std::array<ConsequenceRow, 7> consequences {{
    {"notTold", nullptr},
    {"itemShortened", "IDS_REPORT_FATE_ITEM_SHORTENED"},
    {"withoutImage", "IDS_REPORT_FATE_WITHOUT_IMAGE"},
    {"withoutImages", "IDS_REPORT_FATE_WITHOUT_IMAGES"},
    {"withoutAttachment", "IDS_REPORT_FATE_WITHOUT_ATTACHMENT"},
    {"withoutAttachments", "IDS_REPORT_FATE_WITHOUT_ATTACHMENTS"},
    {"stopped", "IDS_REPORT_FATE_STOPPED"},
}};

constexpr qint64 secondsPerMinute = 60;
constexpr qint64 secondsPerHour = 3600;
constexpr double millisecondsPerSecond = 1000.0;

const EndRow& rowOf(DBCRunEnd end)
{
    return ends.at(static_cast<std::size_t>(end));
}

const ConsequenceRow& rowOf(DBCConsequence consequence)
{
    return consequences.at(static_cast<std::size_t>(consequence));
}

bool isImport(const DBCRunReport& report)
{
    return report.operation == OperationType::Import;
}

// Returns the key of the text that holds for every card with a problem, or null if the text depends
// on the problem.
const char* commonFateKey(const DBCRunReport& report)
{
    switch (report.end) {
    case DBCRunEnd::Done:
    case DBCRunEnd::DoneWithWarnings:
        return nullptr;
    case DBCRunEnd::Cancelled:
        return isImport(report) ? "IDS_REPORT_FATE_NOT_IMPORTED" : "IDS_REPORT_FATE_NOT_EXPORTED";
    case DBCRunEnd::Failed:
        return isImport(report) ? "IDS_REPORT_FATE_NOT_IMPORTED" : nullptr;
    case DBCRunEnd::FailedAndNotRestored:
        return "IDS_REPORT_FATE_NOT_CERTAIN";
    }
    Q_UNREACHABLE();
}

} // namespace

namespace DBCReportTexts {

QString operation(const DBCRunReport& report)
{
    return getLocalString(isImport(report) ? "IDS_LBL_IMPORT" : "IDS_LBL_EXPORT");
}

QString title(const DBCRunReport& report)
{
    return getLocalString(rowOf(report.end).titleKey, {operation(report)});
}

QString explanation(const DBCRunReport& report)
{
    const EndRow& row = rowOf(report.end);
    return getLocalString(isImport(report) ? row.importKey : row.exportKey);
}

QString timeTaken(const DBCRunReport& report)
{
    const double exactly = static_cast<double>(report.milliseconds) / millisecondsPerSecond;
    const qint64 seconds = qRound64(exactly);
    if (seconds >= secondsPerHour)
        return getLocalString("IDS_REPORT_HOURS",
            {seconds / secondsPerHour, seconds % secondsPerHour / secondsPerMinute});
    if (seconds >= secondsPerMinute)
        return getLocalString(
            "IDS_REPORT_MINUTES", {seconds / secondsPerMinute, seconds % secondsPerMinute});
    return getLocalString(
        "IDS_REPORT_SECONDS", {DBCLocalizable::locale().toString(exactly, 'f', 1)});
}

QString fate(const DBCRunReport& report, const DBCLogEntry& problem)
{
    const DBCConsequence consequence = problem.origin.consequence;
    const char* const common = commonFateKey(report);
    if (common && consequence != DBCConsequence::Stopped)
        return getLocalString(common);
    const char* const key = rowOf(consequence).key;
    return key ? getLocalString(key) : QString();
}

QString endName(DBCRunEnd end)
{
    return QString::fromLatin1(rowOf(end).name);
}

QString consequenceName(DBCConsequence consequence)
{
    return QString::fromLatin1(rowOf(consequence).name);
}

} // namespace DBCReportTexts
