// SPDX-License-Identifier: GPL-3.0-or-later
// Whole files: what loadData() and readRecords() make of them.
#include "datafile/DBCFileReader.h"

#include "operation/DBCLog.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

using Key = DBCRecordKey;
using Code = DBCResultCode;
using Encoding = DataFileBuilder::Encoding;
using Mark = DataFileBuilder::Mark;

class tst_fileReader : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    // Records
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

    // Title line
    void titlesInAnotherOrderAreRead();
    void wrongTitleLineIsRefused_data();
    void wrongTitleLineIsRefused();
    void missingTitlesAreNamedInTheLog();
    void emptyFirstLineIsNoTitleLine();

    // Data lines
    void wrongItemCountStopsTheLoad_data();
    void wrongItemCountStopsTheLoad();
    void lineWith20ItemsFirstGivesAnEmptyFileAndALoggedReason();
    void lineWith22ItemsStopsTheLoadAndIsNotLoggedTwice();
    void titleLineOnlyGivesAnEmptyFile();

    // Item lengths
    void overlongItemIsWarnedAboutAndKept_data();
    void overlongItemIsWarnedAboutAndKept();
    void itemsWithinTheirLengthsGiveNoWarning();
    void overlongMemoIsImportedWholeWithOneWarning();
    void addressItemsAreCheckedAsOneText_data();
    void addressItemsAreCheckedAsOneText();
    void overlongItemsAreWarnedAboutInColumnOrder();

    // Encodings
    void bigEndianFileIsRead();
    void fileWithoutMarkIsRead_data();
    void fileWithoutMarkIsRead();
    void fileThatIsNoTextIsRefused_data();
    void fileThatIsNoTextIsRefused();
    void utf8FileIsRefused();
    void utf8FileIsReadWhenAskedFor();

    // Files
    void emptyFileIsReported();
    void missingFileIsReportedAndLogged();
    void missingFileNameIsAGeneralFailure();
    void folderInPlaceOfTheFileCannotBeOpened();
    void pipeInPlaceOfTheFileCannotBeOpened();
    void unreadableFileCannotBeOpened();
    void failingReadIsAnInternalException();
    void hugeFileIsRefusedWithItsSize();
    void missingErrorSlotGivesNothing();

    // Every problem
    void readingEverythingGoesOnBehindWrongLines();
    void readingEverythingStopsWhenTold();
    void readingEverythingEndsAtAWrongTitleLine();
    void readingEverythingReportsAFileThatCannotBeLoaded();

private:
    using Records = std::vector<DBCRecord>;

    QString dataFile() const { return _home->path(QStringLiteral("data.txt")); }
    std::unique_ptr<DBCFileReader> readerFor(const DataFileBuilder& file) const
    {
        return DBCFileReader::initWithFullFileName(file.writeTo(dataFile()));
    }
    // What loading the file gives; its error is kept in _error.
    std::optional<Records> load(const DataFileBuilder& file)
    {
        return readerFor(file)->loadData(&_error);
    }
    QStringList warnings() const { return linesWith(QStringLiteral(" [Warning] ")); }
    QStringList errors() const { return linesWith(QStringLiteral(" [Error] ")); }
    QStringList linesWith(const QString& tag) const
    {
        return _home->logText().split(u'\n').filter(tag);
    }

    std::unique_ptr<TestHome> _home;
    DBCError _error;
};

static DataFileBuilder fileWithTitle()
{
    return DataFileBuilder().titleLine();
}

static QString text(const DBCRecord& record, Key key)
{
    return record.text(key).value_or(QStringLiteral("absent"));
}

void tst_fileReader::init()
{
    _home = std::make_unique<TestHome>();
    _error = DBCError();
}

void tst_fileReader::cleanup()
{
    _home.reset();
}

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
    for (const int itemCount : {1, 20, 22, 42}) {
        QTest::addRow("%d items in the middle", itemCount) << 2 << itemCount;
        QTest::addRow("%d items after the first record", itemCount) << 1 << itemCount;
    }
}

void tst_fileReader::wrongItemCountStopsTheLoad()
{
    QFETCH(int, before);
    QFETCH(int, itemCount);
    DataFileBuilder file = fileWithTitle();
    for (int i = 0; i < before; ++i)
        file.row(21);
    const auto records = load(file.row(itemCount).row(21));
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

void tst_fileReader::overlongItemIsWarnedAboutAndKept_data()
{
    QTest::addColumn<Key>("key");
    QTest::addColumn<int>("limit");
    const auto row
        = [](Key key, int limit) { QTest::newRow(qPrintable(recordKeyName(key))) << key << limit; };
    row(Key::full_Name, 64);
    row(Key::full_Name_Kana, 64);
    row(Key::company, 128);
    row(Key::company_Kana, 128);
    row(Key::department, 128);
    row(Key::job_Title, 128);
    row(Key::zip_PostalCode, 32);
    row(Key::telephone_Number, 32);
    row(Key::fax_Number, 32);
    row(Key::mobile_Number, 32);
    row(Key::e_Mail, 128);
    row(Key::web_Page_Address, 128);
    row(Key::memo, 256);
}

void tst_fileReader::overlongItemIsWarnedAboutAndKept()
{
    QFETCH(Key, key);
    QFETCH(int, limit);
    const QString tooLong(limit + 1, u'x');
    const DataFileBuilder::Items fitting {{key, QString(limit, u'x')}};
    const DataFileBuilder::Items overlong {
        {key, tooLong}, {Key::full_Name, QStringLiteral("星野 太郎")}};
    const auto records = load(fileWithTitle().row(fitting).row(overlong));
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(2));
    QCOMPARE(text(records->at(1), key), tooLong);
    QCOMPARE(warnings().size(), 1);
    QVERIFY(warnings().first().contains(DataFileBuilder::titles().at(qsizetype(key))));
    QVERIFY(warnings().first().contains(text(records->at(1), Key::full_Name)));
    QVERIFY(warnings().first().contains(QStringLiteral("Line 3 ")));
}

void tst_fileReader::itemsWithinTheirLengthsGiveNoWarning()
{
    load(fileWithTitle().row(21).row({{Key::face_Image_File, QString(1000, u'x')},
        {Key::back_Image_File, QString(1000, u'x')}, {Key::attachmentFile, QString(1000, u'x')},
        {Key::register_Date, QString(1000, u'x')}}));
    QVERIFY(!_error);
    QCOMPARE(warnings().size(), 0);
}

void tst_fileReader::overlongMemoIsImportedWholeWithOneWarning()
{
    const auto records = load(fileWithTitle().row({{Key::memo, QString(257, u'長')}}));
    QVERIFY(!_error);
    QCOMPARE(text(records->front(), Key::memo), QString(257, u'長'));
    QCOMPARE(warnings().size(), 1);
}

void tst_fileReader::addressItemsAreCheckedAsOneText_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("city");
    QTest::addColumn<int>("street");
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("warningCount");
    QTest::newRow("two line feeds make 128") << 40 << 40 << 46 << 0 << 0;
    QTest::newRow("two line feeds make 129") << 40 << 40 << 47 << 0 << 1;
    QTest::newRow("state alone of 128") << 128 << 0 << 0 << 0 << 0;
    QTest::newRow("state alone of 129") << 129 << 0 << 0 << 0 << 1;
    QTest::newRow("street alone behind two line feeds") << 0 << 0 << 127 << 0 << 1;
    QTest::newRow("address alone behind two line feeds") << 0 << 0 << 0 << 127 << 1;
    QTest::newRow("address alone of 126") << 0 << 0 << 0 << 126 << 0;
    QTest::newRow("long address is not used beside a city") << 0 << 1 << 0 << 500 << 0;
    QTest::newRow("nothing") << 0 << 0 << 0 << 0 << 0;
}

void tst_fileReader::addressItemsAreCheckedAsOneText()
{
    QFETCH(int, state);
    QFETCH(int, city);
    QFETCH(int, street);
    QFETCH(int, address);
    QFETCH(int, warningCount);
    load(fileWithTitle().row({{Key::full_Name, QStringLiteral("name")},
        {Key::state, QString(state, u's')}, {Key::city, QString(city, u'c')},
        {Key::street, QString(street, u't')}, {Key::address, QString(address, u'a')}}));
    QCOMPARE(warnings().size(), warningCount);
    if (warningCount == 0)
        return;
    const QStringList titles = DataFileBuilder::titles();
    const QString label = titles[10] + u'+' + titles[11] + u'+' + titles[12] + u'/' + titles[13];
    QVERIFY(warnings().first().contains(label));
}

void tst_fileReader::overlongItemsAreWarnedAboutInColumnOrder()
{
    const QString tooLong(300, u'x');
    DataFileBuilder::Items items;
    for (int i = 0; i < 21; ++i)
        items.emplace_back(static_cast<Key>(i), tooLong);
    load(fileWithTitle().row(items));

    const QStringList titles = DataFileBuilder::titles();
    QStringList expected = titles.sliced(3, 7);
    expected << titles[10] + u'+' + titles[11] + u'+' + titles[12] + u'/' + titles[13];
    expected << titles.sliced(14, 6);
    const QStringList found = warnings();
    QCOMPARE(found.size(), expected.size());
    for (qsizetype i = 0; i < found.size(); ++i)
        QVERIFY2(found[i].contains(expected[i]), qPrintable(found[i]));
}

void tst_fileReader::bigEndianFileIsRead()
{
    const auto records = load(DataFileBuilder(Encoding::Utf16BigEndian)
                                  .titleLine()
                                  .row({{Key::full_Name, QStringLiteral("星野 太郎")}}));
    QVERIFY(!_error);
    QCOMPARE(text(records->front(), Key::full_Name), QStringLiteral("星野 太郎"));
}

void tst_fileReader::fileWithoutMarkIsRead_data()
{
    QTest::addColumn<Encoding>("encoding");
    QTest::newRow("little-endian") << Encoding::Utf16LittleEndian;
    QTest::newRow("big-endian") << Encoding::Utf16BigEndian;
}

void tst_fileReader::fileWithoutMarkIsRead()
{
    QFETCH(Encoding, encoding);
    // The first title decides about the byte order: it must not be possible in both.
    QStringList titles = DataFileBuilder::titles();
    const auto kana = std::find_if(titles.begin(), titles.end(), [](const QString& title) {
        return title.front() >= QChar(0x3041) && title.front() <= QChar(0x30FE);
    });
    QVERIFY(kana != titles.end());
    std::iter_swap(titles.begin(), kana);
    const auto records = load(DataFileBuilder(encoding, Mark::Missing).titleLine(titles).row(21));
    QVERIFY(!_error);
    QCOMPARE(records->size(), std::size_t(1));
}

void tst_fileReader::fileThatIsNoTextIsRefused_data()
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

void tst_fileReader::fileThatIsNoTextIsRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!load(DataFileBuilder(Encoding::Utf8, Mark::Missing).bytes(bytes)));
    QCOMPARE(_error.code(), Code::DataFileDecodeFailure);
    QVERIFY(!_error.lineNo());
}

// As UTF-16 it is either no text or a text without one of the titles.
void tst_fileReader::utf8FileIsRefused()
{
    const DataFileBuilder file = DataFileBuilder(Encoding::Utf8).titleLine().row(21);
    const auto records = load(file);
    QVERIFY(!records || records->empty());
    QVERIFY(_error.code() == Code::DataFileDecodeFailure || _error.code() == Code::DataFileEmpty);
}

void tst_fileReader::utf8FileIsReadWhenAskedFor()
{
    const QString path = DataFileBuilder(Encoding::Utf8).titleLine().row(21).writeTo(dataFile());
    const auto reader = DBCFileReader::initWithFullFileName(path, DBCTextEncoding::Utf8);
    QCOMPARE(reader->encoding(), DBCTextEncoding::Utf8);
    QCOMPARE(reader->loadData(&_error)->size(), std::size_t(1));
}

void tst_fileReader::emptyFileIsReported()
{
    _home->writeFile(QStringLiteral("data.txt"), {});
    const auto reader = DBCFileReader::initWithFullFileName(dataFile());
    QVERIFY(!reader->loadData(&_error));
    QCOMPARE(_error.code(), Code::DataFileEmpty);
}

void tst_fileReader::missingFileIsReportedAndLogged()
{
    const auto reader = DBCFileReader::initWithFullFileName(dataFile());
    QCOMPARE(reader->fullFileName(), dataFile());
    QVERIFY(!reader->loadData(&_error));
    QCOMPARE(_error.code(), Code::FolderNotExist);
    QVERIFY(_error.localizedDescription().isEmpty());
    QCOMPARE(errors().size(), 1);
    QVERIFY(errors().first().contains(dataFile()));
}

void tst_fileReader::missingFileNameIsAGeneralFailure()
{
    const auto reader = DBCFileReader::initWithFullFileName({});
    QVERIFY(!reader->loadData(&_error));
    QCOMPARE(_error.code(), Code::GeneralFailure);
}

void tst_fileReader::folderInPlaceOfTheFileCannotBeOpened()
{
    _home->makeFolder(QStringLiteral("data.txt"));
    QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
    QCOMPARE(_error.code(), Code::DataFileOpenFailure);
}

void tst_fileReader::pipeInPlaceOfTheFileCannotBeOpened()
{
    QCOMPARE(::mkfifo(QFile::encodeName(dataFile()).constData(), 0700), 0);
    QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
    QCOMPARE(_error.code(), Code::DataFileOpenFailure);
}

void tst_fileReader::unreadableFileCannotBeOpened()
{
    if (::geteuid() == 0)
        QSKIP("root may read everything");
    QFile::setPermissions(fileWithTitle().row(21).writeTo(dataFile()), {});
    QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
    QCOMPARE(_error.code(), Code::DataFileOpenFailure);
}

// A process's memory is a regular file whose first page cannot be read.
void tst_fileReader::failingReadIsAnInternalException()
{
    const auto reader = DBCFileReader::initWithFullFileName(QStringLiteral("/proc/self/mem"));
    QVERIFY(!reader->loadData(&_error));
    QCOMPARE(_error.code(), Code::InternalException);
    QVERIFY(!reader->getNextRecordCopy(&_error));
    QVERIFY(_error);
}

void tst_fileReader::hugeFileIsRefusedWithItsSize()
{
    fileWithTitle().row(21).writeTo(dataFile());
    QVERIFY(QFile::resize(dataFile(), qint64(3) << 30)); // sparse: takes no space
    QVERIFY(!DBCFileReader::initWithFullFileName(dataFile())->loadData(&_error));
    QCOMPARE(_error.code(), Code::DataFileOpenFailure);
    QCOMPARE(errors().size(), 1);
    QVERIFY(errors().first().contains(QStringLiteral("3,221,225,472")));
}

void tst_fileReader::missingErrorSlotGivesNothing()
{
    QVERIFY(!readerFor(fileWithTitle().row(21))->loadData(nullptr));
}

void tst_fileReader::readingEverythingGoesOnBehindWrongLines()
{
    const auto reader = readerFor(fileWithTitle().row(20).row(21).row(22).blankLine().row(21));
    QStringList seen;
    reader->readRecords(
        [&seen](const DBCRecord& record) {
            seen << QStringLiteral("record ") + text(record, Key::lineNo);
        },
        [&](const DBCError& error) {
            seen << QStringLiteral("error %1 in %2")
                        .arg(toNumber(error.code()))
                        .arg(*error.lineNo());
            if (!reader->lineErrorText().contains(error.lineNo() == 2 ? u"20" : u"22"))
                seen << reader->lineErrorText();
            return DBCFileReader::AfterError::GoOn;
        });
    QCOMPARE(seen,
        QStringList({QStringLiteral("error -104 in 2"), QStringLiteral("record 3"),
            QStringLiteral("error -104 in 4"), QStringLiteral("record 6")}));
    QCOMPARE(errors().size(), 0);
}

void tst_fileReader::readingEverythingStopsWhenTold()
{
    int records = 0;
    int problems = 0;
    readerFor(fileWithTitle().row(21).row(20).row(21))
        ->readRecords([&records](const DBCRecord&) { ++records; },
            [&problems](const DBCError&) {
                ++problems;
                return DBCFileReader::AfterError::Stop;
            });
    QCOMPARE(records, 1);
    QCOMPARE(problems, 1);
}

void tst_fileReader::readingEverythingEndsAtAWrongTitleLine()
{
    QList<Code> problems;
    readerFor(DataFileBuilder().titleLine({QStringLiteral("wrong")}).row(21).row(21))
        ->readRecords([](const DBCRecord&) { QFAIL("no record expected"); },
            [&problems](const DBCError& error) {
                problems << error.code();
                return DBCFileReader::AfterError::GoOn;
            });
    QCOMPARE(problems, QList<Code>({Code::TitleLineFormatError}));
}

void tst_fileReader::readingEverythingReportsAFileThatCannotBeLoaded()
{
    QList<Code> problems;
    DBCFileReader::initWithFullFileName(dataFile())
        ->readRecords([](const DBCRecord&) { QFAIL("no record expected"); },
            [&problems](const DBCError& error) {
                problems << error.code();
                return DBCFileReader::AfterError::GoOn;
            });
    QCOMPARE(problems, QList<Code>({Code::FolderNotExist}));
}

QTEST_GUILESS_MAIN(tst_fileReader)
#include "tst_fileReader.moc"
