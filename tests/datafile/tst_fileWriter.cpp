// SPDX-License-Identifier: GPL-3.0-or-later
// The file: made, opened, appended to and closed.
#include "tests/datafile/WriterFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FailingCall.h"
#include "tests/support/FileSizeLimit.h"

#include <QtTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

class tst_fileWriter : public QObject, private WriterFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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
    void fullDiskThatHasNoRoomForTheMarkFailsTheOpening();
    void fileThatCannotBeLookedAtIsNotWritten_data();
    void fileThatCannotBeLookedAtIsNotWritten();
    void closeReleasesTheFile();
    void missingTextIsAGeneralFailure();
    void utf8TextIsWrittenAsItIs();
    void utf16TextIsWrittenWithoutAMarkOfItsOwn();
    void emptyUtf16TextIsAMark();
};

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
    QCOMPARE(written(), littleEndianWithMark(QStringLiteral("A\r\nA\r\nA\r\n")));
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
    QCOMPARE(written(), QByteArray("\xFF\xFE"));
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
    end();
    const AsOrdinaryUser user;
    begin();
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

void tst_fileWriter::fullDiskFailsTheWriteThatMeetsIt()
{
    const auto writer = logWriter();
    QCOMPARE(writer->write(QStringLiteral("12345678")), DBCResultCode::Success);
    {
        const FileSizeLimit full(10);
        QCOMPARE(writer->write(QStringLiteral("12345678")),
            DBCResultCode::DataFileWriteFailure); // partly
        QCOMPARE(writer->write(QStringLiteral("1")), DBCResultCode::DataFileWriteFailure);
        writer->close();
    }
    QCOMPARE(writer->write(QStringLiteral("x")), DBCResultCode::Success);
}

void tst_fileWriter::fullDiskThatHasNoRoomForTheMarkFailsTheOpening()
{
    const auto writer = dataFileWriter();
    {
        const FileSizeLimit full(1);
        QCOMPARE(writer->open(), DBCResultCode::DataFileOpenFailure);
        QCOMPARE(writer->write(QStringLiteral("A")), DBCResultCode::DataFileOpenFailure);
    }
}

void tst_fileWriter::fileThatCannotBeLookedAtIsNotWritten_data()
{
    QTest::addColumn<qlonglong>("call");
    QTest::newRow("looking") << qlonglong(SYS_newfstatat);
    QTest::newRow("seeking") << qlonglong(SYS_lseek);
}

void tst_fileWriter::fileThatCannotBeLookedAtIsNotWritten()
{
    QFETCH(qlonglong, call);
    const auto writer = dataFileWriter();
    auto code = DBCResultCode::Success;
    if (!FailingCall(call, EIO).during([&] { code = writer->write(QStringLiteral("A")); }))
        QSKIP("calls cannot be made to fail here");
    QCOMPARE(code, DBCResultCode::DataFileOpenFailure);
    QVERIFY(written().isEmpty());
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

void tst_fileWriter::emptyUtf16TextIsAMark()
{
    dataFileWriter()->write(QStringLiteral(""));
    QCOMPARE(written(), QByteArray::fromHex("FFFE FFFE"));
}

QTEST_GUILESS_MAIN(tst_fileWriter)
#include "tst_fileWriter.moc"
