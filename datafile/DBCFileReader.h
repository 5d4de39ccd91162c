// SPDX-License-Identifier: GPL-3.0-or-later
// Turns the interchange data file into records. The file is read and decoded whole, or in chunks
// when only getNextRecordCopy() is called; there is no quoting: an item can hold neither a tab nor
// the line separator, and only the line separator ends a line.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCError.h"

#include <QFile>
#include <QHash>
#include <QString>
#include <QStringList>

#include <exception>
#include <functional>
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
    DBCFileReader(const DBCFileReader&) = delete;
    DBCFileReader& operator=(const DBCFileReader&) = delete;

    QString fullFileName() const { return _fullFileName; }
    void setFullFileName(const QString& path) { _fullFileName = path; }
    QString lineSeparator() const { return _lineSeparator; }
    void setLineSeparator(const QString& separator) { _lineSeparator = separator; }
    DBCTextEncoding encoding() const { return _encoding; }
    void setEncoding(DBCTextEncoding encoding);
    // Bytes per read when the file is read in chunks. A line must fit into a chunk.
    void setBufferSize(quint32 bytes) { _bufferSize = bytes; }
    const QHash<QString, qsizetype>& mappingItemMaxLengthDic() const
    {
        return _mappingItemMaxLengthDic; // by title; 0: not checked
    }

    // Every record of the file, in file order, and the first error that stopped the reading. None
    // when error is null or the file cannot be loaded; an empty list always comes with
    // DataFileEmpty. A title or data line that left the list empty is logged, because the code
    // hides it. A reader loads once; close() it to load again.
    virtual std::optional<std::vector<DBCRecord>> loadData(DBCError* error);

    enum class Reading : bool { Stop, GoOn };
    using RecordHandler = std::function<Reading(DBCRecord record)>;
    using ErrorHandler = std::function<Reading(const DBCError& error)>;
    // The same for callers that want every problem: hands over each record and each error as it
    // comes, and goes on as long as they say so. Every error but that of a data line with a wrong
    // number of items ends it. Items that are too long are left to the caller, and not logged.
    void readRecords(const RecordHandler& onRecord, const ErrorHandler& onError);
    // Lines of the file; known as soon as readRecords() hands something over.
    qint64 lineCount() const { return _lineBufferArray.size(); }

    // The next record; none at the end, for a blank line (no error) and on error. error may be null
    // and is cleared when there is none. Title and data line errors carry their line number, and
    // the next call goes on behind a wrong data line.
    std::optional<DBCRecord> getNextRecordCopy(DBCError* error);
    // What is wrong with the latest wrong title or data line, in one localized sentence for the log
    // and for people; empty before the first one.
    QString lineErrorText() const { return _lineErrorText; }

    // Success also when already open; GeneralFailure: no file name; FolderNotExist: no such file;
    // DataFileOpenFailure: not readable, or no regular file.
    DBCResultCode open();
    DBCResultCode close(); // Success
    // Back to the title line; GeneralFailure when no file is open. lineNo() goes on counting.
    DBCResultCode reset();

    quint64 lastRecordNo() const { return _currentRecordNo; } // records delivered so far
    quint64 lineNo() const { return _currentLineNo; } // lines handed out so far

protected:
    DBCFileReader() = default;

private:
    bool _initMappingDic();

    // Bytes into lines.
    DBCResultCode _parseAll();
    DBCResultCode _parse();
    QByteArray readWholeFile();
    QByteArray readChunk();
    DBCTextDecoder::Result decodeNextChunks(QString* text);
    void splitIntoLines(QString text);
    std::optional<QStringView> _getNextLine();
    bool _isAtEnd() const;
    void _cleanBuffer();
    void forgetTitleLine();
    QList<QStringView> _parseLineWithTab(QStringView line) const; // empty for an empty line

    // Lines into records.
    enum class Lengths : bool { Ignored, Logged }; // of items
    void handOutRecords(
        Lengths lengths, const RecordHandler& onRecord, const ErrorHandler& onError);
    std::optional<DBCRecord> nextRecord(Lengths lengths, DBCError* error);
    DBCError readNextRecord(Lengths lengths, std::optional<DBCRecord>* record);
    QString readTitleLine();
    bool _validateItemRequired() const;
    void findColumns();
    std::optional<DBCRecord> _newRecord(const QList<QStringView>& items) const;
    void _validateAllItemLength(const DBCRecord& record) const;
    // False after a warning about a value that is too long.
    bool _validateItemLength(const QString& label, const std::optional<QString>& value,
        qsizetype maxLength, const QString& lineNo, const QString& fullName) const;
    DBCError titleLineError(const QString& titleLine);
    DBCError dataLineError(QStringView line, qsizetype itemCount);
    DBCMessageArguments lineErrorArguments(qsizetype found) const;
    static void logException(const std::exception& exception);
    void _increaseRecordNo() { ++_currentRecordNo; }
    void _increaseLineNo() { ++_currentLineNo; }

    QString _fullFileName;
    QString _lineSeparator;
    char16_t _itemDelimiter = u'\t';
    DBCTextEncoding _encoding = DBCTextEncoding::Utf16;
    quint32 _bufferSize = 0x100000;
    QFile _fileHandle;

    QHash<QString, DBCRecordKey> _mappingTitleDic;
    QHash<QString, qsizetype> _mappingItemMaxLengthDic;
    QStringList _itemLabels; // what a column's items are called in a warning

    DBCTextDecoder _decoder {_encoding}; // for chunks
    QString _lineText; // what _lineBufferArray looks into
    QList<QStringView> _lineBufferArray;
    qsizetype _currentLocation = 0; // of the next line in _lineBufferArray
    bool _isEndOfFile = false;
    QString _partData; // unfinished last line of the chunk before

    std::optional<QStringList> _fieldTitlesArray;
    // Where the columns stand in the file, in the order of DBCColumns; empty as long as no valid
    // title line was read.
    std::vector<qsizetype> _columnPositions;
    quint64 _currentRecordNo = 0;
    quint64 _currentLineNo = 0;
    QString _lineErrorText;
};
