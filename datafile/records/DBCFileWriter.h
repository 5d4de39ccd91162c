// SPDX-License-Identifier: GPL-3.0-or-later
// Appends text to a file: the export's data file, a line a record, and the log.
#pragma once

#include "datafile/helpers/DBCTextEncoding.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCResultCode.h"

#include <QFile>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class DBCFileWriter {
public:
    // Null for an empty path.
    static std::unique_ptr<DBCFileWriter> initWithFileName(
        const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator);
    ~DBCFileWriter();

    const QHash<DBCRecordKey, QString>& mappingTitleDic() const { return _mappingTitleDic; }
    QString filePath() const { return _fullFileName; }

    // Success; FolderNotExist: no path, or the open file has vanished; DataFileOpenFailure.
    DBCResultCode open();
    DBCResultCode close(); // Success

    // Opens on first use and appends. GeneralFailure: nothing given; DataFileWriteFailure: a record
    // lacks a column, or the text could not be encoded or written; else the code of open().
    // A text is written as it is, without a line end of our own.
    DBCResultCode write(const std::optional<QString>& text);
    DBCResultCode write(const DBCRecord& record);

    // The record's line with "\r\n" at its end; none when a column is missing. Values are texts; a
    // registration date may be a date and is written as yyyy/MM/dd in local time. Any other value
    // gives an empty item.
    std::optional<QString> createDataStrWith(const DBCRecord& record) const;
    bool validateItemRequired(const DBCRecord& record) const;
    // Empty when the list is empty or a text is missing.
    static QString deleteSpecialCharater(
        const QStringList& list, const std::optional<QString>& FromString);
    static QString replaceSpecialChars(const QStringList& list,
        const std::optional<QString>& withString, const std::optional<QString>& sourceStr);

private:
    DBCFileWriter(const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator);
    bool initMappingTitleDic();
    bool openHandle();
    bool append(QByteArrayView bytes);
    // DataFileWriteFailure for none.
    DBCResultCode writeLine(const std::optional<QString>& line);
    static QString cleaned(const QString& value);

    QString _fullFileName;
    DBCTextEncoding _encoding;
    QString _lineSeparator; // kept, not used: record lines end in "\r\n", texts come as they are
    QHash<DBCRecordKey, QString> _mappingTitleDic;
    QFile _fileHandle;
};
