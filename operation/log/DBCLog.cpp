// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLog.h"

#include "datafile/helpers/DBCCommonFunction.h"
#include "operation/log/DBCLogObserver.h"
#include "operation/log/DBCSettings.h"
#include "text/DBCControlCharacters.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <array>
#include <cstdio>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char16_t*, 4> tags {u"[Debug]", u"[Info]", u"[Warning]", u"[Error]"};

constexpr qint32 consoleLevel = 0;
constexpr qint32 defaultLevel = 1;

QString tagOf(DBCLogType type)
{
    return QString::fromUtf16(tags[static_cast<std::size_t>(type)]);
}

void writeToConsole(const QString& line)
{
    std::fputs(line.toUtf8().append('\n').constData(), stderr);
}

struct Registry {
    std::mutex mutex;
    std::unordered_map<QString, std::unique_ptr<DBCLog>> logs;
};

Registry& registry()
{
    static Registry theRegistry;
    return theRegistry;
}

} // namespace

DBCLog* DBCLog::logInstance()
{
    return logInstance(QString());
}

DBCLog* DBCLog::logInstance(const QString& path)
{
    const QString key = path.isEmpty() ? _defaultLogFilePath() : path;
    const std::scoped_lock lock(registry().mutex);
    auto& logs = registry().logs;
    if (const auto found = logs.find(key); found != logs.end())
        return found->second.get();
    auto log = initWithFullPath(key);
    return log ? logs.emplace(key, std::move(log)).first->second.get() : nullptr;
}

QString DBCLog::_defaultLogFilePath()
{
    return QDir::homePath() + u"/Library/Logs/VelmoraConverter.log"_s;
}

std::unique_ptr<DBCLog> DBCLog::initWithFullPath(const QString& path)
{
    if (path.isEmpty() || !DBCCommonFunction::makeDirectory(QFileInfo(path).path()))
        return nullptr;
    auto writer = DBCFileWriter::initWithFileName(path, DBCTextEncoding::Utf8, u"\n"_s);
    if (!writer || writer->open() != DBCResultCode::Success)
        return nullptr;
    // Close the file again: if it is rotated away before the first line, that line goes into a new
    // file.
    writer->close();
    std::unique_ptr<DBCLog> log(new DBCLog(std::move(writer)));
    log->readLogLevel();
    return log;
}

DBCLog::DBCLog(std::unique_ptr<DBCFileWriter> fileWriter)
    : _fileWriter(std::move(fileWriter))
    , _logLevel(defaultLevel)
{
}

DBCResultCode DBCLog::logDebug(const std::optional<QString>& message)
{
    return output(message, DBCLogType::Debug);
}

DBCResultCode DBCLog::logInfo(const std::optional<QString>& message)
{
    return output(message, DBCLogType::Info);
}

DBCResultCode DBCLog::logWarning(const std::optional<QString>& message, const DBCLogOrigin& origin)
{
    if (!message)
        return DBCResultCode::GeneralFailure;
    ++_warningLogCount;
    DBCLogObserver::notifyAll({DBCLogType::Warning, *message, origin});
    return output(message, DBCLogType::Warning);
}

DBCResultCode DBCLog::logError(const std::optional<QString>& message, const DBCLogOrigin& origin)
{
    if (!message)
        return DBCResultCode::GeneralFailure;
    ++_errorLogCount;
    DBCLogObserver::notifyAll({DBCLogType::Error, *message, origin});
    return output(message, DBCLogType::Error);
}

DBCResultCode DBCLog::output(const std::optional<QString>& message, DBCLogType logType)
{
    if (!message)
        return DBCResultCode::GeneralFailure;
    const std::scoped_lock lock(_mutex);
    if (_logLevel == consoleLevel) {
        writeToConsole(getLogString(*message, tagOf(DBCLogType::Debug)).chopped(1));
        return DBCResultCode::Success;
    }
    // Debug lines never go into the file, even if the level is negative.
    if (_logLevel > static_cast<qint32>(logType) || logType == DBCLogType::Debug)
        return DBCResultCode::GeneralFailure;
    return writeLine(*message, tagOf(logType));
}

DBCResultCode DBCLog::writeLine(const QString& message, const QString& tag)
{
    DBCResultCode result = _fileWriter->write(getLogString(message, tag));
    const DBCResultCode closed = _fileWriter->close();
    if (!isFailure(result))
        result = closed;
    if (isFailure(result))
        writeToConsole(asOneLine(message));
    return result;
}

QString DBCLog::getLogString(const QString& message, const QString& logType)
{
    const QString now
        = QLocale::c().toString(QDateTime::currentDateTime(), u"yyyy/MM/dd HH:mm:ss"_s);
    return now + u" VelmoraConverter "_s + logType + u' ' + asOneLine(message) + u'\n';
}

void DBCLog::readLogLevel()
{
    const auto level = DBCSettings::logLevel();
    const std::scoped_lock lock(_mutex);
    _logLevel = level.value_or(defaultLevel);
}

QString DBCLog::logFilePath() const
{
    return _fileWriter->filePath();
}

void DBCLog::resetLogCount()
{
    _warningLogCount = 0;
    _errorLogCount = 0;
}

void DBCLog::debug(const QString& message)
{
    if (DBCLog* log = logInstance())
        log->logDebug(message);
}

void DBCLog::info(const QString& message)
{
    if (DBCLog* log = logInstance())
        log->logInfo(message);
}

void DBCLog::warning(const QString& message, const DBCLogOrigin& origin)
{
    if (DBCLog* log = logInstance())
        log->logWarning(message, origin);
}

void DBCLog::error(const QString& message, const DBCLogOrigin& origin)
{
    if (DBCLog* log = logInstance())
        log->logError(message, origin);
}
