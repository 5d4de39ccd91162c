// SPDX-License-Identifier: GPL-3.0-or-later
// The types of operation, and the result of one run of an operation.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

// The numbers never change.
enum class OperationType : qint32 {
    None = 0x20000,
    Import = 0x20001, // interchange folder into database package
    Export = 0x20002, // database package into interchange folder
};

struct DBCOutcome {
    // The code is negative if the run failed. After a cancel the code is Success.
    DBCResultCode code = DBCResultCode::Success;
    qint64 maxCount = 0; // records read or cards fetched; 0 if the run ended before that
    qint64 finishedCount = 0; // records or cards handled, including those that the run undid later
    QString backupPath; // empty if no backup was made or if the run removed it again
    QString reportPath; // path of the report's page; empty if no report could be written
    qint64 concernedCardCount = 0; // cards with warnings or errors
};
