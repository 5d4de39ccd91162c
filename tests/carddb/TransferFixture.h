// SPDX-License-Identifier: GPL-3.0-or-later
// An open package, an interchange folder and the recorded log messages.
#pragma once

#include "carddb/DBCDataBaseController.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLogObserver.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/TestHome.h"

#include <QProcess>
#include <QStringList>

#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

struct RecordedLog {
    bool isEmpty() const { return warnings.isEmpty() && errors.isEmpty(); }

    QStringList warnings;
    QStringList errors;
    std::vector<DBCLogOrigin> origins; // the card and consequence of each message
    std::function<void(const DBCLogEntry& entry)> onEntry = [](const DBCLogEntry&) {};

private:
    DBCLogObserver _observer {[this](const DBCLogEntry& entry) {
        (entry.type == DBCLogType::Warning ? warnings : errors) << entry.text;
        origins.push_back(entry.origin);
        onEntry(entry);
    }};
};

// Returns the disk usage of a folder in bytes, as the system reports it.
inline quint64 diskUsage(const QString& folder)
{
    QProcess process;
    process.start(u"du"_s, {u"-sk"_s, folder});
    process.waitForFinished();
    return process.readAllStandardOutput().split('\t').value(0).toULongLong() * 1024;
}

struct TransferFixture {
    using Values = std::initializer_list<std::pair<DBCRecordKey, QString>>;

    // Returns a record like those of the file reader, in which the record and line numbers are
    // texts.
    static DBCRecord record(const Values& values)
    {
        DBCRecord record;
        record.setValue(DBCRecordKey::lineNo, u"7"_s);
        record.setValue(DBCRecordKey::recordNo, u"6"_s);
        record.setValue(DBCRecordKey::full_Name, u"Hanako"_s);
        for (const auto& [key, value] : values)
            record.setValue(key, value);
        return record;
    }

    static QString text(const char* key, const DBCMessageArguments& arguments = {})
    {
        return getLocalString(key, arguments);
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
