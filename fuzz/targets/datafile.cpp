// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a data file of any bytes in chunks and as a whole, writes its records, and reads these
// again.
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCFileWriter.h"
#include "fuzz/FuzzTarget.h"
#include "text/DBCCharacterSets.h"

#include <QStringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Records = std::vector<DBCRecord>;

constexpr QStringView Separator = u"\r\n";
constexpr QStringView CleanedAway = u"\t\n\r\u0085\u2028\u3000 ";

FuzzFile& file()
{
    static FuzzFile theFile("data.txt");
    return theFile;
}

// Returns a reader at the beginning of the file. All inputs share one reader, because creating the
// tables of a reader takes longer than reading.
DBCFileReader& freshReader(DBCTextEncoding encoding = DBCTextEncoding::Utf16)
{
    static const auto reader = DBCFileReader::initWithFullFileName(file().path());
    reader->close();
    reader->setEncoding(encoding);
    return *reader;
}

void judge(const DBCRecord& record)
{
    constexpr std::size_t keyCount = 23;
    mustHold(record.count() == keyCount, "a record has 23 keys");
    for (std::size_t i = 0; i < keyCount; ++i)
        mustHold(record.text(static_cast<DBCRecordKey>(i)).has_value(), "every value is a text");
}

bool endsReading(const DBCError& error)
{
    return error && error.code() != DBCResultCode::DataLineFormatError;
}

// Requests one record after the other, until an error other than a malformed line ends the reading.
// lines limits the number of requests, and must be greater than the number of lines in the input.
Records readInChunks(DBCFileReader& chunks, quint32 chunkSize, qsizetype lines)
{
    chunks.setBufferSize(chunkSize);
    Records records;
    for (DBCError error; lines > 0 && !endsReading(error); --lines) {
        if (auto record = chunks.getNextRecordCopy(&error)) {
            mustHold(!error, "a record comes without an error");
            judge(*record);
            records.push_back(std::move(*record));
        }
    }
    return records;
}

void judgeNumbers(const Records& records)
{
    qint64 lineNo = 1;
    for (std::size_t i = 0; i < records.size(); ++i) {
        judge(records[i]);
        mustHold(records[i].textOrEmpty(DBCRecordKey::recordNo) == QString::number(i + 2),
            "records are counted from 2");
        const qint64 next = records[i].textOrEmpty(DBCRecordKey::lineNo).toLongLong();
        mustHold(next > lineNo, "line numbers grow");
        lineNo = next;
    }
}

QString written(const Records& records)
{
    static const auto writer = DBCFileWriter::initWithFileName(
        u"unused"_s, DBCTextEncoding::Utf16, Separator.toString());
    static const QString titleLine
        = DBCCommonFunction::createTitleNamesForDataFile().join(u'\t').append(Separator);
    QString text = titleLine;
    for (const DBCRecord& record : records)
        text += writer->createDataStrWith(record).value();
    return text;
}

bool isPlain(const QString& value)
{
    return std::none_of(
        value.begin(), value.end(), [](QChar unit) { return CleanedAway.contains(unit); });
}

bool isBlank(const DBCRecord& record)
{
    return std::all_of(DBCColumns.begin(), DBCColumns.end(), [&record](const DBCColumn& column) {
        return isBlank(record.textOrEmpty(column.key).remove(u'\t'));
    });
}

void judgeRoundTrip(Records records)
{
    std::erase_if(records, isBlank); // the writer writes these as blank lines
    const QString text = written(records);
    file().write(encodeText(text, DBCTextEncoding::Utf16));
    DBCError error;
    const auto again = freshReader().loadData(&error);
    mustHold(again.has_value() && again->size() == records.size(),
        "as many records come back as were written");
    for (std::size_t i = 0; i < records.size(); ++i) {
        for (const DBCColumn& column : DBCColumns) {
            const QString value = records[i].textOrEmpty(column.key);
            mustHold(!isPlain(value) || again->at(i).textOrEmpty(column.key) == value,
                "a plain value comes back as it was");
        }
    }
    mustHold(written(*again) == text, "records that were read back are written the same");
}

// Returns a chunk size in bytes. A chunk of that size has room for the longest line with its
// separator, and for the byte-order mark.
quint32 chunkSizeFor(const QString& text)
{
    constexpr qsizetype roomForMark = 4;
    qsizetype longest = 0;
    for (const QStringView line : QStringView(text).split(Separator))
        longest = qMax(longest, line.size());
    return static_cast<quint32>((longest + Separator.size()) * 2 + roomForMark);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    constexpr quint32 smallestChunk = 1;
    constexpr quint32 smallChunks = 16;
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    file().write(bytes);
    const qsizetype lines = bytes.count('\n') + 2;
    readInChunks(freshReader(), smallestChunk + static_cast<quint32>(size) % smallChunks, lines);
    if (!bytes.startsWith("\xFF\xFE"))
        readInChunks(freshReader(DBCTextEncoding::Utf8), static_cast<quint32>(size), lines);

    DBCError error;
    const auto records = freshReader().loadData(&error);
    if (!records || records->empty()) {
        mustHold(bool(error), "no records without an error");
        return 0;
    }
    judgeNumbers(*records);
    if (const auto text = decodeText(bytes, DBCTextEncoding::Utf16); text && !error) {
        const Records chunked = readInChunks(freshReader(), chunkSizeFor(*text), lines);
        mustHold(chunked == *records, "chunks give the records of the whole file");
    }
    judgeRoundTrip(*records);
    return 0;
}
