// SPDX-License-Identifier: GPL-3.0-or-later
// What an operation is and what one run of it came to.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

enum class OperationType : qint32 {
    None = 0x20000,
    Import = 0x20001, // interchange folder into database package
    Export = 0x20002, // database package into interchange folder
};

struct DBCOutcome {
    DBCResultCode code = DBCResultCode::Success;
    qint64 maxCount = 0; // cards there were
    qint64 finishedCount = 0; // cards handled, even if the run undid them later
    QString backupPath; // empty: no backup was made or it was removed again
    QString reportPath; // empty: no report could be written
    qint64 concernedCardCount = 0; // cards with warnings or errors
};
