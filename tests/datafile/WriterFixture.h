// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the file writer share: a home of their own, writers of the two kinds, and the
// bytes that were written.
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

    // A record with the 21 columns, all empty.
    static DBCRecord emptyRecord()
    {
        DBCRecord record;
        for (const DBCColumn& column : DBCColumns)
            record.setValue(column.key, u""_s);
        return record;
    }

    std::unique_ptr<TestHome> _home;
};
