// SPDX-License-Identifier: GPL-3.0-or-later
// Appends text to a file: records to the data file of an export, one line each, and messages to the
// log. Only one thread at a time may use a writer.
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
    // Returns null for an empty path.
    static std::unique_ptr<DBCFileWriter> initWithFileName(
        const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator);
    ~DBCFileWriter();

    // Nothing in the program calls this function; it is kept on purpose as an interface.
    const QHash<DBCRecordKey, QString>& mappingTitleDic() const { return _mappingTitleDic; }
    QString filePath() const { return _fullFileName; }

    // Returns Success, FolderNotExist when the path is empty or the open file has been removed, or
    // DataFileOpenFailure when the file cannot be opened or is not a regular file.
    DBCResultCode open();
    DBCResultCode close(); // returns Success or DataFileWriteFailure

    // Both functions append to the file, and open it if it is not open. A record is written as a
    // line; a text is written as it is, without an added line end. They return GeneralFailure when
    // the text is std::nullopt, DataFileWriteFailure when the record lacks a column or writing
    // failed, and otherwise the result of open().
    DBCResultCode write(const std::optional<QString>& text);
    DBCResultCode write(const DBCRecord& record);

    // Returns the line of the record, which ends in "\r\n", or std::nullopt when the record lacks a
    // column. Values should be texts. The registration date may also be a point in time, which is
    // written as yyyy/MM/dd in local time. A value of any other type gives an empty item.
    std::optional<QString> createDataStrWith(const DBCRecord& record) const;
    bool validateItemRequired(const DBCRecord& record) const;
    // deleteSpecialCharater() deletes each text of the list from FromString; replaceSpecialChars()
    // replaces each of them in sourceStr by withString. Both functions ignore case, and return an
    // empty text when the list is empty or another argument is std::nullopt.
    static QString deleteSpecialCharater(
        const QStringList& list, const std::optional<QString>& FromString);
    static QString replaceSpecialChars(const QStringList& list,
        const std::optional<QString>& withString, const std::optional<QString>& sourceStr);

private:
    DBCFileWriter(const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator);
    bool initMappingTitleDic();
    bool openHandle();
    bool append(QByteArrayView bytes);
    // Returns DataFileWriteFailure when line is std::nullopt.
    DBCResultCode writeLine(const std::optional<QString>& line);
    static QString cleaned(const QString& value);

    QString _fullFileName;
    DBCTextEncoding _encoding;
    // This member is not used: lines of records always end in "\r\n", and texts are written as they
    // are. It is kept because the parameters of initWithFileName() are an interface.
    QString _lineSeparator;
    QHash<DBCRecordKey, QString> _mappingTitleDic;
    QFile _fileHandle;
};
