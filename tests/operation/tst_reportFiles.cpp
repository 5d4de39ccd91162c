// SPDX-License-Identifier: GPL-3.0-or-later
// What a report is gathered from, and how the files of reports come and go.
#include "operation/log/DBCLog.h"
#include "report/DBCReportFiles.h"
#include "report/DBCReportPage.h"
#include "report/DBCReportTexts.h"
#include "report/DBCRunStory.h"
#include "tests/operation/ReportReading.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QtTest>

#include <thread>

namespace {

using Stop = DBCRunStory::Stop;
using Outcome = DBCConverterController::Outcome;

struct Reports {
    Reports()
    {
        report.operation = OperationType::Import;
        report.started = QDateTime(QDate(2026, 11, 21), QTime(8, 15, 30));
    }
    // The path of the page; empty: it could not be written.
    QString write()
    {
        const auto written = DBCReportFiles::write(report, folder);
        const auto* path = std::get_if<QString>(&written);
        return path ? *path : QString();
    }
    QString writePair(const QString& stem)
    {
        home.writeFile(QStringLiteral("logs/%1.json").arg(stem), "{}");
        return home.writeFile(QStringLiteral("logs/%1.html").arg(stem), "<html/>");
    }
    QStringList names() const
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    TestHome home;
    QString folder = home.makeFolder(QStringLiteral("logs"));
    DBCRunReport report;
};

void warnOfLine(qint64 number)
{
    DBCLog::warning(QStringLiteral("w"), {.number = number, .cardName = QStringLiteral("n")});
}

} // namespace

class tst_reportFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameTellsTheStart();
    void sameSecondGetsANameOfItsOwn();
    void newestTwentyAreKept();
    void newReportStaysThoughTheClockWasPutBack();
    void otherFilesStay();
    void fullDiskLeavesNothingHalfWritten();

    void namesNoPageMayHoldDoNotSpoilIt();
    void styleOfThePageIsThere();
    void timeTakenIsReadable_data();
    void timeTakenIsReadable();

    void problemsOfACardStandTogether();
    void tooManyWarningsAreCountedOnly();
    void lastErrorIsKeptBehindTooManyWarnings();
    void otherThreadsAreNotListenedTo();
    void failedRestoreIsTold();
};

void tst_reportFiles::nameTellsTheStart()
{
    Reports reports;
    QCOMPARE(reports.write(),
        reports.folder + QStringLiteral("/VelmoraConverter report 2026-11-21 08.15.30.html"));
    QCOMPARE(reports.names(),
        QStringList({QStringLiteral("VelmoraConverter report 2026-11-21 08.15.30.html"),
            QStringLiteral("VelmoraConverter report 2026-11-21 08.15.30.json")}));
}

void tst_reportFiles::sameSecondGetsANameOfItsOwn()
{
    Reports reports;
    const QString first = reports.write();
    const QByteArray before = bytesOf(first);
    reports.report.maxCount = 7;
    const QString second = reports.write();
    QVERIFY(second.endsWith(QStringLiteral("08.15.30 (02).html")));
    QCOMPARE(bytesOf(first), before);
    QVERIFY(bytesOf(second).contains("%20%2802%29.json"));
    QVERIFY(QFile::exists(dataPathOf(second)));
}

void tst_reportFiles::newestTwentyAreKept()
{
    Reports reports;
    for (int day = 1; day <= 25; ++day)
        reports.writePair(QStringLiteral("VelmoraConverter report 2025-01-%1 10.00.00")
                              .arg(day, 2, 10, QChar(u'0')));

    reports.write();

    const QStringList names = reports.names();
    QCOMPARE(names.size(), 40);
    QVERIFY(!names.contains(QStringLiteral("VelmoraConverter report 2025-01-06 10.00.00.html")));
    QVERIFY(!names.contains(QStringLiteral("VelmoraConverter report 2025-01-06 10.00.00.json")));
    QVERIFY(names.contains(QStringLiteral("VelmoraConverter report 2025-01-07 10.00.00.html")));
    QVERIFY(names.contains(QStringLiteral("VelmoraConverter report 2026-11-21 08.15.30.json")));
}

void tst_reportFiles::newReportStaysThoughTheClockWasPutBack()
{
    Reports reports;
    for (int second = 10; second < 40; ++second)
        reports.writePair(
            QStringLiteral("VelmoraConverter report 2099-01-01 10.00.%1").arg(second));
    QVERIFY(QFile::exists(reports.write()));
    QCOMPARE(reports.names().size(), 40);
}

void tst_reportFiles::otherFilesStay()
{
    Reports reports;
    const QStringList kept {QStringLiteral("logs/VelmoraConverter.log"),
        QStringLiteral("logs/VelmoraConverter report of May.html"),
        QStringLiteral("logs/VelmoraConverter report 2020-01-01 10.00.00.html.bak"),
        QStringLiteral("logs/My VelmoraConverter report 2020-01-01 10.00.00.html")};
    for (const QString& name : kept)
        reports.home.writeFile(name, "x");
    for (int second = 10; second < 40; ++second)
        reports.writePair(
            QStringLiteral("VelmoraConverter report 2021-01-01 10.00.%1").arg(second));

    reports.write();

    for (const QString& name : kept)
        QVERIFY2(QFile::exists(reports.home.path(name)), qPrintable(name));
    QCOMPARE(reports.names().size(), 40 + kept.size());
}

void tst_reportFiles::fullDiskLeavesNothingHalfWritten()
{
    Reports reports;
    const QString older
        = reports.writePair(QStringLiteral("VelmoraConverter report 2020-01-01 10.00.00"));
    const QStringList before = reports.names();
    {
        // Enough for the data, too little for the page.
        const FileSizeLimit limit(1500);
        QCOMPARE(reports.write(), QString());
    }
    QCOMPARE(reports.names(), before);
    QVERIFY(QFile::exists(older));
}

void tst_reportFiles::namesNoPageMayHoldDoNotSpoilIt()
{
    Reports reports;
    QString name = QStringLiteral("a");
    for (const char16_t unit : {u'\ufffe', u'\uffff', u'\xd800', u'\xdc00', u'\x0'})
        name += QChar(unit);
    name += QStringLiteral("b\rc\r\nd");
    reports.report.cards.push_back({3, name, {{DBCLogType::Warning, name, {}}}});

    const ReadPage page = ReadPage::of(reportPage(reports.report, QStringLiteral("x.json")));

    QCOMPARE(page.error, QString());
    QVERIFY(page.card(3).at(1).startsWith(u'a'));
    QVERIFY2(page.card(3).at(1).endsWith(QStringLiteral("\\u0000b\nc\nd")),
        qPrintable(page.card(3).at(1)));
}

void tst_reportFiles::styleOfThePageIsThere()
{
    const Reports reports;
    const QByteArray page = reportPage(reports.report, QStringLiteral("x.json"));
    const QByteArray style = page.mid(page.indexOf("<style>"));
    const QByteArray rules = style.first(style.indexOf("</style>"));
    QVERIFY(rules.contains("prefers-color-scheme: dark"));
    QVERIFY(rules.contains("@media print"));
    // Escaped for XML it would not be understood as a style of HTML.
    QVERIFY(!rules.contains('&'));
}

void tst_reportFiles::timeTakenIsReadable_data()
{
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<QString>("shown");
    QTest::newRow("less than a second") << qint64(340) << QStringLiteral("0.3 s");
    QTest::newRow("a minute") << qint64(60'000) << QStringLiteral("1 min 0 s");
    QTest::newRow("just below a minute") << qint64(59'400) << QStringLiteral("59.4 s");
    QTest::newRow("rounded up to a minute") << qint64(59'960) << QStringLiteral("1 min 0 s");
    QTest::newRow("hours") << qint64(7'384'000) << QStringLiteral("2 h 3 min");
}

void tst_reportFiles::timeTakenIsReadable()
{
    QFETCH(qint64, milliseconds);
    Reports reports;
    reports.report.milliseconds = milliseconds;
    QTEST(DBCReportTexts::timeTaken(reports.report), "shown");
}

void tst_reportFiles::problemsOfACardStandTogether()
{
    const TestHome home;
    const DBCRunStory story;
    for (const qint64 number : {9, 2, 10, 2})
        warnOfLine(number);
    const DBCRunReport report = story.reportOf(Outcome(), Stop::NotAsked);
    QCOMPARE(report.cards.size(), std::size_t(3));
    QCOMPARE(report.cards[0].number, 2);
    QCOMPARE(report.cards[0].problems.size(), std::size_t(2));
    QCOMPARE(report.cards[1].number, 9);
    QCOMPARE(report.cards[2].number, 10);
    QCOMPARE(report.concernedCardCount, 3);
}

void tst_reportFiles::tooManyWarningsAreCountedOnly()
{
    const TestHome home;
    const DBCRunStory story;
    const qint64 many = qint64(DBCRunStory::mostEntries) + 100;
    for (qint64 number = 1; number <= many; ++number)
        warnOfLine(number);
    DBCRunReport report = story.reportOf(Outcome(), Stop::NotAsked);
    report.operation = OperationType::Import;
    QCOMPARE(report.cards.size(), DBCRunStory::mostEntries);
    QCOMPARE(report.leftOutCount, 100);
    QCOMPARE(report.concernedCardCount, many);
    QCOMPARE(report.warningCount, many);
    const ReadPage page = ReadPage::of(reportPage(report, QStringLiteral("x.json")));
    QVERIFY(page.everything.contains(QStringLiteral("There are 100 more")));
}

void tst_reportFiles::lastErrorIsKeptBehindTooManyWarnings()
{
    const TestHome home;
    const DBCRunStory story;
    for (std::size_t i = 0; i <= DBCRunStory::mostEntries; ++i)
        warnOfLine(1);
    DBCLog::error(QStringLiteral("why"), {.messageNumber = 312});
    const DBCRunReport report = story.reportOf(Outcome(), Stop::NotAsked);
    QCOMPARE(report.messages.size(), std::size_t(1));
    QCOMPARE(report.messages[0].text, QStringLiteral("why"));
}

void tst_reportFiles::otherThreadsAreNotListenedTo()
{
    const TestHome home;
    const DBCRunStory story;
    std::thread([] { warnOfLine(1); }).join();
    QCOMPARE(story.reportOf(Outcome(), Stop::NotAsked).warningCount, 0);
}

void tst_reportFiles::failedRestoreIsTold()
{
    const TestHome home;
    DBCRunStory story;
    Outcome outcome;
    outcome.code = DBCResultCode::RestoreFailure;
    story.follow({.name = DBCEventName::ImportWillBegin});
    story.follow({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = false});
    warnOfLine(4);

    DBCRunReport report = story.reportOf(outcome, Stop::NotAsked);
    report.operation = OperationType::Import;

    QCOMPARE(report.end, DBCRunEnd::FailedAndNotRestored);
    const ReadPage page = ReadPage::of(reportPage(report, QStringLiteral("x.json")));
    QVERIFY(page.everything.contains(QStringLiteral("could not be put back")));
    QCOMPARE(page.card(4).at(3), QStringLiteral("Not certain."));
}

QTEST_GUILESS_MAIN(tst_reportFiles)
#include "tst_reportFiles.moc"
