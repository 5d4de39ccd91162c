// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the program gathers a report while a conversion runs, and how it writes and removes the
// files of reports.
#include "operation/log/DBCLog.h"
#include "report/DBCReportFiles.h"
#include "report/DBCReportPage.h"
#include "report/DBCReportTexts.h"
#include "report/DBCRunStory.h"
#include "tests/operation/ReportReading.h"
#include "tests/support/FailingCall.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QtTest>

#include <thread>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using Stop = DBCRunStory::Stop;
using Outcome = DBCOutcome;

struct Reports {
    Reports()
    {
        report.operation = OperationType::Import;
        report.started = QDateTime(QDate(2026, 11, 21), QTime(8, 15, 30));
    }
    // Returns the path of the page, or an empty text if the report could not be written.
    QString write()
    {
        const auto written = DBCReportFiles::write(report, folder);
        const auto* path = std::get_if<QString>(&written);
        return path ? *path : QString();
    }
    QString writePair(const QString& stem)
    {
        home.writeFile(u"logs/%1.json"_s.arg(stem), "{}");
        return home.writeFile(u"logs/%1.html"_s.arg(stem), "<html/>");
    }
    QStringList names() const
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    TestHome home;
    QString folder = home.makeFolder(u"logs"_s);
    DBCRunReport report;
};

void warnOfLine(qint64 number)
{
    DBCLog::warning(u"w"_s, {.number = number, .cardName = u"n"_s});
}

} // namespace

class tst_reportFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nameTellsTheStart()
    {
        Reports reports;
        QCOMPARE(reports.write(),
            reports.folder + u"/VelmoraConverter report 2026-11-21 08.15.30.html"_s);
        QCOMPARE(reports.names(),
            QStringList({u"VelmoraConverter report 2026-11-21 08.15.30.html"_s,
                u"VelmoraConverter report 2026-11-21 08.15.30.json"_s}));
    }

    void sameSecondGetsANameOfItsOwn()
    {
        Reports reports;
        const QString first = reports.write();
        const QByteArray before = bytesOf(first);
        reports.report.maxCount = 7;
        const QString second = reports.write();
        QVERIFY(second.endsWith(u"08.15.30 (02).html"_s));
        QCOMPARE(bytesOf(first), before);
        QVERIFY(bytesOf(second).contains("%20%2802%29.json"));
        QVERIFY(QFile::exists(dataPathOf(second)));
    }

    void newestTwentyAreKept()
    {
        Reports reports;
        for (int day = 1; day <= 25; ++day)
            reports.writePair(
                u"VelmoraConverter report 2025-01-%1 10.00.00"_s.arg(day, 2, 10, QChar(u'0')));

        reports.write();

        const QStringList names = reports.names();
        QCOMPARE(names.size(), 40);
        QVERIFY(!names.contains(u"VelmoraConverter report 2025-01-06 10.00.00.html"_s));
        QVERIFY(!names.contains(u"VelmoraConverter report 2025-01-06 10.00.00.json"_s));
        QVERIFY(names.contains(u"VelmoraConverter report 2025-01-07 10.00.00.html"_s));
        QVERIFY(names.contains(u"VelmoraConverter report 2026-11-21 08.15.30.json"_s));
    }

    void newReportStaysThoughTheClockWasPutBack()
    {
        Reports reports;
        for (int second = 10; second < 40; ++second)
            reports.writePair(u"VelmoraConverter report 2099-01-01 10.00.%1"_s.arg(second));
        QVERIFY(QFile::exists(reports.write()));
        QCOMPARE(reports.names().size(), 40);
    }

    void otherFilesStay()
    {
        Reports reports;
        const QStringList kept {u"logs/VelmoraConverter.log"_s,
            u"logs/VelmoraConverter report of May.html"_s,
            u"logs/VelmoraConverter report 2020-01-01 10.00.00.html.bak"_s,
            u"logs/My VelmoraConverter report 2020-01-01 10.00.00.html"_s};
        for (const QString& name : kept)
            reports.home.writeFile(name, "x");
        for (int second = 10; second < 40; ++second)
            reports.writePair(u"VelmoraConverter report 2021-01-01 10.00.%1"_s.arg(second));

        reports.write();

        for (const QString& name : kept)
            QVERIFY2(QFile::exists(reports.home.path(name)), qPrintable(name));
        QCOMPARE(reports.names().size(), 40 + kept.size());
    }

    void fullDiskLeavesNothingHalfWritten()
    {
        Reports reports;
        const QString older = reports.writePair(u"VelmoraConverter report 2020-01-01 10.00.00"_s);
        const QStringList before = reports.names();
        {
            // The file with the data fits into this limit, and the page does not.
            const FileSizeLimit limit(1500);
            QCOMPARE(reports.write(), QString());
        }
        QCOMPARE(reports.names(), before);
        QVERIFY(QFile::exists(older));
    }

    // Reports contain names of people. If the program created a file with wide rights and narrowed
    // them later, other users could open the file in between. In this test, all changes of rights
    // fail, so the file must be created with the rights that it is to have.
    void onlyTheOwnerMayReadAReportFromItsCreationOn()
    {
        Reports reports;
        const mode_t former = umask(0);
        QString page;
        bool isInnerPossible = false;
        const bool isPossible = FailingCall(SYS_fchmod, EPERM).during([&] {
            isInnerPossible = FailingCall(SYS_chmod, EPERM).during([&] { page = reports.write(); });
        });
        umask(former);
        if (!isPossible || !isInnerPossible)
            QSKIP("system calls cannot be made to fail here");
        QVERIFY(!page.isEmpty());
        QCOMPARE(reports.names().size(), 2);
        for (const QString& name : reports.names()) {
            struct stat status { };
            QCOMPARE(stat(QFile::encodeName(reports.folder + u'/' + name).constData(), &status), 0);
            QCOMPARE(status.st_mode & 07777, mode_t {0600});
        }
    }

    void namesNoPageMayHoldDoNotSpoilIt()
    {
        Reports reports;
        QString name = u"a"_s;
        for (const char16_t unit : {u'\ufffe', u'\uffff', u'\xd800', u'\xdc00', u'\x0'})
            name += QChar(unit);
        name += u"b\rc\r\nd"_s;
        reports.report.cards.push_back({3, name, {{DBCLogType::Warning, name, {}}}});

        const ReadPage page = ReadPage::of(reportPage(reports.report, u"x.json"_s));

        QCOMPARE(page.error, QString());
        QVERIFY(page.card(3).at(1).startsWith(u'a'));
        QVERIFY2(page.card(3).at(1).endsWith(u"\\u0000b\nc\nd"_s), qPrintable(page.card(3).at(1)));
    }

    void styleOfThePageIsThere()
    {
        const Reports reports;
        const QByteArray page = reportPage(reports.report, u"x.json"_s);
        const QByteArray style = page.mid(page.indexOf("<style>"));
        const QByteArray rules = style.first(style.indexOf("</style>"));
        QVERIFY(rules.contains("prefers-color-scheme: dark"));
        QVERIFY(rules.contains("@media print"));
        // If the style sheet were escaped for XML, a browser that reads the page as HTML would not
        // understand it.
        QVERIFY(!rules.contains('&'));
    }

    void timeTakenIsReadable_data()
    {
        QTest::addColumn<qint64>("milliseconds");
        QTest::addColumn<QString>("shown");
        QTest::newRow("less than a second") << qint64(340) << u"0.3 s"_s;
        QTest::newRow("a minute") << qint64(60'000) << u"1 min 0 s"_s;
        QTest::newRow("just below a minute") << qint64(59'400) << u"59.4 s"_s;
        QTest::newRow("rounded up to a minute") << qint64(59'960) << u"1 min 0 s"_s;
        QTest::newRow("hours") << qint64(7'384'000) << u"2 h 3 min"_s;
    }
    void timeTakenIsReadable()
    {
        QFETCH(qint64, milliseconds);
        Reports reports;
        reports.report.milliseconds = milliseconds;
        QTEST(DBCReportTexts::timeTaken(reports.report), "shown");
    }

    void problemsOfACardStandTogether()
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

    void tooManyWarningsAreCountedOnly()
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
        const ReadPage page = ReadPage::of(reportPage(report, u"x.json"_s));
        QVERIFY(page.everything.contains(u"There are 100 more"_s));
    }

    void lastErrorIsKeptBehindTooManyWarnings()
    {
        const TestHome home;
        const DBCRunStory story;
        for (std::size_t i = 0; i <= DBCRunStory::mostEntries; ++i)
            warnOfLine(1);
        DBCLog::error(u"why"_s, {.messageNumber = 312});
        const DBCRunReport report = story.reportOf(Outcome(), Stop::NotAsked);
        QCOMPARE(report.messages.size(), std::size_t(1));
        QCOMPARE(report.messages[0].text, u"why"_s);
    }

    void otherThreadsAreNotListenedTo()
    {
        const TestHome home;
        const DBCRunStory story;
        std::thread([] { warnOfLine(1); }).join();
        QCOMPARE(story.reportOf(Outcome(), Stop::NotAsked).warningCount, 0);
    }

    void failedRestoreIsTold()
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
        const ReadPage page = ReadPage::of(reportPage(report, u"x.json"_s));
        QVERIFY(page.everything.contains(u"could not be put back"_s));
        QCOMPARE(page.card(4).at(3), u"Not certain."_s);
    }
};

QTEST_GUILESS_MAIN(tst_reportFiles)
#include "tst_reportFiles.moc"
