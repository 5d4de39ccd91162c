// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the file writer share: a home of their own, writers of the two kinds, and the
// bytes that were written.
#pragma once

#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCFileWriter.h"
#include "tests/support/TestHome.h"

#include <memory>

class WriterFixture {
protected:
    void begin() { _home = std::make_unique<TestHome>(); }
    void end() { _home.reset(); }

    QString path() const { return _home->path(QStringLiteral("data.txt")); }
    std::unique_ptr<DBCFileWriter> dataFileWriter() const
    {
        return DBCFileWriter::initWithFileName(
            path(), DBCTextEncoding::Utf16, QStringLiteral("\r\n"));
    }
    std::unique_ptr<DBCFileWriter> logWriter() const
    {
        return DBCFileWriter::initWithFileName(path(), DBCTextEncoding::Utf8, QStringLiteral("\n"));
    }
    QByteArray written() const { return _home->readFile(QStringLiteral("data.txt")); }

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
            record.setValue(column.key, QStringLiteral(""));
        return record;
    }

    std::unique_ptr<TestHome> _home;
};
