// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file writer: making, opening, appending to and closing the file.
#include "tests/datafile/WriterFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FailingCall.h"
#include "tests/support/FileSizeLimit.h"

#include <QtTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_fileWriter : public QObject, private WriterFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void emptyPathMakesNoWriter()
    {
        QVERIFY(!DBCFileWriter::initWithFileName({}, DBCTextEncoding::Utf8, u"\n"_s));
    }

    void writerKnowsItsPathAndTheTitleOfEveryColumn()
    {
        const auto writer = dataFileWriter();
        QCOMPARE(writer->filePath(), path());
        QCOMPARE(writer->mappingTitleDic().size(), 21);
        QVERIFY(!writer->mappingTitleDic().value(DBCRecordKey::memo).isEmpty());
    }

    void newDataFileStartsWithOneByteOrderMark()
    {
        const auto writer = dataFileWriter();
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(writer->write(u"A\r\n"_s), DBCResultCode::Success);
            writer->open();
        }
        QCOMPARE(written(), littleEndianWithMark(u"A\r\nA\r\nA\r\n"_s));
    }

    void existingFileIsKeptAndAppendedTo()
    {
        _home->writeFile(u"data.txt"_s, "first\n");
        const auto writer = logWriter();
        QCOMPARE(writer->write(u"second\n"_s), DBCResultCode::Success);
        QCOMPARE(written(), QByteArray("first\nsecond\n"));
    }

    void secondWriterAppendsASecondByteOrderMark()
    {
        dataFileWriter()->write(u"A"_s);
        dataFileWriter()->write(u"B"_s);
        QCOMPARE(written(), QByteArray::fromHex("FFFE 4100 FFFE 4200"));
    }

    void newFileBelongsToItsOwnerAlone()
    {
        QCOMPARE(logWriter()->open(), DBCResultCode::Success);
        struct stat status { };
        QCOMPARE(::stat(QFile::encodeName(path()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777U, 0700U);
    }

    void descriptorIsNotInheritedByOtherPrograms()
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

    void openTwiceIsHarmless()
    {
        const auto writer = dataFileWriter();
        QCOMPARE(writer->open(), DBCResultCode::Success);
        QCOMPARE(writer->open(), DBCResultCode::Success);
        QCOMPARE(written(), QByteArray("\xFF\xFE"));
    }

    void writingAfterAnotherProgramAppendedKeepsItsLines()
    {
        const auto one = logWriter();
        const auto other = logWriter();
        one->write(u"1\n"_s);
        other->write(u"2\n"_s);
        one->write(u"3\n"_s);
        QCOMPARE(written(), QByteArray("1\n2\n3\n"));
    }

    void missingFolderCannotBeOpened()
    {
        const auto writer = DBCFileWriter::initWithFileName(
            _home->path(u"no/data.txt"_s), DBCTextEncoding::Utf16, u"\r\n"_s);
        QCOMPARE(writer->open(), DBCResultCode::DataFileOpenFailure);
        QCOMPARE(writer->write(u"A"_s), DBCResultCode::DataFileOpenFailure);
    }

    void folderAtThePathCannotBeOpened()
    {
        _home->makeFolder(u"data.txt"_s);
        QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
    }

    void pipeAtThePathCannotBeOpened()
    {
        QCOMPARE(::mkfifo(QFile::encodeName(path()).constData(), 0700), 0);
        QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
    }

    void readOnlyFileCannotBeOpened()
    {
        end();
        const AsOrdinaryUser user;
        begin();
        QFile::setPermissions(_home->writeFile(u"data.txt"_s, "x"), QFile::ReadOwner);
        QCOMPARE(dataFileWriter()->open(), DBCResultCode::DataFileOpenFailure);
        QCOMPARE(written(), QByteArray("x"));
    }

    void vanishedFileIsReported()
    {
        const auto writer = dataFileWriter();
        writer->write(u"A"_s);
        QVERIFY(QFile::remove(path()));
        QCOMPARE(writer->open(), DBCResultCode::FolderNotExist);
        QCOMPARE(writer->write(u"B"_s), DBCResultCode::FolderNotExist);
        QVERIFY(!QFile::exists(path()));
    }

    void fullDiskFailsTheWriteThatMeetsIt()
    {
        const auto writer = logWriter();
        QCOMPARE(writer->write(u"12345678"_s), DBCResultCode::Success);
        {
            const FileSizeLimit full(10);
            QCOMPARE(writer->write(u"12345678"_s),
                DBCResultCode::DataFileWriteFailure); // only a part of the text was written
            QCOMPARE(writer->write(u"1"_s), DBCResultCode::DataFileWriteFailure);
            writer->close();
        }
        QCOMPARE(writer->write(u"x"_s), DBCResultCode::Success);
    }

    void fullDiskThatHasNoRoomForTheMarkFailsTheOpening()
    {
        const auto writer = dataFileWriter();
        {
            const FileSizeLimit full(1);
            QCOMPARE(writer->open(), DBCResultCode::DataFileOpenFailure);
            QCOMPARE(writer->write(u"A"_s), DBCResultCode::DataFileOpenFailure);
        }
    }

    void fileThatCannotBeLookedAtIsNotWritten_data()
    {
        QTest::addColumn<bool>("isLooking");
        QTest::newRow("looking") << true;
        QTest::newRow("seeking") << false;
    }
    void fileThatCannotBeLookedAtIsNotWritten()
    {
        QFETCH(bool, isLooking);
        const auto failing
            = isLooking ? FailingCall::lookingAtAFile(EIO) : FailingCall(SYS_lseek, EIO);
        const auto writer = dataFileWriter();
        auto code = DBCResultCode::Success;
        if (!failing.during([&] { code = writer->write(u"A"_s); }))
            QSKIP("calls cannot be made to fail here");
        QCOMPARE(code, DBCResultCode::DataFileOpenFailure);
        QVERIFY(written().isEmpty());
    }

    void closeReleasesTheFile()
    {
        const auto writer = logWriter();
        writer->open();
        QCOMPARE(writer->close(), DBCResultCode::Success);
        QVERIFY(QFile::remove(path()));
        QCOMPARE(writer->write(u"new\n"_s), DBCResultCode::Success);
        QCOMPARE(written(), QByteArray("new\n"));
    }

    void missingTextIsAGeneralFailure()
    {
        QCOMPARE(dataFileWriter()->write(std::nullopt), DBCResultCode::GeneralFailure);
        QVERIFY(!QFile::exists(path()));
    }

    void utf8TextIsWrittenAsItIs()
    {
        const auto writer = logWriter();
        writer->write(u"one\t "_s);
        writer->write(u"二\n"_s);
        QCOMPARE(written(), QByteArray("one\t \xE4\xBA\x8C\n"));
    }

    void utf16TextIsWrittenWithoutAMarkOfItsOwn()
    {
        dataFileWriter()->write(u"未"_s);
        QCOMPARE(written(), QByteArray::fromHex("FFFE 2A67"));
    }

    void emptyUtf16TextIsAMark()
    {
        dataFileWriter()->write(u""_s);
        QCOMPARE(written(), QByteArray::fromHex("FFFE FFFE"));
    }
};

QTEST_GUILESS_MAIN(tst_fileWriter)
#include "tst_fileWriter.moc"
