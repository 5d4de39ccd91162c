// SPDX-License-Identifier: GPL-3.0-or-later
// The program's log: one UTF-8 text file per path, a line a message, opened and closed around every
// line so that a line is on disk as soon as the call returns.
#pragma once

#include "datafile/records/DBCFileWriter.h"
#include "operation/base/DBCResultCode.h"
#include "operation/log/DBCLogEntry.h"

#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

class DBCLog {
public:
    // The shared instance for a path; an empty path means the default log file,
    // $HOME/Library/Logs/VelmoraConverter.log. Null when the log cannot be created. Instances are
    // owned by the registry and live as long as the process.
    static DBCLog* logInstance();
    static DBCLog* logInstance(const QString& path);
    static QString _defaultLogFilePath();

    // Null when the path is empty or the file cannot be made and opened.
    static std::unique_ptr<DBCLog> initWithFullPath(const QString& path);

    // -1 (GeneralFailure) when the level filters the message out or it is missing.
    DBCResultCode logDebug(const std::optional<QString>& message);
    DBCResultCode logInfo(const std::optional<QString>& message);
    // Counted, and told to the observers, even when filtered.
    DBCResultCode logWarning(
        const std::optional<QString>& message, const DBCLogOrigin& origin = {});
    DBCResultCode logError(const std::optional<QString>& message, const DBCLogOrigin& origin = {});
    // Neither counted nor told to the observers.
    DBCResultCode output(const std::optional<QString>& message, DBCLogType logType);
    // One line with its end; what a message holds of controls and line ends shows as text.
    static QString getLogString(const QString& message, const QString& logType);

    // Takes the level of the information dictionary, Info (1) where that has no number.
    void readLogLevel();
    QString logFilePath() const;
    quint32 warningLogCount() const { return _warningLogCount; }
    quint32 errorLogCount() const { return _errorLogCount; }
    void resetLogCount();
    bool hasWarningOrError() const { return _warningLogCount != 0 || _errorLogCount != 0; }

    // The default instance, null-safe: a message sent to a log that cannot be created is lost.
    static void debug(const QString& message);
    static void info(const QString& message);
    static void warning(const QString& message, const DBCLogOrigin& origin = {});
    static void error(const QString& message, const DBCLogOrigin& origin = {});

private:
    explicit DBCLog(std::unique_ptr<DBCFileWriter> fileWriter);

    DBCResultCode writeLine(const QString& message, const QString& tag);

    std::mutex _mutex; // of the writer and the level: the window and an operation both log
    std::unique_ptr<DBCFileWriter> _fileWriter;
    qint32 _logLevel; // lowest type written; 0: everything goes to the console, nothing to disk
    std::atomic<quint32> _warningLogCount = 0;
    std::atomic<quint32> _errorLogCount = 0;
};
