// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCFileWriter.h"

#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/records/DBCColumns.h"
#include "text/DBCCharacterSets.h"

#include <QLocale>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// The encoder puts a byte-order mark in front of every text. Only the one that open() writes at the
// start of the file is kept; writeLine() leaves the others out.
constexpr qsizetype byteOrderMarkSize = 2;

// New files are private to the user, because they contain the data of business cards.
constexpr mode_t newFileMode = S_IRWXU;

// Opens the file, creates it when it is missing and never shortens it. Returns std::nullopt when
// the file cannot be opened or is not a regular file: writing to a pipe would block until another
// program reads from the pipe.
std::optional<int> openForAppending(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int descriptor = ::open(
        name.constData(), O_CREAT | O_APPEND | O_RDWR | O_CLOEXEC | O_NONBLOCK, newFileMode);
    if (descriptor < 0)
        return std::nullopt;
    struct stat status { };
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        return std::nullopt;
    }
    return descriptor;
}

QString textOf(const DBCRecord& record, DBCRecordKey key)
{
    const DBCValue* value = record.value(key);
    if (const auto* text = std::get_if<QString>(value))
        return *text;
    const auto* date = std::get_if<QDateTime>(value);
    if (date && key == DBCRecordKey::register_Date)
        return QLocale::c().toString(date->toLocalTime().date(), u"yyyy/MM/dd");
    return {};
}

} // namespace

std::unique_ptr<DBCFileWriter> DBCFileWriter::initWithFileName(
    const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator)
{
    if (fileName.isEmpty())
        return nullptr;
    std::unique_ptr<DBCFileWriter> writer(new DBCFileWriter(fileName, encoding, lineSeparator));
    if (!writer->initMappingTitleDic())
        return nullptr;
    return writer;
}

DBCFileWriter::DBCFileWriter(
    const QString& fileName, DBCTextEncoding encoding, const QString& lineSeparator)
    : _fullFileName(fileName)
    , _encoding(encoding)
    , _lineSeparator(lineSeparator)
{
}

DBCFileWriter::~DBCFileWriter()
{
    close();
}

bool DBCFileWriter::initMappingTitleDic()
{
    const std::vector<DBCRecordKey> keys = DBCCommonFunction::createRecordKeyNamesForDataFile();
    const QStringList titles = DBCCommonFunction::createTitleNamesForDataFile();
    if (keys.empty() || titles.size() != qsizetype(keys.size()))
        return false;
    for (qsizetype i = 0; i < titles.size(); ++i)
        _mappingTitleDic.insert(keys[std::size_t(i)], titles[i]);
    return true;
}

DBCResultCode DBCFileWriter::open()
{
    if (_fileHandle.isOpen()) {
        return QFile::exists(_fullFileName) ? DBCResultCode::Success
                                            : DBCResultCode::FolderNotExist;
    }
    if (_fullFileName.isEmpty())
        return DBCResultCode::FolderNotExist;
    close();
    if (!openHandle())
        return DBCResultCode::DataFileOpenFailure;
    // Encoding the empty text gives the byte-order mark in UTF-16 and no bytes in UTF-8.
    if (!append(encodeText({}, _encoding))) {
        close();
        return DBCResultCode::DataFileOpenFailure;
    }
    return DBCResultCode::Success;
}

bool DBCFileWriter::openHandle()
{
    const std::optional<int> descriptor = openForAppending(_fullFileName);
    if (!descriptor)
        return false;
    // The file is unbuffered, so that a full disk makes the write fail and not only the later
    // close.
    const QIODevice::OpenMode mode
        = QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered;
    if (_fileHandle.open(*descriptor, mode, QFileDevice::AutoCloseHandle))
        return true;
    ::close(*descriptor);
    return false;
}

bool DBCFileWriter::append(QByteArrayView bytes)
{
    return _fileHandle.write(bytes.data(), bytes.size()) == bytes.size();
}

DBCResultCode DBCFileWriter::close()
{
    _fileHandle.close();
    return _fileHandle.error() == QFileDevice::NoError ? DBCResultCode::Success
                                                       : DBCResultCode::DataFileWriteFailure;
}

DBCResultCode DBCFileWriter::write(const std::optional<QString>& text)
{
    return text ? writeLine(text) : DBCResultCode::GeneralFailure;
}

DBCResultCode DBCFileWriter::write(const DBCRecord& record)
{
    return writeLine(createDataStrWith(record));
}

DBCResultCode DBCFileWriter::writeLine(const std::optional<QString>& line)
{
    if (const DBCResultCode status = open(); status != DBCResultCode::Success)
        return status;
    if (!line)
        return DBCResultCode::DataFileWriteFailure;
    const QByteArray encoded = encodeText(*line, _encoding);
    QByteArrayView data = encoded;
    if (_encoding == DBCTextEncoding::Utf16 && data.size() > byteOrderMarkSize)
        data = data.sliced(byteOrderMarkSize);
    return append(data) ? DBCResultCode::Success : DBCResultCode::DataFileWriteFailure;
}

bool DBCFileWriter::validateItemRequired(const DBCRecord& record) const
{
    return std::all_of(_mappingTitleDic.keyBegin(), _mappingTitleDic.keyEnd(),
        [&record](DBCRecordKey key) { return record.contains(key); });
}

std::optional<QString> DBCFileWriter::createDataStrWith(const DBCRecord& record) const
{
    if (!validateItemRequired(record))
        return std::nullopt;
    QString line;
    for (const DBCColumn& column : DBCColumns) {
        if (&column != &DBCColumns.front())
            line.append(u'\t');
        line.append(cleaned(textOf(record, column.key)));
    }
    return line.append(u"\r\n");
}

// Deletes the tabs first, because the replacement after it would turn them into spaces.
QString DBCFileWriter::cleaned(const QString& value)
{
    static const QStringList deleted {u"\t"_s};
    static const QStringList replaced {u"\t"_s, u"\r\n"_s, u"\n"_s, u"\n"_s, u"\u2028"_s};
    QString trimmed = trimmedBy(value, blankAndNewLineCharacters()).toString();
    if (trimmed.isEmpty())
        return trimmed;
    return replaceSpecialChars(replaced, u" "_s, deleteSpecialCharater(deleted, trimmed));
}

QString DBCFileWriter::deleteSpecialCharater(
    const QStringList& list, const std::optional<QString>& FromString)
{
    return replaceSpecialChars(list, u""_s, FromString);
}

QString DBCFileWriter::replaceSpecialChars(const QStringList& list,
    const std::optional<QString>& withString, const std::optional<QString>& sourceStr)
{
    if (list.isEmpty() || !withString || !sourceStr)
        return u""_s;
    QString result = *sourceStr;
    for (const QString& text : list)
        result.replace(text, *withString, Qt::CaseInsensitive);
    return result;
}
