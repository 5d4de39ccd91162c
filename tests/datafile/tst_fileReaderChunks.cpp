// SPDX-License-Identifier: GPL-3.0-or-later
// Record by record: getNextRecordCopy() on a file that is read in chunks, open, close and reset.
#include "tests/datafile/ReaderFixture.h"

#include <QtTest>

using Key = DBCRecordKey;
using Code = DBCResultCode;
using Encoding = DataFileBuilder::Encoding;

class tst_fileReaderChunks : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void everyChunkSizeGivesTheSameRecords_data();
    void everyChunkSizeGivesTheSameRecords();
    void lastLineWithoutSeparatorIsReadInChunks();
    void lineLongerThanTheChunksIsCutAsItComes();
    void endOfTheFileGivesNeitherRecordNorError();
    void blankLineGivesNeitherRecordNorError();
    void fileCutInsideACharacterEndsTheReading();
    void invalidTextInALaterChunkEndsTheReading();
    void wrongDataLineIsPassedByTheNextCall();
    void wrongTitleLineIsReportedAgain();
    void missingFileIsDescribed();
    void missingErrorSlotIsHarmless();
    void errorSlotIsClearedByARecord();

    void openTwiceIsHarmless();
    void resetWithoutOpenFileIsAGeneralFailure();
    void resetStartsOverAndGoesOnCountingLines();
    void closeStartsOverWithEverything();
    void accessorsChangeWhatIsRead();

private:
    std::unique_ptr<DBCFileReader> readerInChunks(
        const DataFileBuilder& file, quint32 bufferSize) const
    {
        auto reader = readerFor(file);
        reader->setBufferSize(bufferSize);
        return reader;
    }
};

static QString memoOf(const std::optional<DBCRecord>& record)
{
    return record ? record->textOrEmpty(Key::memo) : QStringLiteral("no record");
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

// Chunks that hold the title line and end inside units, surrogate pairs and line ends, and one that
// takes the whole file.
void tst_fileReaderChunks::everyChunkSizeGivesTheSameRecords_data()
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

void tst_fileReaderChunks::everyChunkSizeGivesTheSameRecords()
{
    QFETCH(Encoding, encoding);
    QFETCH(quint32, bufferSize);
    QStringList memos;
    for (int i = 0; i < 30; ++i)
        memos << QStringLiteral("\U00020BB7\U00020BB7 %1").arg(i);
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

void tst_fileReaderChunks::lastLineWithoutSeparatorIsReadInChunks()
{
    DataFileBuilder file = fileWithMemos({QStringLiteral("1"), QStringLiteral("2")});
    file.text(QString(19, u'\t') + QStringLiteral("last\t"));
    const auto reader = readerInChunks(file, quint32(fileWithMemos({}).build().size()));
    reader->getNextRecordCopy(&_error);
    reader->getNextRecordCopy(&_error);
    QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), QStringLiteral("last"));
}

void tst_fileReaderChunks::lineLongerThanTheChunksIsCutAsItComes()
{
    const auto reader = readerInChunks(fileWithMemos({QString(20000, u'x')}), 10000);
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QCOMPARE(_error.code(), Code::DataLineFormatError);
}

void tst_fileReaderChunks::endOfTheFileGivesNeitherRecordNorError()
{
    const auto reader = readerFor(fileWithMemos({QStringLiteral("1")}));
    QVERIFY(reader->getNextRecordCopy(&_error));
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QVERIFY(!_error);
    }
    QCOMPARE(reader->lastRecordNo(), quint64(1));
}

void tst_fileReaderChunks::blankLineGivesNeitherRecordNorError()
{
    const auto reader = readerFor(DataFileBuilder().titleLine().blankLine().row(21));
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QVERIFY(!_error);
    const auto record = reader->getNextRecordCopy(&_error);
    QCOMPARE(record->text(Key::recordNo), QStringLiteral("2"));
    QCOMPARE(record->text(Key::lineNo), QStringLiteral("3"));
}

void tst_fileReaderChunks::fileCutInsideACharacterEndsTheReading()
{
    DataFileBuilder file = fileWithMemos({});
    const auto size = quint32(file.build().size());
    const auto reader = readerInChunks(file.bytes("x"), size);
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QVERIFY(!_error); // no further line could be read
    QVERIFY(!reader->getNextRecordCopy(&_error));
}

void tst_fileReaderChunks::invalidTextInALaterChunkEndsTheReading()
{
    DataFileBuilder file = fileWithMemos({QStringLiteral("1")});
    const auto size = quint32(file.build().size());
    file.bytes(QByteArray::fromHex("B7DF")).row(21).row(21);
    const auto reader = readerInChunks(file, size);
    QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), QStringLiteral("1"));
    for (int i = 0; i < 3; ++i)
        QVERIFY(!reader->getNextRecordCopy(&_error));
}

void tst_fileReaderChunks::wrongDataLineIsPassedByTheNextCall()
{
    const auto reader = readerFor(DataFileBuilder().titleLine().row(20).row(21));
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QCOMPARE(_error.code(), Code::DataLineFormatError);
    QCOMPARE(_error.lineNo(), qint64(2));
    const auto record = reader->getNextRecordCopy(&_error);
    QVERIFY(!_error);
    QCOMPARE(record->text(Key::recordNo), QStringLiteral("2"));
    QCOMPARE(record->text(Key::lineNo), QStringLiteral("3"));
}

void tst_fileReaderChunks::wrongTitleLineIsReportedAgain()
{
    const auto reader = readerFor(DataFileBuilder().titleLine({QStringLiteral("wrong")}).row(21));
    reader->getNextRecordCopy(&_error);
    QCOMPARE(_error.localizedDescription(),
        QStringLiteral("The format of the title line is incorrect!\nwrong\n"));
    reader->getNextRecordCopy(&_error);
    QCOMPARE(_error.code(), Code::TitleLineFormatError);
    QCOMPARE(_error.lineNo(), qint64(1));
    QCOMPARE(_error.localizedDescription(),
        QStringLiteral("The format of the title line is incorrect!\n\n"));
}

void tst_fileReaderChunks::missingFileIsDescribed()
{
    const auto reader = DBCFileReader::initWithFullFileName(dataFile());
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QCOMPARE(_error.code(), Code::FolderNotExist);
    QVERIFY(!_error.lineNo());
    QCOMPARE(_error.localizedDescription(),
        QStringLiteral("Failure to open the file!\n") + dataFile() + u'\n');
}

void tst_fileReaderChunks::missingErrorSlotIsHarmless()
{
    const auto reader = readerFor(DataFileBuilder().titleLine().row(20).row(21));
    QVERIFY(!reader->getNextRecordCopy(nullptr));
    QVERIFY(reader->getNextRecordCopy(nullptr));
}

void tst_fileReaderChunks::errorSlotIsClearedByARecord()
{
    const auto reader = readerFor(fileWithMemos({QStringLiteral("1")}));
    _error = DBCError(Code::NoSpace);
    QVERIFY(reader->getNextRecordCopy(&_error));
    QVERIFY(!_error);
}

void tst_fileReaderChunks::openTwiceIsHarmless()
{
    const auto reader = readerFor(fileWithMemos({QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(reader->open(), Code::Success);
    reader->getNextRecordCopy(&_error);
    QCOMPARE(reader->open(), Code::Success);
    QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), QStringLiteral("2"));
}

void tst_fileReaderChunks::resetWithoutOpenFileIsAGeneralFailure()
{
    QCOMPARE(readerFor(fileWithMemos({}))->reset(), Code::GeneralFailure);
}

void tst_fileReaderChunks::resetStartsOverAndGoesOnCountingLines()
{
    const auto reader = readerFor(fileWithMemos({QStringLiteral("1"), QStringLiteral("2")}));
    reader->getNextRecordCopy(&_error);
    reader->getNextRecordCopy(&_error);
    QCOMPARE(reader->reset(), Code::Success);
    QCOMPARE(reader->lastRecordNo(), quint64(0));
    QCOMPARE(reader->lineNo(), quint64(3));
    const auto record = reader->getNextRecordCopy(&_error);
    QCOMPARE(memoOf(record), QStringLiteral("1"));
    QCOMPARE(record->text(Key::recordNo), QStringLiteral("2"));
    QCOMPARE(record->text(Key::lineNo), QStringLiteral("5"));
}

void tst_fileReaderChunks::closeStartsOverWithEverything()
{
    const auto reader = readerFor(fileWithMemos({QStringLiteral("1"), QStringLiteral("2")}));
    reader->getNextRecordCopy(&_error);
    QCOMPARE(reader->close(), Code::Success);
    QCOMPARE(reader->lineNo(), quint64(0));
    const auto record = reader->getNextRecordCopy(&_error);
    QCOMPARE(memoOf(record), QStringLiteral("1"));
    QCOMPARE(record->text(Key::lineNo), QStringLiteral("2"));
}

void tst_fileReaderChunks::accessorsChangeWhatIsRead()
{
    const auto reader = DBCFileReader::initWithFullFileName(QStringLiteral("elsewhere"));
    const QString titles = DataFileBuilder::titles().join(u'\t');
    reader->setFullFileName(
        DataFileBuilder(Encoding::Utf8)
            .text(titles + u'|' + QString(19, u'\t') + QStringLiteral("memo\t|"))
            .writeTo(dataFile()));
    reader->setEncoding(DBCTextEncoding::Utf8);
    reader->setLineSeparator(QStringLiteral("|"));
    QCOMPARE(memoOf(reader->getNextRecordCopy(&_error)), QStringLiteral("memo"));
}

QTEST_GUILESS_MAIN(tst_fileReaderChunks)
#include "tst_fileReaderChunks.moc"
