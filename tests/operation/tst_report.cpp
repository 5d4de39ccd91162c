// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the report about a folder with many defects: the page that people read and the data that
// programs read.
#include "tests/operation/DefectiveWorld.h"

#include "operation/log/DBCLog.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using Language = DBCLocalizable::Language;

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
                                 << QStringList({u"Line"_s, u"Name"_s, u"Problem"_s, u"Result"_s})
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
        // The program writes no script into the page, so a script would come from a card.
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
        // A card without a date gets the date of its import, and the program does not warn of that.
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
};

QTEST_GUILESS_MAIN(tst_report)
#include "tst_report.moc"
