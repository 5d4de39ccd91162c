// SPDX-License-Identifier: GPL-3.0-or-later
// The report after whole conversions: what a person reads in the page and a program in the data.
#include "tests/operation/ConversionWorld.h"
#include "tests/operation/ReportReading.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"

#include "operation/log/DBCLog.h"

#include <QtTest>

#include <sys/stat.h>

using Key = DBCRecordKey;
using Language = DBCLocalizable::Language;

namespace {

// Lines of the data file, and what is wrong with each card.
enum Line : int {
    Sound = 2,
    MissingImage,
    NoJpeg,
    TruncatedJpeg,
    NameThatLeadsOut,
    OverlongItem,
    BadAttachmentName,
    PipeAmongAttachments,
    LinkAmongAttachments,
    MissingDate,
    MarkupInName,
    LineBreakInName,
    ControlsInName,
    NoNameAtAll,
};

const QString markup = QStringLiteral("<b>\"Tom\" & 'Co'</b> &amp; %1");

struct DefectiveWorld : ConversionWorld {
    explicit DefectiveWorld(Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        home.writeFile(QStringLiteral("secret.jpg"), front);
        folder.image(QStringLiteral("text.jpg"), "no picture at all")
            .image(QStringLiteral("half.jpg"), front.first(front.size() / 3))
            .attachment(QStringLiteral("bad"), QStringLiteral("a:b.txt"), "x")
            .attachment(QStringLiteral("pipe"), QStringLiteral("good.txt"), "x")
            .attachment(QStringLiteral("link"), QStringLiteral("good.txt"), "x");
        const QByteArray pipe
            = QFile::encodeName(folder.attachmentPath(QStringLiteral("pipe"), text(u"管.fifo")));
        if (mkfifo(pipe.constData(), 0600) != 0
            || !QFile::link(folder.path(),
                folder.attachmentPath(QStringLiteral("link"), QStringLiteral("way out"))))
            qFatal("the folder cannot be spoilt");
        folder.dataFile(rows().build());
    }

    DataFileBuilder rows() const
    {
        const std::pair<Key, QString> date {Key::register_Date, text(u"2009/03/05")};
        const std::pair<Key, QString> missing {Key::face_Image_File, text(u"gone.jpg")};
        return DataFileBuilder()
            .titleLine()
            .row({{Key::full_Name, text(u"星野 太郎")}, {Key::face_Image_File, text(u"1.jpg")},
                date})
            .row({{Key::full_Name, text(u"田中 花子")}, missing, date})
            .row({{Key::full_Name, text(u"渡辺 三郎")}, {Key::face_Image_File, text(u"text.jpg")},
                date})
            .row({{Key::full_Name, text(u"古田 一")}, {Key::face_Image_File, text(u"half.jpg")},
                date})
            .row({{Key::full_Name, text(u"森 四郎")},
                {Key::face_Image_File, text(u"../../secret.jpg")}, date})
            .row({{Key::full_Name, text(u"林 五郎")}, {Key::company, QString(300, u'社')}, date})
            .row({{Key::full_Name, text(u"岡 六郎")}, {Key::attachmentFile, text(u"bad")}, date})
            .row({{Key::full_Name, text(u"関 七郎")}, {Key::attachmentFile, text(u"pipe")}, date})
            .row({{Key::full_Name, text(u"谷 八郎")}, {Key::attachmentFile, text(u"link")}, date})
            .row({{Key::full_Name, text(u"辻 九郎")}})
            .row({{Key::full_Name, markup}, missing, date})
            .row({{Key::full_Name, text(u"二行\nの名前")}, missing, date})
            .row({{Key::full_Name, text(u"\u001b[31mred\u202e")}, missing, date})
            .row({missing, date});
    }

    QString reportPath() const { return controller->outcome().reportPath; }
    ReadPage page() const { return ReadPage::of(bytesOf(reportPath())); }
    QJsonObject data() const { return readData(reportPath()); }
    QString logs() const { return home.path(QStringLiteral("home/Library/Logs")); }
};

QJsonObject cardOf(const QJsonObject& data, int number)
{
    for (const QJsonValue& card : data.value(QStringLiteral("cards")).toArray()) {
        if (card[QStringLiteral("number")].toInt() == number)
            return card.toObject();
    }
    return {};
}

QString consequenceOf(const QJsonObject& data, int number)
{
    return cardOf(data, number)
        .value(QStringLiteral("problems"))
        .toArray()
        .first()
        .toObject()
        .value(QStringLiteral("consequence"))
        .toString();
}

} // namespace

class tst_report : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { DBCLocalizable::setLanguage(Language::English); }

    void defectsAreListedInTheLanguage_data();
    void defectsAreListedInTheLanguage();
    void everyDefectHasItsConsequence();
    void pageAndDataAgree_data();
    void pageAndDataAgree();
    void namesShowAsTheyAre();
    void soundCardsAreNotListed();
    void whatWasAskedIsTold();
    void cleanImportHasNothingToLookAt();
    void exportIsReportedToo();

    void undoneImportSaysThatNothingWasImported();
    void wrongLineIsNamed();
    void cancelledImportSaysSo();
    void cancelledExportSaysSo();
    void folderThatIsRefusedIsReported();
    void failureAboutNoCardStandsApart();

    void reportComesWithTheLastEvent();
    void logIsWhatItWasWithoutReports();
    void folderThatCannotBeWrittenIsOnlyAWarning();
    void logThatCannotBeWrittenLeavesTheReport();
};

void tst_report::defectsAreListedInTheLanguage_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("columns");
    QTest::addColumn<QString>("fate");
    QTest::newRow("English") << Language::English << QStringLiteral("en")
                             << QStringLiteral("Import finished, with warnings")
                             << QStringList({QStringLiteral("Line"), QStringLiteral("Name"),
                                    QStringLiteral("What was wrong"),
                                    QStringLiteral("What became of it")})
                             << QStringLiteral("Transferred without this image.");
    QTest::newRow("Japanese") << Language::Japanese << QStringLiteral("ja")
                              << text(u"インポートが終了しました (警告あり)")
                              << QStringList({text(u"行"), text(u"氏名"), text(u"問題"),
                                     text(u"処理の結果")})
                              << text(u"この画像を除いて処理しました。");
}

void tst_report::defectsAreListedInTheLanguage()
{
    QFETCH(Language, language);
    DefectiveWorld world(language);

    QVERIFY(world.importCards());

    const ReadPage page = world.page();
    QCOMPARE(page.error, QString());
    QTEST(page.language, "code");
    QTEST(page.title, "title");
    QTEST(page.columns, "columns");
    QCOMPARE(page.end, QStringLiteral("doneWithWarnings"));
    const QStringList card = page.card(MissingImage);
    QCOMPARE(card.size(), 4);
    QCOMPARE(card.at(1), text(u"田中 花子"));
    QVERIFY2(card.at(2).contains(QStringLiteral("/gone.jpg")), qPrintable(card.at(2)));
    QTEST(card.at(3), "fate");
    QVERIFY(!page.everything.contains(QStringLiteral("IDS_")));
    // Markup of the page's own would be the only one.
    QVERIFY(!bytesOf(world.reportPath()).contains("<script"));
}

void tst_report::everyDefectHasItsConsequence()
{
    DefectiveWorld world;

    QVERIFY(world.importCards());

    const QJsonObject data = world.data();
    const QList<std::pair<int, const char*>> expected {{MissingImage, "withoutImage"},
        {NoJpeg, "withoutImages"}, {TruncatedJpeg, "withoutImages"},
        {NameThatLeadsOut, "withoutImage"}, {OverlongItem, "itemShortened"},
        {BadAttachmentName, "withoutAttachment"}, {PipeAmongAttachments, "withoutAttachment"},
        {LinkAmongAttachments, "withoutAttachment"}, {MarkupInName, "withoutImage"},
        {LineBreakInName, "withoutImage"}, {ControlsInName, "withoutImage"},
        {NoNameAtAll, "withoutImage"}};
    for (const auto& [line, consequence] : expected)
        QCOMPARE(consequenceOf(data, line), QString::fromLatin1(consequence));
    QCOMPARE(data.value(QStringLiteral("concernedCards")).toInt(), qsizetype(expected.size()));
    QCOMPARE(data.value(QStringLiteral("cards")).toArray().size(), qsizetype(expected.size()));
    QCOMPARE(world.controller->outcome().concernedCardCount, qint64(expected.size()));
    QCOMPARE(data.value(QStringLiteral("warnings")).toInt(),
        int(DBCLog::logInstance()->warningLogCount()));
    QCOMPARE(cardOf(data, NameThatLeadsOut).value(QStringLiteral("problems")).toArray().size(), 2);
}

void tst_report::pageAndDataAgree_data()
{
    QTest::addColumn<Language>("language");
    QTest::newRow("English") << Language::English;
    QTest::newRow("Japanese") << Language::Japanese;
}

void tst_report::pageAndDataAgree()
{
    QFETCH(Language, language);
    DefectiveWorld world(language);
    QVERIFY(world.importCards());

    const ReadPage page = world.page();
    const QJsonObject data = world.data();

    QCOMPARE(page.title, data.value(QStringLiteral("title")).toString());
    const QJsonArray cards = data.value(QStringLiteral("cards")).toArray();
    QCOMPARE(page.cards.size(), cards.size());
    for (qsizetype i = 0; i < cards.size(); ++i) {
        const QJsonArray problems = cards.at(i)[QStringLiteral("problems")].toArray();
        QStringList told {
            QString::number(cards.at(i)[QStringLiteral("number")].toInt()), page.cards.at(i).at(1)};
        QStringList shown = page.cards.at(i).first(2);
        for (qsizetype p = 0; p < problems.size(); ++p) {
            told << problems.at(p)[QStringLiteral("became")].toString();
            shown << page.cards.at(i).value(3 + 2 * p);
        }
        QCOMPARE(shown, told);
    }
    QCOMPARE(cardOf(data, MarkupInName).value(QStringLiteral("name")).toString(), markup);
}

void tst_report::namesShowAsTheyAre()
{
    DefectiveWorld world;
    QVERIFY(world.importCards());
    const ReadPage page = world.page();
    QCOMPARE(page.card(MarkupInName).at(1), markup);
    QCOMPARE(page.card(LineBreakInName).at(1), text(u"二行\nの名前"));
    QCOMPARE(page.card(ControlsInName).at(1), QStringLiteral("\\u001B[31mred\\u202E"));
    QCOMPARE(page.card(NoNameAtAll).at(1), QStringLiteral("(no name)"));
    QVERIFY(page.card(PipeAmongAttachments).at(2).contains(text(u"管.fifo")));
}

void tst_report::soundCardsAreNotListed()
{
    DefectiveWorld world;
    QVERIFY(world.importCards());
    const ReadPage page = world.page();
    QVERIFY(page.card(Sound).isEmpty());
    // It gets the date of its import, as it always did, and nobody is warned of that.
    QVERIFY(page.card(MissingDate).isEmpty());
}

void tst_report::whatWasAskedIsTold()
{
    DefectiveWorld world;
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QVERIFY(world.importCards());

    const QMap<QString, QString> values = world.page().values;
    QCOMPARE(
        values.value(QStringLiteral("Interchange folder that was imported")), world.folder.path());
    QCOMPARE(values.value(QStringLiteral("Card database imported into")), world.package.path());
    QCOMPARE(values.value(QStringLiteral("Backup from before")), world.backup());
    QCOMPARE(values.value(QStringLiteral("Log")),
        world.logs() + QStringLiteral("/VelmoraConverter.log"));
    QCOMPARE(values.value(QStringLiteral("Cards imported")), QStringLiteral("14 of 14"));
    QCOMPARE(values.value(QStringLiteral("Cards to look at")), QStringLiteral("12"));

    const QJsonObject data = world.data();
    QCOMPARE(data.value(QStringLiteral("operation")).toString(), QStringLiteral("import"));
    QCOMPARE(data.value(QStringLiteral("folder")).toString(), world.folder.path());
    QCOMPARE(data.value(QStringLiteral("database")).toString(), world.package.path());
    QCOMPARE(data.value(QStringLiteral("backup")).toString(), world.backup());
    QCOMPARE(data.value(QStringLiteral("max")).toInt(), 14);
    QCOMPARE(data.value(QStringLiteral("finished")).toInt(), 14);
    const auto started
        = QDateTime::fromString(data.value(QStringLiteral("started")).toString(), Qt::ISODate);
    QVERIFY(started >= before && started <= QDateTime::currentDateTime());
    QVERIFY(data.value(QStringLiteral("seconds")).toDouble() > 0);
}

void tst_report::cleanImportHasNothingToLookAt()
{
    ConversionWorld world;

    QVERIFY(world.importCards());

    const ReadPage page = ReadPage::of(bytesOf(world.controller->outcome().reportPath));
    QCOMPARE(page.error, QString());
    QCOMPARE(page.title, QStringLiteral("Import finished"));
    QCOMPARE(page.end, QStringLiteral("done"));
    QVERIFY(page.cards.isEmpty());
    QVERIFY(page.everything.contains(QStringLiteral("No card had a warning or an error.")));
    QCOMPARE(world.controller->outcome().concernedCardCount, 0);
}

void tst_report::exportIsReportedToo()
{
    DefectiveWorld world;
    world.package.card({{"ZFULL_NAME", text(u"絵なし")}});

    QVERIFY(world.exportCards());

    const ReadPage page = world.page();
    QCOMPARE(page.error, QString());
    QCOMPARE(page.title, QStringLiteral("Export finished, with warnings"));
    QCOMPARE(page.columns.constFirst(), QStringLiteral("Card"));
    QCOMPARE(page.values.value(QStringLiteral("Interchange folder exported to")), world.exported());
    QVERIFY(!page.values.contains(QStringLiteral("Backup from before")));
    QCOMPARE(page.card(2).at(1), text(u"絵なし"));
    QCOMPARE(consequenceOf(world.data(), 2), QStringLiteral("withoutImages"));
    QVERIFY(world.data().value(QStringLiteral("backup")).isNull());
}

void tst_report::undoneImportSaysThatNothingWasImported()
{
    DefectiveWorld world;
    world.folder.dataFile(
        world.rows()
            .row({{Key::full_Name, text(u"最後")}, {Key::attachmentFile, text(u"no such folder")}})
            .build());

    QVERIFY(!world.importCards());

    const ReadPage page = world.page();
    QCOMPARE(page.title, QStringLiteral("Import failed"));
    QCOMPARE(page.end, QStringLiteral("failed"));
    QVERIFY(page.everything.contains(QStringLiteral("The card database is as it was before.")));
    QCOMPARE(page.reasons.size(), 1);
    QVERIFY(page.reasons.constFirst().startsWith(world.presenter.texts.constFirst()));
    QVERIFY(
        page.reasons.constFirst().contains(QString::number(world.presenter.numbers.constFirst())));
    QCOMPARE(page.card(MissingImage).at(3), QStringLiteral("Not imported."));
    QCOMPARE(page.card(NoNameAtAll + 1).at(1), text(u"最後"));
    QCOMPARE(page.card(NoNameAtAll + 1).constLast(), QStringLiteral("Everything stopped here."));
    const QJsonObject data = world.data();
    QCOMPARE(data.value(QStringLiteral("end")).toString(), QStringLiteral("failed"));
    QCOMPARE(data.value(QStringLiteral("messages")).toArray().first()[QStringLiteral("number")],
        QJsonValue(qint64 {world.presenter.numbers.constFirst()}));
    QCOMPARE(
        data.value(QStringLiteral("code")).toInt(), toNumber(world.controller->outcome().code));
}

void tst_report::wrongLineIsNamed()
{
    DefectiveWorld world;
    world.folder.dataFile(DataFileBuilder().titleLine().row(21).row(20).build());

    QVERIFY(!world.importCards());

    const QStringList card = world.page().card(3);
    QCOMPARE(card.size(), 4);
    QCOMPARE(card.at(1), QStringLiteral("(no name)"));
    QCOMPARE(card.at(3), QStringLiteral("Everything stopped here."));
}

void tst_report::cancelledImportSaysSo()
{
    DefectiveWorld world;
    world.cancelAt(DBCEventName::ImportIsRunning, 5);

    QVERIFY(world.importCards());

    const ReadPage page = world.page();
    QCOMPARE(page.title, QStringLiteral("Import cancelled"));
    QCOMPARE(
        page.values.value(QStringLiteral("Cards handled until then")), QStringLiteral("5 of 14"));
    QCOMPARE(page.card(MissingImage).at(3), QStringLiteral("Not imported."));
    QVERIFY(world.data().value(QStringLiteral("backup")).isNull());
}

void tst_report::cancelledExportSaysSo()
{
    DefectiveWorld world;
    world.package.card();
    world.cancelAt(DBCEventName::ExportIsRunning, 1);

    QVERIFY(world.exportCards());

    const ReadPage page = world.page();
    QCOMPARE(page.title, QStringLiteral("Export cancelled"));
    QVERIFY(page.everything.contains(QStringLiteral("removed again")));
    QCOMPARE(world.data().value(QStringLiteral("end")).toString(), QStringLiteral("cancelled"));
}

void tst_report::folderThatIsRefusedIsReported()
{
    DefectiveWorld world;
    world.folder.version(QStringLiteral("TELKA"));

    QVERIFY(!world.importCards());

    const ReadPage page = world.page();
    QCOMPARE(page.reasons.size(), 1);
    QVERIFY(page.reasons.constFirst().contains(QStringLiteral("314")));
    QVERIFY(page.cards.isEmpty());
    QVERIFY(page.others.isEmpty());
}

void tst_report::failureAboutNoCardStandsApart()
{
    DefectiveWorld world;
    world.package.writeFile(QStringLiteral("Velmora.sqldb"), "no database at all");

    QVERIFY(!world.importCards());

    const ReadPage page = world.page();
    QCOMPARE(page.others.size(), 1);
    QVERIFY(page.others.constFirst().contains(QStringLiteral("Velmora.sqldb")));
    QCOMPARE(world.data().value(QStringLiteral("others")).toArray().size(), 1);
}

void tst_report::reportComesWithTheLastEvent()
{
    DefectiveWorld world;
    QString path;
    qint64 count = 0;
    world.receiver.onEvent = [&](const DBCEvent& event) {
        if (event.name != DBCEventName::OperationDidFinished)
            return;
        path = event.reportPath;
        count = event.concernedCardCount;
        QVERIFY(QFile::exists(path));
        QVERIFY(QFile::exists(dataPathOf(path)));
    };

    QVERIFY(world.importCards());

    QCOMPARE(path, world.reportPath());
    QCOMPARE(count, 12);
    QCOMPARE(QFileInfo(path).path(), world.logs());
    QVERIFY(QFileInfo(path).fileName().startsWith(
        QStringLiteral("VelmoraConverter report %1-").arg(QDate::currentDate().year())));
}

void tst_report::logIsWhatItWasWithoutReports()
{
    DefectiveWorld world;
    QVERIFY(world.importCards());
    QVERIFY(!world.home.logText().contains(QStringLiteral("VelmoraConverter report ")));
}

void tst_report::folderThatCannotBeWrittenIsOnlyAWarning()
{
    const AsOrdinaryUser user;
    ConversionWorld world;
    DBCLog::info(QStringLiteral("makes the log"));
    const ScopedMode mode(world.home.path(QStringLiteral("home/Library/Logs")), 0555);

    QVERIFY(world.importCards());

    QCOMPARE(world.controller->outcome().reportPath, QString());
    QVERIFY(!DBCLog::logInstance()->hasWarningOrError());
    QVERIFY(world.home.logText().contains(QStringLiteral("[Warning] The report [")));
    QCOMPARE(world.receiver.events.constLast(),
        QStringLiteral("DBC_OperationDidFinishedNotification ok=true"));
}

void tst_report::logThatCannotBeWrittenLeavesTheReport()
{
    ConversionWorld world;
    world.home.makeFolder(QStringLiteral("home/Library/Logs/VelmoraConverter.log"));

    QVERIFY(world.importCards());

    const ReadPage page = ReadPage::of(bytesOf(world.controller->outcome().reportPath));
    QCOMPARE(page.title, QStringLiteral("Import finished"));
    QVERIFY(!page.values.contains(QStringLiteral("Log")));
}

QTEST_GUILESS_MAIN(tst_report)
#include "tst_report.moc"
