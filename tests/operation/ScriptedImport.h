// SPDX-License-Identifier: GPL-3.0-or-later
// A scripted import whose log lines and messages are short texts. This file also has the events and
// log lines that tests expect.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScriptedConversion.h"

inline const QStringList backupEvents {
    u"DBC_DatabaseBackupWillBeginNotification"_s,
    u"DBC_DatabaseBackupDidFinishedNotification ok=true"_s,
};
inline const QStringList restoreEvents {
    u"DBC_DatabaseRestoreWillBeginNotification"_s,
    u"DBC_DatabaseRestoreDidFinishedNotification ok=true"_s,
};
inline const QString endedWell = u"DBC_OperationDidFinishedNotification ok=true"_s;
inline const QString endedBadly = u"DBC_OperationDidFinishedNotification ok=false"_s;

inline QString running(int max, int finished)
{
    return u"DBC_ImportIsRunningNotification max=%1 finished=%2"_s.arg(max).arg(finished);
}

inline QString loaded(int max)
{
    return u"DBC_ImportDataLoadDidFinishedNotification max=%1 finished=0"_s.arg(max);
}

struct ScriptedImport : ScriptedConversion {
    ScriptedImport()
        : ScriptedConversion(OperationType::Import)
    {
    }
    DBCLocalizable::Substitute texts {shortTexts()};

    DBCResultCode code() const { return controller->outcome().code; }
    QString startLine() const
    {
        return u"[Info] begin IMPORT From:[%1]  To:[%2]"_s.arg(folder, package);
    }
    QStringList backupLines() const
    {
        return {u"[Info] begin BACKUP"_s, u"[Info] end BACKUP"_s,
            u"[Info] backup at "_s + script.backupPath};
    }
    // Every run begins its log with a separator line. Returns the lines after that line.
    QStringList logAfterSeparator() const { return log().mid(1); }
};

inline const QStringList restoreLines {
    u"[Info] begin RESTORE"_s,
    u"[Info] end RESTORE"_s,
};
inline const QString importBegins = u"DBC_ImportWillBeginNotification"_s;
