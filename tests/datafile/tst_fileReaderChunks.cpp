// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file reader: getNextRecordCopy(), which reads the file in chunks, and open(),
// close() and reset().
#include "tests/datafile/ReaderFixture.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using Code = DBCResultCode;
using Encoding = DataFileBuilder::Encoding;

static QString memoOf(const std::optional<DBCRecord>& record)
{
    return record ? record->textOrEmpty(Key::memo) : u"no record"_s;
}

static DataFileBuilder fileWithMemos(
    const QStringList& memos, Encoding encoding = Encoding::Utf16LittleEndian)
{
    DataFileBuilder file(encoding);
    file.titleLine();
    for (const QString& memo : memos)
        file.row({{Key::memo, memo}});
    return file;
}

class tst_fileReaderChunks : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    // Some of these chunk sizes make chunks end inside UTF-16 units, surrogate pairs and line ends;
    // one chunk size holds the whole file. Each chunk holds at least the title line.
    void everyChunkSizeGivesTheSameRecords_data()
    {
        QTest::addColumn<Encoding>("encoding");
        QTest::addColumn<quint32>("bufferSize");
        const auto titleSize = quint32(fileWithMemos({}).build().size());
        for (quint32 size = titleSize; size < titleSize + 40; ++size) {
            QTest::addRow("little-endian, %u bytes", size) << Encoding::Utf16LittleEndian << size;
            QTest::addRow("big-endian, %u bytes", size) << Encoding::Utf16BigEndian << size;
        }
        QTest::newRow("whole file") << Encoding::Utf16LittleEndian << quint32(0x100000);
    }
    void everyChunkSizeGivesTheSameRecords()
    {
        QFETCH(Encoding, encoding);
        QFETCH(quint32, bufferSize);
        QStringList memos;
        for (int i = 0; i < 30; ++i)
            memos << u"\U00020BB7\U00020BB7 %1"_s.arg(i);
        const auto reader = readerInChunks(fileWithMemos(memos, encoding), bufferSize);
        for (int i = 0; i < 30; ++i) {
            const auto record = reader->getNextRecordCopy(&_error);
            QVERIFY2(!_error, qPrintable(_error.toString()));
            QCOMPARE(memoOf(record), memos[i]);
            QCOMPARE(record->text(Key::recordNo), QString::number(i + 2));
            QCOMPARE(record->text(Key::lineNo), QString::number(i + 2));
        }
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QVERIFY(!_error);
    }

    void lastLineWithoutSeparatorIsReadInChunks()
    {
        DataFileBuilder file = fileWithMemos({u"1"_s, u"2"_s});
        file.text(QString(19, u'\t') + u"last\t"_s);
        const auto reader = readerInChunks(file, quint32(fileWithMemos({}).build().size()));
        reader->getNextRecordCopy(&_error);
        reader->getNextRecordCopy(&_error);
        QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), u"last"_s);
    }

    void lineLongerThanTheChunksIsCutAsItComes()
    {
        const auto reader = readerInChunks(fileWithMemos({QString(20000, u'x')}), 10000);
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QCOMPARE(_error.code(), Code::DataLineFormatError);
    }

    void endOfTheFileGivesNeitherRecordNorError()
    {
        const auto reader = readerFor(fileWithMemos({u"1"_s}));
        QVERIFY(reader->getNextRecordCopy(&_error));
        for (int i = 0; i < 3; ++i) {
            QVERIFY(!reader->getNextRecordCopy(&_error));
            QVERIFY(!_error);
        }
        QCOMPARE(reader->lastRecordNo(), quint64(1));
    }

    void blankLineGivesNeitherRecordNorError()
    {
        const auto reader = readerFor(DataFileBuilder().titleLine().blankLine().row(21));
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QVERIFY(!_error);
        const auto record = reader->getNextRecordCopy(&_error);
        QCOMPARE(record->text(Key::recordNo), u"2"_s);
        QCOMPARE(record->text(Key::lineNo), u"3"_s);
    }

    void fileCutInsideACharacterEndsTheReading()
    {
        DataFileBuilder file = fileWithMemos({});
        const auto size = quint32(file.build().size());
        const auto reader = readerInChunks(file.bytes("x"), size);
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QVERIFY(!_error); // getNextRecordCopy() found no further line
        QVERIFY(!reader->getNextRecordCopy(&_error));
    }

    void invalidTextInALaterChunkEndsTheReading()
    {
        DataFileBuilder file = fileWithMemos({u"1"_s});
        const auto size = quint32(file.build().size());
        file.bytes(QByteArray::fromHex("B7DF")).row(21).row(21);
        const auto reader = readerInChunks(file, size);
        QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), u"1"_s);
        for (int i = 0; i < 3; ++i)
            QVERIFY(!reader->getNextRecordCopy(&_error));
    }

    void wrongDataLineIsPassedByTheNextCall()
    {
        const auto reader = readerFor(DataFileBuilder().titleLine().row(20).row(21));
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QCOMPARE(_error.code(), Code::DataLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(2));
        const auto record = reader->getNextRecordCopy(&_error);
        QVERIFY(!_error);
        QCOMPARE(record->text(Key::recordNo), u"2"_s);
        QCOMPARE(record->text(Key::lineNo), u"3"_s);
    }

    void wrongTitleLineIsReportedAgain()
    {
        const auto reader = readerFor(DataFileBuilder().titleLine({u"wrong"_s}).row(21));
        reader->getNextRecordCopy(&_error);
        QCOMPARE(_error.localizedDescription(),
            u"The format of the title line is incorrect!\nwrong\n"_s);
        reader->getNextRecordCopy(&_error);
        QCOMPARE(_error.code(), Code::TitleLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(1));
        QCOMPARE(
            _error.localizedDescription(), u"The format of the title line is incorrect!\n\n"_s);
    }

    void missingFileIsDescribed()
    {
        const auto reader = DBCFileReader::initWithFullFileName(dataFile());
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QCOMPARE(_error.code(), Code::FolderNotExist);
        QVERIFY(!_error.lineNo());
        QCOMPARE(
            _error.localizedDescription(), u"Failure to open the file!\n"_s + dataFile() + u'\n');
    }

    void missingErrorSlotIsHarmless()
    {
        const auto reader = readerFor(DataFileBuilder().titleLine().row(20).row(21));
        QVERIFY(!reader->getNextRecordCopy(nullptr));
        QVERIFY(reader->getNextRecordCopy(nullptr));
    }

    void errorSlotIsClearedByARecord()
    {
        const auto reader = readerFor(fileWithMemos({u"1"_s}));
        _error = DBCError(Code::NoSpace);
        QVERIFY(reader->getNextRecordCopy(&_error));
        QVERIFY(!_error);
    }

    void openTwiceIsHarmless()
    {
        const auto reader = readerFor(fileWithMemos({u"1"_s, u"2"_s}));
        QCOMPARE(reader->open(), Code::Success);
        reader->getNextRecordCopy(&_error);
        QCOMPARE(reader->open(), Code::Success);
        QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), u"2"_s);
    }

    void resetWithoutOpenFileIsAGeneralFailure()
    {
        QCOMPARE(readerFor(fileWithMemos({}))->reset(), Code::GeneralFailure);
    }

    void resetStartsOverAndGoesOnCountingLines()
    {
        const auto reader = readerFor(fileWithMemos({u"1"_s, u"2"_s}));
        reader->getNextRecordCopy(&_error);
        reader->getNextRecordCopy(&_error);
        QCOMPARE(reader->reset(), Code::Success);
        QCOMPARE(reader->lastRecordNo(), quint64(0));
        QCOMPARE(reader->lineNo(), quint64(3));
        const auto record = reader->getNextRecordCopy(&_error);
        QCOMPARE(memoOf(record), u"1"_s);
        QCOMPARE(record->text(Key::recordNo), u"2"_s);
        QCOMPARE(record->text(Key::lineNo), u"5"_s);
    }

    void closeStartsOverWithEverything()
    {
        const auto reader = readerFor(fileWithMemos({u"1"_s, u"2"_s}));
        reader->getNextRecordCopy(&_error);
        QCOMPARE(reader->close(), Code::Success);
        QCOMPARE(reader->lineNo(), quint64(0));
        const auto record = reader->getNextRecordCopy(&_error);
        QCOMPARE(memoOf(record), u"1"_s);
        QCOMPARE(record->text(Key::lineNo), u"2"_s);
    }

    void accessorsChangeWhatIsRead()
    {
        const auto reader = DBCFileReader::initWithFullFileName(u"elsewhere"_s);
        const QString titles = DataFileBuilder::titles().join(u'\t');
        reader->setFullFileName(DataFileBuilder(Encoding::Utf8)
                                    .text(titles + u'|' + QString(19, u'\t') + u"memo\t|"_s)
                                    .writeTo(dataFile()));
        reader->setEncoding(DBCTextEncoding::Utf8);
        reader->setLineSeparator(u"|"_s);
        QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), u"memo"_s);
    }

private:
    std::unique_ptr<DBCFileReader> readerInChunks(
        const DataFileBuilder& file, quint32 bufferSize) const
    {
        auto reader = readerFor(file);
        reader->setBufferSize(bufferSize);
        return reader;
    }
};

QTEST_GUILESS_MAIN(tst_fileReaderChunks)
#include "tst_fileReaderChunks.moc"
