// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCLog.h"

#include "tests/support/CapturedStandardError.h"
#include "tests/support/TestHome.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <thread>

using Code = DBCResultCode;

class tst_log : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup()
    {
        DBCLog::setObserver({});
        _home.reset();
    }

    void defaultLogLiesInTheHomeFolder();
    void instanceOfTheDefaultPathIsTheDefaultInstance();
    void eachPathHasItsOwnInstance();
    void instanceMakesTheFolderAndTheFile();
    void existingLogIsAppendedTo();
    void noPathGivesNoInstance();
    void folderThatCannotBeMadeGivesNoInstance();
    void folderAtThePathGivesNoInstance();
    void instanceThatFailedIsTriedAgain();

    void lineHoldsDateTimeNameTagAndMessage_data();
    void lineHoldsDateTimeNameTagAndMessage();
    void digitsDoNotFollowTheLocale();
    void lineIsOnDiskAtOnce();
    void messageStaysAsItIs();
    void missingMessageIsNotWritten();
    void logTakenAwayIsMadeAnew();
    void lineThatCannotBeWrittenGoesToTheConsole();

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

    void shortFormsUseTheDefaultInstance();
    void shortFormsWithoutALogAreLost();
    void linesOfSeveralThreadsStayWhole();

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
    // The messages of the default log without what stands before their tags.
    QStringList loggedLines() const
    {
        QStringList lines = _home->logText().split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line = line.mid(line.indexOf(u'['));
        return lines;
    }

    std::optional<TestHome> _home;
};

void tst_log::defaultLogLiesInTheHomeFolder()
{
    const QString path = _home->path(QStringLiteral("home/Library/Logs/VelmoraConverter.log"));
    QCOMPARE(DBCLog::_defaultLogFilePath(), path);
    QCOMPARE(DBCLog::logInstance()->logFilePath(), path);
}

void tst_log::instanceOfTheDefaultPathIsTheDefaultInstance()
{
    QVERIFY(DBCLog::logInstance());
    QCOMPARE(DBCLog::logInstance(DBCLog::_defaultLogFilePath()), DBCLog::logInstance());
    QCOMPARE(DBCLog::logInstance(QString()), DBCLog::logInstance());
}

void tst_log::eachPathHasItsOwnInstance()
{
    DBCLog* const first = DBCLog::logInstance(_home->path(QStringLiteral("first.log")));
    DBCLog* const second = DBCLog::logInstance(_home->path(QStringLiteral("second.log")));
    QVERIFY(first && second && first != second);
    first->logInfo(QStringLiteral("one"));
    second->logInfo(QStringLiteral("two"));
    QVERIFY(_home->readFile(QStringLiteral("first.log")).endsWith("[Info] one\n"));
    QVERIFY(_home->readFile(QStringLiteral("second.log")).endsWith("[Info] two\n"));
}

void tst_log::instanceMakesTheFolderAndTheFile()
{
    QVERIFY(DBCLog::logInstance(_home->path(QStringLiteral("a/b/c.log"))));
    QCOMPARE(QFileInfo(_home->path(QStringLiteral("a/b/c.log"))).size(), 0);
}

void tst_log::existingLogIsAppendedTo()
{
    const QString path = _home->writeFile(QStringLiteral("old.log"), "old line\n");
    DBCLog::logInstance(path)->logInfo(QStringLiteral("new line"));
    const QByteArray text = _home->readFile(QStringLiteral("old.log"));
    QVERIFY(text.startsWith("old line\n2"));
    QVERIFY(text.endsWith("[Info] new line\n"));
}

void tst_log::noPathGivesNoInstance()
{
    QVERIFY(!DBCLog::initWithFullPath(QString()));
}

void tst_log::folderThatCannotBeMadeGivesNoInstance()
{
    const QString file = _home->writeFile(QStringLiteral("file"), "kept");
    QVERIFY(!DBCLog::logInstance(file + QStringLiteral("/x.log")));
}

void tst_log::folderAtThePathGivesNoInstance()
{
    QVERIFY(!DBCLog::logInstance(_home->makeFolder(QStringLiteral("folder.log"))));
}

void tst_log::instanceThatFailedIsTriedAgain()
{
    const QString folder = _home->makeFolder(QStringLiteral("later.log"));
    QVERIFY(!DBCLog::logInstance(folder));
    QVERIFY(QDir().rmdir(folder));
    QVERIFY(DBCLog::logInstance(folder));
}

void tst_log::lineHoldsDateTimeNameTagAndMessage_data()
{
    QTest::addColumn<DBCLogType>("type");
    QTest::addColumn<QString>("tag");
    QTest::newRow("info") << DBCLogType::Info << QStringLiteral("[Info]");
    QTest::newRow("warning") << DBCLogType::Warning << QStringLiteral("[Warning]");
    QTest::newRow("error") << DBCLogType::Error << QStringLiteral("[Error]");
}

void tst_log::lineHoldsDateTimeNameTagAndMessage()
{
    QFETCH(DBCLogType, type);
    QFETCH(QString, tag);
    const QDateTime before = QDateTime::currentDateTime().addMSecs(-1000);
    QCOMPARE(DBCLog::logInstance()->output(QStringLiteral("読み込み %1"), type), Code::Success);
    static const QRegularExpression form(QStringLiteral(
        "^(\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d) VelmoraConverter (\\[\\w+\\]) (.*)\n$"));
    const auto match = form.match(_home->logText());
    QVERIFY2(match.hasMatch(), qPrintable(_home->logText()));
    const auto time
        = QDateTime::fromString(match.captured(1), QStringLiteral("yyyy/MM/dd HH:mm:ss"));
    QVERIFY(time >= before && time <= QDateTime::currentDateTime());
    QCOMPARE(match.captured(2), tag);
    QCOMPARE(match.captured(3), QStringLiteral("読み込み %1"));
}

void tst_log::digitsDoNotFollowTheLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    const QString line = DBCLog::getLogString(QStringLiteral("m"), QStringLiteral("[Tag]"));
    QLocale::setDefault(before);
    static const QRegularExpression form(QStringLiteral(
        "^[0-9]{4}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} VelmoraConverter \\[Tag\\] m\n$"));
    QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
}

void tst_log::lineIsOnDiskAtOnce()
{
    DBCLog::logInstance()->logInfo(QStringLiteral("one"));
    QCOMPARE(loggedLines(), QStringList {QStringLiteral("[Info] one")});
    DBCLog::logInstance()->logInfo(QStringLiteral("two"));
    QCOMPARE(
        loggedLines(), (QStringList {QStringLiteral("[Info] one"), QStringLiteral("[Info] two")}));
}

void tst_log::messageStaysAsItIs()
{
    const QString message = QStringLiteral("%1 100% \t[x] 𠮷");
    DBCLog::logInstance()->logInfo(message);
    QCOMPARE(loggedLines(), QStringList {QStringLiteral("[Info] ") + message});
}

void tst_log::missingMessageIsNotWritten()
{
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logDebug({}), Code::GeneralFailure);
    QCOMPARE(log->logInfo({}), Code::GeneralFailure);
    QCOMPARE(log->logWarning({}), Code::GeneralFailure);
    QCOMPARE(log->logError({}), Code::GeneralFailure);
    QVERIFY(!log->hasWarningOrError());
    QCOMPARE(_home->logText(), QString());
}

void tst_log::logTakenAwayIsMadeAnew()
{
    DBCLog* const log = DBCLog::logInstance();
    QVERIFY(QFile::remove(log->logFilePath()));
    QCOMPARE(log->logInfo(QStringLiteral("one")), Code::Success);
    QVERIFY(QFile::remove(log->logFilePath()));
    QCOMPARE(log->logInfo(QStringLiteral("two")), Code::Success);
    QCOMPARE(loggedLines(), QStringList {QStringLiteral("[Info] two")});
}

void tst_log::lineThatCannotBeWrittenGoesToTheConsole()
{
    DBCLog* const log = DBCLog::logInstance();
    QVERIFY(QFile::remove(log->logFilePath()));
    QVERIFY(QDir().mkdir(log->logFilePath()));
    CapturedStandardError console;
    const Code code = log->logWarning(QStringLiteral("名刺"));
    QCOMPARE(console.text(), QStringLiteral("名刺\n"));
    QVERIFY(isFailure(code));
    QCOMPARE(log->warningLogCount(), 1U);
}

void tst_log::debugIsNeverWritten()
{
    CapturedStandardError console;
    const Code code = DBCLog::logInstance()->logDebug(QStringLiteral("detail"));
    QCOMPARE(console.text(), QString());
    QCOMPARE(code, Code::GeneralFailure);
    QCOMPARE(_home->logText(), QString());
}

void tst_log::levelTwoDropsInfoAndKeepsTheRest()
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

void tst_log::levelFourDropsEverythingButCounts()
{
    setLogLevel(4);
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logError(QStringLiteral("e")), Code::GeneralFailure);
    QCOMPARE(_home->logText(), QString());
    QCOMPARE(log->errorLogCount(), 1U);
}

void tst_log::negativeLevelWritesNoDebug()
{
    setLogLevel(-1);
    DBCLog* const log = DBCLog::logInstance();
    QCOMPARE(log->logDebug(QStringLiteral("d")), Code::GeneralFailure);
    QCOMPARE(log->logInfo(QStringLiteral("i")), Code::Success);
    QCOMPARE(loggedLines(), QStringList {QStringLiteral("[Info] i")});
}

void tst_log::levelZeroSendsEveryLineToTheConsoleAsDebug()
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

void tst_log::levelThatIsNoNumberStaysInfo()
{
    setLogLevel("<string>3</string>");
    QCOMPARE(DBCLog::logInstance()->logInfo(QStringLiteral("i")), Code::Success);
}

void tst_log::levelCanBeReadAgain()
{
    DBCLog* const log = DBCLog::logInstance();
    setLogLevel(3);
    QCOMPARE(log->logWarning(QStringLiteral("before")), Code::Success);
    log->readLogLevel();
    QCOMPARE(log->logWarning(QStringLiteral("after")), Code::GeneralFailure);
}

void tst_log::filteredWarningStillCounts()
{
    setLogLevel(3);
    DBCLog* const log = DBCLog::logInstance();
    QVERIFY(!log->hasWarningOrError());
    QCOMPARE(log->logWarning(QStringLiteral("w")), Code::GeneralFailure);
    QVERIFY(log->hasWarningOrError());
}

void tst_log::countsAreResetTogether()
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

void tst_log::countsOfOtherInstancesAreTheirOwn()
{
    DBCLog::logInstance(_home->path(QStringLiteral("other.log")))->logError(QStringLiteral("e"));
    QVERIFY(!DBCLog::logInstance()->hasWarningOrError());
}

void tst_log::observerSeesWarningsAndErrors()
{
    QStringList seen;
    DBCLog::setObserver([&](DBCLogType type, const QString& message) {
        seen << QString::number(static_cast<int>(type)) + message;
    });
    DBCLog* const log = DBCLog::logInstance();
    log->logDebug(QStringLiteral("d"));
    log->logInfo(QStringLiteral("i"));
    log->logWarning(QStringLiteral("w"));
    DBCLog::logInstance(_home->path(QStringLiteral("other.log")))->logError(QStringLiteral("e"));
    QCOMPARE(seen, (QStringList {QStringLiteral("2w"), QStringLiteral("3e")}));
    DBCLog::setObserver({});
    log->logWarning(QStringLiteral("unseen"));
    QCOMPARE(seen.size(), 2);
}

void tst_log::observerSeesWhatTheLevelFilters()
{
    setLogLevel(4);
    QStringList seen;
    DBCLog::setObserver([&](DBCLogType, const QString& message) { seen << message; });
    DBCLog::logInstance()->logWarning(QStringLiteral("w"));
    QCOMPARE(seen, QStringList {QStringLiteral("w")});
}

void tst_log::shortFormsUseTheDefaultInstance()
{
    DBCLog::debug(QStringLiteral("d"));
    DBCLog::info(QStringLiteral("i"));
    DBCLog::warning(QStringLiteral("w"));
    DBCLog::error(QStringLiteral("e"));
    QCOMPARE(loggedLines(),
        (QStringList {QStringLiteral("[Info] i"), QStringLiteral("[Warning] w"),
            QStringLiteral("[Error] e")}));
    QCOMPARE(DBCLog::logInstance()->warningLogCount(), 1U);
    QCOMPARE(DBCLog::logInstance()->errorLogCount(), 1U);
}

void tst_log::shortFormsWithoutALogAreLost()
{
    _home->writeFile(QStringLiteral("home/Library"), "in the way");
    QVERIFY(!DBCLog::logInstance());
    DBCLog::debug(QStringLiteral("d"));
    DBCLog::info(QStringLiteral("i"));
    DBCLog::warning(QStringLiteral("w"));
    DBCLog::error(QStringLiteral("e"));
    QCOMPARE(_home->readFile(QStringLiteral("home/Library")), QByteArray("in the way"));
}

void tst_log::linesOfSeveralThreadsStayWhole()
{
    constexpr int linesOfEach = 50;
    const auto writeLines = [](const QString& message) {
        for (int i = 0; i < linesOfEach; ++i)
            DBCLog::warning(message);
    };
    std::thread other(writeLines, QStringLiteral("from the operation"));
    writeLines(QStringLiteral("from the window"));
    other.join();
    const QStringList lines = loggedLines();
    QCOMPARE(lines.size(), 2 * linesOfEach);
    QCOMPARE(lines.count(QStringLiteral("[Warning] from the operation")), linesOfEach);
    QCOMPARE(lines.count(QStringLiteral("[Warning] from the window")), linesOfEach);
    QCOMPARE(DBCLog::logInstance()->warningLogCount(), static_cast<quint32>(2 * linesOfEach));
}

QTEST_GUILESS_MAIN(tst_log)
#include "tst_log.moc"
