// SPDX-License-Identifier: GPL-3.0-or-later
// The driver's report about a run. A failure in this file never changes the conversion's result.
#include "operation/DBCConverterController.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "report/DBCReportFiles.h"
#include "report/DBCRunStory.h"

#include <QFileInfo>

#include <exception>

using namespace Qt::StringLiterals;

namespace {

template <typename Step> void withoutHarm(const Step& step)
{
    try {
        step();
    } catch (const std::exception&) {
        // The memory has run out, so a line in the log is not possible either.
    }
}

QString folderOf(const QString& logFilePath)
{
    return QFileInfo(logFilePath.isEmpty() ? DBCLog::_defaultLogFilePath() : logFilePath).path();
}

} // namespace

void DBCConverterController::_beginStory()
{
    withoutHarm([this] { _story = std::make_unique<DBCRunStory>(); });
}

void DBCConverterController::_endStory()
{
    withoutHarm([this] {
        if (_story)
            _writeReport(*_story);
    });
    _story.reset();
}

void DBCConverterController::_writeReport(const DBCRunStory& story)
{
    DBCRunReport report = story.reportOf(
        _outcome, _isStopRunning ? DBCRunStory::Stop::Confirmed : DBCRunStory::Stop::NotAsked);
    report.operation = _operationType;
    report.folder = _fullPathFolder;
    report.package = _fullPathDB;
    report.logPath = _logFilePath;

    _outcome.concernedCardCount = report.concernedCardCount;
    const auto written = DBCReportFiles::write(report, folderOf(_logFilePath));
    if (const auto* path = std::get_if<QString>(&written)) {
        _outcome.reportPath = *path;
        return;
    }
    const auto& failure = std::get<DBCReportFiles::Failure>(written);
    if (DBCLog* log = _log()) {
        log->output(getLocalString(u"IDS_LOG_WRN_REPORT"_s, {failure.path, failure.reason}),
            DBCLogType::Warning);
    }
}
