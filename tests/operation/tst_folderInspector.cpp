// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCFolderInspector.h"

#include "cardimage/bitmap/DBCBitmap.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

// Inspects a folder whose data file has one card, which each test fills in. The problems have short
// texts that consist of their key and their arguments.
struct Inspection {
    Inspection()
    {
        folder.dataFile(DataFileBuilder().titleLine().row({{Key::full_Name, name}}).build());
    }

    DBCFolderReport report() const { return DBCFolderInspector::inspect(folder.path()); }
    // Returns each problem as "line|text", or as "-|text" if it has no line.
    QStringList problems() const
    {
        QStringList lines;
        for (const DBCProblem& problem : report().findings.problems)
            lines << (problem.lineNo ? QString::number(*problem.lineNo) : u"-"_s) + u'|'
                    + problem.text;
        return lines;
    }
    void hasOneCard(DataFileBuilder::Items items)
    {
        items.emplace_back(Key::full_Name, name);
        folder.dataFile(DataFileBuilder().titleLine().row(items).build());
    }

    static QHash<QString, std::optional<QString>> shortTexts()
    {
        QHash<QString, std::optional<QString>> texts;
        for (const char* key :
            {"IDS_CHECK_FOLDER_MISSING", "IDS_CHECK_FOLDER_UNREADABLE", "IDS_CHECK_VERSION_MISSING",
                "IDS_CHECK_VERSION_OTHER", "IDS_CHECK_VERSION_PRODUCT", "IDS_CHECK_SIZE",
                "IDS_CHECK_DATA_FILE_MISSING", "IDS_CHECK_DATA_FILE_UNREADABLE",
                "IDS_CHECK_DATA_FILE_ENCODING", "IDS_CHECK_DATA_FILE_EMPTY"})
            texts.insert(QString::fromLatin1(key), QString::fromLatin1(key).mid(10));
        for (const char* key : {"IDS_CHECK_IMAGE_MISSING", "IDS_CHECK_IMAGE_NO_JPEG",
                 "IDS_CHECK_FILE_UNREADABLE", "IDS_CHECK_ATTACHMENT_FOLDER_MISSING"})
            texts.insert(
                QString::fromLatin1(key), QString::fromLatin1(key).mid(10) + u" %1 %2 %3"_s);
        texts.insert(u"IDS_LOG_WRN_NAME_LEADS_OUT"_s, u"LEADS_OUT %1 %2 %3"_s);
        texts.insert(u"IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT"_s, u"BAD_NAME %1 %2"_s);
        texts.insert(u"IDS_LOG_WRN_ATTACH_NOT_REGULAR"_s, u"NOT_REGULAR %1 %2 %3"_s);
        texts.insert(u"IDS_LOG_WRN_ITEM_MAX_LEN"_s, u"TOO_LONG %1 %2 %3"_s);
        texts.insert(u"IDS_LOG_ERR_DATA_LINE"_s, u"DATA_LINE %1 %4"_s);
        texts.insert(u"IDS_LOG_ERR_TITLE_LINE"_s, u"TITLE_LINE %1 %4"_s);
        texts.insert(u"IDS_LOG_ERR_TITLE_LINE_MISSING"_s, u"TITLE_MISSING %1 %5"_s);
        return texts;
    }

    QString name = u"Hoshino"_s;
    TestHome home;
    ScopedHost host;
    DBCLocalizable::Substitute texts {shortTexts()};
    InterchangeFolder folder {home};
};

QString title(const char* key)
{
    return getLocalString(key);
}

QString longText(qsizetype length)
{
    return QString(length, u'x');
}

} // namespace

class tst_folderInspector : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goodFolderHasNoProblems()
    {
        Inspection inspection;
        inspection.folder.image(u"1.jpg"_s, JpegBuilder(20, 10).bytes());
        inspection.hasOneCard({{Key::face_Image_File, u"1.jpg"_s}});

        const DBCFolderReport report = inspection.report();

        QVERIFY(!report.findings.couldNotLook);
        QVERIFY(report.findings.problems.empty());
        QCOMPARE(report.cardCount, 1);
    }

    void nothingIsChanged()
    {
        Inspection inspection;
        inspection.hasOneCard({{Key::attachmentFile, u"a"_s}, {Key::memo, longText(300)},
            {Key::back_Image_File, u"no.jpg"_s}});
        inspection.folder.attachment(u"a"_s, u".DS_Store"_s, "x");
        const QStringList before = snapshotOf(inspection.folder.path());

        QVERIFY(!inspection.problems().isEmpty());

        QCOMPARE(snapshotOf(inspection.folder.path()), before);
    }

    void nothingIsLogged()
    {
        Inspection inspection;
        inspection.hasOneCard({{Key::memo, longText(300)}, {Key::back_Image_File, u"no.jpg"_s}});
        QCOMPARE(inspection.problems().size(), 2);
        QCOMPARE(inspection.home.logText(), QString());
    }

    void progressGoesFromLineToLine()
    {
        Inspection inspection;
        inspection.folder.dataFile(DataFileBuilder()
                                       .titleLine()
                                       .row(20)
                                       .blankLine()
                                       .row(21)
                                       .text(QString(20, u'\t'))
                                       .build());
        QStringList steps;
        DBCFolderInspector::inspect(inspection.folder.path(), [&](qint64 finished, qint64 max) {
            steps << u"%1 of %2"_s.arg(finished).arg(max);
            return DBCLoopControl::Continue;
        });
        QCOMPARE(steps, QStringList({u"0 of 0"_s, u"2 of 5"_s, u"4 of 5"_s}));
    }

    void lookCanBeStopped_data()
    {
        QTest::addColumn<qint64>("lastLine");
        QTest::addColumn<qsizetype>("problems");
        QTest::addColumn<qint64>("cards");
        QTest::newRow("before the data file") << qint64(0) << qsizetype(0) << qint64(0);
        QTest::newRow("at a wrong line") << qint64(2) << qsizetype(1) << qint64(0);
        QTest::newRow("at a card") << qint64(3) << qsizetype(2) << qint64(1);
        QTest::newRow("not at all") << qint64(100) << qsizetype(3) << qint64(2);
    }
    void lookCanBeStopped()
    {
        QFETCH(qint64, lastLine);
        Inspection inspection;
        const DataFileBuilder::Items card {{Key::memo, longText(300)}};
        inspection.folder.dataFile(
            DataFileBuilder().titleLine().row(20).row(card).row(card).build());
        const DBCFolderReport report
            = DBCFolderInspector::inspect(inspection.folder.path(), [&](qint64 finished, qint64) {
                  return finished < lastLine ? DBCLoopControl::Continue : DBCLoopControl::Stop;
              });
        QCOMPARE(report.wasStopped, lastLine < 100);
        QTEST(qsizetype(report.findings.problems.size()), "problems");
        QTEST(report.cardCount, "cards");
    }

    void lookCanBeStoppedWhileMeasuringHangs()
    {
        Inspection inspection;
        const QString program = inspection.home.writeFile(u"du"_s, "#!/bin/sh\nexec sleep 60\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        inspection.host->diskUsageProgram = program;
        QElapsedTimer timer;
        timer.start();
        const DBCFolderReport report = DBCFolderInspector::inspect(
            inspection.folder.path(), [](qint64, qint64) { return DBCLoopControl::Stop; });
        QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(report.wasStopped);
        QVERIFY(report.findings.problems.empty());
    }

    void missingFolderCannotBeLookedAt()
    {
        const Inspection inspection;
        const DBCFolderReport report
            = DBCFolderInspector::inspect(inspection.home.path(u"nowhere"_s));
        QVERIFY(report.findings.couldNotLook);
        QCOMPARE(report.findings.couldNotLook->text, u"FOLDER_MISSING"_s);
    }

    void fileInPlaceOfAFolderCannotBeLookedAt()
    {
        const Inspection inspection;
        const QString file = inspection.home.writeFile(u"file"_s, "x");
        QVERIFY(DBCFolderInspector::inspect(file).findings.couldNotLook);
    }

    void unreadableFolderCannotBeLookedAt()
    {
        Inspection inspection;
        inspection.host.makeUnreadable({inspection.folder.path()});

        const DBCFolderReport report = inspection.report();

        QVERIFY(report.findings.couldNotLook);
        QCOMPARE(report.findings.couldNotLook->text, u"FOLDER_UNREADABLE"_s);
    }

    void versionFile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("problem");
        const auto utf16 = [](const char* text) {
            QByteArray bytes("\xff\xfe", 2);
            for (const char* unit = text; *unit; ++unit)
                bytes.append(*unit).append('\0');
            return bytes;
        };
        QTest::newRow("exported product") << utf16("TELKA\tV1.0L10\r\n") << u"VERSION_PRODUCT"_s;
        QTest::newRow("other version") << utf16("ACME\tV2\r\n") << u"VERSION_OTHER"_s;
        QTest::newRow("no tab") << utf16("ACME\r\n") << u"VERSION_OTHER"_s;
        QTest::newRow("lone surrogate")
            << QByteArray("\xff\xfe\x00\xd8", 4) << u"VERSION_MISSING"_s;
    }
    void versionFile()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, problem);
        Inspection inspection;
        inspection.folder.versionBytes(bytes);
        QCOMPARE(inspection.problems(), QStringList(u"-|"_s + problem));
        inspection.folder.withoutVersion();
        QCOMPARE(inspection.problems(), QStringList(u"-|VERSION_MISSING"_s));
    }

    void spaceNeededIsTheFolderAndTheMargin()
    {
        Inspection inspection;
        const QString program
            = inspection.home.writeFile(u"du"_s, "#!/bin/sh\nprintf '300\\t%s\\n' \"$3\"\n");
        QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
        inspection.host->diskUsageProgram = program;

        QCOMPARE(inspection.report().bytesNeeded, quint64 {307200 + 524288});
    }

    void folderThatCannotBeMeasured()
    {
        Inspection inspection;
        inspection.host->diskUsageProgram = u"/bin/false"_s;

        QCOMPARE(inspection.problems(), QStringList(u"-|SIZE"_s));
        QCOMPARE(inspection.report().bytesNeeded, 0ULL);
    }

    void missingDataFile()
    {
        Inspection inspection;
        QVERIFY(QFile::remove(inspection.folder.dataFilePath()));

        QCOMPARE(inspection.problems(), QStringList(u"-|DATA_FILE_MISSING"_s));
    }

    void folderUnderTheDataFilesName()
    {
        Inspection inspection;
        QVERIFY(QFile::remove(inspection.folder.dataFilePath()));
        QVERIFY(QDir().mkpath(inspection.folder.dataFilePath()));

        QCOMPARE(inspection.problems(), QStringList(u"-|DATA_FILE_MISSING"_s));
    }

    void dataFileBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("problem");
        QTest::newRow("nothing") << QByteArray() << u"-|DATA_FILE_EMPTY"_s;
        QTest::newRow("odd size") << DataFileBuilder().titleLine().bytes("x").build()
                                  << u"-|DATA_FILE_ENCODING"_s;
        QTest::newRow("lone surrogate")
            << DataFileBuilder().titleLine().bytes(QByteArray("\x00\xd8", 2)).build()
            << u"-|DATA_FILE_ENCODING"_s;
    }
    void dataFileBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, problem);
        Inspection inspection;
        inspection.folder.dataFile(bytes);

        QCOMPARE(inspection.problems(), QStringList(problem));
    }

    void titleLineAlone()
    {
        Inspection inspection;
        inspection.folder.dataFile(DataFileBuilder().titleLine().build());

        QCOMPARE(inspection.problems(), QStringList(u"-|DATA_FILE_EMPTY"_s));
    }

    void titleLineThatLacksATitle()
    {
        Inspection inspection;
        QStringList titles = DataFileBuilder::titles();
        const QString missing = titles.takeAt(4);
        inspection.folder.dataFile(DataFileBuilder().titleLine(titles).row(20).row(21).build());

        QCOMPARE(inspection.problems(), QStringList(u"1|TITLE_MISSING 1 "_s + missing));
    }

    void titleLineWithATitleTwice()
    {
        Inspection inspection;
        const QStringList titles = DataFileBuilder::titles();
        inspection.folder.dataFile(
            DataFileBuilder().titleLine(titles + QStringList(titles.constFirst())).row(21).build());

        QCOMPARE(inspection.problems(), QStringList(u"1|TITLE_LINE 1 22"_s));
    }

    void everyLineWithAWrongItemCountIsListed()
    {
        Inspection inspection;
        inspection.folder.dataFile(DataFileBuilder()
                                       .titleLine()
                                       .row(20)
                                       .row({{Key::full_Name, u"Good"_s}})
                                       .row(22)
                                       .row({{Key::full_Name, u"Good"_s}})
                                       .row(1)
                                       .build());

        QCOMPARE(inspection.problems(),
            QStringList({u"2|DATA_LINE 2 20"_s, u"4|DATA_LINE 4 22"_s, u"6|DATA_LINE 6 1"_s}));
        QCOMPARE(inspection.report().cardCount, 2);
    }

    void linesAreCountedAcrossBlankOnes()
    {
        Inspection inspection;
        inspection.folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .blankLine()
                .line(u"\u3000 \t"_s)
                .row({{Key::full_Name, inspection.name}, {Key::face_Image_File, u"no.jpg"_s}})
                .build());

        QCOMPARE(inspection.problems(),
            QStringList(
                u"4|IMAGE_MISSING 4 Hoshino "_s + inspection.folder.imagePath(u"no.jpg"_s)));
    }

    void bigEndianFileBeyondOneMebibyte()
    {
        Inspection inspection;
        DataFileBuilder builder(DataFileBuilder::Encoding::Utf16BigEndian);
        builder.titleLine();
        constexpr int cards = 3000;
        for (int card = 0; card < cards; ++card)
            builder.row({{Key::full_Name, inspection.name}, {Key::memo, longText(200)}});
        inspection.folder.dataFile(builder.row(20).build());

        QCOMPARE(inspection.report().cardCount, cards);
        QCOMPARE(inspection.problems(), QStringList(u"3002|DATA_LINE 3002 20"_s));
    }

    void overlongItem_data()
    {
        QTest::addColumn<Key>("key");
        QTest::addColumn<QString>("titleKey");
        QTest::addColumn<int>("limit");
        const auto row = [](const char* name, Key key, const char* titleKey, int limit) {
            QTest::newRow(name) << key << QString::fromLatin1(titleKey) << limit;
        };
        row("name", Key::full_Name, "IDS_CSV_TITLE_FULL_NAME", 64);
        row("name kana", Key::full_Name_Kana, "IDS_CSV_TITLE_FULL_NAME_S", 64);
        row("company", Key::company, "IDS_CSV_TITLE_OFFICE_NAME", 128);
        row("company kana", Key::company_Kana, "IDS_CSV_TITLE_OFFICE_NAME_S", 128);
        row("department", Key::department, "IDS_CSV_TITLE_DEPARTMENT", 128);
        row("job title", Key::job_Title, "IDS_CSV_TITLE_JOB_TITLE", 128);
        row("postal code", Key::zip_PostalCode, "IDS_CSV_TITLE_OFFICE_POST", 32);
        row("telephone", Key::telephone_Number, "IDS_CSV_TITLE_OFFICE_PHONE", 32);
        row("fax", Key::fax_Number, "IDS_CSV_TITLE_OFFICE_FAX", 32);
        row("mobile", Key::mobile_Number, "IDS_CSV_TITLE_OFFICE_MOBILE_PHONE", 32);
        row("e-mail", Key::e_Mail, "IDS_CSV_TITLE_OFFICE_E_MAIL", 128);
        row("web", Key::web_Page_Address, "IDS_CSV_TITLE_OFFICE_WEB", 128);
        row("memo", Key::memo, "IDS_CSV_TITLE_MEMO1", 256);
    }
    void overlongItem()
    {
        QFETCH(Key, key);
        QFETCH(QString, titleKey);
        QFETCH(int, limit);
        Inspection inspection;
        const auto problemsOfLength = [&](int length) {
            inspection.folder.dataFile(
                DataFileBuilder().titleLine().row({{key, longText(length)}}).build());
            return inspection.problems();
        };
        const QString fullName = key == Key::full_Name ? longText(limit + 1) : QString();

        QCOMPARE(problemsOfLength(limit), QStringList());
        QCOMPARE(problemsOfLength(limit + 1),
            QStringList(u"2|TOO_LONG %1 2 %2"_s.arg(getLocalString(titleKey), fullName)));
    }

    void overlongAddressIsMeasuredAsComposed()
    {
        Inspection inspection;
        inspection.hasOneCard(
            {{Key::state, longText(60)}, {Key::city, longText(60)}, {Key::street, longText(60)}});

        QCOMPARE(inspection.problems(),
            QStringList(u"2|TOO_LONG %1+%2+%3/%4 2 Hoshino"_s.arg(
                title("IDS_CSV_TITLE_OFFICE_ADDRESS_STATE"),
                title("IDS_CSV_TITLE_OFFICE_ADDRESS_CITY"),
                title("IDS_CSV_TITLE_OFFICE_ADDRESS_STREET"),
                title("IDS_CSV_TITLE_OFFICE_ADDRESS"))));
    }

    // An import warns in the order of its columns, where the address precedes the telephone number.
    // The inspection must report the problems in the same order.
    void overlongItemsComeInTheOrderOfTheImport()
    {
        Inspection inspection;
        inspection.hasOneCard({{Key::zip_PostalCode, longText(33)}, {Key::address, longText(129)},
            {Key::telephone_Number, longText(33)}});

        const QStringList problems = inspection.problems();

        QCOMPARE(problems.size(), 3);
        QVERIFY(problems[0].startsWith(u"2|TOO_LONG "_s + title("IDS_CSV_TITLE_OFFICE_POST")));
        QVERIFY(
            problems[1].startsWith(u"2|TOO_LONG "_s + title("IDS_CSV_TITLE_OFFICE_ADDRESS_STATE")));
        QVERIFY(problems[2].startsWith(u"2|TOO_LONG "_s + title("IDS_CSV_TITLE_OFFICE_PHONE")));
    }

    void overlongAddressPartsAloneAreNotMeasured()
    {
        Inspection inspection;
        // If a card has the parts of its address, an import ignores the whole address, so the
        // length of the whole address does not matter.
        inspection.hasOneCard({{Key::state, longText(10)}, {Key::city, longText(10)},
            {Key::street, longText(10)}, {Key::address, longText(500)}});

        QCOMPARE(inspection.problems(), QStringList());
    }

    void imageThatIsThere()
    {
        Inspection inspection;
        inspection.folder.image(u"1.jpg"_s, JpegBuilder(20, 10).bytes());
        inspection.folder.image(u"2.jpg"_s, JpegBuilder(20, 10).gray().bytes());
        inspection.hasOneCard(
            {{Key::face_Image_File, u"1.jpg"_s}, {Key::back_Image_File, u"2.jpg"_s}});

        QCOMPARE(inspection.problems(), QStringList());
    }

    void imageInOtherLetterCase()
    {
        Inspection inspection;
        inspection.folder.image(u"Card.JPG"_s, JpegBuilder(20, 10).bytes());
        inspection.hasOneCard({{Key::face_Image_File, u"card.jpg"_s}});

        QCOMPARE(inspection.problems(), QStringList());
    }

    void imageThatIsMissing()
    {
        Inspection inspection;
        inspection.hasOneCard(
            {{Key::face_Image_File, u"no.jpg"_s}, {Key::back_Image_File, u"\u3000"_s}});

        QCOMPARE(inspection.problems(),
            QStringList(
                u"2|IMAGE_MISSING 2 Hoshino "_s + inspection.folder.imagePath(u"no.jpg"_s)));
    }

    void imageOutsideItsFolder()
    {
        Inspection inspection;
        inspection.home.writeFile(u"secret.jpg"_s, JpegBuilder(20, 10).bytes());
        inspection.hasOneCard({{Key::face_Image_File, u"../../secret.jpg"_s}});

        QCOMPARE(inspection.problems(), QStringList(u"2|LEADS_OUT 2 Hoshino ../../secret.jpg"_s));
    }

    void imageThatIsNoJpeg_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no picture");
        QTest::newRow("cut in its header") << JpegBuilder(20, 10).bytes().left(20);
        QTest::newRow("other format") << QByteArray("\x89PNG\r\n\x1a\n and so on");
    }
    void imageThatIsNoJpeg()
    {
        QFETCH(QByteArray, bytes);
        Inspection inspection;
        inspection.folder.image(u"1.jpg"_s, bytes);
        inspection.hasOneCard({{Key::back_Image_File, u"1.jpg"_s}});

        QCOMPARE(inspection.problems(),
            QStringList(u"2|IMAGE_NO_JPEG 2 Hoshino "_s + inspection.folder.imagePath(u"1.jpg"_s)));
    }

    void imageThatIsLargerThanAnyImportReads()
    {
        Inspection inspection;
        inspection.folder.image(u"1.jpg"_s, JpegBuilder(20, 10).bytes());
        inspection.hasOneCard({{Key::face_Image_File, u"1.jpg"_s}});
        const QString path = inspection.folder.imagePath(u"1.jpg"_s);
        QVERIFY(QFile::resize(path, DBCBitmap::maximumBytes + 1));

        QCOMPARE(inspection.problems(), QStringList(u"2|IMAGE_NO_JPEG 2 Hoshino "_s + path));
    }

    void imageThatCannotBeRead()
    {
        Inspection inspection;
        inspection.folder.image(u"1.jpg"_s, JpegBuilder(20, 10).bytes());
        inspection.hasOneCard({{Key::face_Image_File, u"1.jpg"_s}});
        const QString path = inspection.folder.imagePath(u"1.jpg"_s);
        inspection.host.makeUnreadable({path});

        QCOMPARE(inspection.problems(), QStringList(u"2|FILE_UNREADABLE 2 Hoshino "_s + path));
    }

    void imageThatIsAPipe()
    {
        Inspection inspection;
        inspection.hasOneCard({{Key::face_Image_File, u"pipe.jpg"_s}});
        const QString path = inspection.folder.imagePath(u"pipe.jpg"_s);
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);

        QCOMPARE(inspection.problems(), QStringList(u"2|IMAGE_MISSING 2 Hoshino "_s + path));
    }

    void attachmentsThatAreThere()
    {
        Inspection inspection;
        inspection.folder.attachment(u"a"_s, u"plan.txt"_s, "x");
        inspection.folder.attachment(u"a"_s, u".DS_Store"_s, "x");
        inspection.folder.attachment(u"a/inner"_s, u"deep.txt"_s, "x");
        inspection.hasOneCard({{Key::attachmentFile, u"a"_s}});

        QCOMPARE(inspection.problems(), QStringList());
    }

    void attachmentFolderThatIsMissing()
    {
        Inspection inspection;
        inspection.folder.attachment(u"."_s, u"file"_s, "x");
        inspection.hasOneCard({{Key::attachmentFile, u"file"_s}});

        QCOMPARE(inspection.problems(),
            QStringList(u"2|ATTACHMENT_FOLDER_MISSING 2 Hoshino "_s
                + inspection.folder.attachmentPath(u"file"_s)));
    }

    void attachmentFolderOutside()
    {
        Inspection inspection;
        inspection.hasOneCard({{Key::attachmentFile, inspection.home.path()}});

        QCOMPARE(inspection.problems(),
            QStringList(u"2|LEADS_OUT 2 Hoshino "_s + inspection.home.path()));
    }

    void attachmentFolderThatCannotBeRead()
    {
        Inspection inspection;
        inspection.folder.attachment(u"a"_s, u"plan.txt"_s, "x");
        inspection.hasOneCard({{Key::attachmentFile, u"a"_s}});
        const QString path = inspection.folder.attachmentPath(u"a"_s);
        inspection.host.makeUnreadable({path});

        QCOMPARE(inspection.problems(), QStringList(u"2|FILE_UNREADABLE 2 Hoshino "_s + path));
    }

    void attachmentsThatWouldBeLeftOut()
    {
        Inspection inspection;
        inspection.folder.attachment(u"a"_s, u".hidden"_s, "x");
        inspection.folder.attachment(u"a"_s, u"a:b.txt"_s, "x");
        const auto path = [&](const char* name) {
            return inspection.folder.attachmentPath(u"a"_s, QString::fromLatin1(name));
        };
        QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
        QCOMPARE(symlink("/etc/passwd", QFile::encodeName(path("zlink")).constData()), 0);
        inspection.hasOneCard({{Key::attachmentFile, u"a"_s}});

        QCOMPARE(inspection.problems(),
            QStringList({u"2|BAD_NAME 2 Hoshino"_s, u"2|BAD_NAME 2 Hoshino"_s,
                u"2|NOT_REGULAR 2 Hoshino pipe"_s, u"2|NOT_REGULAR 2 Hoshino zlink"_s}));
    }

    void attachmentThatCannotBeRead()
    {
        Inspection inspection;
        inspection.folder.attachment(u"a"_s, u"plan.txt"_s, "x");
        inspection.hasOneCard({{Key::attachmentFile, u"a"_s}});
        const QString path = inspection.folder.attachmentPath(u"a"_s, u"plan.txt"_s);
        inspection.host.makeUnreadable({path});

        QCOMPARE(inspection.problems(), QStringList(u"2|FILE_UNREADABLE 2 Hoshino "_s + path));
    }
};

QTEST_GUILESS_MAIN(tst_folderInspector)
#include "tst_folderInspector.moc"
