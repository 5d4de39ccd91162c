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

namespace {

using Key = DBCRecordKey;

// A folder with one line a test fills in; the texts of the problems are their keys and arguments.
struct Inspection {
    Inspection()
    {
        folder.dataFile(DataFileBuilder().titleLine().row({{Key::full_Name, name}}).build());
    }

    DBCFolderReport report() const { return DBCFolderInspector::inspect(folder.path()); }
    // "line|text" of each problem, "-" for one without a line.
    QStringList problems() const
    {
        QStringList lines;
        for (const DBCProblem& problem : report().findings.problems)
            lines << (problem.lineNo ? QString::number(*problem.lineNo) : QStringLiteral("-"))
                    + u'|' + problem.text;
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
            texts.insert(QString::fromLatin1(key),
                QString::fromLatin1(key).mid(10) + QStringLiteral(" %1 %2 %3"));
        texts.insert(
            QStringLiteral("IDS_LOG_WRN_NAME_LEADS_OUT"), QStringLiteral("LEADS_OUT %1 %2 %3"));
        texts.insert(QStringLiteral("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT"),
            QStringLiteral("BAD_NAME %1 %2"));
        texts.insert(QStringLiteral("IDS_LOG_WRN_ATTACH_NOT_REGULAR"),
            QStringLiteral("NOT_REGULAR %1 %2 %3"));
        texts.insert(
            QStringLiteral("IDS_LOG_WRN_ITEM_MAX_LEN"), QStringLiteral("TOO_LONG %1 %2 %3"));
        texts.insert(QStringLiteral("IDS_LOG_ERR_DATA_LINE"), QStringLiteral("DATA_LINE %1 %4"));
        texts.insert(QStringLiteral("IDS_LOG_ERR_TITLE_LINE"), QStringLiteral("TITLE_LINE %1 %4"));
        texts.insert(QStringLiteral("IDS_LOG_ERR_TITLE_LINE_MISSING"),
            QStringLiteral("TITLE_MISSING %1 %5"));
        return texts;
    }

    QString name = QStringLiteral("Hoshino");
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
    void goodFolderHasNoProblems();
    void nothingIsChanged();
    void nothingIsLogged();
    void progressGoesFromLineToLine();
    void lookCanBeStopped_data();
    void lookCanBeStopped();
    void missingFolderCannotBeLookedAt();
    void fileInPlaceOfAFolderCannotBeLookedAt();
    void unreadableFolderCannotBeLookedAt();

    void versionFile_data();
    void versionFile();
    void spaceNeededIsTheFolderAndTheMargin();
    void folderThatCannotBeMeasured();

    void missingDataFile();
    void folderUnderTheDataFilesName();
    void dataFileBytes_data();
    void dataFileBytes();
    void titleLineAlone();
    void titleLineThatLacksATitle();
    void titleLineWithATitleTwice();
    void everyLineWithAWrongItemCountIsListed();
    void linesAreCountedAcrossBlankOnes();
    void bigEndianFileBeyondOneMebibyte();

    void overlongItem_data();
    void overlongItem();
    void overlongAddressIsMeasuredAsComposed();
    void overlongAddressPartsAloneAreNotMeasured();

    void imageThatIsThere();
    void imageInOtherLetterCase();
    void imageThatIsMissing();
    void imageOutsideItsFolder();
    void imageThatIsNoJpeg_data();
    void imageThatIsNoJpeg();
    void imageThatIsLargerThanAnyImportReads();
    void imageThatCannotBeRead();
    void imageThatIsAPipe();

    void attachmentsThatAreThere();
    void attachmentFolderThatIsMissing();
    void attachmentFolderOutside();
    void attachmentFolderThatCannotBeRead();
    void attachmentsThatWouldBeLeftOut();
    void attachmentThatCannotBeRead();
};

void tst_folderInspector::goodFolderHasNoProblems()
{
    Inspection inspection;
    inspection.folder.image(QStringLiteral("1.jpg"), JpegBuilder(20, 10).bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("1.jpg")}});

    const DBCFolderReport report = inspection.report();

    QVERIFY(!report.findings.couldNotLook);
    QVERIFY(report.findings.problems.empty());
    QCOMPARE(report.cardCount, 1);
}

void tst_folderInspector::nothingIsChanged()
{
    Inspection inspection;
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("a")}, {Key::memo, longText(300)},
        {Key::back_Image_File, QStringLiteral("no.jpg")}});
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral(".DS_Store"), "x");
    const QStringList before = snapshotOf(inspection.folder.path());

    QVERIFY(!inspection.problems().isEmpty());

    QCOMPARE(snapshotOf(inspection.folder.path()), before);
}

void tst_folderInspector::nothingIsLogged()
{
    Inspection inspection;
    inspection.hasOneCard(
        {{Key::memo, longText(300)}, {Key::back_Image_File, QStringLiteral("no.jpg")}});
    QCOMPARE(inspection.problems().size(), 2);
    QCOMPARE(inspection.home.logText(), QString());
}

void tst_folderInspector::progressGoesFromLineToLine()
{
    Inspection inspection;
    inspection.folder.dataFile(
        DataFileBuilder().titleLine().row(20).blankLine().row(21).text(QString(20, u'\t')).build());
    QStringList steps;
    DBCFolderInspector::inspect(inspection.folder.path(), [&](qint64 finished, qint64 max) {
        steps << QStringLiteral("%1 of %2").arg(finished).arg(max);
        return DBCFolderInspector::Looking::GoOn;
    });
    QCOMPARE(steps,
        QStringList(
            {QStringLiteral("0 of 0"), QStringLiteral("2 of 5"), QStringLiteral("4 of 5")}));
}

void tst_folderInspector::lookCanBeStopped_data()
{
    QTest::addColumn<qint64>("lastLine");
    QTest::addColumn<qsizetype>("problems");
    QTest::addColumn<qint64>("cards");
    QTest::newRow("before the data file") << qint64(0) << qsizetype(0) << qint64(0);
    QTest::newRow("at a wrong line") << qint64(2) << qsizetype(1) << qint64(0);
    QTest::newRow("at a card") << qint64(3) << qsizetype(2) << qint64(1);
    QTest::newRow("not at all") << qint64(100) << qsizetype(3) << qint64(2);
}

void tst_folderInspector::lookCanBeStopped()
{
    QFETCH(qint64, lastLine);
    Inspection inspection;
    const DataFileBuilder::Items card {{Key::memo, longText(300)}};
    inspection.folder.dataFile(DataFileBuilder().titleLine().row(20).row(card).row(card).build());
    const DBCFolderReport report
        = DBCFolderInspector::inspect(inspection.folder.path(), [&](qint64 finished, qint64) {
              return finished < lastLine ? DBCFolderInspector::Looking::GoOn
                                         : DBCFolderInspector::Looking::Stop;
          });
    QCOMPARE(report.wasStopped, lastLine < 100);
    QTEST(qsizetype(report.findings.problems.size()), "problems");
    QTEST(report.cardCount, "cards");
}

void tst_folderInspector::missingFolderCannotBeLookedAt()
{
    const Inspection inspection;
    const DBCFolderReport report
        = DBCFolderInspector::inspect(inspection.home.path(QStringLiteral("nowhere")));
    QVERIFY(report.findings.couldNotLook);
    QCOMPARE(report.findings.couldNotLook->text, QStringLiteral("FOLDER_MISSING"));
}

void tst_folderInspector::fileInPlaceOfAFolderCannotBeLookedAt()
{
    const Inspection inspection;
    const QString file = inspection.home.writeFile(QStringLiteral("file"), "x");
    QVERIFY(DBCFolderInspector::inspect(file).findings.couldNotLook);
}

void tst_folderInspector::unreadableFolderCannotBeLookedAt()
{
    Inspection inspection;
    inspection.host.makeUnreadable({inspection.folder.path()});

    const DBCFolderReport report = inspection.report();

    QVERIFY(report.findings.couldNotLook);
    QCOMPARE(report.findings.couldNotLook->text, QStringLiteral("FOLDER_UNREADABLE"));
}

void tst_folderInspector::versionFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    const auto utf16 = [](const char* text) {
        QByteArray bytes("\xff\xfe", 2);
        for (const char* unit = text; *unit; ++unit)
            bytes.append(*unit).append('\0');
        return bytes;
    };
    QTest::newRow("exported product")
        << utf16("TELKA\tV1.0L10\r\n") << QStringLiteral("VERSION_PRODUCT");
    QTest::newRow("other version") << utf16("ACME\tV2\r\n") << QStringLiteral("VERSION_OTHER");
    QTest::newRow("no tab") << utf16("ACME\r\n") << QStringLiteral("VERSION_OTHER");
    QTest::newRow("lone surrogate")
        << QByteArray("\xff\xfe\x00\xd8", 4) << QStringLiteral("VERSION_MISSING");
}

void tst_folderInspector::versionFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    Inspection inspection;
    inspection.folder.versionBytes(bytes);
    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|") + problem));
    inspection.folder.withoutVersion();
    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|VERSION_MISSING")));
}

void tst_folderInspector::spaceNeededIsTheFolderAndTheMargin()
{
    Inspection inspection;
    const QString program = inspection.home.writeFile(
        QStringLiteral("du"), "#!/bin/sh\nprintf '300\\t%s\\n' \"$3\"\n");
    QVERIFY(QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner));
    inspection.host->diskUsageProgram = program;

    QCOMPARE(inspection.report().bytesNeeded, quint64 {307200 + 524288});
}

void tst_folderInspector::folderThatCannotBeMeasured()
{
    Inspection inspection;
    inspection.host->diskUsageProgram = QStringLiteral("/bin/false");

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|SIZE")));
    QCOMPARE(inspection.report().bytesNeeded, 0ULL);
}

void tst_folderInspector::missingDataFile()
{
    Inspection inspection;
    QVERIFY(QFile::remove(inspection.folder.dataFilePath()));

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|DATA_FILE_MISSING")));
}

void tst_folderInspector::folderUnderTheDataFilesName()
{
    Inspection inspection;
    QVERIFY(QFile::remove(inspection.folder.dataFilePath()));
    QVERIFY(QDir().mkpath(inspection.folder.dataFilePath()));

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|DATA_FILE_MISSING")));
}

void tst_folderInspector::dataFileBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("nothing") << QByteArray() << QStringLiteral("-|DATA_FILE_EMPTY");
    QTest::newRow("odd size") << DataFileBuilder().titleLine().bytes("x").build()
                              << QStringLiteral("-|DATA_FILE_ENCODING");
    QTest::newRow("lone surrogate")
        << DataFileBuilder().titleLine().bytes(QByteArray("\x00\xd8", 2)).build()
        << QStringLiteral("-|DATA_FILE_ENCODING");
}

void tst_folderInspector::dataFileBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    Inspection inspection;
    inspection.folder.dataFile(bytes);

    QCOMPARE(inspection.problems(), QStringList(problem));
}

void tst_folderInspector::titleLineAlone()
{
    Inspection inspection;
    inspection.folder.dataFile(DataFileBuilder().titleLine().build());

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("-|DATA_FILE_EMPTY")));
}

void tst_folderInspector::titleLineThatLacksATitle()
{
    Inspection inspection;
    QStringList titles = DataFileBuilder::titles();
    const QString missing = titles.takeAt(4);
    inspection.folder.dataFile(DataFileBuilder().titleLine(titles).row(20).row(21).build());

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("1|TITLE_MISSING 1 ") + missing));
}

void tst_folderInspector::titleLineWithATitleTwice()
{
    Inspection inspection;
    const QStringList titles = DataFileBuilder::titles();
    inspection.folder.dataFile(
        DataFileBuilder().titleLine(titles + QStringList(titles.constFirst())).row(21).build());

    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("1|TITLE_LINE 1 22")));
}

void tst_folderInspector::everyLineWithAWrongItemCountIsListed()
{
    Inspection inspection;
    inspection.folder.dataFile(DataFileBuilder()
                                   .titleLine()
                                   .row(20)
                                   .row({{Key::full_Name, QStringLiteral("Good")}})
                                   .row(22)
                                   .row({{Key::full_Name, QStringLiteral("Good")}})
                                   .row(1)
                                   .build());

    QCOMPARE(inspection.problems(),
        QStringList({QStringLiteral("2|DATA_LINE 2 20"), QStringLiteral("4|DATA_LINE 4 22"),
            QStringLiteral("6|DATA_LINE 6 1")}));
    QCOMPARE(inspection.report().cardCount, 2);
}

void tst_folderInspector::linesAreCountedAcrossBlankOnes()
{
    Inspection inspection;
    inspection.folder.dataFile(DataFileBuilder()
                                   .titleLine()
                                   .blankLine()
                                   .line(QStringLiteral("\u3000 \t"))
                                   .row({{Key::full_Name, inspection.name},
                                       {Key::face_Image_File, QStringLiteral("no.jpg")}})
                                   .build());

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("4|IMAGE_MISSING 4 Hoshino ")
            + inspection.folder.imagePath(QStringLiteral("no.jpg"))));
}

void tst_folderInspector::bigEndianFileBeyondOneMebibyte()
{
    Inspection inspection;
    DataFileBuilder builder(DataFileBuilder::Encoding::Utf16BigEndian);
    builder.titleLine();
    constexpr int cards = 3000;
    for (int card = 0; card < cards; ++card)
        builder.row({{Key::full_Name, inspection.name}, {Key::memo, longText(200)}});
    inspection.folder.dataFile(builder.row(20).build());

    QCOMPARE(inspection.report().cardCount, cards);
    QCOMPARE(inspection.problems(), QStringList(QStringLiteral("3002|DATA_LINE 3002 20")));
}

void tst_folderInspector::overlongItem_data()
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

void tst_folderInspector::overlongItem()
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
        QStringList(QStringLiteral("2|TOO_LONG %1 2 %2").arg(getLocalString(titleKey), fullName)));
}

void tst_folderInspector::overlongAddressIsMeasuredAsComposed()
{
    Inspection inspection;
    inspection.hasOneCard(
        {{Key::state, longText(60)}, {Key::city, longText(60)}, {Key::street, longText(60)}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|TOO_LONG %1+%2+%3/%4 2 Hoshino")
                        .arg(title("IDS_CSV_TITLE_OFFICE_ADDRESS_STATE"),
                            title("IDS_CSV_TITLE_OFFICE_ADDRESS_CITY"),
                            title("IDS_CSV_TITLE_OFFICE_ADDRESS_STREET"),
                            title("IDS_CSV_TITLE_OFFICE_ADDRESS"))));
}

void tst_folderInspector::overlongAddressPartsAloneAreNotMeasured()
{
    Inspection inspection;
    // With the parts there, the whole address is not taken.
    inspection.hasOneCard({{Key::state, longText(10)}, {Key::city, longText(10)},
        {Key::street, longText(10)}, {Key::address, longText(500)}});

    QCOMPARE(inspection.problems(), QStringList());
}

void tst_folderInspector::imageThatIsThere()
{
    Inspection inspection;
    inspection.folder.image(QStringLiteral("1.jpg"), JpegBuilder(20, 10).bytes());
    inspection.folder.image(QStringLiteral("2.jpg"), JpegBuilder(20, 10).gray().bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("1.jpg")},
        {Key::back_Image_File, QStringLiteral("2.jpg")}});

    QCOMPARE(inspection.problems(), QStringList());
}

void tst_folderInspector::imageInOtherLetterCase()
{
    Inspection inspection;
    inspection.folder.image(QStringLiteral("Card.JPG"), JpegBuilder(20, 10).bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("card.jpg")}});

    QCOMPARE(inspection.problems(), QStringList());
}

void tst_folderInspector::imageThatIsMissing()
{
    Inspection inspection;
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("no.jpg")},
        {Key::back_Image_File, QStringLiteral("\u3000")}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|IMAGE_MISSING 2 Hoshino ")
            + inspection.folder.imagePath(QStringLiteral("no.jpg"))));
}

void tst_folderInspector::imageOutsideItsFolder()
{
    Inspection inspection;
    inspection.home.writeFile(QStringLiteral("secret.jpg"), JpegBuilder(20, 10).bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("../../secret.jpg")}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|LEADS_OUT 2 Hoshino ../../secret.jpg")));
}

void tst_folderInspector::imageThatIsNoJpeg_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no picture");
    QTest::newRow("cut in its header") << JpegBuilder(20, 10).bytes().left(20);
    QTest::newRow("other format") << QByteArray("\x89PNG\r\n\x1a\n and so on");
}

void tst_folderInspector::imageThatIsNoJpeg()
{
    QFETCH(QByteArray, bytes);
    Inspection inspection;
    inspection.folder.image(QStringLiteral("1.jpg"), bytes);
    inspection.hasOneCard({{Key::back_Image_File, QStringLiteral("1.jpg")}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|IMAGE_NO_JPEG 2 Hoshino ")
            + inspection.folder.imagePath(QStringLiteral("1.jpg"))));
}

void tst_folderInspector::imageThatIsLargerThanAnyImportReads()
{
    Inspection inspection;
    inspection.folder.image(QStringLiteral("1.jpg"), JpegBuilder(20, 10).bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("1.jpg")}});
    const QString path = inspection.folder.imagePath(QStringLiteral("1.jpg"));
    QVERIFY(QFile::resize(path, DBCBitmap::maximumBytes + 1));

    QCOMPARE(
        inspection.problems(), QStringList(QStringLiteral("2|IMAGE_NO_JPEG 2 Hoshino ") + path));
}

void tst_folderInspector::imageThatCannotBeRead()
{
    Inspection inspection;
    inspection.folder.image(QStringLiteral("1.jpg"), JpegBuilder(20, 10).bytes());
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("1.jpg")}});
    const QString path = inspection.folder.imagePath(QStringLiteral("1.jpg"));
    inspection.host.makeUnreadable({path});

    QCOMPARE(
        inspection.problems(), QStringList(QStringLiteral("2|FILE_UNREADABLE 2 Hoshino ") + path));
}

void tst_folderInspector::imageThatIsAPipe()
{
    Inspection inspection;
    inspection.hasOneCard({{Key::face_Image_File, QStringLiteral("pipe.jpg")}});
    const QString path = inspection.folder.imagePath(QStringLiteral("pipe.jpg"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);

    QCOMPARE(
        inspection.problems(), QStringList(QStringLiteral("2|IMAGE_MISSING 2 Hoshino ") + path));
}

void tst_folderInspector::attachmentsThatAreThere()
{
    Inspection inspection;
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral("plan.txt"), "x");
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral(".DS_Store"), "x");
    inspection.folder.attachment(QStringLiteral("a/inner"), QStringLiteral("deep.txt"), "x");
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("a")}});

    QCOMPARE(inspection.problems(), QStringList());
}

void tst_folderInspector::attachmentFolderThatIsMissing()
{
    Inspection inspection;
    inspection.folder.attachment(QStringLiteral("."), QStringLiteral("file"), "x");
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("file")}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|ATTACHMENT_FOLDER_MISSING 2 Hoshino ")
            + inspection.folder.attachmentPath(QStringLiteral("file"))));
}

void tst_folderInspector::attachmentFolderOutside()
{
    Inspection inspection;
    inspection.hasOneCard({{Key::attachmentFile, inspection.home.path()}});

    QCOMPARE(inspection.problems(),
        QStringList(QStringLiteral("2|LEADS_OUT 2 Hoshino ") + inspection.home.path()));
}

void tst_folderInspector::attachmentFolderThatCannotBeRead()
{
    Inspection inspection;
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral("plan.txt"), "x");
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("a")}});
    const QString path = inspection.folder.attachmentPath(QStringLiteral("a"));
    inspection.host.makeUnreadable({path});

    QCOMPARE(
        inspection.problems(), QStringList(QStringLiteral("2|FILE_UNREADABLE 2 Hoshino ") + path));
}

void tst_folderInspector::attachmentsThatWouldBeLeftOut()
{
    Inspection inspection;
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral(".hidden"), "x");
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral("a:b.txt"), "x");
    const auto path = [&](const char* name) {
        return inspection.folder.attachmentPath(QStringLiteral("a"), QString::fromLatin1(name));
    };
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QCOMPARE(symlink("/etc/passwd", QFile::encodeName(path("zlink")).constData()), 0);
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("a")}});

    QCOMPARE(inspection.problems(),
        QStringList({QStringLiteral("2|BAD_NAME 2 Hoshino"), QStringLiteral("2|BAD_NAME 2 Hoshino"),
            QStringLiteral("2|NOT_REGULAR 2 Hoshino pipe"),
            QStringLiteral("2|NOT_REGULAR 2 Hoshino zlink")}));
}

void tst_folderInspector::attachmentThatCannotBeRead()
{
    Inspection inspection;
    inspection.folder.attachment(QStringLiteral("a"), QStringLiteral("plan.txt"), "x");
    inspection.hasOneCard({{Key::attachmentFile, QStringLiteral("a")}});
    const QString path
        = inspection.folder.attachmentPath(QStringLiteral("a"), QStringLiteral("plan.txt"));
    inspection.host.makeUnreadable({path});

    QCOMPARE(
        inspection.problems(), QStringList(QStringLiteral("2|FILE_UNREADABLE 2 Hoshino ") + path));
}

QTEST_GUILESS_MAIN(tst_folderInspector)
#include "tst_folderInspector.moc"
