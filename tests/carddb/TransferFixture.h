// SPDX-License-Identifier: GPL-3.0-or-later
// An open package, an interchange folder, and what the log was told.
#pragma once

#include "carddb/DBCDataBaseController.h"
#include "datafile/DBCLocalizable.h"
#include "operation/DBCLog.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/TestHome.h"

#include <QProcess>
#include <QStringList>

#include <initializer_list>
#include <memory>
#include <utility>

struct RecordedLog {
    RecordedLog()
    {
        DBCLog::setObserver([this](DBCLogType type, const QString& message) {
            (type == DBCLogType::Warning ? warnings : errors) << message;
        });
    }
    ~RecordedLog() { DBCLog::setObserver({}); }
    RecordedLog(const RecordedLog&) = delete;
    RecordedLog& operator=(const RecordedLog&) = delete;

    bool isEmpty() const { return warnings.isEmpty() && errors.isEmpty(); }

    QStringList warnings;
    QStringList errors;
};

// What the system says a folder takes, in bytes.
inline quint64 diskUsage(const QString& folder)
{
    QProcess process;
    process.start(QStringLiteral("du"), {QStringLiteral("-sk"), folder});
    process.waitForFinished();
    return process.readAllStandardOutput().split('\t').value(0).toULongLong() * 1024;
}

struct TransferFixture {
    using Values = std::initializer_list<std::pair<DBCRecordKey, QString>>;

    // As the reader makes it: number and line of the record are texts.
    static DBCRecord record(const Values& values)
    {
        DBCRecord record;
        record.setValue(DBCRecordKey::lineNo, QStringLiteral("7"));
        record.setValue(DBCRecordKey::recordNo, QStringLiteral("6"));
        record.setValue(DBCRecordKey::full_Name, QStringLiteral("Hanako"));
        for (const auto& [key, value] : values)
            record.setValue(key, value);
        return record;
    }

    static QString text(const char* key, const DBCMessageArguments& arguments = {})
    {
        return getLocalString(QString::fromLatin1(key), arguments);
    }

    QString packagePath(const QString& relative) const { return package.path(relative); }

    TestHome home;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    RecordedLog log;
    std::unique_ptr<DBCDataBaseController> database
        = DBCDataBaseController::initDBwithPath(package.path());
    DBCError error;
};
