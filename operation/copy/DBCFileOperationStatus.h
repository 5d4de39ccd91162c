// SPDX-License-Identifier: GPL-3.0-or-later
// The stage and amount of a running copy.
#pragma once

#include <QtGlobal>

// Passed to callbackFileOperationStatus(). A copy that ended without error has the stage
// stageComplete; all other stages are 0.
struct DBCFileOperationStatus {
    static constexpr quint32 stageComplete = 3;
    quint32 stage = 0; // "DBCFileManager_KEY_FSFileOperationStage"
    quint64 bytesComplete = 0; // copied so far
    quint64 totalBytes = 0; // the sizes of all files begun so far
};
