// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the records of the interchange data file: a title line, then one line per card with items
// separated by tabs. There is no quoting, so an item can contain neither a tab nor the line
// separator. loadData() and readRecords() read and decode the whole file at once;
// getNextRecordCopy() reads the file in chunks. Only one thread at a time may use a reader.
#pragma once

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/helpers/DBCTextEncoding.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCError.h"
#include "operation/base/DBCLoopControl.h"

#include <QFile>
#include <QHash>
#include <QString>
#include <QStringList>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct DBCMeasuredItem;

class DBCFileReader {
public:
    // Returns null when the tables of titles and maximum lengths cannot be built.
    static std::unique_ptr<DBCFileReader> initWithFullFileName(const QString& fullFileName,
        DBCTextEncoding encoding = DBCTextEncoding::Utf16,
        const QString& lineSeparator = QStringLiteral("\r\n"));
    virtual ~DBCFileReader();
    DBCFileReader(const DBCFileReader&) = delete;
    DBCFileReader& operator=(const DBCFileReader&) = delete;

    // Nothing in the program calls the getters of these properties; they are kept on purpose as an
    // interface.
    QString fullFileName() const { return _fullFileName; }
    void setFullFileName(const QString& path) { _fullFileName = path; }
    QString lineSeparator() const { return _lineSeparator; }
    void setLineSeparator(const QString& separator) { _lineSeparator = separator; }
    DBCTextEncoding encoding() const { return _encoding; }
    void setEncoding(DBCTextEncoding encoding);
    // Sets the size of the chunks that getNextRecordCopy() reads. No line may be longer than a
    // chunk.
    void setBufferSize(quint32 bytes) { _bufferSize = bytes; }
    const QHash<QString, qsizetype>& mappingItemMaxLengthDic() const
    {
        return _mappingItemMaxLengthDic; // by title, in UTF-16 units; 0 means no limit
    }

    // Returns the records in file order up to the first error, which is put into error. Returns
    // std::nullopt when error is null or the file cannot be loaded. An empty list always comes with
    // the error DataFileEmpty. If a wrong title or data line is the reason for the empty list, the
    // function logs this line, because DataFileEmpty does not mention it. After a call the caller
    // must call close() before loading again.
    virtual std::optional<std::vector<DBCRecord>> loadData(DBCError* error);

    using RecordHandler = std::function<DBCLoopControl(DBCRecord record)>;
    using ErrorHandler = std::function<DBCLoopControl(const DBCError& error)>;
    // Reads the whole file and calls a handler for each record and each error in file order, until
    // a handler answers Stop. Reading continues behind a data line with a wrong number of items;
    // any other error ends the reading. Unlike loadData(), this function does not log items that
    // are too long.
    void readRecords(const RecordHandler& onRecord, const ErrorHandler& onError);
    // Returns the number of lines of the file. The number is valid once readRecords() has called a
    // handler.
    qint64 lineCount() const { return _lineBufferArray.size(); }

    // Returns the next record. Returns std::nullopt and clears error at the end of the file and for
    // a blank line; returns std::nullopt and sets error after a failure. error may be null. Errors
    // of the title line and of data lines carry the line number. After a wrong data line the next
    // call continues with the following line. Nothing in the program calls this function; it is
    // kept on purpose as an interface.
    std::optional<DBCRecord> getNextRecordCopy(DBCError* error);
    // Returns a localized sentence about the latest wrong title or data line. The text is empty if
    // there was no such line.
    QString lineErrorText() const { return _lineErrorText; }

    // Returns Success, also when the file is already open. Returns GeneralFailure when the file
    // name is empty, FolderNotExist when the file does not exist, and DataFileOpenFailure when the
    // file cannot be opened or is not a regular file.
    DBCResultCode open();
    DBCResultCode close(); // returns Success
    // Goes back to the title line; lineNo() keeps counting up. Returns GeneralFailure when no file
    // is open. Nothing in the program calls this function; it is kept on purpose as an interface.
    DBCResultCode reset();

    // Returns the number of records returned so far. Nothing in the program calls this function; it
    // is kept on purpose as an interface.
    quint64 lastRecordNo() const { return _currentRecordNo; }
    quint64 lineNo() const { return _currentLineNo; } // lines read so far

protected:
    DBCFileReader() = default;

private:
    bool _initMappingDic();

    // These functions turn the bytes of the file into lines (DBCFileReader_lines.cpp).
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
    QList<QStringView> _parseLineWithTab(QStringView line) const; // no items for an empty line

    // These functions turn lines into records (DBCFileReader.cpp).
    enum class OverlongItems : bool { Ignored, Logged };
    void handOutRecords(
        OverlongItems overlong, const RecordHandler& onRecord, const ErrorHandler& onError);
    std::optional<DBCRecord> nextRecord(OverlongItems overlong, DBCError* error);
    DBCError readNextRecord(OverlongItems overlong, std::optional<DBCRecord>* record);
    QString readTitleLine();
    bool _validateItemRequired() const;
    void findColumns();
    std::optional<DBCRecord> _newRecord(const QList<QStringView>& items) const;
    static void _validateAllItemLength(const DBCRecord& record);
    // Logs a warning and returns false when the item is too long.
    static bool _validateItemLength(const DBCMeasuredItem& item, const DBCRecord& record);
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

    DBCTextDecoder _decoder {_encoding}; // used only for chunks
    QString _lineText; // owns the characters that the views in _lineBufferArray refer to
    QList<QStringView> _lineBufferArray;
    qsizetype _currentLocation = 0; // index of the next line in _lineBufferArray
    bool _isEndOfFile = false;
    QString _partData; // the incomplete last line of the previous chunk

    std::optional<QStringList> _fieldTitlesArray;
    // The position of each column in the lines of the file, in the order of DBCColumns. The list is
    // empty until a valid title line has been read.
    std::vector<qsizetype> _columnPositions;
    quint64 _currentRecordNo = 0;
    quint64 _currentLineNo = 0;
    QString _lineErrorText;
};
