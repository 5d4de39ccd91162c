// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLog.h"
#include "operation/log/DBCLogObserver.h"
#include "tests/operation/LogFixture.h"
#include "tests/support/CapturedStandardError.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Code = DBCResultCode;

class tst_logLevel : public QObject, private LogFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void debugIsNeverWritten()
    {
        CapturedStandardError console;
        const Code code = DBCLog::logInstance()->logDebug(u"detail"_s);
        QCOMPARE(console.text(), QString());
        QCOMPARE(code, Code::GeneralFailure);
        QCOMPARE(_home->logText(), QString());
    }

    void levelTwoDropsInfoAndKeepsTheRest()
    {
        setLogLevel(2);
        DBCLog* const log = DBCLog::logInstance();
        QCOMPARE(log->logInfo(u"i"_s), Code::GeneralFailure);
        QCOMPARE(log->logWarning(u"w"_s), Code::Success);
        QCOMPARE(log->logError(u"e"_s), Code::Success);
        QCOMPARE(loggedLines(), (QStringList {u"[Warning] w"_s, u"[Error] e"_s}));
        QCOMPARE(log->warningLogCount(), 1U);
        QCOMPARE(log->errorLogCount(), 1U);
    }

    void levelFourDropsEverythingButCounts()
    {
        setLogLevel(4);
        DBCLog* const log = DBCLog::logInstance();
        QCOMPARE(log->logError(u"e"_s), Code::GeneralFailure);
        QCOMPARE(_home->logText(), QString());
        QCOMPARE(log->errorLogCount(), 1U);
    }

    void negativeLevelWritesNoDebug()
    {
        setLogLevel(-1);
        DBCLog* const log = DBCLog::logInstance();
        QCOMPARE(log->logDebug(u"d"_s), Code::GeneralFailure);
        QCOMPARE(log->logInfo(u"i"_s), Code::Success);
        QCOMPARE(loggedLines(), QStringList {u"[Info] i"_s});
    }

    void levelZeroSendsEveryLineToTheConsoleAsDebug()
    {
        setLogLevel(0);
        DBCLog* const log = DBCLog::logInstance();
        CapturedStandardError console;
        const QList<Code> codes {log->logDebug(u"d"_s), log->logInfo(u"i"_s),
            log->logWarning(u"w"_s), log->logError(u"e"_s)};
        const QStringList lines = console.text().split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(codes, QList<Code>(4, Code::Success));
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines[0].endsWith(u" VelmoraConverter [Debug] d"_s));
        QVERIFY(lines[1].endsWith(u" VelmoraConverter [Debug] i"_s));
        QVERIFY(lines[2].endsWith(u" VelmoraConverter [Debug] w"_s));
        QVERIFY(lines[3].endsWith(u" VelmoraConverter [Debug] e"_s));
        QCOMPARE(_home->logText(), QString());
        QVERIFY(log->hasWarningOrError());
    }

    void levelThatIsNoNumberStaysInfo()
    {
        setLogLevel("<string>3</string>");
        QCOMPARE(DBCLog::logInstance()->logInfo(u"i"_s), Code::Success);
    }

    void levelCanBeReadAgain()
    {
        DBCLog* const log = DBCLog::logInstance();
        setLogLevel(3);
        QCOMPARE(log->logWarning(u"before"_s), Code::Success);
        log->readLogLevel();
        QCOMPARE(log->logWarning(u"after"_s), Code::GeneralFailure);
    }

    void filteredWarningStillCounts()
    {
        setLogLevel(3);
        DBCLog* const log = DBCLog::logInstance();
        QVERIFY(!log->hasWarningOrError());
        QCOMPARE(log->logWarning(u"w"_s), Code::GeneralFailure);
        QVERIFY(log->hasWarningOrError());
    }

    void countsAreResetTogether()
    {
        DBCLog* const log = DBCLog::logInstance();
        log->logInfo(u"i"_s);
        QVERIFY(!log->hasWarningOrError());
        log->logWarning(u"w"_s);
        log->logWarning(u"w"_s);
        log->logError(u"e"_s);
        QCOMPARE(log->warningLogCount(), 2U);
        QCOMPARE(log->errorLogCount(), 1U);
        log->resetLogCount();
        QCOMPARE(log->warningLogCount(), 0U);
        QCOMPARE(log->errorLogCount(), 0U);
        QVERIFY(!log->hasWarningOrError());
        log->logError(u"e"_s);
        QVERIFY(log->hasWarningOrError());
    }

    void countsOfOtherInstancesAreTheirOwn()
    {
        DBCLog::logInstance(_home->path(u"other.log"_s))->logError(u"e"_s);
        QVERIFY(!DBCLog::logInstance()->hasWarningOrError());
    }

    void observerSeesWarningsAndErrors()
    {
        QStringList seen;
        std::optional<DBCLogObserver> observer([&](const DBCLogEntry& entry) {
            seen << QString::number(static_cast<int>(entry.type)) + entry.text;
        });
        DBCLog* const log = DBCLog::logInstance();
        log->logDebug(u"d"_s);
        log->logInfo(u"i"_s);
        log->logWarning(u"w"_s);
        DBCLog::logInstance(_home->path(u"other.log"_s))->logError(u"e"_s);
        QCOMPARE(seen, (QStringList {u"2w"_s, u"3e"_s}));
        observer.reset();
        log->logWarning(u"unseen"_s);
        QCOMPARE(seen.size(), 2);
    }

    void observerSeesWhatTheLevelFilters()
    {
        setLogLevel(4);
        QStringList seen;
        const DBCLogObserver observer([&](const DBCLogEntry& entry) { seen << entry.text; });
        DBCLog::logInstance()->logWarning(u"w"_s);
        QCOMPARE(seen, QStringList {u"w"_s});
    }

    void observerSeesWhatAMessageIsAbout()
    {
        DBCLogOrigin seen;
        const DBCLogObserver observer([&](const DBCLogEntry& entry) { seen = entry.origin; });
        DBCLog::warning(u"w"_s,
            {.key = u"KEY"_s,
                .number = 12,
                .cardName = u"Hanako"_s,
                .consequence = DBCConsequence::WithoutImage});
        QCOMPARE(seen.key, u"KEY"_s);
        QCOMPARE(seen.number, std::optional<qint64>(12));
        QCOMPARE(seen.cardName, u"Hanako"_s);
        QCOMPARE(seen.consequence, DBCConsequence::WithoutImage);
        DBCLog::error(u"e"_s);
        QVERIFY(!seen.number);
    }

    void everyObserverSeesEverything()
    {
        QStringList seen;
        const DBCLogObserver first([&](const DBCLogEntry& entry) { seen << u'1' + entry.text; });
        {
            const DBCLogObserver second(
                [&](const DBCLogEntry& entry) { seen << u'2' + entry.text; });
            DBCLog::warning(u"w"_s);
        }
        DBCLog::error(u"e"_s);
        QCOMPARE(seen, (QStringList {u"1w"_s, u"2w"_s, u"1e"_s}));
    }

private:
    void setLogLevel(const QByteArray& value) const
    {
        _home->writeFile(u"home/Library/Preferences/com.velmora.VelmoraConverter.plist"_s,
            "<plist version=\"1.0\"><dict><key>Log Level</key>" + value + "</dict></plist>");
    }
    void setLogLevel(int level) const
    {
        setLogLevel("<integer>" + QByteArray::number(level) + "</integer>");
    }
};

QTEST_GUILESS_MAIN(tst_logLevel)
#include "tst_logLevel.moc"
