// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCTransferLog.h"

#include "datafile/DBCLocalizable.h"
#include "operation/DBCLog.h"

namespace {

// Records carry their numbers as text or as a number, depending on who made them.
QString valueText(const DBCRecord& record, DBCRecordKey key)
{
    const DBCValue* value = record.value(key);
    if (const qint64* number = value ? std::get_if<qint64>(value) : nullptr)
        return QString::number(*number);
    return record.textOrEmpty(key);
}

} // namespace

DBCTransferSubject DBCTransferSubject::ofImport(const DBCRecord& record)
{
    return {valueText(record, DBCRecordKey::lineNo), record.textOrEmpty(DBCRecordKey::full_Name)};
}

DBCTransferSubject DBCTransferSubject::ofExport(const DBCRecord& record)
{
    return {valueText(record, DBCRecordKey::recordNo), record.textOrEmpty(DBCRecordKey::full_Name)};
}

namespace DBCTransferLog {

void error(const char* key)
{
    DBCLog::error(getLocalString(QString::fromLatin1(key)));
}

void cardWarning(const char* key, const DBCTransferSubject& subject)
{
    DBCLog::warning(getLocalString(QString::fromLatin1(key), {subject.number, subject.fullName}));
}

void cardWarning(const char* key, const DBCTransferSubject& subject, const QString& detail)
{
    DBCLog::warning(
        getLocalString(QString::fromLatin1(key), {subject.number, subject.fullName, detail}));
}

void cardWarning(const char* key, const DBCTransferSubject& subject, qint64 code)
{
    DBCLog::warning(
        getLocalString(QString::fromLatin1(key), {subject.number, subject.fullName, code}));
}

void nameLeadsOut(const DBCTransferSubject& subject, const QString& name, const QString& folder)
{
    DBCLog::warning(getLocalString(QStringLiteral("IDS_LOG_WRN_NAME_LEADS_OUT"),
        {subject.number, subject.fullName, name, folder}));
}

void errorPlace(const DBCTransferSubject& subject, const QString& path)
{
    DBCLog::error(getLocalString(
        QStringLiteral("IDS_LOG_ERR_TRANSFER_PLACE"), {subject.number, subject.fullName, path}));
}

void errorCopy(const DBCTransferSubject& subject, const QString& source, const QString& target)
{
    DBCLog::error(getLocalString(QStringLiteral("IDS_LOG_ERR_TRANSFER_COPY"),
        {subject.number, subject.fullName, source, target}));
}

} // namespace DBCTransferLog
