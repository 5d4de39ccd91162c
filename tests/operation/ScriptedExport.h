// SPDX-License-Identifier: GPL-3.0-or-later
// A scripted export whose log lines and messages are short texts. This file also has the events
// that tests expect and reads the files that the export writes.
#pragma once

#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/ScriptedConversion.h"

inline const QString exportBegins = u"DBC_ExportWillBeginNotification"_s;
inline const QString endedWell = u"DBC_OperationDidFinishedNotification ok=true"_s;
inline const QString endedBadly = u"DBC_OperationDidFinishedNotification ok=false"_s;

inline QString fetched(int max)
{
    return u"DBC_ExportDataFetchDidFinishedNotification max=%1 finished=0"_s.arg(max);
}

inline QString running(int max, int finished)
{
    return u"DBC_ExportIsRunningNotification max=%1 finished=%2"_s.arg(max).arg(finished);
}

inline QString finished(bool ok, int max, int count)
{
    return u"DBC_ExportDidFinishedNotification ok=%1 max=%2 finished=%3"_s
        .arg(ok ? u"true"_s : u"false"_s)
        .arg(max)
        .arg(count);
}

struct ScriptedExport : ScriptedConversion {
    ScriptedExport()
        : ScriptedConversion(OperationType::Export)
    {
    }
    DBCLocalizable::Substitute texts {shortTexts()};

    DBCResultCode code() const { return controller->outcome().code; }
    QString startLine() const
    {
        return u"[Info] begin EXPORT From:[%1]  To:[%2]"_s.arg(package, folder);
    }
    QStringList logAfterSeparator() const { return log().mid(1); }
    QString versionPath() const { return folder + u"/Version.txt"_s; }
    QString dataPath() const { return DBCInterchangeNames::dataFile(folder); }
    // Returns the lines of the data file, or an empty list if there is no data file.
    QStringList rows() const
    {
        const QByteArray bytes = bytesOf(dataPath());
        const QString text = QString::fromUtf16(
            reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
        return text.split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};
