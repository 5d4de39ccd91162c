// SPDX-License-Identifier: GPL-3.0-or-later
// The contents of the report about one conversion, before they are written as a page or as data.
// A plain value without texts of its own: the words come from DBCReportTexts.
#pragma once

#include "operation/base/DBCOperation.h"
#include "operation/log/DBCLogEntry.h"

#include <QDateTime>
#include <QString>

#include <vector>

// How many reports are kept beside the log. The page tells its reader this number.
inline constexpr int DBCMostReports = 20;

enum class DBCRunEnd : quint8 {
    Done,
    DoneWithWarnings,
    Cancelled, // the database was restored, or the export's folder removed
    Failed, // import: the database is as it was before; export: the files written so far remain
    FailedAndNotRestored, // import: the database may be incomplete
};

struct DBCReportedCard {
    qint64 number = 0; // import: the card's line in the data file; export: the card's number
    QString name; // the full name on the card; empty if not known
    std::vector<DBCLogEntry> problems; // in the order of the log; never empty
};

struct DBCRunReport {
    OperationType operation = OperationType::None;
    QString folder; // the interchange folder
    QString package; // the card database package
    QString backupPath; // empty if there is no backup
    QString logPath; // empty if the log could not be written

    DBCRunEnd end = DBCRunEnd::Done;
    DBCResultCode code = DBCResultCode::Success;
    QDateTime started; // local time
    qint64 milliseconds = 0; // from the start to the end
    qint64 maxCount = 0; // cards in the data file or in the package
    qint64 finishedCount = 0; // cards handled, including those that were undone later
    qint64 warningCount = 0; // all warnings, including those left out below
    qint64 errorCount = 0; // all errors, including those left out below

    std::vector<DBCLogEntry> messages; // errors that the user was shown, and that ended the run
    std::vector<DBCReportedCard> cards; // the cards with warnings or errors, by number
    std::vector<DBCLogEntry> others; // warnings and errors about no card that were not shown
    qint64 concernedCardCount = 0; // cards with warnings or errors, including those left out below
    qint64 leftOutCount = 0; // how many warnings and errors were too many to keep
};
