// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file reader: records, title lines and data lines.
#include "tests/datafile/ReaderFixture.h"

#include <QtTest>

#include <algorithm>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using Code = DBCResultCode;

class tst_fileReader : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void valuesLandUnderTheKeysOfTheirColumns()
    {
        const auto records = load(fileWithTitle().row(21));
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(1));
        const DBCRecord& record = records->front();
        QCOMPARE(text(record, Key::face_Image_File), u"item 1"_s);
        QCOMPARE(text(record, Key::back_Image_File), u"item 2"_s);
        QCOMPARE(text(record, Key::attachmentFile), u"item 3"_s);
        QCOMPARE(text(record, Key::full_Name), u"item 4"_s);
        QCOMPARE(text(record, Key::full_Name_Kana), u"item 5"_s);
        QCOMPARE(text(record, Key::company), u"item 6"_s);
        QCOMPARE(text(record, Key::company_Kana), u"item 7"_s);
        QCOMPARE(text(record, Key::department), u"item 8"_s);
        QCOMPARE(text(record, Key::job_Title), u"item 9"_s);
        QCOMPARE(text(record, Key::zip_PostalCode), u"item 10"_s);
        QCOMPARE(text(record, Key::state), u"item 11"_s);
        QCOMPARE(text(record, Key::city), u"item 12"_s);
        QCOMPARE(text(record, Key::street), u"item 13"_s);
        QCOMPARE(text(record, Key::address), u"item 14"_s);
        QCOMPARE(text(record, Key::telephone_Number), u"item 15"_s);
        QCOMPARE(text(record, Key::fax_Number), u"item 16"_s);
        QCOMPARE(text(record, Key::mobile_Number), u"item 17"_s);
        QCOMPARE(text(record, Key::e_Mail), u"item 18"_s);
        QCOMPARE(text(record, Key::web_Page_Address), u"item 19"_s);
        QCOMPARE(text(record, Key::memo), u"item 20"_s);
        QCOMPARE(text(record, Key::register_Date), u"item 21"_s);
    }

    void valuesAreTakenAsTheyStand_data()
    {
        QTest::addColumn<QString>("value");
        QTest::newRow("blanks around") << u" \u3000星野 "_s;
        QTest::newRow("half-width katakana") << u"ﾎｼﾉ"_s;
        QTest::newRow("quotation marks") << u"\"a\"\"b\""_s;
        QTest::newRow("zero unit") << QString(u"a"_s + QChar(0) + u"b"_s);
        QTest::newRow("surrogate pair") << u"\U00020BB7田"_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("byte-order mark") << u"\uFEFFx"_s;
        QTest::newRow("next line and separators") << u"a\u0085b\u2028c\u2029d"_s;
    }
    void valuesAreTakenAsTheyStand()
    {
        QFETCH(QString, value);
        const auto records
            = load(fileWithTitle().row({{Key::company, value}, {Key::memo, u"memo"_s}}));
        QCOMPARE(records->size(), std::size_t(1));
        QCOMPARE(text(records->front(), Key::company), value);
        QVERIFY(!records->front().text(Key::company)->isNull());
    }

    void recordHasThe21ColumnsAndTwoNumbers()
    {
        const auto records = load(fileWithTitle().row({{Key::memo, u"memo"_s}}));
        QCOMPARE(records->front().count(), std::size_t(23));
        QCOMPARE(text(records->front(), Key::fax_Number), u""_s);
    }

    void firstRecordIsNumber2OnLine2()
    {
        const auto records = load(fileWithTitle().row(21).row(21));
        QCOMPARE(text(records->at(0), Key::recordNo), u"2"_s);
        QCOMPARE(text(records->at(0), Key::lineNo), u"2"_s);
        QCOMPARE(text(records->at(1), Key::recordNo), u"3"_s);
        QCOMPARE(text(records->at(1), Key::lineNo), u"3"_s);
    }

    void blankLineIsSkippedButCountedAsALine_data()
    {
        QTest::addColumn<QString>("blank");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("spaces") << u"   "_s;
        QTest::newRow("full-width spaces") << u"\u3000\u3000"_s;
        QTest::newRow("20 tabs") << QString(20, u'\t');
        QTest::newRow("one tab") << u"\t"_s;
        QTest::newRow("lone line ends") << u"\n\r\u0085\u2028"_s;
    }
    void blankLineIsSkippedButCountedAsALine()
    {
        QFETCH(QString, blank);
        const auto records = load(fileWithTitle().row(21).line(blank).row(21));
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(2));
        QCOMPARE(text(records->at(1), Key::recordNo), u"3"_s);
        QCOMPARE(text(records->at(1), Key::lineNo), u"4"_s);
    }

    void blankLinesBeforeTheEndAreSkipped()
    {
        const auto records = load(fileWithTitle().row(21).blankLine().blankLine());
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(1));
    }

    void lastLineWithoutSeparatorIsRead()
    {
        const auto records = load(fileWithTitle().row(21).text(QString(20, u'\t') + u'x'));
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(2));
        QCOMPARE(text(records->at(1), Key::register_Date), u"x"_s);
    }

    void otherSeparatorEndsLines()
    {
        const QString titles = DataFileBuilder::titles().join(u'\t');
        const QString path = DataFileBuilder()
                                 .text(titles + u'\n' + QString(20, u'\t') + u"x\n"_s)
                                 .writeTo(dataFile());
        const auto reader
            = DBCFileReader::initWithFullFileName(path, DBCTextEncoding::Utf16, u"\n"_s);
        QCOMPARE(reader->lineSeparator(), u"\n"_s);
        QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
    }

    void loneCarriageReturnOrLineFeedBelongsToItsItem()
    {
        const auto records = load(
            fileWithTitle().row({{Key::memo, u"a\nb\rc\n\rd"_s}}).row({{Key::memo, u"next"_s}}));
        QCOMPARE(records->size(), std::size_t(2));
        QCOMPARE(text(records->at(0), Key::memo), u"a\nb\rc\n\rd"_s);
        QCOMPARE(text(records->at(1), Key::lineNo), u"3"_s);
    }

    void readerCountsRecordsAndLines()
    {
        const auto reader = readerFor(fileWithTitle().row(21).blankLine().row(21));
        reader->loadData(&_error);
        QCOMPARE(reader->lastRecordNo(), quint64(2));
        QCOMPARE(reader->lineNo(), quint64(5));
        reader->close();
        QCOMPARE(reader->lastRecordNo(), quint64(0));
        QCOMPARE(reader->lineNo(), quint64(0));
    }

    void titlesInAnotherOrderAreRead()
    {
        QStringList titles = DataFileBuilder::titles();
        std::reverse(titles.begin(), titles.end());
        titles.swapItemsAt(3, 15);
        const auto records = load(DataFileBuilder().titleLine(titles).row(21));
        QVERIFY(!_error);
        const DBCRecord& record = records->front();
        QCOMPARE(text(record, Key::register_Date), u"item 1"_s);
        QCOMPARE(text(record, Key::memo), u"item 2"_s);
        QCOMPARE(text(record, Key::company), u"item 4"_s);
        QCOMPARE(text(record, Key::e_Mail), u"item 16"_s);
        QVERIFY(text(record, Key::e_Mail) != text(record, Key::company));
        QCOMPARE(text(record, Key::face_Image_File), u"item 21"_s);
    }

    void wrongTitleLineIsRefused_data()
    {
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<QString>("reason");
        const QStringList titles = DataFileBuilder::titles();
        const QString unknown = u"unknown"_s;
        QTest::newRow("20 titles") << titles.first(20) << u"20"_s;
        QTest::newRow("22 titles, one repeated") << titles + titles.first(1) << u"22"_s;
        QTest::newRow("22 titles, one unknown") << titles + QStringList(unknown) << u"22"_s;
        QTest::newRow("21 titles, one unknown")
            << titles.first(20) + QStringList(unknown) << titles.last();
        QTest::newRow("21 titles, one repeated")
            << titles.first(20) + titles.first(1) << titles.last();
        QTest::newRow("all titles twice") << titles + titles << u"42"_s;
        QTest::newRow("title with a blank behind it")
            << QStringList(titles.first() + u' ') + titles.sliced(1) << titles.first();
        QTest::newRow("no title at all") << QStringList(unknown) << titles.first();
    }
    // The result code says only that the file has no records; the log names the real cause.
    void wrongTitleLineIsRefused()
    {
        QFETCH(QStringList, titles);
        QFETCH(QString, reason);
        const DataFileBuilder file = DataFileBuilder().titleLine(titles).row(21);
        const auto records = load(file);
        QVERIFY(records && records->empty());
        QCOMPARE(_error.code(), Code::DataFileEmpty);
        QCOMPARE(errors().size(), 1);
        QVERIFY2(errors().first().contains(reason), qPrintable(errors().first()));
        QVERIFY(errors().first().contains(dataFile()));

        readerFor(file)->getNextRecordCopy(&_error);
        QCOMPARE(_error.code(), Code::TitleLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(1));
        QVERIFY(_error.localizedDescription().startsWith(
            u"The format of the title line is incorrect!\n"_s + titles.first()));
    }

    void missingTitlesAreNamedInTheLog()
    {
        QStringList titles = DataFileBuilder::titles();
        const QString first = titles.takeAt(4);
        const QString second = titles.takeAt(10);
        load(DataFileBuilder().titleLine(titles).row(19));
        QVERIFY(errors().first().contains(first));
        QVERIFY(errors().first().contains(second));
        QVERIFY(errors().first().contains(u"19"_s));
        QVERIFY(!errors().first().contains(titles.last()));
    }

    void emptyFirstLineIsNoTitleLine()
    {
        const DataFileBuilder file = DataFileBuilder().blankLine().titleLine().row(21);
        QVERIFY(load(file)->empty());
        QCOMPARE(_error.code(), Code::DataFileEmpty);
        QCOMPARE(errors().size(), 1);
        readerFor(file)->getNextRecordCopy(&_error);
        QCOMPARE(_error.code(), Code::TitleLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(1));
    }

    void wrongItemCountStopsTheLoad_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("itemCount");
        QTest::addColumn<int>("behind");
        for (const int itemCount : {1, 20, 22, 42}) {
            QTest::addRow("%d items behind the first record", itemCount) << 1 << itemCount << 1;
            QTest::addRow("%d items in the middle", itemCount) << 2 << itemCount << 2;
            QTest::addRow("%d items in the last line", itemCount) << 2 << itemCount << 0;
        }
    }
    void wrongItemCountStopsTheLoad()
    {
        QFETCH(int, before);
        QFETCH(int, itemCount);
        QFETCH(int, behind);
        DataFileBuilder file = fileWithTitle();
        for (int i = 0; i < before; ++i)
            file.row(21);
        file.row(itemCount);
        for (int i = 0; i < behind; ++i)
            file.row(21);
        const auto records = load(file);
        QCOMPARE(records->size(), std::size_t(before));
        QCOMPARE(_error.code(), Code::DataLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(before + 2));
        QVERIFY(_error.localizedDescription().startsWith(
            u"The format of the data line is incorrect!\nitem 1"_s));
    }

    void lineWith20ItemsFirstGivesAnEmptyFileAndALoggedReason()
    {
        const auto records = load(fileWithTitle().row(20).row(21));
        QVERIFY(records && records->empty());
        QCOMPARE(_error.code(), Code::DataFileEmpty);
        QVERIFY(!_error.lineNo());
        QCOMPARE(errors().size(), 1);
        for (const char* number : {"\\b2\\b", "\\b20\\b", "\\b21\\b"})
            QVERIFY2(
                errors().first().contains(QRegularExpression(QLatin1StringView(number))), number);
        QVERIFY(errors().first().contains(dataFile()));
    }

    void lineWith22ItemsStopsTheLoadAndIsNotLoggedTwice()
    {
        const auto reader = readerFor(fileWithTitle().row(21).row(22));
        QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
        QCOMPARE(_error.code(), Code::DataLineFormatError);
        QCOMPARE(_error.lineNo(), qint64(3));
        QCOMPARE(errors().size(), 0); // the caller shows and logs the error
        QVERIFY(reader->lineErrorText().contains(u"22"_s));
    }

    void titleLineOnlyGivesAnEmptyFile()
    {
        const auto records = load(fileWithTitle());
        QVERIFY(records && records->empty());
        QCOMPARE(_error.code(), Code::DataFileEmpty);
        QCOMPARE(errors().size(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_fileReader)
#include "tst_fileReader.moc"
