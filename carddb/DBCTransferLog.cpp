// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCTransferLog.h"

#include "operation/log/DBCLog.h"

namespace {

DBCLogOrigin originOf(
    const char* key, const DBCTransferSubject& subject, DBCConsequence consequence)
{
    bool isNumber = false;
    const qint64 number = subject.number.toLongLong(&isNumber);
    return {.key = QString::fromLatin1(key),
        .number = isNumber ? std::optional(number) : std::nullopt,
        .cardName = subject.fullName,
        .consequence = consequence};
}

} // namespace

DBCTransferSubject DBCTransferSubject::ofImport(const DBCRecord& record)
{
    return {record.textOrEmpty(DBCRecordKey::lineNo), record.textOrEmpty(DBCRecordKey::full_Name)};
}

DBCTransferSubject DBCTransferSubject::ofExport(const DBCRecord& record)
{
    return {
        record.textOrEmpty(DBCRecordKey::recordNo), record.textOrEmpty(DBCRecordKey::full_Name)};
}

namespace DBCTransferLog {

void error(const char* key, const DBCTransferSubject& subject)
{
    DBCLog::error(getLocalString(key), originOf(key, subject, DBCConsequence::Stopped));
}

void cardWarning(const char* key, const DBCTransferSubject& subject, DBCConsequence consequence,
    const std::optional<DBCMessageArgument>& detail)
{
    DBCMessageArguments arguments {subject.number, subject.fullName};
    if (detail)
        arguments.push_back(*detail);
    DBCLog::warning(getLocalString(key, arguments), originOf(key, subject, consequence));
}

void nameLeadsOut(const DBCTransferSubject& subject, const QString& name, const QString& folder,
    DBCConsequence consequence)
{
    constexpr const char* key = "IDS_LOG_WRN_NAME_LEADS_OUT";
    DBCLog::warning(getLocalString(key, {subject.number, subject.fullName, name, folder}),
        originOf(key, subject, consequence));
}

void missing(const DBCTransferSubject& subject, const QString& path, DBCConsequence consequence)
{
    constexpr const char* key = "IDS_LOG_WRN_FILE_NO_EXISTS";
    const QString text = getLocalString(key, {path});
    const DBCLogOrigin origin = originOf(key, subject, consequence);
    if (consequence == DBCConsequence::Stopped)
        DBCLog::error(text, origin);
    else
        DBCLog::warning(text, origin);
}

void errorPlace(const DBCTransferSubject& subject, const QString& path)
{
    constexpr const char* key = "IDS_LOG_ERR_TRANSFER_PLACE";
    DBCLog::error(getLocalString(key, {subject.number, subject.fullName, path}),
        originOf(key, subject, DBCConsequence::Stopped));
}

void errorCopy(const DBCTransferSubject& subject, const QString& source, const QString& target)
{
    constexpr const char* key = "IDS_LOG_ERR_TRANSFER_COPY";
    DBCLog::error(getLocalString(
                      QString::fromLatin1(key), {subject.number, subject.fullName, source, target}),
        originOf(key, subject, DBCConsequence::Stopped));
}

} // namespace DBCTransferLog
