// SPDX-License-Identifier: GPL-3.0-or-later
// The part of DBCFileReader that turns the bytes of the file into lines.
#include "datafile/DBCFileReader.h"

#include "operation/log/DBCLog.h"

#include <QFileInfo>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// 512 MiB, enough for more than a million cards. The whole file is read into memory, so a huge file
// that happens to have the data file's name must be refused.
constexpr qint64 largestDataFile = 0x20000000;

void logTooLarge(const QString& path, qint64 size)
{
    DBCLog::error(
        getLocalString(u"IDS_LOG_ERR_DATA_FILE_TOO_LARGE"_s, {path, size, largestDataFile}));
}

} // namespace

DBCResultCode DBCFileReader::open()
{
    if (_fileHandle.isOpen())
        return DBCResultCode::Success;
    if (_fullFileName.isEmpty())
        return DBCResultCode::GeneralFailure;
    const QFileInfo info(_fullFileName);
    if (!info.exists()) {
        DBCLog::error(getLocalString(u"IDS_LOG_WRN_FILE_NO_EXISTS"_s, {_fullFileName}));
        return DBCResultCode::FolderNotExist;
    }
    close();
    if (!info.isFile()) // opening a pipe would block until a program writes to it
        return DBCResultCode::DataFileOpenFailure;
    _fileHandle.setFileName(_fullFileName);
    return _fileHandle.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        ? DBCResultCode::Success
        : DBCResultCode::DataFileOpenFailure;
}

DBCResultCode DBCFileReader::close()
{
    _fileHandle.close();
    forgetTitleLine();
    _currentRecordNo = 0;
    _currentLineNo = 0;
    return DBCResultCode::Success;
}

DBCResultCode DBCFileReader::reset()
{
    if (!_fileHandle.isOpen())
        return DBCResultCode::GeneralFailure;
    _fileHandle.seek(0);
    forgetTitleLine();
    _currentRecordNo = 0;
    return DBCResultCode::Success;
}

void DBCFileReader::forgetTitleLine()
{
    _cleanBuffer();
    _partData.clear();
    _decoder = DBCTextDecoder(_encoding);
    _isEndOfFile = false;
    _fieldTitlesArray.reset();
    _columnPositions.clear();
}

void DBCFileReader::_cleanBuffer()
{
    _lineBufferArray.clear();
    _lineText.clear();
    _currentLocation = 0;
}

void DBCFileReader::setEncoding(DBCTextEncoding encoding)
{
    _encoding = encoding;
    _decoder = DBCTextDecoder(encoding);
}

DBCResultCode DBCFileReader::_parseAll()
{
    try {
        if (const DBCResultCode status = open(); isFailure(status))
            return status;
        _cleanBuffer();
        if (_fileHandle.size() > largestDataFile) {
            logTooLarge(_fullFileName, _fileHandle.size());
            return DBCResultCode::DataFileOpenFailure;
        }
        const QByteArray bytes = readWholeFile();
        if (bytes.isEmpty())
            return DBCResultCode::DataFileEmpty;
        std::optional<QString> text = decodeText(bytes, _encoding);
        if (!text || text->isEmpty()) {
            DBCLog::debug(u"There is a load data failure occurs!"_s);
            return DBCResultCode::DataFileDecodeFailure;
        }
        splitIntoLines(std::move(*text));
        return DBCResultCode::Success;
    } catch (const std::exception& exception) {
        logException(exception);
        return DBCResultCode::InternalException;
    }
}

DBCResultCode DBCFileReader::_parse()
{
    try {
        _cleanBuffer();
        QString text;
        if (decodeNextChunks(&text) != DBCTextDecoder::Result::Complete)
            return DBCResultCode::DataFileDecodeFailure;
        text.prepend(_partData);
        _partData.clear();
        if (text.isEmpty())
            return DBCResultCode::Success;
        splitIntoLines(std::move(text));
        if (_lineBufferArray.size() > 1)
            _partData = _lineBufferArray.takeLast().toString();
        return DBCResultCode::Success;
    } catch (const std::exception& exception) {
        logException(exception);
        return DBCResultCode::InternalException;
    }
}

// Reads further chunks while the last one ends inside a character. At the end of the file the
// result is Complete with an empty text.
DBCTextDecoder::Result DBCFileReader::decodeNextChunks(QString* text)
{
    using Result = DBCTextDecoder::Result;
    QByteArray gathered;
    Result result = Result::Complete;
    do {
        const QByteArray chunk = readChunk();
        if (chunk.isEmpty()) {
            _isEndOfFile = true;
            return result;
        }
        gathered += chunk;
        result = _decoder.decode(gathered, text);
    } while (result == Result::Incomplete);
    if (result == Result::Invalid) {
        // Since no further bytes can make these bytes valid, the rest of the file is skipped.
        _fileHandle.seek(_fileHandle.size());
        _isEndOfFile = true;
    }
    return result;
}

QByteArray DBCFileReader::readWholeFile()
{
    _fileHandle.seek(0);
    QByteArray bytes = _fileHandle.readAll();
    // readAll() does not report an error: it returns the bytes that it read before the error.
    if (_fileHandle.error() != QFileDevice::NoError)
        throw std::runtime_error(_fileHandle.errorString().toStdString());
    return bytes;
}

QByteArray DBCFileReader::readChunk()
{
    QByteArray bytes = _fileHandle.read(_bufferSize);
    if (_fileHandle.error() != QFileDevice::NoError)
        throw std::runtime_error(_fileHandle.errorString().toStdString());
    return bytes;
}

void DBCFileReader::splitIntoLines(QString text)
{
    _lineText = std::move(text);
    _lineBufferArray = QStringView(_lineText).split(_lineSeparator);
}

std::optional<QStringView> DBCFileReader::_getNextLine()
{
    if (_currentLocation >= _lineBufferArray.size() && isFailure(_parse()))
        return std::nullopt;
    if (_currentLocation >= _lineBufferArray.size() - 1)
        _isEndOfFile = true;
    if (_currentLocation >= _lineBufferArray.size())
        return std::nullopt;
    _increaseLineNo();
    return _lineBufferArray[_currentLocation++];
}

bool DBCFileReader::_isAtEnd() const
{
    return _isEndOfFile && _currentLocation >= _lineBufferArray.size();
}

QList<QStringView> DBCFileReader::_parseLineWithTab(QStringView line) const
{
    return line.isEmpty() ? QList<QStringView>() : line.split(QChar(_itemDelimiter));
}

void DBCFileReader::logException(const std::exception& exception)
{
    DBCLog::debug(u"Exception happended.[%1]"_s.arg(QString::fromUtf8(exception.what())));
}
