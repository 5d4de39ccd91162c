// SPDX-License-Identifier: GPL-3.0-or-later
// Records, title lines and data lines.
#include "tests/datafile/ReaderFixture.h"

#include <QtTest>

#include <algorithm>

using Key = DBCRecordKey;
using Code = DBCResultCode;

class tst_fileReader : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void valuesLandUnderTheKeysOfTheirColumns();
    void valuesAreTakenAsTheyStand_data();
    void valuesAreTakenAsTheyStand();
    void recordHasThe21ColumnsAndTwoNumbers();
    void firstRecordIsNumber2OnLine2();
    void blankLineIsSkippedButCountedAsALine_data();
    void blankLineIsSkippedButCountedAsALine();
    void blankLinesBeforeTheEndAreSkipped();
    void lastLineWithoutSeparatorIsRead();
    void otherSeparatorEndsLines();
    void loneCarriageReturnOrLineFeedBelongsToItsItem();
    void readerCountsRecordsAndLines();
    void titlesInAnotherOrderAreRead();
    void wrongTitleLineIsRefused_data();
    void wrongTitleLineIsRefused();
    void missingTitlesAreNamedInTheLog();
    void emptyFirstLineIsNoTitleLine();
    void wrongItemCountStopsTheLoad_data();
    void wrongItemCountStopsTheLoad();
    void lineWith20ItemsFirstGivesAnEmptyFileAndALoggedReason();
    void lineWith22ItemsStopsTheLoadAndIsNotLoggedTwice();
    void titleLineOnlyGivesAnEmptyFile();
};

void tst_fileReader::valuesLandUnderTheKeysOfTheirColumns()
{
    const auto records = load(fileWithTitle().row(21));
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(1));
    const DBCRecord& record = records->front();
    QCOMPARE(text(record, Key::face_Image_File), QStringLiteral("item 1"));
    QCOMPARE(text(record, Key::back_Image_File), QStringLiteral("item 2"));
    QCOMPARE(text(record, Key::attachmentFile), QStringLiteral("item 3"));
    QCOMPARE(text(record, Key::full_Name), QStringLiteral("item 4"));
    QCOMPARE(text(record, Key::full_Name_Kana), QStringLiteral("item 5"));
    QCOMPARE(text(record, Key::company), QStringLiteral("item 6"));
    QCOMPARE(text(record, Key::company_Kana), QStringLiteral("item 7"));
    QCOMPARE(text(record, Key::department), QStringLiteral("item 8"));
    QCOMPARE(text(record, Key::job_Title), QStringLiteral("item 9"));
    QCOMPARE(text(record, Key::zip_PostalCode), QStringLiteral("item 10"));
    QCOMPARE(text(record, Key::state), QStringLiteral("item 11"));
    QCOMPARE(text(record, Key::city), QStringLiteral("item 12"));
    QCOMPARE(text(record, Key::street), QStringLiteral("item 13"));
    QCOMPARE(text(record, Key::address), QStringLiteral("item 14"));
    QCOMPARE(text(record, Key::telephone_Number), QStringLiteral("item 15"));
    QCOMPARE(text(record, Key::fax_Number), QStringLiteral("item 16"));
    QCOMPARE(text(record, Key::mobile_Number), QStringLiteral("item 17"));
    QCOMPARE(text(record, Key::e_Mail), QStringLiteral("item 18"));
    QCOMPARE(text(record, Key::web_Page_Address), QStringLiteral("item 19"));
    QCOMPARE(text(record, Key::memo), QStringLiteral("item 20"));
    QCOMPARE(text(record, Key::register_Date), QStringLiteral("item 21"));
}

void tst_fileReader::valuesAreTakenAsTheyStand_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("blanks around") << QStringLiteral(" \u3000星野 ");
    QTest::newRow("half-width katakana") << QStringLiteral("ﾎｼﾉ");
    QTest::newRow("quotation marks") << QStringLiteral("\"a\"\"b\"");
    QTest::newRow("zero unit") << QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"));
    QTest::newRow("surrogate pair") << QStringLiteral("\U00020BB7田");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("byte-order mark") << QStringLiteral("\uFEFFx");
    QTest::newRow("next line and separators") << QStringLiteral("a\u0085b\u2028c\u2029d");
}

void tst_fileReader::valuesAreTakenAsTheyStand()
{
    QFETCH(QString, value);
    const auto records
        = load(fileWithTitle().row({{Key::company, value}, {Key::memo, QStringLiteral("memo")}}));
    QCOMPARE(records->size(), std::size_t(1));
    QCOMPARE(text(records->front(), Key::company), value);
    QVERIFY(!records->front().text(Key::company)->isNull());
}

void tst_fileReader::recordHasThe21ColumnsAndTwoNumbers()
{
    const auto records = load(fileWithTitle().row({{Key::memo, QStringLiteral("memo")}}));
    QCOMPARE(records->front().count(), std::size_t(23));
    QCOMPARE(text(records->front(), Key::fax_Number), QStringLiteral(""));
}

void tst_fileReader::firstRecordIsNumber2OnLine2()
{
    const auto records = load(fileWithTitle().row(21).row(21));
    QCOMPARE(text(records->at(0), Key::recordNo), QStringLiteral("2"));
    QCOMPARE(text(records->at(0), Key::lineNo), QStringLiteral("2"));
    QCOMPARE(text(records->at(1), Key::recordNo), QStringLiteral("3"));
    QCOMPARE(text(records->at(1), Key::lineNo), QStringLiteral("3"));
}

void tst_fileReader::blankLineIsSkippedButCountedAsALine_data()
{
    QTest::addColumn<QString>("blank");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("spaces") << QStringLiteral("   ");
    QTest::newRow("full-width spaces") << QStringLiteral("\u3000\u3000");
    QTest::newRow("20 tabs") << QString(20, u'\t');
    QTest::newRow("one tab") << QStringLiteral("\t");
    QTest::newRow("lone line ends") << QStringLiteral("\n\r\u0085\u2028");
}

void tst_fileReader::blankLineIsSkippedButCountedAsALine()
{
    QFETCH(QString, blank);
    const auto records = load(fileWithTitle().row(21).line(blank).row(21));
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(2));
    QCOMPARE(text(records->at(1), Key::recordNo), QStringLiteral("3"));
    QCOMPARE(text(records->at(1), Key::lineNo), QStringLiteral("4"));
}

void tst_fileReader::blankLinesBeforeTheEndAreSkipped()
{
    const auto records = load(fileWithTitle().row(21).blankLine().blankLine());
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(1));
}

void tst_fileReader::lastLineWithoutSeparatorIsRead()
{
    const auto records = load(fileWithTitle().row(21).text(QString(20, u'\t') + u'x'));
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(2));
    QCOMPARE(text(records->at(1), Key::register_Date), QStringLiteral("x"));
}

void tst_fileReader::otherSeparatorEndsLines()
{
    const QString titles = DataFileBuilder::titles().join(u'\t');
    const QString path = DataFileBuilder()
                             .text(titles + u'\n' + QString(20, u'\t') + QStringLiteral("x\n"))
                             .writeTo(dataFile());
    const auto reader
        = DBCFileReader::initWithFullFileName(path, DBCTextEncoding::Utf16, QStringLiteral("\n"));
    QCOMPARE(reader->lineSeparator(), QStringLiteral("\n"));
    QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
}

void tst_fileReader::loneCarriageReturnOrLineFeedBelongsToItsItem()
{
    const auto records = load(fileWithTitle()
                                  .row({{Key::memo, QStringLiteral("a\nb\rc\n\rd")}})
                                  .row({{Key::memo, QStringLiteral("next")}}));
    QCOMPARE(records->size(), std::size_t(2));
    QCOMPARE(text(records->at(0), Key::memo), QStringLiteral("a\nb\rc\n\rd"));
    QCOMPARE(text(records->at(1), Key::lineNo), QStringLiteral("3"));
}

void tst_fileReader::readerCountsRecordsAndLines()
{
    const auto reader = readerFor(fileWithTitle().row(21).blankLine().row(21));
    reader->loadData(&_error);
    QCOMPARE(reader->lastRecordNo(), quint64(2));
    QCOMPARE(reader->lineNo(), quint64(5));
    reader->close();
    QCOMPARE(reader->lastRecordNo(), quint64(0));
    QCOMPARE(reader->lineNo(), quint64(0));
}

void tst_fileReader::titlesInAnotherOrderAreRead()
{
    QStringList titles = DataFileBuilder::titles();
    std::reverse(titles.begin(), titles.end());
    titles.swapItemsAt(3, 15);
    const auto records = load(DataFileBuilder().titleLine(titles).row(21));
    QVERIFY(!_error);
    const DBCRecord& record = records->front();
    QCOMPARE(text(record, Key::register_Date), QStringLiteral("item 1"));
    QCOMPARE(text(record, Key::memo), QStringLiteral("item 2"));
    QCOMPARE(text(record, Key::company), QStringLiteral("item 4"));
    QCOMPARE(text(record, Key::e_Mail), QStringLiteral("item 16"));
    QVERIFY(text(record, Key::e_Mail) != text(record, Key::company));
    QCOMPARE(text(record, Key::face_Image_File), QStringLiteral("item 21"));
}

void tst_fileReader::wrongTitleLineIsRefused_data()
{
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("reason");
    const QStringList titles = DataFileBuilder::titles();
    const QString unknown = QStringLiteral("unknown");
    QTest::newRow("20 titles") << titles.first(20) << QStringLiteral("20");
    QTest::newRow("22 titles, one repeated") << titles + titles.first(1) << QStringLiteral("22");
    QTest::newRow("22 titles, one unknown")
        << titles + QStringList(unknown) << QStringLiteral("22");
    QTest::newRow("21 titles, one unknown")
        << titles.first(20) + QStringList(unknown) << titles.last();
    QTest::newRow("21 titles, one repeated") << titles.first(20) + titles.first(1) << titles.last();
    QTest::newRow("all titles twice") << titles + titles << QStringLiteral("42");
    QTest::newRow("title with a blank behind it")
        << QStringList(titles.first() + u' ') + titles.sliced(1) << titles.first();
    QTest::newRow("no title at all") << QStringList(unknown) << titles.first();
}

// The list is empty, so the code is that of an empty file; the log says what really happened.
void tst_fileReader::wrongTitleLineIsRefused()
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
        QStringLiteral("The format of the title line is incorrect!\n") + titles.first()));
}

void tst_fileReader::missingTitlesAreNamedInTheLog()
{
    QStringList titles = DataFileBuilder::titles();
    const QString first = titles.takeAt(4);
    const QString second = titles.takeAt(10);
    load(DataFileBuilder().titleLine(titles).row(19));
    QVERIFY(errors().first().contains(first));
    QVERIFY(errors().first().contains(second));
    QVERIFY(errors().first().contains(QStringLiteral("19")));
    QVERIFY(!errors().first().contains(titles.last()));
}

void tst_fileReader::emptyFirstLineIsNoTitleLine()
{
    const DataFileBuilder file = DataFileBuilder().blankLine().titleLine().row(21);
    QVERIFY(load(file)->empty());
    QCOMPARE(_error.code(), Code::DataFileEmpty);
    QCOMPARE(errors().size(), 1);
    readerFor(file)->getNextRecordCopy(&_error);
    QCOMPARE(_error.code(), Code::TitleLineFormatError);
    QCOMPARE(_error.lineNo(), qint64(1));
}

void tst_fileReader::wrongItemCountStopsTheLoad_data()
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

void tst_fileReader::wrongItemCountStopsTheLoad()
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
        QStringLiteral("The format of the data line is incorrect!\nitem 1")));
}

void tst_fileReader::lineWith20ItemsFirstGivesAnEmptyFileAndALoggedReason()
{
    const auto records = load(fileWithTitle().row(20).row(21));
    QVERIFY(records && records->empty());
    QCOMPARE(_error.code(), Code::DataFileEmpty);
    QVERIFY(!_error.lineNo());
    QCOMPARE(errors().size(), 1);
    for (const char* number : {"\\b2\\b", "\\b20\\b", "\\b21\\b"})
        QVERIFY2(errors().first().contains(QRegularExpression(QLatin1StringView(number))), number);
    QVERIFY(errors().first().contains(dataFile()));
}

void tst_fileReader::lineWith22ItemsStopsTheLoadAndIsNotLoggedTwice()
{
    const auto reader = readerFor(fileWithTitle().row(21).row(22));
    QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
    QCOMPARE(_error.code(), Code::DataLineFormatError);
    QCOMPARE(_error.lineNo(), qint64(3));
    QCOMPARE(errors().size(), 0); // whoever shows the error logs it
    QVERIFY(reader->lineErrorText().contains(QStringLiteral("22")));
}

void tst_fileReader::titleLineOnlyGivesAnEmptyFile()
{
    const auto records = load(fileWithTitle());
    QVERIFY(records && records->empty());
    QCOMPARE(_error.code(), Code::DataFileEmpty);
    QCOMPARE(errors().size(), 0);
}

QTEST_GUILESS_MAIN(tst_fileReader)
#include "tst_fileReader.moc"
