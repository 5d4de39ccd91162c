// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the interchange data file into records.
#pragma once

#include "datafile/DBCRecord.h"
#include "datafile/DBCTextEncoding.h"
#include "operation/DBCError.h"

#include <QFile>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class DBCFileReader {
public:
    // Null when the column tables cannot be built. UTF-16 and "\r\n" unless said otherwise.
    static std::unique_ptr<DBCFileReader> initWithFullFileName(const QString& fullFileName,
        DBCTextEncoding encoding = DBCTextEncoding::Utf16,
        const QString& lineSeparator = QStringLiteral("\r\n"));
    virtual ~DBCFileReader();

    // Every record of the file, in file order, and the first error that stopped the reading. None
    // when error is null or the file cannot be loaded; an empty list always comes with
    // DataFileEmpty.
    virtual std::optional<std::vector<DBCRecord>> loadData(DBCError* error);

    // The next record; none at the end, for a blank line (no error) and on error.
    std::optional<DBCRecord> getNextRecordCopy(DBCError* error);

    DBCResultCode open();
    DBCResultCode close();
    DBCResultCode reset();

    quint64 lastRecordNo() const { return _currentRecordNo; } // records delivered so far
    quint64 lineNo() const { return _currentLineNo; } // lines handed out so far

protected:
    DBCFileReader() = default;

    // The datafile owner completes the private part: fields and internal steps.
private:
    quint64 _currentRecordNo = 0;
    quint64 _currentLineNo = 0;
};
