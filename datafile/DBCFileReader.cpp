// SPDX-License-Identifier: GPL-3.0-or-later
// The part of DBCFileReader that turns the lines of the file into records.
#include "datafile/DBCFileReader.h"

#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCItemLengths.h"
#include "operation/log/DBCLog.h"
#include "text/DBCCharacterSets.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The title line counts as record 1.
constexpr quint64 firstRecordNo = 2;

QString description(const char* problem, const QString& detail)
{
    return QString::fromLatin1(problem) + u'\n' + detail + u'\n';
}

} // namespace

std::unique_ptr<DBCFileReader> DBCFileReader::initWithFullFileName(
    const QString& fullFileName, DBCTextEncoding encoding, const QString& lineSeparator)
{
    std::unique_ptr<DBCFileReader> reader(new DBCFileReader);
    reader->setFullFileName(fullFileName);
    reader->setEncoding(encoding);
    reader->setLineSeparator(lineSeparator);
    if (!reader->_initMappingDic())
        return nullptr;
    return reader;
}

DBCFileReader::~DBCFileReader()
{
    close();
}

bool DBCFileReader::_initMappingDic()
{
    const QStringList titles = DBCCommonFunction::createTitleNamesForDataFile();
    const std::vector<DBCRecordKey> keys = DBCCommonFunction::createRecordKeyNamesForDataFile();
    if (titles.size() != qsizetype(keys.size()) || titles.size() != qsizetype(DBCColumns.size()))
        return false;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const QString& title = titles[qsizetype(i)];
        _mappingTitleDic.insert(title, keys[i]);
        _mappingItemMaxLengthDic.insert(title, DBCColumns[i].maxLength.value_or(0));
    }
    return true;
}

std::optional<std::vector<DBCRecord>> DBCFileReader::loadData(DBCError* error)
{
    if (!error)
        return std::nullopt;
    *error = DBCError::ifFailure(_parseAll());
    if (*error)
        return std::nullopt;

    std::vector<DBCRecord> records;
    handOutRecords(
        OverlongItems::Logged,
        [&records](DBCRecord record) {
            records.push_back(std::move(record));
            return DBCLoopControl::Continue;
        },
        [error](const DBCError& lineError) {
            *error = lineError;
            return DBCLoopControl::Stop;
        });
    if (_isAtEnd())
        _cleanBuffer(); // frees memory of the file's size; the records hold copies of their texts
    if (records.empty()) {
        if (*error)
            DBCLog::error(_lineErrorText,
                {.number = error->lineNo(), .consequence = DBCConsequence::Stopped});
        *error = DBCError(DBCResultCode::DataFileEmpty);
    }
    return records;
}

void DBCFileReader::readRecords(const RecordHandler& onRecord, const ErrorHandler& onError)
{
    if (const DBCError error = DBCError::ifFailure(_parseAll()))
        onError(error);
    else
        handOutRecords(OverlongItems::Ignored, onRecord, onError);
}

void DBCFileReader::handOutRecords(
    OverlongItems overlong, const RecordHandler& onRecord, const ErrorHandler& onError)
{
    auto next = DBCLoopControl::Continue;
    while (next == DBCLoopControl::Continue && !_isAtEnd()) {
        DBCError error;
        if (auto record = nextRecord(overlong, &error)) {
            next = onRecord(std::move(*record));
        } else if (error) {
            next = onError(error);
            if (error.code() != DBCResultCode::DataLineFormatError)
                return;
        }
    }
}

std::optional<DBCRecord> DBCFileReader::getNextRecordCopy(DBCError* error)
{
    return nextRecord(OverlongItems::Logged, error);
}

std::optional<DBCRecord> DBCFileReader::nextRecord(OverlongItems overlong, DBCError* error)
{
    std::optional<DBCRecord> record;
    DBCError failure;
    try {
        failure = readNextRecord(overlong, &record);
    } catch (const std::exception& exception) {
        logException(exception);
        failure = DBCError(DBCResultCode::InternalException)
                      .withDescription(u"Internal exception happened!"_s);
    }
    if (failure)
        record.reset();
    if (error)
        *error = failure;
    return record;
}

DBCError DBCFileReader::readNextRecord(OverlongItems overlong, std::optional<DBCRecord>* record)
{
    if (const DBCResultCode status = open(); isFailure(status)) {
        return DBCError(status).withDescription(
            description("Failure to open the file!", _fullFileName));
    }
    const QString titleLine = _fieldTitlesArray ? QString() : readTitleLine();
    if (_columnPositions.empty())
        return titleLineError(titleLine);

    const std::optional<QStringView> line = _getNextLine();
    if (!line || isBlank(*line))
        return {};
    const QList<QStringView> items = _parseLineWithTab(*line);
    *record = _newRecord(items);
    if (!*record)
        return dataLineError(*line, items.size());
    if (overlong == OverlongItems::Logged)
        _validateAllItemLength(**record);
    _increaseRecordNo();
    return {};
}

// Returns the title line, or an empty text when the file has no line.
QString DBCFileReader::readTitleLine()
{
    QString line = _getNextLine().value_or(QStringView()).toString();
    const QList<QStringView> items = _parseLineWithTab(line);
    if (items.isEmpty())
        return line;
    _fieldTitlesArray.emplace();
    for (const QStringView item : items)
        _fieldTitlesArray->append(item.toString());
    if (_validateItemRequired())
        findColumns();
    return line;
}

bool DBCFileReader::_validateItemRequired() const
{
    return _fieldTitlesArray && _fieldTitlesArray->size() == _mappingTitleDic.size()
        && std::all_of(_mappingTitleDic.keyBegin(), _mappingTitleDic.keyEnd(),
            [this](const QString& title) { return _fieldTitlesArray->contains(title); });
}

// Finds the positions of all columns once per title line, so that no search is needed for each
// record.
void DBCFileReader::findColumns()
{
    _columnPositions.resize(DBCColumns.size());
    for (qsizetype i = 0; i < _fieldTitlesArray->size(); ++i) {
        const DBCRecordKey key = _mappingTitleDic.value(_fieldTitlesArray->at(i));
        _columnPositions[std::size_t(columnIndex(key))] = i;
    }
}

std::optional<DBCRecord> DBCFileReader::_newRecord(const QList<QStringView>& items) const
{
    if (items.size() != qsizetype(_columnPositions.size()))
        return std::nullopt;
    DBCRecord record;
    record.reserve(DBCColumns.size() + 2);
    for (std::size_t i = 0; i < DBCColumns.size(); ++i)
        record.setValue(DBCColumns[i].key, items[_columnPositions[i]].toString());
    record.setValue(DBCRecordKey::recordNo, QString::number(_currentRecordNo + firstRecordNo));
    record.setValue(DBCRecordKey::lineNo, QString::number(_currentLineNo));
    return record;
}

void DBCFileReader::_validateAllItemLength(const DBCRecord& record)
{
    for (const DBCMeasuredItem& item : measuredItems(record))
        _validateItemLength(item, record);
}

bool DBCFileReader::_validateItemLength(const DBCMeasuredItem& item, const DBCRecord& record)
{
    if (!item.isTooLong())
        return true;
    const QString key = u"IDS_LOG_WRN_ITEM_MAX_LEN"_s;
    const QString lineNo = record.textOrEmpty(DBCRecordKey::lineNo);
    const QString fullName = record.textOrEmpty(DBCRecordKey::full_Name);
    DBCLog::warning(getLocalString(key, {item.label(), lineNo, fullName}),
        {.key = key,
            .number = lineNo.toLongLong(),
            .cardName = fullName,
            .consequence = DBCConsequence::ItemShortened});
    return false;
}

DBCError DBCFileReader::titleLineError(const QString& titleLine)
{
    const QStringList found = _fieldTitlesArray.value_or(QStringList());
    QStringList missing;
    for (const QString& title : DBCCommonFunction::createTitleNamesForDataFile()) {
        if (!found.contains(title))
            missing << title;
    }
    DBCMessageArguments arguments = lineErrorArguments(found.size());
    if (missing.isEmpty()) {
        _lineErrorText = getLocalString(u"IDS_LOG_ERR_TITLE_LINE"_s, arguments);
    } else {
        arguments.emplace_back(missing.join(u", "_s));
        _lineErrorText = getLocalString(u"IDS_LOG_ERR_TITLE_LINE_MISSING"_s, arguments);
    }
    return DBCError(DBCResultCode::TitleLineFormatError)
        .withLineNo(qint64(_currentLineNo))
        .withDescription(description("The format of the title line is incorrect!", titleLine));
}

DBCError DBCFileReader::dataLineError(QStringView line, qsizetype itemCount)
{
    _lineErrorText = getLocalString(u"IDS_LOG_ERR_DATA_LINE"_s, lineErrorArguments(itemCount));
    return DBCError(DBCResultCode::DataLineFormatError)
        .withLineNo(qint64(_currentLineNo))
        .withDescription(description("The format of the data line is incorrect!", line.toString()));
}

// The arguments are: line number, file, expected number of items, found number of items.
DBCMessageArguments DBCFileReader::lineErrorArguments(qsizetype found) const
{
    return {qint64(_currentLineNo), _fullFileName, qint64(DBCColumns.size()), qint64(found)};
}
