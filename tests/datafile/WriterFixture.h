// SPDX-License-Identifier: GPL-3.0-or-later
// The base class of the tests of the file writer. It gives them a home folder, writers in both
// encodings, and the bytes that the writers wrote.
#pragma once

#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCFileWriter.h"
#include "tests/support/TestHome.h"

#include <memory>

using namespace Qt::StringLiterals;

class WriterFixture {
protected:
    void begin() { _home = std::make_unique<TestHome>(); }
    void end() { _home.reset(); }

    QString path() const { return _home->path(u"data.txt"_s); }
    std::unique_ptr<DBCFileWriter> dataFileWriter() const
    {
        return DBCFileWriter::initWithFileName(path(), DBCTextEncoding::Utf16, u"\r\n"_s);
    }
    std::unique_ptr<DBCFileWriter> logWriter() const
    {
        return DBCFileWriter::initWithFileName(path(), DBCTextEncoding::Utf8, u"\n"_s);
    }
    QByteArray written() const { return _home->readFile(u"data.txt"_s); }

    static QByteArray littleEndianWithMark(const QString& text)
    {
        QByteArray bytes("\xFF\xFE");
        for (const QChar unit : text)
            bytes.append(static_cast<char>(unit.cell())).append(static_cast<char>(unit.row()));
        return bytes;
    }

    // Returns a record whose 21 columns are all empty.
    static DBCRecord emptyRecord()
    {
        DBCRecord record;
        for (const DBCColumn& column : DBCColumns)
            record.setValue(column.key, u""_s);
        return record;
    }

    std::unique_ptr<TestHome> _home;
};
