// SPDX-License-Identifier: GPL-3.0-or-later
// The report as the window offers it when a run has ended.
#include "app/DBCReportLink.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"

#include <QTest>

using Key = DBCRecordKey;

namespace {

struct Screen : WindowFixture {
    explicit Screen(Language language = Language::English)
        : WindowFixture(language)
    {
        host->fileOpener = home.path(QStringLiteral("no-such-opener"));
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
        const QString script = home.writeFile(QStringLiteral("opener"), "#!/bin/sh\n" + lines);
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

    QString reportPath = home.writeFile(QStringLiteral("a report.html"), "<html/>");
};

} // namespace

class tst_reportLink : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linkComesWithTheEndOfARun();
    void linkNamesTheNumberOfCards_data();
    void linkNamesTheNumberOfCards();
    void soundCardsAreNotCounted();
    void undoneImportTellsTheNumberOnALineOfItsOwn();
    void nothingMovesWhenTheLinkComes();
    void linkGoesWithTheNextScreen();
    void runWithoutAReportOffersNone();
    void desktopsProgramGetsTheReport();
    void reportThatNobodyShowsIsTold();
    void importFromTheWindowOffersItsReport();
};

void tst_reportLink::linkComesWithTheEndOfARun()
{
    Screen screen;
    QVERIFY(!screen.link().isVisible());
    screen.send({.name = DBCEventName::ImportWillBegin});
    QVERIFY(!screen.link().isVisible());
    screen.finish(3);
    QVERIFY(screen.link().isVisible());
    QVERIFY(screen.link().isEnabled());
}

void tst_reportLink::linkNamesTheNumberOfCards_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("lastLine");
    QTest::newRow("English")
        << static_cast<int>(WindowFixture::Language::English) << QStringLiteral("Open &Report")
        << QStringLiteral("Open the report about this run. Cards with warnings or errors: 3")
        << QStringLiteral("Cards: 5, imported: 5, with warnings: 3");
    QTest::newRow("Japanese")
        << static_cast<int>(WindowFixture::Language::Japanese)
        << QStringLiteral("レポートを開く(&R)")
        << QStringLiteral("この処理のレポートを開きます。警告またはエラーのある名刺: 3件")
        << QStringLiteral("名刺の件数: 5件、インポート済み: 5件、警告あり: 3件");
}

void tst_reportLink::linkNamesTheNumberOfCards()
{
    QFETCH(int, language);
    Screen screen(static_cast<WindowFixture::Language>(language));
    screen.finish(3);
    QTEST(screen.link().text(), "button");
    QTEST(screen.link().accessibleName(), "name");
    QTEST(screen.message().section(u'\n', -1), "lastLine");
}

void tst_reportLink::soundCardsAreNotCounted()
{
    Screen screen;
    screen.finish(0);
    QVERIFY(screen.link().isVisible());
    QVERIFY(screen.message().endsWith(QStringLiteral("imported: 5")));
}

void tst_reportLink::undoneImportTellsTheNumberOnALineOfItsOwn()
{
    Screen screen;
    screen.send({.name = DBCEventName::DatabaseRestoreWillBegin});
    screen.send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
    screen.end(2, false);
    QCOMPARE(
        screen.message().section(u'\n', -1), QStringLiteral("Cards with warnings or errors: 2"));
    QVERIFY(screen.link().isVisible());
}

void tst_reportLink::nothingMovesWhenTheLinkComes()
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

void tst_reportLink::linkGoesWithTheNextScreen()
{
    Screen screen;
    screen.finish(3);
    screen.button("_return2MainWindowBtn").click();
    screen.choose(OperationType::Export);
    QVERIFY(!screen.link().isVisible());
}

void tst_reportLink::runWithoutAReportOffersNone()
{
    Screen screen;
    screen.reportPath.clear();
    screen.finish(3);
    QVERIFY(!screen.link().isVisible());
    QVERIFY(screen.message().endsWith(QStringLiteral("with warnings: 3")));
}

void tst_reportLink::desktopsProgramGetsTheReport()
{
    Screen screen;
    screen.setOpener("printf %s \"$1\" > '" + screen.home.path(QStringLiteral("got")).toUtf8()
        + ".part' && mv '" + screen.home.path(QStringLiteral("got")).toUtf8() + ".part' '"
        + screen.home.path(QStringLiteral("got")).toUtf8() + "'\n");
    screen.finish(3);
    screen.link().click();
    QTRY_VERIFY(QFile::exists(screen.home.path(QStringLiteral("got"))));
    QCOMPARE(QString::fromUtf8(screen.home.readFile(QStringLiteral("got"))), screen.reportPath);
    QVERIFY(screen.presenter.numbers.isEmpty());
}

void tst_reportLink::reportThatNobodyShowsIsTold()
{
    Screen screen;
    screen.finish(3);
    screen.link().click();
    QTRY_COMPARE(screen.presenter.numbers, QList<quint32> {111});
    QVERIFY(screen.presenter.texts.constFirst().contains(screen.reportPath));
}

void tst_reportLink::importFromTheWindowOffersItsReport()
{
    Screen screen;
    PackageFixture package(screen.home);
    InterchangeFolder folder(screen.home);
    folder.dataFile(DataFileBuilder()
                        .titleLine()
                        .row({{Key::full_Name, QStringLiteral("星野 太郎")},
                            {Key::face_Image_File, QStringLiteral("gone.jpg")}})
                        .row({{Key::full_Name, QStringLiteral("田中 花子")}})
                        .build());
    screen.presenter.answer = DBCAnswer::Default;
    screen.dataPath().setText(folder.path());
    screen.databasePath().setText(package.path());

    screen.convert().click();

    QTRY_VERIFY(!screen.window.converter().isRunning());
    QVERIFY(screen.link().isVisible());
    QVERIFY2(screen.message().endsWith(QStringLiteral("with warnings: 1")),
        qPrintable(screen.message()));
}

QTEST_MAIN(tst_reportLink)
#include "tst_reportLink.moc"
