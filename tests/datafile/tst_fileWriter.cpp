// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/DBCFileWriter.h"

#include "datafile/DBCColumns.h"
#include "datafile/DBCLocalizable.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

class tst_fileWriter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void emptyPathMakesNoWriter();
    void writerKnowsItsPathAndTheTitleOfEveryColumn();

    void newDataFileStartsWithOneByteOrderMark();
    void existingFileIsKeptAndAppendedTo();
    void secondWriterAppendsASecondByteOrderMark();
    void newFileBelongsToItsOwnerAlone();
    void descriptorIsNotInheritedByOtherPrograms();
    void openTwiceIsHarmless();
    void writingAfterAnotherProgramAppendedKeepsItsLines();

    void missingFolderCannotBeOpened();
    void folderAtThePathCannotBeOpened();
    void pipeAtThePathCannotBeOpened();
    void readOnlyFileCannotBeOpened();
    void vanishedFileIsReported();
    void fullDiskFailsTheWriteThatMeetsIt();
    void closeReleasesTheFile();

    void missingTextIsAGeneralFailure();
    void utf8TextIsWrittenAsItIs();
    void utf16TextIsWrittenWithoutAMarkOfItsOwn();

    void lineHoldsTheColumnsInTheirOrder();
    void titleLineIsWrittenInTableOrder();
    void furtherKeysAreIgnored();
    void recordWithoutAColumnIsNotWritten_data();
    void recordWithoutAColumnIsNotWritten();
    void recordWithoutFaxLeavesTheFileUnchanged();
    void valueIsCleaned_data();
    void valueIsCleaned();
    void registerDateGivenAsDate();
    void registerDateGivenInAnotherTimeZoneIsLocal();
    void registerDateGivenAsText();
    void dateInAnotherColumnGivesAnEmptyItem();
    void numberGivesAnEmptyItem();

    void listedTextsAreDeletedInOrder();
    void listedTextsAreReplacedInOrder();
    void replacingWithoutListOrTextsGivesNothing();

private:
    QString path() const { return _home->path(QStringLiteral("data.txt")); }
    std::unique_ptr<DBCFileWriter> dataFileWriter() const
    {
        return DBCFileWriter::initWithFileName(
            path(), DBCTextEncoding::Utf16, QStringLiteral("\r\n"));
    }
    std::unique_ptr<DBCFileWriter> logWriter() const
    {
        return DBCFileWriter::initWithFileName(path(), DBCTextEncoding::Utf8, QStringLiteral("\n"));
    }
    QByteArray written() const { return _home->readFile(QStringLiteral("data.txt")); }

    std::unique_ptr<TestHome> _home;
};

static QByteArray littleEndian(const QString& text)
{
    QByteArray bytes;
    for (const QChar unit : text)
        bytes.append(char(unit.cell())).append(char(unit.row()));
    return bytes;
}

static const QByteArray mark = QByteArrayLiteral("\xFF\xFE");

// A record with the 21 columns, all empty.
static DBCRecord emptyRecord()
{
    DBCRecord record;
    for (const DBCColumn& column : DBCColumns)
        record.setValue(column.key, QStringLiteral(""));
    return record;
}

static DBCRecord recordWith(DBCRecordKey key, const DBCValue& value)
{
    DBCRecord record = emptyRecord();
    record.setValue(key, value);
    return record;
}

// What stands in a key's column when the record holds nothing but this value.
static QString writtenItem(const DBCFileWriter& writer, DBCRecordKey key, const DBCValue& value)
{
    const QString line = writer.createDataStrWith(recordWith(key, value)).value();
    if (!line.endsWith(QStringLiteral("\r\n")))
        return QStringLiteral("line end missing");
    const QStringList items = line.chopped(2).split(u'\t');
    return items.size() == 21 ? items.at(qsizetype(key)) : QStringLiteral("wrong item count");
}

void tst_fileWriter::init()
{
    _home = std::make_unique<TestHome>();
}

void tst_fileWriter::cleanup()
{
    _home.reset();
}

void tst_fileWriter::emptyPathMakesNoWriter()
{
    QVERIFY(!DBCFileWriter::initWithFileName({}, DBCTextEncoding::Utf8, QStringLiteral("\n")));
}

void tst_fileWriter::writerKnowsItsPathAndTheTitleOfEveryColumn()
{
    const auto writer = dataFileWriter();
    QCOMPARE(writer->filePath(), path());
    QCOMPARE(writer->mappingTitleDic().size(), 21);
    QVERIFY(!writer->mappingTitleDic().value(DBCRecordKey::memo).isEmpty());
}

void tst_fileWriter::newDataFileStartsWithOneByteOrderMark()
{
    const auto writer = dataFileWriter();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(writer->write(QStringLiteral("A\r\n")), DBCResultCode::Success);
        writer->open();
    }
    QCOMPARE(written(), mark + littleEndian(QStringLiteral("A\r\nA\r\nA\r\n")));
}

void tst_fileWriter::existingFileIsKeptAndAppendedTo()
{
    _home->writeFile(QStringLiteral("data.txt"), "first\n");
    const auto writer = logWriter();
    QCOMPARE(writer->write(QStringLiteral("second\n")), DBCResultCode::Success);
    QCOMPARE(written(), QByteArray("first\nsecond\n"));
}

void tst_fileWriter::secondWriterAppendsASecondByteOrderMark()
{
    dataFileWriter()->write(QStringLiteral("A"));
    dataFileWriter()->write(QStringLiteral("B"));
    QCOMPARE(written(), QByteArray::fromHex("FFFE 4100 FFFE 4200"));
}

void tst_fileWriter::newFileBelongsToItsOwnerAlone()
{
    QCOMPARE(logWriter()->open(), DBCResultCode::Success);
    struct stat status { };
    QCOMPARE(::stat(QFile::encodeName(path()).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777U, 0700U);
}

void tst_fileWriter::descriptorIsNotInheritedByOtherPrograms()
{
    const int next = ::dup(0);
    ::close(next);
    const auto writer = logWriter();
    QCOMPARE(writer->open(), DBCResultCode::Success);
    struct stat byPath { };
    struct stat byDescriptor { };
    QCOMPARE(::stat(QFile::encodeName(path()).constData(), &byPath), 0);
    QCOMPARE(::fstat(next, &byDescriptor), 0);
    QCOMPARE(byDescriptor.st_ino, byPath.st_ino);
    QVERIFY(::fcntl(next, F_GETFD) & FD_CLOEXEC);
}

void tst_fileWriter::openTwiceIsHarmless()
{
    const auto writer = dataFileWriter();
    QCOMPARE(writer->open(), DBCResultCode::Success);
    QCOMPARE(writer->open(), DBCResultCode::Success);
    QCOMPARE(written(), mark);
}

void tst_fileWriter::writingAfterAnotherProgramAppendedKeepsItsLines()
{
    const auto one = logWriter();
    const auto other = logWriter();
    one->write(QStringLiteral("1\n"));
    other->write(QStringLiteral("2\n"));
    one->write(QStringLiteral("3\n"));
    QCOMPARE(written(), QByteArray("1\n2\n3\n"));
}

void tst_fileWriter::missingFolderCannotBeOpened()
{
    const auto writer = DBCFileWriter::initWithFileName(
        _home->path(QStringLiteral("no/data.txt")), DBCTextEncoding::Utf16, QStringLiteral("\r\n"));
    QCOMPARE(writer->open(), DBCResultCode::DataFileOpenFailure);
    QCOMPARE(writer->write(QStringLiteral("A")), DBCResultCode::DataFileOpenFailure);
}

void tst_fileWriter::folderAtThePathCannotBeOpened()
{
    _home->makeFolder(QStringLiteral("data.txt"));
    QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
}

void tst_fileWriter::pipeAtThePathCannotBeOpened()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0700), 0);
    QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
}

void tst_fileWriter::readOnlyFileCannotBeOpened()
{
    if (::geteuid() == 0)
        QSKIP("root may write everything");
    QFile::setPermissions(_home->writeFile(QStringLiteral("data.txt"), "x"), QFile::ReadOwner);
    QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
    QCOMPARE(written(), QByteArray("x"));
}

void tst_fileWriter::vanishedFileIsReported()
{
    const auto writer = dataFileWriter();
    writer->write(QStringLiteral("A"));
    QVERIFY(QFile::remove(path()));
    QCOMPARE(writer->open(), DBCResultCode::FolderNotExist);
    QCOMPARE(writer->write(QStringLiteral("B")), DBCResultCode::FolderNotExist);
    QVERIFY(!QFile::exists(path()));
}

// The limit on file sizes makes a write fail in the way a full disk does.
void tst_fileWriter::fullDiskFailsTheWriteThatMeetsIt()
{
    const auto writer = logWriter();
    QCOMPARE(writer->write(QStringLiteral("12345678")), DBCResultCode::Success);

    struct rlimit old { };
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit full {
        10, old.rlim_max
    };
    ::setrlimit(RLIMIT_FSIZE, &full);
    const DBCResultCode partly = writer->write(QStringLiteral("12345678"));
    const DBCResultCode notAtAll = writer->write(QStringLiteral("1"));
    writer->close();
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);

    QCOMPARE(partly, DBCResultCode::DataFileWriteFailure);
    QCOMPARE(notAtAll, DBCResultCode::DataFileWriteFailure);
    QCOMPARE(writer->write(QStringLiteral("x")), DBCResultCode::Success);
}

void tst_fileWriter::closeReleasesTheFile()
{
    const auto writer = logWriter();
    writer->open();
    QCOMPARE(writer->close(), DBCResultCode::Success);
    QVERIFY(QFile::remove(path()));
    QCOMPARE(writer->write(QStringLiteral("new\n")), DBCResultCode::Success);
    QCOMPARE(written(), QByteArray("new\n"));
}

void tst_fileWriter::missingTextIsAGeneralFailure()
{
    QCOMPARE(dataFileWriter()->write(std::nullopt), DBCResultCode::GeneralFailure);
    QVERIFY(!QFile::exists(path()));
}

void tst_fileWriter::utf8TextIsWrittenAsItIs()
{
    const auto writer = logWriter();
    writer->write(QStringLiteral("one\t "));
    writer->write(QStringLiteral("二\n"));
    QCOMPARE(written(), QByteArray("one\t \xE4\xBA\x8C\n"));
}

void tst_fileWriter::utf16TextIsWrittenWithoutAMarkOfItsOwn()
{
    dataFileWriter()->write(QStringLiteral("未"));
    QCOMPARE(written(), QByteArray::fromHex("FFFE 2A67"));
}

void tst_fileWriter::lineHoldsTheColumnsInTheirOrder()
{
    const QList<DBCRecordKey> order {DBCRecordKey::face_Image_File, DBCRecordKey::back_Image_File,
        DBCRecordKey::attachmentFile, DBCRecordKey::full_Name, DBCRecordKey::full_Name_Kana,
        DBCRecordKey::company, DBCRecordKey::company_Kana, DBCRecordKey::department,
        DBCRecordKey::job_Title, DBCRecordKey::zip_PostalCode, DBCRecordKey::state,
        DBCRecordKey::city, DBCRecordKey::street, DBCRecordKey::address,
        DBCRecordKey::telephone_Number, DBCRecordKey::fax_Number, DBCRecordKey::mobile_Number,
        DBCRecordKey::e_Mail, DBCRecordKey::web_Page_Address, DBCRecordKey::memo,
        DBCRecordKey::register_Date};
    DBCRecord record;
    for (qsizetype i = order.size(); i-- > 0;)
        record.setValue(order[i], QStringLiteral("value %1").arg(i + 1));

    dataFileWriter()->write(record);

    QStringList expected;
    for (int i = 1; i <= 21; ++i)
        expected << QStringLiteral("value %1").arg(i);
    QCOMPARE(written(), mark + littleEndian(expected.join(u'\t') + QStringLiteral("\r\n")));
}

void tst_fileWriter::titleLineIsWrittenInTableOrder()
{
    const auto writer = dataFileWriter();
    DBCRecord titles;
    for (auto i = writer->mappingTitleDic().begin(); i != writer->mappingTitleDic().end(); ++i)
        titles.setValue(i.key(), i.value());
    const QStringList items = writer->createDataStrWith(titles).value().chopped(2).split(u'\t');
    QCOMPARE(items.size(), 21);
    QCOMPARE(items[0], getLocalString(QStringLiteral("IDS_CSV_TITLE_IMG_FACE")));
    QCOMPARE(items[3], getLocalString(QStringLiteral("IDS_CSV_TITLE_FULL_NAME")));
    QCOMPARE(items[20], getLocalString(QStringLiteral("IDS_CSV_TITLE_ENTRY_DATE")));
}

void tst_fileWriter::furtherKeysAreIgnored()
{
    DBCRecord record = emptyRecord();
    const auto writer = dataFileWriter();
    const QString line = writer->createDataStrWith(record).value();
    record.setValue(DBCRecordKey::cardID, QStringLiteral("id"));
    record.setValue(DBCRecordKey::recordNo, QStringLiteral("2"));
    QCOMPARE(writer->createDataStrWith(record).value(), line);
}

void tst_fileWriter::recordWithoutAColumnIsNotWritten_data()
{
    QTest::addColumn<DBCRecordKey>("key");
    for (const DBCColumn& column : DBCColumns)
        QTest::newRow(qPrintable(recordKeyName(column.key))) << column.key;
}

void tst_fileWriter::recordWithoutAColumnIsNotWritten()
{
    QFETCH(DBCRecordKey, key);
    DBCRecord record = emptyRecord();
    record.removeValue(key);
    const auto writer = dataFileWriter();
    QVERIFY(!writer->validateItemRequired(record));
    QVERIFY(!writer->createDataStrWith(record));
    QCOMPARE(writer->write(record), DBCResultCode::DataFileWriteFailure);
}

void tst_fileWriter::recordWithoutFaxLeavesTheFileUnchanged()
{
    const auto writer = dataFileWriter();
    writer->write(emptyRecord());
    const QByteArray before = written();
    DBCRecord record = emptyRecord();
    record.removeValue(DBCRecordKey::fax_Number);
    QCOMPARE(writer->write(record), DBCResultCode::DataFileWriteFailure);
    QCOMPARE(written(), before);
}

void tst_fileWriter::valueIsCleaned_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("item");
    const auto row = [](const char* name, const char16_t* value, const char16_t* item) {
        QTest::newRow(name) << QString::fromUtf16(value) << QString::fromUtf16(item);
    };
    row("line break becomes one space, tab vanishes", u"one\r\ntwo th\tree", u"one two three");
    row("two spaces only", u"  ", u"");
    row("every blank at the ends", u"\t \u3000\r\n\u0085\u2028x\u2028\u0085\n\r\u3000 \t", u"x");
    row("blanks inside stay", u"a  \u3000b", u"a  \u3000b");
    row("line feed", u"a\nb", u"a b");
    row("two line feeds", u"a\n\nb", u"a  b");
    row("line separator", u"a\u2028b", u"a b");
    row("lone carriage return stays inside", u"a\rb", u"a\rb");
    row("next line stays inside", u"a\u0085b", u"a\u0085b");
    row("paragraph separator stays everywhere", u"\u2029a\u2029b\u2029", u"\u2029a\u2029b\u2029");
    row("tab between carriage return and line feed", u"a\r\t\nb", u"a b");
    row("no-break space stays at the ends", u"\u00A0a\u00A0", u"\u00A0a\u00A0");
    row("half-width katakana stays", u"ｶﾞ", u"ｶﾞ");
}

void tst_fileWriter::valueIsCleaned()
{
    QFETCH(QString, value);
    QTEST(writtenItem(*dataFileWriter(), DBCRecordKey::company, value), "item");
}

void tst_fileWriter::registerDateGivenAsDate()
{
    const QDateTime date(QDate(2009, 3, 5), QTime(0, 0));
    QCOMPARE(writtenItem(*dataFileWriter(), DBCRecordKey::register_Date, date),
        QStringLiteral("2009/03/05"));
}

void tst_fileWriter::registerDateGivenInAnotherTimeZoneIsLocal()
{
    const QDateTime local(QDate(2009, 3, 5), QTime(0, 30));
    QCOMPARE(writtenItem(
                 *dataFileWriter(), DBCRecordKey::register_Date, local.toOffsetFromUtc(-11 * 3600)),
        QStringLiteral("2009/03/05"));
    QCOMPARE(writtenItem(
                 *dataFileWriter(), DBCRecordKey::register_Date, local.toOffsetFromUtc(14 * 3600)),
        QStringLiteral("2009/03/05"));
}

void tst_fileWriter::registerDateGivenAsText()
{
    QCOMPARE(
        writtenItem(*dataFileWriter(), DBCRecordKey::register_Date, QStringLiteral("2009/3/5 ")),
        QStringLiteral("2009/3/5"));
}

void tst_fileWriter::dateInAnotherColumnGivesAnEmptyItem()
{
    QCOMPARE(writtenItem(*dataFileWriter(), DBCRecordKey::memo, QDateTime::currentDateTime()),
        QStringLiteral(""));
}

void tst_fileWriter::numberGivesAnEmptyItem()
{
    QCOMPARE(writtenItem(*dataFileWriter(), DBCRecordKey::memo, qint64(5)), QStringLiteral(""));
    QCOMPARE(
        writtenItem(*dataFileWriter(), DBCRecordKey::register_Date, qint64(5)), QStringLiteral(""));
}

void tst_fileWriter::listedTextsAreDeletedInOrder()
{
    QCOMPARE(DBCFileWriter::deleteSpecialCharater(
                 {QStringLiteral("b"), QStringLiteral("ac")}, QStringLiteral("abcxabc")),
        QStringLiteral("x"));
    QCOMPARE(DBCFileWriter::deleteSpecialCharater({}, QStringLiteral("a")), QStringLiteral(""));
    QCOMPARE(DBCFileWriter::deleteSpecialCharater({QStringLiteral("a")}, std::nullopt),
        QStringLiteral(""));
}

void tst_fileWriter::listedTextsAreReplacedInOrder()
{
    QCOMPARE(DBCFileWriter::replaceSpecialChars({QStringLiteral("a"), QStringLiteral("bb")},
                 QStringLiteral("b"), QStringLiteral("Aba")),
        QStringLiteral("bb"));
}

void tst_fileWriter::replacingWithoutListOrTextsGivesNothing()
{
    const QString text = QStringLiteral("a");
    QCOMPARE(DBCFileWriter::replaceSpecialChars({}, text, text), QStringLiteral(""));
    QCOMPARE(DBCFileWriter::replaceSpecialChars({text}, std::nullopt, text), QStringLiteral(""));
    QCOMPARE(DBCFileWriter::replaceSpecialChars({text}, text, std::nullopt), QStringLiteral(""));
}

QTEST_GUILESS_MAIN(tst_fileWriter)
#include "tst_fileWriter.moc"
