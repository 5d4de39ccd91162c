// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCLog.h"

#include "tests/operation/LogFixture.h"
#include "tests/support/CapturedStandardError.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>
#include <QTest>

#include <thread>

using Code = DBCResultCode;

class tst_log : public QObject, private LogFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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

    void shortFormsUseTheDefaultInstance();
    void shortFormsWithoutALogAreLost();
    void linesOfSeveralThreadsStayWhole();
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
