// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// Stage and amount of a running copy; handed to callbackFileOperationStatus().
struct DBCFileOperationStatus {
    static constexpr quint32 stageComplete = 3;
    quint32 stage = 0; // "DBCFileManager_KEY_FSFileOperationStage"
    quint64 bytesComplete = 0;
    quint64 totalBytes = 0;
};
