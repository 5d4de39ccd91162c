// SPDX-License-Identifier: GPL-3.0-or-later
// Appends text to a file: records to the data file of an export, one line each, and messages to the
// log. Not safe to use from several threads at a time.
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

    // Nothing in the program calls it; it is kept on purpose as an interface.
    const QHash<DBCRecordKey, QString>& mappingTitleDic() const { return _mappingTitleDic; }
    QString filePath() const { return _fullFileName; }

    // Success. FolderNotExist: the path is empty, or the open file has been removed.
    // DataFileOpenFailure: the file cannot be opened or is no regular file.
    DBCResultCode open();
    DBCResultCode close(); // Success

    // Appends to the file and opens it on first use. GeneralFailure: the text is none.
    // DataFileWriteFailure: the record lacks a column, or writing failed. Otherwise the code of
    // open(). A text is written as it is; no line end is added.
    DBCResultCode write(const std::optional<QString>& text);
    DBCResultCode write(const DBCRecord& record);

    // Returns the record's line, ending in "\r\n"; none when a column is missing. Items are texts.
    // A registration date may also be a point in time and is written as yyyy/MM/dd in local time. A
    // value of any other type gives an empty item.
    std::optional<QString> createDataStrWith(const DBCRecord& record) const;
    bool validateItemRequired(const DBCRecord& record) const;
    // Both return an empty text when the list is empty or a text is missing.
    static QString deleteSpecialCharater(
        const QStringList& list, const std::optional<QString>& FromString);
    static QString replaceSpecialChars(const QStringList& list,
        const std::optional<QString>& withString, const std::optional<QString>& sourceStr);

private:
    DBCFileWriter(const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator);
    bool initMappingTitleDic();
    bool openHandle();
    bool append(QByteArrayView bytes);
    // DataFileWriteFailure when line is none.
    DBCResultCode writeLine(const std::optional<QString>& line);
    static QString cleaned(const QString& value);

    QString _fullFileName;
    DBCTextEncoding _encoding;
    // Not used: lines of records always end in "\r\n", and texts are written as they are. Kept
    // because the constructor's parameters are an interface.
    QString _lineSeparator;
    QHash<DBCRecordKey, QString> _mappingTitleDic;
    QFile _fileHandle;
};
