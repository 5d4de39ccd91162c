// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the window offers the report about a run to the user when the run has ended.
#include "app/DBCReportLink.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

struct Screen : WindowFixture {
    explicit Screen(Language language = Language::English)
        : WindowFixture(language)
    {
        host->fileOpener = home.path(u"no-such-opener"_s);
        choose(OperationType::Import);
    }

    DBCReportLink& link() { return control<DBCReportLink>("openReportBtn"); }
    void finish(qint64 concernedCardCount)
    {
        send({.name = DBCEventName::ImportDidFinished, .maxCount = 5, .finishedCount = 5});
        end(concernedCardCount, true);
    }
    void end(qint64 concernedCardCount, bool isOk)
    {
        send({.name = DBCEventName::OperationDidFinished,
            .operationIsOk = isOk,
            .reportPath = reportPath,
            .concernedCardCount = concernedCardCount});
    }
    void setOpener(const QByteArray& lines)
    {
        const QString script = home.writeFile(u"opener"_s, "#!/bin/sh\n" + lines);
        QVERIFY(
            QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        host->fileOpener = script;
    }
    QRect place(const char* name)
    {
        QTest::qWait(0);
        auto& widget = control<QWidget>(name);
        return {widget.mapTo(&window, QPoint(0, 0)), widget.size()};
    }

    QString reportPath = home.writeFile(u"a report.html"_s, "<html/>");
};

} // namespace

class tst_reportLink : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linkComesWithTheEndOfARun()
    {
        Screen screen;
        QVERIFY(!screen.link().isVisible());
        screen.send({.name = DBCEventName::ImportWillBegin});
        QVERIFY(!screen.link().isVisible());
        screen.finish(3);
        QVERIFY(screen.link().isVisible());
        QVERIFY(screen.link().isEnabled());
    }

    void linkNamesTheNumberOfCards_data()
    {
        QTest::addColumn<int>("language");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("lastLine");
        QTest::newRow("English")
            << static_cast<int>(WindowFixture::Language::English) << u"Open &Report"_s
            << u"Open the report about this run. Cards with warnings or errors: 3"_s
            << u"Cards: 5, imported: 5, with warnings: 3"_s;
        QTest::newRow("Japanese")
            << static_cast<int>(WindowFixture::Language::Japanese) << u"レポートを開く(&R)"_s
            << u"この処理のレポートを開きます。警告またはエラーのある名刺: 3件"_s
            << u"名刺の件数: 5件、インポート済み: 5件、警告あり: 3件"_s;
    }
    void linkNamesTheNumberOfCards()
    {
        QFETCH(int, language);
        Screen screen(static_cast<WindowFixture::Language>(language));
        screen.finish(3);
        QTEST(screen.link().text(), "button");
        QTEST(screen.link().accessibleName(), "name");
        QTEST(screen.message().section(u'\n', -1), "lastLine");
    }

    void soundCardsAreNotCounted()
    {
        Screen screen;
        screen.finish(0);
        QVERIFY(screen.link().isVisible());
        QVERIFY(screen.message().endsWith(u"imported: 5"_s));
    }

    void undoneImportTellsTheNumberOnALineOfItsOwn()
    {
        Screen screen;
        screen.send({.name = DBCEventName::DatabaseRestoreWillBegin});
        screen.send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
        screen.end(2, false);
        QCOMPARE(screen.message().section(u'\n', -1), u"Cards with warnings or errors: 2"_s);
        QVERIFY(screen.link().isVisible());
    }

    void nothingMovesWhenTheLinkComes()
    {
        Screen screen;
        screen.send({.name = DBCEventName::ImportDidFinished, .maxCount = 5, .finishedCount = 5});
        const char* const names[] {"_openLogBtn", "_closeBtn", "_convertBtn", "_messageArea"};
        QList<QRect> before;
        for (const char* const name : names)
            before << screen.place(name);
        screen.end(3, true);
        QList<QRect> after;
        for (const char* const name : names)
            after << screen.place(name);
        QCOMPARE(after, before);
    }

    void linkGoesWithTheNextScreen()
    {
        Screen screen;
        screen.finish(3);
        screen.button("_return2MainWindowBtn").click();
        screen.choose(OperationType::Export);
        QVERIFY(!screen.link().isVisible());
    }

    void runWithoutAReportOffersNone()
    {
        Screen screen;
        screen.reportPath.clear();
        screen.finish(3);
        QVERIFY(!screen.link().isVisible());
        QVERIFY(screen.message().endsWith(u"with warnings: 3"_s));
    }

    void desktopsProgramGetsTheReport()
    {
        Screen screen;
        screen.setOpener("printf %s \"$1\" > '" + screen.home.path(u"got"_s).toUtf8()
            + ".part' && mv '" + screen.home.path(u"got"_s).toUtf8() + ".part' '"
            + screen.home.path(u"got"_s).toUtf8() + "'\n");
        screen.finish(3);
        screen.link().click();
        QTRY_VERIFY(QFile::exists(screen.home.path(u"got"_s)));
        QCOMPARE(QString::fromUtf8(screen.home.readFile(u"got"_s)), screen.reportPath);
        QVERIFY(screen.presenter.numbers.isEmpty());
    }

    void reportThatNobodyShowsIsTold()
    {
        Screen screen;
        screen.finish(3);
        screen.link().click();
        QTRY_COMPARE(screen.presenter.numbers, QList<quint32> {111});
        QVERIFY(screen.presenter.texts.constFirst().contains(screen.reportPath));
    }

    void importFromTheWindowOffersItsReport()
    {
        Screen screen;
        PackageFixture package(screen.home);
        InterchangeFolder folder(screen.home);
        folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .row({{Key::full_Name, u"星野 太郎"_s}, {Key::face_Image_File, u"gone.jpg"_s}})
                .row({{Key::full_Name, u"田中 花子"_s}})
                .build());
        screen.presenter.answer = DBCAnswer::Default;
        screen.dataPath().setText(folder.path());
        screen.databasePath().setText(package.path());

        screen.convert().click();

        QTRY_VERIFY(!screen.window.converter().isRunning());
        QVERIFY(screen.link().isVisible());
        QVERIFY2(screen.message().endsWith(u"with warnings: 1"_s), qPrintable(screen.message()));
    }
};

QTEST_MAIN(tst_reportLink)
#include "tst_reportLink.moc"
