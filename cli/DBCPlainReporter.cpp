// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCPlainReporter.h"

#include "cli/DBCTerminal.h"
#include "datafile/DBCLocalizable.h"
#include "text/DBCControlCharacters.h"

namespace {

QString stageText(const char* labelKey)
{
    return getLocalString(QStringLiteral("IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING"),
        {getLocalString(QString::fromLatin1(labelKey))});
}

} // namespace

DBCPlainReporter::DBCPlainReporter(Amount amount)
    : _amount(amount)
    , _progress(amount == Amount::Everything && DBCTerminal::isStandardErrorTerminal()
              ? DBCProgressLine::Visibility::Shown
              : DBCProgressLine::Visibility::Hidden)
{
}

void DBCPlainReporter::event(const DBCEvent& event)
{
    const qint64 finished = event.finishedCount.value_or(0);
    const qint64 max = event.maxCount.value_or(0);
    switch (event.name) {
    case DBCEventName::DatabaseBackupWillBegin:
        _progress.showStage(stageText("IDS_LBL_BACKUP"));
        return;
    case DBCEventName::DatabaseRestoreWillBegin:
        _progress.showStage(stageText("IDS_LBL_RESTORE"));
        return;
    case DBCEventName::ImportDataLoadDidFinished:
    case DBCEventName::ExportDataFetchDidFinished:
        _progress.beginCounting();
        return;
    case DBCEventName::ImportIsRunning:
        _progress.showCounts("IDS_MSG_IMPORT_PROGRESS", finished, max);
        return;
    case DBCEventName::ExportIsRunning:
        _progress.showCounts("IDS_MSG_EXPORT_PROGRESS", finished, max);
        return;
    default:
        return;
    }
}

void DBCPlainReporter::message(std::optional<quint32> /*number*/, const QString& text)
{
    _progress.clear();
    DBCTerminal::write(stderr, text + u'\n');
    _lastMessage = text;
}

void DBCPlainReporter::answered(const DBCQuestion& /*question*/, DBCAnswer /*answer*/) { }

// Errors say what a message cannot: which file, which line. Warnings may be many; the log file
// holds them, and the summary counts them. A message is logged, too, once it has been shown.
void DBCPlainReporter::logged(DBCLogType type, const QString& text)
{
    if (type == DBCLogType::Error && text != _lastMessage)
        message({}, asOneLine(text));
}

void DBCPlainReporter::problem(const DBCProblem& problem)
{
    _progress.clear();
    DBCTerminal::writeLine(stdout, problem.text);
}

void DBCPlainReporter::verifying(qint64 finishedCount, qint64 maxCount)
{
    if (finishedCount == 0)
        _progress.beginCounting();
    _progress.showCounts("IDS_CLI_VERIFY_PROGRESS", finishedCount, maxCount);
}

void DBCPlainReporter::result(const DBCCommandResult& result)
{
    _progress.clear();
    if (_amount == Amount::ErrorsAndProblems)
        return;
    for (const QString& line : result.summary)
        DBCTerminal::writeLine(stdout, line);
}
