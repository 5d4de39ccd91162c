// SPDX-License-Identifier: GPL-3.0-or-later
// The base class of the tests of the file reader. It gives them a home folder with a data file, and
// access to the log.
#pragma once

#include "datafile/DBCFileReader.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/TestHome.h"

#include <memory>

using namespace Qt::StringLiterals;

class ReaderFixture {
protected:
    using Records = std::vector<DBCRecord>;

    void begin()
    {
        _home = std::make_unique<TestHome>();
        _error = DBCError();
    }
    void end() { _home.reset(); }

    QString dataFile() const { return _home->path(u"data.txt"_s); }
    std::unique_ptr<DBCFileReader> readerFor(const DataFileBuilder& file) const
    {
        return DBCFileReader::initWithFullFileName(file.writeTo(dataFile()));
    }
    // Loads the file, keeps the error in _error and returns the records.
    std::optional<Records> load(const DataFileBuilder& file)
    {
        return readerFor(file)->loadData(&_error);
    }

    static DataFileBuilder fileWithTitle() { return DataFileBuilder().titleLine(); }
    static QString text(const DBCRecord& record, DBCRecordKey key)
    {
        return record.text(key).value_or(u"absent"_s);
    }

    QStringList warnings() const { return linesWith(u" [Warning] "_s); }
    QStringList errors() const { return linesWith(u" [Error] "_s); }
    QStringList linesWith(const QString& tag) const
    {
        return _home->logText().split(u'\n').filter(tag);
    }

    std::unique_ptr<TestHome> _home;
    DBCError _error;
};
