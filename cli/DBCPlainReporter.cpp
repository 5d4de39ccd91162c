// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCPlainReporter.h"

#include "cli/DBCTerminal.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "text/DBCControlCharacters.h"

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

// In these texts, all characters from here on are kana or kanji.
constexpr char16_t firstWideCharacter = 0x2E80;
constexpr qsizetype cellsBetweenColumns = 2;

QString stageText(const char* labelKey)
{
    return getLocalString(u"IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING"_s, {getLocalString(labelKey)});
}

// Returns the columns of a row without the last column. Only these are padded with blanks.
std::array<QString, 3> columnsOf(const DBCBackup& backup)
{
    return {backup.dateText(),
        backup.cardCount ? getLocalString(u"IDS_BACKUP_CARDS"_s, {*backup.cardCount})
                         : getLocalString(u"IDS_BACKUP_NOT_USABLE"_s),
        backup.bytes
            ? DBCLocalizable::locale().formattedDataSize(static_cast<qint64>(*backup.bytes))
            : QString(u'-')};
}

// Returns the width of a text in terminal cells: a Japanese character takes two cells, any other
// character takes one.
qsizetype cellsOf(const QString& text)
{
    return std::accumulate(
        text.begin(), text.end(), qsizetype {0}, [](qsizetype cells, QChar character) {
            return cells + (character.unicode() < firstWideCharacter ? 1 : 2);
        });
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

// Shows a logged error, because it names the file or line, which a message does not. Does not show
// warnings, because there may be many; the log file contains them and the summary gives their
// number. Each message that has been shown is also logged, so the comparison with _lastMessage
// keeps this function from showing the message a second time.
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

void DBCPlainReporter::backups(const std::vector<DBCBackup>& backups)
{
    _progress.clear();
    std::array<qsizetype, 3> widths {};
    for (const DBCBackup& backup : backups) {
        const auto columns = columnsOf(backup);
        for (std::size_t i = 0; i < columns.size(); ++i)
            widths.at(i) = std::max(widths.at(i), cellsOf(columns.at(i)));
    }
    for (const DBCBackup& backup : backups) {
        const auto columns = columnsOf(backup);
        QString line;
        for (std::size_t i = 0; i < columns.size(); ++i)
            line += QString(widths.at(i) - cellsOf(columns.at(i)), u' ') + columns.at(i)
                + QString(cellsBetweenColumns, u' ');
        DBCTerminal::writeLine(stdout, line + backup.name());
        if (backup.isDamaged())
            DBCTerminal::writeLine(stdout, QString(cellsBetweenColumns, u' ') + backup.damage);
    }
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
