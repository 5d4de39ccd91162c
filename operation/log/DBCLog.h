// SPDX-License-Identifier: GPL-3.0-or-later
// The program's log: a UTF-8 text file with one line per message, and counters of its warnings and
// errors.
#pragma once

#include "datafile/records/DBCFileWriter.h"
#include "operation/base/DBCResultCode.h"
#include "operation/log/DBCLogEntry.h"

#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>

// A line is "2024/05/31 14:05:09 VelmoraConverter [Info] text". The file is opened and closed
// around every line, so that the line is in the file as soon as the call returns; it is not flushed
// to the disk. A line that cannot be written goes to standard error. Levels: 0 sends everything to
// standard error and nothing to the file; 1 writes Info and above, 2 Warning and above, 3 errors
// only. All functions may be called from any thread.
class DBCLog {
public:
    // Returns the shared instance for a path. An empty path means the default log file,
    // $HOME/Library/Logs/VelmoraConverter.log. Returns null if the file cannot be created. A
    // registry owns the instances, which live as long as the process.
    static DBCLog* logInstance();
    static DBCLog* logInstance(const QString& path);
    static QString _defaultLogFilePath();

    // Creates an instance outside the registry. Returns null if the path is empty or the file
    // cannot be created and opened.
    static std::unique_ptr<DBCLog> initWithFullPath(const QString& path);

    // The log functions return Success, GeneralFailure (-1) if there is no message or the level
    // filters the message out, or the code of a failed write.
    DBCResultCode logDebug(const std::optional<QString>& message);
    DBCResultCode logInfo(const std::optional<QString>& message);
    // Warnings and errors are counted and passed to the observers even when the level filters them
    // out.
    DBCResultCode logWarning(
        const std::optional<QString>& message, const DBCLogOrigin& origin = {});
    DBCResultCode logError(const std::optional<QString>& message, const DBCLogOrigin& origin = {});
    // Writes a line of any type that is neither counted nor passed to the observers.
    DBCResultCode output(const std::optional<QString>& message, DBCLogType logType);
    // Returns the line for a message, with its line end. Control characters and line ends in the
    // message are written as visible text.
    static QString getLogString(const QString& message, const QString& logType);

    // Takes the level from the information dictionary (see DBCSettings). If the dictionary holds no
    // number for it, the level is Info (1).
    void readLogLevel();
    QString logFilePath() const;
    quint32 warningLogCount() const { return _warningLogCount; }
    quint32 errorLogCount() const { return _errorLogCount; }
    void resetLogCount();
    bool hasWarningOrError() const { return _warningLogCount != 0 || _errorLogCount != 0; }

    // Write to the default instance. The message is lost when that log cannot be created.
    static void debug(const QString& message);
    static void info(const QString& message);
    static void warning(const QString& message, const DBCLogOrigin& origin = {});
    static void error(const QString& message, const DBCLogOrigin& origin = {});

private:
    explicit DBCLog(std::unique_ptr<DBCFileWriter> fileWriter);

    DBCResultCode writeLine(const QString& message, const QString& tag);

    std::mutex _mutex; // guards the writer and the level, because window and operation both log
    std::unique_ptr<DBCFileWriter> _fileWriter;
    qint32 _logLevel; // the lowest type that is written
    std::atomic<quint32> _warningLogCount = 0;
    std::atomic<quint32> _errorLogCount = 0;
};
