// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file reader: encodings, files that it refuses, and readRecords().
#include "tests/datafile/ReaderFixture.h"
#include "tests/support/AsOrdinaryUser.h"

#include <QtTest>

#include <sys/stat.h>

#include <algorithm>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using Code = DBCResultCode;
using Encoding = DataFileBuilder::Encoding;
using Mark = DataFileBuilder::Mark;

namespace {

DBCLoopControl noRecord(const DBCRecord& /*record*/)
{
    QTest::qFail("no record expected", __FILE__, __LINE__);
    return DBCLoopControl::Stop;
}

} // namespace

class tst_fileReaderFiles : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void bigEndianFileIsRead()
    {
        const auto records = load(DataFileBuilder(Encoding::Utf16BigEndian)
                                      .titleLine()
                                      .row({{Key::full_Name, u"星野 太郎"_s}}));
        QVERIFY(!_error);
        QCOMPARE(text(records->front(), Key::full_Name), u"星野 太郎"_s);
    }

    void fileWithoutMarkIsRead_data()
    {
        QTest::addColumn<Encoding>("encoding");
        QTest::newRow("little-endian") << Encoding::Utf16LittleEndian;
        QTest::newRow("big-endian") << Encoding::Utf16BigEndian;
    }
    void fileWithoutMarkIsRead()
    {
        QFETCH(Encoding, encoding);
        // The reader finds the byte order from the beginning of the first title. The first title
        // must therefore be one that is plausible in only one byte order.
        QStringList titles = DataFileBuilder::titles();
        const auto kana = std::find_if(titles.begin(), titles.end(), [](const QString& title) {
            return title.front() >= QChar(0x3041) && title.front() <= QChar(0x30FE);
        });
        QVERIFY(kana != titles.end());
        std::iter_swap(titles.begin(), kana);
        const auto records
            = load(DataFileBuilder(encoding, Mark::Missing).titleLine(titles).row(21));
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(1));
    }

    void fileThatIsNoTextIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray whole = fileWithTitle().row(21).row(21).build();
        QTest::newRow("odd last byte") << whole + 'x';
        QTest::newRow("cut inside a character") << whole.chopped(1);
        QTest::newRow("lone high surrogate") << whole + QByteArray::fromHex("42D8 0D00 0A00");
        QTest::newRow("lone low surrogate in the middle")
            << whole + QByteArray::fromHex("B7DF") + whole.sliced(2);
        QTest::newRow("mark alone") << QByteArray::fromHex("FFFE");
        QTest::newRow("one byte") << QByteArray("x");
    }
    void fileThatIsNoTextIsRefused()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!load(DataFileBuilder(Encoding::Utf8, Mark::Missing).bytes(bytes)));
        QCOMPARE(_error.code(), Code::DataFileDecodeFailure);
        QVERIFY(!_error.lineNo());
    }

    // Read as UTF-16, the bytes of a UTF-8 file are either invalid or a text without the titles.
    void utf8FileIsRefused()
    {
        const DataFileBuilder file = DataFileBuilder(Encoding::Utf8).titleLine().row(21);
        const auto records = load(file);
        QVERIFY(!records || records->empty());
        QVERIFY(
            _error.code() == Code::DataFileDecodeFailure || _error.code() == Code::DataFileEmpty);
    }

    void utf8FileIsReadWhenAskedFor()
    {
        const QString path
            = DataFileBuilder(Encoding::Utf8).titleLine().row(21).writeTo(dataFile());
        const auto reader = DBCFileReader::initWithFullFileName(path, DBCTextEncoding::Utf8);
        QCOMPARE(reader->encoding(), DBCTextEncoding::Utf8);
        QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
    }

    void emptyFileIsReported()
    {
        _home->writeFile(u"data.txt"_s, {});
        const auto reader = DBCFileReader::initWithFullFileName(dataFile());
        QVERIFY(!reader->loadData(&_error));
        QCOMPARE(_error.code(), Code::DataFileEmpty);
    }

    void missingFileIsReportedAndLogged()
    {
        const auto reader = DBCFileReader::initWithFullFileName(dataFile());
        QCOMPARE(reader->fullFileName(), dataFile());
        QVERIFY(!reader->loadData(&_error));
        QCOMPARE(_error.code(), Code::FolderNotExist);
        QVERIFY(_error.localizedDescription().isEmpty());
        QCOMPARE(errors().size(), 1);
        QVERIFY(errors().first().contains(dataFile()));
    }

    void missingFileNameIsAGeneralFailure()
    {
        const auto reader = DBCFileReader::initWithFullFileName({});
        QVERIFY(!reader->loadData(&_error));
        QCOMPARE(_error.code(), Code::GeneralFailure);
    }

    void folderInPlaceOfTheFileCannotBeOpened()
    {
        _home->makeFolder(u"data.txt"_s);
        QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
        QCOMPARE(_error.code(), Code::DataFileOpenFailure);
    }

    void pipeInPlaceOfTheFileCannotBeOpened()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(dataFile()).constData(), 0700), 0);
        QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
        QCOMPARE(_error.code(), Code::DataFileOpenFailure);
    }

    void unreadableFileCannotBeOpened()
    {
        end();
        const AsOrdinaryUser user;
        begin();
        QFile::setPermissions(fileWithTitle().row(21).writeTo(dataFile()), {});
        QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
        QCOMPARE(_error.code(), Code::DataFileOpenFailure);
    }

    // /proc/self/mem is a regular file whose first page cannot be read.
    void failingReadIsAnInternalException()
    {
        const auto reader = DBCFileReader::initWithFullFileName(u"/proc/self/mem"_s);
        QVERIFY(!reader->loadData(&_error));
        QCOMPARE(_error.code(), Code::InternalException);
        QVERIFY(!reader->getNextRecordCopy(&_error));
        QVERIFY(_error);
    }

    void hugeFileIsRefusedWithItsSize()
    {
        fileWithTitle().row(21).writeTo(dataFile());
        QVERIFY(QFile::resize(dataFile(), qint64(3) << 30)); // sparse: takes no space
        QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
        QCOMPARE(_error.code(), Code::DataFileOpenFailure);
        QCOMPARE(errors().size(), 1);
        QVERIFY(errors().first().contains(u"3,221,225,472"_s));
    }

    void missingErrorSlotGivesNothing()
    {
        QVERIFY(!readerFor(fileWithTitle().row(21))->loadData(nullptr));
    }

    void readingEverythingGoesOnBehindWrongLines()
    {
        const auto reader = readerFor(fileWithTitle().row(20).row(21).row(22).blankLine().row(21));
        QStringList seen;
        reader->readRecords(
            [&seen](const DBCRecord& record) {
                seen << u"record "_s + text(record, Key::lineNo);
                return DBCLoopControl::Continue;
            },
            [&](const DBCError& error) {
                seen << u"error %1 in %2"_s.arg(toNumber(error.code())).arg(*error.lineNo());
                if (!reader->lineErrorText().contains(error.lineNo() == 2 ? u"20" : u"22"))
                    seen << reader->lineErrorText();
                return DBCLoopControl::Continue;
            });
        QCOMPARE(seen,
            QStringList(
                {u"error -104 in 2"_s, u"record 3"_s, u"error -104 in 4"_s, u"record 6"_s}));
        QCOMPARE(errors().size(), 0);
    }

    void readingEverythingStopsWhenTold()
    {
        int records = 0;
        int problems = 0;
        readerFor(fileWithTitle().row(21).row(20).row(21))
            ->readRecords(
                [&records](const DBCRecord&) {
                    ++records;
                    return DBCLoopControl::Continue;
                },
                [&problems](const DBCError&) {
                    ++problems;
                    return DBCLoopControl::Stop;
                });
        QCOMPARE(records, 1);
        QCOMPARE(problems, 1);
    }

    void readingEverythingStopsAtARecordWhenTold()
    {
        int records = 0;
        readerFor(fileWithTitle().row(21).row(21).row(21))
            ->readRecords(
                [&records](const DBCRecord&) {
                    ++records;
                    return records == 2 ? DBCLoopControl::Stop : DBCLoopControl::Continue;
                },
                [](const DBCError&) { return DBCLoopControl::Continue; });
        QCOMPARE(records, 2);
    }

    void readingEverythingLogsNoLengths()
    {
        const QString tooLong(1000, u'x');
        readerFor(fileWithTitle().row({{Key::full_Name, tooLong}}))
            ->readRecords([](const DBCRecord&) { return DBCLoopControl::Continue; },
                [](const DBCError&) { return DBCLoopControl::Continue; });
        QCOMPARE(warnings().size(), 0);
        readerFor(fileWithTitle().row({{Key::full_Name, tooLong}}))->loadData(&_error);
        QCOMPARE(warnings().size(), 1);
    }

    void readingEverythingTellsTheNumberOfLines()
    {
        const auto reader = readerFor(fileWithTitle().row(21).blankLine().text(u"x"_s));
        QList<qint64> counts;
        reader->readRecords(
            [&](const DBCRecord&) {
                counts << reader->lineCount();
                return DBCLoopControl::Continue;
            },
            [](const DBCError&) { return DBCLoopControl::Continue; });
        QCOMPARE(counts, QList<qint64>({4}));
    }

    void readingEverythingEndsAtAWrongTitleLine()
    {
        QList<Code> problems;
        readerFor(DataFileBuilder().titleLine({u"wrong"_s}).row(21).row(21))
            ->readRecords(noRecord, [&problems](const DBCError& error) {
                problems << error.code();
                return DBCLoopControl::Continue;
            });
        QCOMPARE(problems, QList<Code>({Code::TitleLineFormatError}));
    }

    void readingEverythingReportsAFileThatCannotBeLoaded()
    {
        QList<Code> problems;
        DBCFileReader::initWithFullFileName(dataFile())
            ->readRecords(noRecord, [&problems](const DBCError& error) {
                problems << error.code();
                return DBCLoopControl::Continue;
            });
        QCOMPARE(problems, QList<Code>({Code::FolderNotExist}));
    }
};

QTEST_GUILESS_MAIN(tst_fileReaderFiles)
#include "tst_fileReaderFiles.moc"
