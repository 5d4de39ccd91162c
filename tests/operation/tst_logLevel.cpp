// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLog.h"
#include "operation/log/DBCLogObserver.h"
#include "tests/operation/LogFixture.h"
#include "tests/support/CapturedStandardError.h"

#include <QTest>

using Code = DBCResultCode;

class tst_logLevel : public QObject, private LogFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void debugIsNeverWritten();
    void levelTwoDropsInfoAndKeepsTheRest();
    void levelFourDropsEverythingButCounts();
    void negativeLevelWritesNoDebug();
    void levelZeroSendsEveryLineToTheConsoleAsDebug();
    void levelThatIsNoNumberStaysInfo();
    void levelCanBeReadAgain();

    void filteredWarningStillCounts();
    void countsAreResetTogether();
    void countsOfOtherInstancesAreTheirOwn();

    void observerSeesWarningsAndErrors();
    void observerSeesWhatTheLevelFilters();
    void observerSeesWhatAMessageIsAbout();
    void everyObserverSeesEverything();

private:
    void setLogLevel(const QByteArray& value) const
    {
        _home->writeFile(
            QStringLiteral("home/Library/Preferences/com.velmora.VelmoraConverter.plist"),
            "<plist version=\"1.0\"><dict><key>Log Level</key>" + value + "</dict></plist>");
    }
    void setLogLevel(int level) const
    {
        setLogLevel("<integer>" + QByteArray::number(level) + "</integer>");
    }
};

void tst_logLevel::debugIsNeverWritten()
{
    CapturedStandardError console;
    const Code code = DBCLog::logInstance()->logDebug(QStringLiteral("detail"));
    QCOMPARE(console.text(), QString());
    QCOMPARE(code, Code::GeneralFailure);
    QCOMPARE(_home->logText(), QString());
}

void tst_logLevel::levelTwoDropsInfoAndKeepsTheRest()
{
    setLogLevel(2);
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logInfo(QStringLiteral("i")), Code::GeneralFailure);
    QCOMPARE(log->logWarning(QStringLiteral("w")), Code::Success);
    QCOMPARE(log->logError(QStringLiteral("e")), Code::Success);
    QCOMPARE(
        loggedLines(), (QStringList {QStringLiteral("[Warning] w"), QStringLiteral("[Error] e")}));
    QCOMPARE(log->warningLogCount(), 1U);
    QCOMPARE(log->errorLogCount(), 1U);
}

void tst_logLevel::levelFourDropsEverythingButCounts()
{
    setLogLevel(4);
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logError(QStringLiteral("e")), Code::GeneralFailure);
    QCOMPARE(_home->logText(), QString());
    QCOMPARE(log->errorLogCount(), 1U);
}

void tst_logLevel::negativeLevelWritesNoDebug()
{
    setLogLevel(-1);
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logDebug(QStringLiteral("d")), Code::GeneralFailure);
    QCOMPARE(log->logInfo(QStringLiteral("i")), Code::Success);
    QCOMPARE(loggedLines(), QStringList {QStringLiteral("[Info] i")});
}

void tst_logLevel::levelZeroSendsEveryLineToTheConsoleAsDebug()
{
    setLogLevel(0);
    DBCLog* const log = DBCLog::logInstance();
    CapturedStandardError console;
    const QList<Code> codes {log->logDebug(QStringLiteral("d")), log->logInfo(QStringLiteral("i")),
        log->logWarning(QStringLiteral("w")), log->logError(QStringLiteral("e"))};
    const QStringList lines = console.text().split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(codes, QList<Code>(4, Code::Success));
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines[0].endsWith(QStringLiteral(" VelmoraConverter [Debug] d")));
    QVERIFY(lines[1].endsWith(QStringLiteral(" VelmoraConverter [Debug] i")));
    QVERIFY(lines[2].endsWith(QStringLiteral(" VelmoraConverter [Debug] w")));
    QVERIFY(lines[3].endsWith(QStringLiteral(" VelmoraConverter [Debug] e")));
    QCOMPARE(_home->logText(), QString());
    QVERIFY(log->hasWarningOrError());
}

void tst_logLevel::levelThatIsNoNumberStaysInfo()
{
    setLogLevel("<string>3</string>");
    QCOMPARE(DBCLog::logInstance()->logInfo(QStringLiteral("i")), Code::Success);
}

void tst_logLevel::levelCanBeReadAgain()
{
    DBCLog* const log = DBCLog::logInstance();
    setLogLevel(3);
    QCOMPARE(log->logWarning(QStringLiteral("before")), Code::Success);
    log->readLogLevel();
    QCOMPARE(log->logWarning(QStringLiteral("after")), Code::GeneralFailure);
}

void tst_logLevel::filteredWarningStillCounts()
{
    setLogLevel(3);
    DBCLog* const log = DBCLog::logInstance();
    QVERIFY(!log->hasWarningOrError());
    QCOMPARE(log->logWarning(QStringLiteral("w")), Code::GeneralFailure);
    QVERIFY(log->hasWarningOrError());
}

void tst_logLevel::countsAreResetTogether()
{
    DBCLog* const log = DBCLog::logInstance();
    log->logInfo(QStringLiteral("i"));
    QVERIFY(!log->hasWarningOrError());
    log->logWarning(QStringLiteral("w"));
    log->logWarning(QStringLiteral("w"));
    log->logError(QStringLiteral("e"));
    QCOMPARE(log->warningLogCount(), 2U);
    QCOMPARE(log->errorLogCount(), 1U);
    log->resetLogCount();
    QCOMPARE(log->warningLogCount(), 0U);
    QCOMPARE(log->errorLogCount(), 0U);
    QVERIFY(!log->hasWarningOrError());
    log->logError(QStringLiteral("e"));
    QVERIFY(log->hasWarningOrError());
}

void tst_logLevel::countsOfOtherInstancesAreTheirOwn()
{
    DBCLog::logInstance(_home->path(QStringLiteral("other.log")))->logError(QStringLiteral("e"));
    QVERIFY(!DBCLog::logInstance()->hasWarningOrError());
}

void tst_logLevel::observerSeesWarningsAndErrors()
{
    QStringList seen;
    std::optional<DBCLogObserver> observer([&](const DBCLogEntry& entry) {
        seen << QString::number(static_cast<int>(entry.type)) + entry.text;
    });
    DBCLog* const log = DBCLog::logInstance();
    log->logDebug(QStringLiteral("d"));
    log->logInfo(QStringLiteral("i"));
    log->logWarning(QStringLiteral("w"));
    DBCLog::logInstance(_home->path(QStringLiteral("other.log")))->logError(QStringLiteral("e"));
    QCOMPARE(seen, (QStringList {QStringLiteral("2w"), QStringLiteral("3e")}));
    observer.reset();
    log->logWarning(QStringLiteral("unseen"));
    QCOMPARE(seen.size(), 2);
}

void tst_logLevel::observerSeesWhatTheLevelFilters()
{
    setLogLevel(4);
    QStringList seen;
    const DBCLogObserver observer([&](const DBCLogEntry& entry) { seen << entry.text; });
    DBCLog::logInstance()->logWarning(QStringLiteral("w"));
    QCOMPARE(seen, QStringList {QStringLiteral("w")});
}

void tst_logLevel::observerSeesWhatAMessageIsAbout()
{
    DBCLogOrigin seen;
    const DBCLogObserver observer([&](const DBCLogEntry& entry) { seen = entry.origin; });
    DBCLog::warning(QStringLiteral("w"),
        {.key = QStringLiteral("KEY"),
            .number = 12,
            .cardName = QStringLiteral("Hanako"),
            .consequence = DBCConsequence::WithoutImage});
    QCOMPARE(seen.key, QStringLiteral("KEY"));
    QCOMPARE(seen.number, std::optional<qint64>(12));
    QCOMPARE(seen.cardName, QStringLiteral("Hanako"));
    QCOMPARE(seen.consequence, DBCConsequence::WithoutImage);
    DBCLog::error(QStringLiteral("e"));
    QVERIFY(!seen.number);
}

void tst_logLevel::everyObserverSeesEverything()
{
    QStringList seen;
    const DBCLogObserver first([&](const DBCLogEntry& entry) { seen << u'1' + entry.text; });
    {
        const DBCLogObserver second([&](const DBCLogEntry& entry) { seen << u'2' + entry.text; });
        DBCLog::warning(QStringLiteral("w"));
    }
    DBCLog::error(QStringLiteral("e"));
    QCOMPARE(
        seen, (QStringList {QStringLiteral("1w"), QStringLiteral("2w"), QStringLiteral("1e")}));
}

QTEST_GUILESS_MAIN(tst_logLevel)
#include "tst_logLevel.moc"
