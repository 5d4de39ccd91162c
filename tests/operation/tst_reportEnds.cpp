// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the reports of whole conversions for each way in which a conversion can end, and what
// happens when the program cannot write a report.
#include "operation/log/DBCLog.h"
#include "tests/operation/DefectiveWorld.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

class tst_reportEnds : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

QTEST_GUILESS_MAIN(tst_reportEnds)
#include "tst_reportEnds.moc"
