// SPDX-License-Identifier: GPL-3.0-or-later
// The report after whole conversions: what a person reads in the page and a program in the data.
#include "tests/operation/ConversionWorld.h"
#include "tests/operation/ReportReading.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"

#include "operation/log/DBCLog.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

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

const QString markup = u"<b>\"Tom\" & 'Co'</b> &amp; %1"_s;

struct DefectiveWorld : ConversionWorld {
    explicit DefectiveWorld(Language language = Language::English)
    {
        DBCLocalizable::setLanguage(language);
        home.writeFile(u"secret.jpg"_s, front);
        folder.image(u"text.jpg"_s, "no picture at all")
            .image(u"half.jpg"_s, front.first(front.size() / 3))
            .attachment(u"bad"_s, u"a:b.txt"_s, "x")
            .attachment(u"pipe"_s, u"good.txt"_s, "x")
            .attachment(u"link"_s, u"good.txt"_s, "x");
        const QByteArray pipe
            = QFile::encodeName(folder.attachmentPath(u"pipe"_s, text(u"管.fifo")));
        if (mkfifo(pipe.constData(), 0600) != 0
            || !QFile::link(folder.path(), folder.attachmentPath(u"link"_s, u"way out"_s)))
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
    QString logs() const { return home.path(u"home/Library/Logs"_s); }
};

QJsonObject cardOf(const QJsonObject& data, int number)
{
    for (const QJsonValue& card : data.value(u"cards"_s).toArray()) {
        if (card[u"number"_s].toInt() == number)
            return card.toObject();
    }
    return {};
}

QString consequenceOf(const QJsonObject& data, int number)
{
    return cardOf(data, number)
        .value(u"problems"_s)
        .toArray()
        .first()
        .toObject()
        .value(u"consequence"_s)
        .toString();
}

} // namespace

class tst_report : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { DBCLocalizable::setLanguage(Language::English); }

    void defectsAreListedInTheLanguage_data()
    {
        QTest::addColumn<Language>("language");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("columns");
        QTest::addColumn<QString>("fate");
        QTest::newRow("English") << Language::English << u"en"_s
                                 << u"Import finished, with warnings"_s
                                 << QStringList({u"Line"_s, u"Name"_s, u"Problem"_s,
                                        u"Result"_s})
                                 << u"Transferred without this image."_s;
        QTest::newRow("Japanese") << Language::Japanese << u"ja"_s
                                  << text(u"インポートが終了しました (警告あり)")
                                  << QStringList({text(u"行"), text(u"氏名"), text(u"問題"),
                                         text(u"処理の結果")})
                                  << text(u"この画像を除いて処理しました。");
    }
    void defectsAreListedInTheLanguage()
    {
        QFETCH(Language, language);
        DefectiveWorld world(language);

        QVERIFY(world.importCards());

        const ReadPage page = world.page();
        QCOMPARE(page.error, QString());
        QTEST(page.language, "code");
        QTEST(page.title, "title");
        QTEST(page.columns, "columns");
        QCOMPARE(page.end, u"doneWithWarnings"_s);
        const QStringList card = page.card(MissingImage);
        QCOMPARE(card.size(), 4);
        QCOMPARE(card.at(1), text(u"田中 花子"));
        QVERIFY2(card.at(2).contains(u"/gone.jpg"_s), qPrintable(card.at(2)));
        QTEST(card.at(3), "fate");
        QVERIFY(!page.everything.contains(u"IDS_"_s));
        // Markup of the page's own would be the only one.
        QVERIFY(!bytesOf(world.reportPath()).contains("<script"));
    }

    void everyDefectHasItsConsequence()
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
        QCOMPARE(data.value(u"concernedCards"_s).toInt(), qsizetype(expected.size()));
        QCOMPARE(data.value(u"cards"_s).toArray().size(), qsizetype(expected.size()));
        QCOMPARE(world.controller->outcome().concernedCardCount, qint64(expected.size()));
        QCOMPARE(data.value(u"warnings"_s).toInt(), int(DBCLog::logInstance()->warningLogCount()));
        QCOMPARE(cardOf(data, NameThatLeadsOut).value(u"problems"_s).toArray().size(), 2);
    }

    void pageAndDataAgree_data()
    {
        QTest::addColumn<Language>("language");
        QTest::newRow("English") << Language::English;
        QTest::newRow("Japanese") << Language::Japanese;
    }
    void pageAndDataAgree()
    {
        QFETCH(Language, language);
        DefectiveWorld world(language);
        QVERIFY(world.importCards());

        const ReadPage page = world.page();
        const QJsonObject data = world.data();

        QCOMPARE(page.title, data.value(u"title"_s).toString());
        const QJsonArray cards = data.value(u"cards"_s).toArray();
        QCOMPARE(page.cards.size(), cards.size());
        for (qsizetype i = 0; i < cards.size(); ++i) {
            const QJsonArray problems = cards.at(i)[u"problems"_s].toArray();
            QStringList told {
                QString::number(cards.at(i)[u"number"_s].toInt()), page.cards.at(i).at(1)};
            QStringList shown = page.cards.at(i).first(2);
            for (qsizetype p = 0; p < problems.size(); ++p) {
                told << problems.at(p)[u"became"_s].toString();
                shown << page.cards.at(i).value(3 + 2 * p);
            }
            QCOMPARE(shown, told);
        }
        QCOMPARE(cardOf(data, MarkupInName).value(u"name"_s).toString(), markup);
    }

    void namesShowAsTheyAre()
    {
        DefectiveWorld world;
        QVERIFY(world.importCards());
        const ReadPage page = world.page();
        QCOMPARE(page.card(MarkupInName).at(1), markup);
        QCOMPARE(page.card(LineBreakInName).at(1), text(u"二行\nの名前"));
        QCOMPARE(page.card(ControlsInName).at(1), u"\\u001B[31mred\\u202E"_s);
        QCOMPARE(page.card(NoNameAtAll).at(1), u"(no name)"_s);
        QVERIFY(page.card(PipeAmongAttachments).at(2).contains(text(u"管.fifo")));
    }

    void soundCardsAreNotListed()
    {
        DefectiveWorld world;
        QVERIFY(world.importCards());
        const ReadPage page = world.page();
        QVERIFY(page.card(Sound).isEmpty());
        // It gets the date of its import, as it always did, and nobody is warned of that.
        QVERIFY(page.card(MissingDate).isEmpty());
    }

    void whatWasAskedIsTold()
    {
        DefectiveWorld world;
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        QVERIFY(world.importCards());

        const QMap<QString, QString> values = world.page().values;
        QCOMPARE(values.value(u"Interchange folder that was imported"_s), world.folder.path());
        QCOMPARE(values.value(u"Card database imported into"_s), world.package.path());
        QCOMPARE(values.value(u"Backup from before the operation"_s), world.backup());
        QCOMPARE(values.value(u"Log"_s), world.logs() + u"/VelmoraConverter.log"_s);
        QCOMPARE(values.value(u"Cards imported"_s), u"14 of 14"_s);
        QCOMPARE(values.value(u"Cards to look at"_s), u"12"_s);

        const QJsonObject data = world.data();
        QCOMPARE(data.value(u"operation"_s).toString(), u"import"_s);
        QCOMPARE(data.value(u"folder"_s).toString(), world.folder.path());
        QCOMPARE(data.value(u"database"_s).toString(), world.package.path());
        QCOMPARE(data.value(u"backup"_s).toString(), world.backup());
        QCOMPARE(data.value(u"max"_s).toInt(), 14);
        QCOMPARE(data.value(u"finished"_s).toInt(), 14);
        const auto started
            = QDateTime::fromString(data.value(u"started"_s).toString(), Qt::ISODate);
        QVERIFY(started >= before && started <= QDateTime::currentDateTime());
        QVERIFY(data.value(u"seconds"_s).toDouble() > 0);
    }

    void cleanImportHasNothingToLookAt()
    {
        ConversionWorld world;

        QVERIFY(world.importCards());

        const ReadPage page = ReadPage::of(bytesOf(world.controller->outcome().reportPath));
        QCOMPARE(page.error, QString());
        QCOMPARE(page.title, u"Import finished"_s);
        QCOMPARE(page.end, u"done"_s);
        QVERIFY(page.cards.isEmpty());
        QVERIFY(page.everything.contains(u"No card had a warning or an error."_s));
        QCOMPARE(world.controller->outcome().concernedCardCount, 0);
    }

    void exportIsReportedToo()
    {
        DefectiveWorld world;
        world.package.card({{"ZFULL_NAME", text(u"絵なし")}});

        QVERIFY(world.exportCards());

        const ReadPage page = world.page();
        QCOMPARE(page.error, QString());
        QCOMPARE(page.title, u"Export finished, with warnings"_s);
        QCOMPARE(page.columns.constFirst(), u"Card"_s);
        QCOMPARE(page.values.value(u"Interchange folder exported to"_s), world.exported());
        QVERIFY(!page.values.contains(u"Backup from before the operation"_s));
        QCOMPARE(page.card(2).at(1), text(u"絵なし"));
        QCOMPARE(consequenceOf(world.data(), 2), u"withoutImages"_s);
        QVERIFY(world.data().value(u"backup"_s).isNull());
    }

    void undoneImportSaysThatNothingWasImported()
    {
        DefectiveWorld world;
        world.folder.dataFile(world.rows()
                                  .row({{Key::full_Name, text(u"最後")},
                                      {Key::attachmentFile, text(u"no such folder")}})
                                  .build());

        QVERIFY(!world.importCards());

        const ReadPage page = world.page();
        QCOMPARE(page.title, u"Import failed"_s);
        QCOMPARE(page.end, u"failed"_s);
        QVERIFY(page.everything.contains(u"The card database is as it was before."_s));
        QCOMPARE(page.reasons.size(), 1);
        QVERIFY(page.reasons.constFirst().startsWith(world.presenter.texts.constFirst()));
        QVERIFY(page.reasons.constFirst().contains(
            QString::number(world.presenter.numbers.constFirst())));
        QCOMPARE(page.card(MissingImage).at(3), u"Not imported."_s);
        QCOMPARE(page.card(NoNameAtAll + 1).at(1), text(u"最後"));
        QCOMPARE(page.card(NoNameAtAll + 1).constLast(), u"The operation stopped here."_s);
        const QJsonObject data = world.data();
        QCOMPARE(data.value(u"end"_s).toString(), u"failed"_s);
        QCOMPARE(data.value(u"messages"_s).toArray().first()[u"number"_s],
            QJsonValue(qint64 {world.presenter.numbers.constFirst()}));
        QCOMPARE(data.value(u"code"_s).toInt(), toNumber(world.controller->outcome().code));
    }

    void wrongLineIsNamed()
    {
        DefectiveWorld world;
        world.folder.dataFile(DataFileBuilder().titleLine().row(21).row(20).build());

        QVERIFY(!world.importCards());

        const QStringList card = world.page().card(3);
        QCOMPARE(card.size(), 4);
        QCOMPARE(card.at(1), u"(no name)"_s);
        QCOMPARE(card.at(3), u"The operation stopped here."_s);
    }

    void cancelledImportSaysSo()
    {
        DefectiveWorld world;
        world.cancelAt(DBCEventName::ImportIsRunning, 5);

        QVERIFY(world.importCards());

        const ReadPage page = world.page();
        QCOMPARE(page.title, u"Import cancelled"_s);
        QCOMPARE(page.values.value(u"Cards processed before the end"_s), u"5 of 14"_s);
        QCOMPARE(page.card(MissingImage).at(3), u"Not imported."_s);
        QVERIFY(world.data().value(u"backup"_s).isNull());
    }

    void cancelledExportSaysSo()
    {
        DefectiveWorld world;
        world.package.card();
        world.cancelAt(DBCEventName::ExportIsRunning, 1);

        QVERIFY(world.exportCards());

        const ReadPage page = world.page();
        QCOMPARE(page.title, u"Export cancelled"_s);
        QVERIFY(page.everything.contains(u"removed again"_s));
        QCOMPARE(world.data().value(u"end"_s).toString(), u"cancelled"_s);
    }

    void folderThatIsRefusedIsReported()
    {
        DefectiveWorld world;
        world.folder.version(u"TELKA"_s);

        QVERIFY(!world.importCards());

        const ReadPage page = world.page();
        QCOMPARE(page.reasons.size(), 1);
        QVERIFY(page.reasons.constFirst().contains(u"314"_s));
        QVERIFY(page.cards.isEmpty());
        QVERIFY(page.others.isEmpty());
    }

    void failureAboutNoCardStandsApart()
    {
        DefectiveWorld world;
        world.package.writeFile(u"Velmora.sqldb"_s, "no database at all");

        QVERIFY(!world.importCards());

        const ReadPage page = world.page();
        QCOMPARE(page.others.size(), 1);
        QVERIFY(page.others.constFirst().contains(u"Velmora.sqldb"_s));
        QCOMPARE(world.data().value(u"others"_s).toArray().size(), 1);
    }

    void reportComesWithTheLastEvent()
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
            u"VelmoraConverter report %1-"_s.arg(QDate::currentDate().year())));
    }

    void logIsWhatItWasWithoutReports()
    {
        DefectiveWorld world;
        QVERIFY(world.importCards());
        QVERIFY(!world.home.logText().contains(u"VelmoraConverter report "_s));
    }

    void folderThatCannotBeWrittenIsOnlyAWarning()
    {
        const AsOrdinaryUser user;
        ConversionWorld world;
        DBCLog::info(u"makes the log"_s);
        const ScopedMode mode(world.home.path(u"home/Library/Logs"_s), 0555);

        QVERIFY(world.importCards());

        QCOMPARE(world.controller->outcome().reportPath, QString());
        QVERIFY(!DBCLog::logInstance()->hasWarningOrError());
        QVERIFY(world.home.logText().contains(u"[Warning] The report ["_s));
        QCOMPARE(
            world.receiver.events.constLast(), u"DBC_OperationDidFinishedNotification ok=true"_s);
    }

    void logThatCannotBeWrittenLeavesTheReport()
    {
        ConversionWorld world;
        world.home.makeFolder(u"home/Library/Logs/VelmoraConverter.log"_s);

        QVERIFY(world.importCards());

        const ReadPage page = ReadPage::of(bytesOf(world.controller->outcome().reportPath));
        QCOMPARE(page.title, u"Import finished"_s);
        QVERIFY(!page.values.contains(u"Log"_s));
    }
};

QTEST_GUILESS_MAIN(tst_report)
#include "tst_report.moc"
