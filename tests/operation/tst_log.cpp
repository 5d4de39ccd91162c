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

using namespace Qt::StringLiterals;

using Code = DBCResultCode;

class tst_log : public QObject, private LogFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void defaultLogLiesInTheHomeFolder()
    {
        const QString path = _home->path(u"home/Library/Logs/VelmoraConverter.log"_s);
        QCOMPARE(DBCLog::_defaultLogFilePath(), path);
        QCOMPARE(DBCLog::logInstance()->logFilePath(), path);
    }

    void instanceOfTheDefaultPathIsTheDefaultInstance()
    {
        QVERIFY(DBCLog::logInstance());
        QCOMPARE(DBCLog::logInstance(DBCLog::_defaultLogFilePath()), DBCLog::logInstance());
        QCOMPARE(DBCLog::logInstance(QString()), DBCLog::logInstance());
    }

    void eachPathHasItsOwnInstance()
    {
        DBCLog* const first = DBCLog::logInstance(_home->path(u"first.log"_s));
        DBCLog* const second = DBCLog::logInstance(_home->path(u"second.log"_s));
        QVERIFY(first && second && first != second);
        first->logInfo(u"one"_s);
        second->logInfo(u"two"_s);
        QVERIFY(_home->readFile(u"first.log"_s).endsWith("[Info] one\n"));
        QVERIFY(_home->readFile(u"second.log"_s).endsWith("[Info] two\n"));
    }

    void instanceMakesTheFolderAndTheFile()
    {
        QVERIFY(DBCLog::logInstance(_home->path(u"a/b/c.log"_s)));
        QCOMPARE(QFileInfo(_home->path(u"a/b/c.log"_s)).size(), 0);
    }

    void existingLogIsAppendedTo()
    {
        const QString path = _home->writeFile(u"old.log"_s, "old line\n");
        DBCLog::logInstance(path)->logInfo(u"new line"_s);
        const QByteArray text = _home->readFile(u"old.log"_s);
        QVERIFY(text.startsWith("old line\n2"));
        QVERIFY(text.endsWith("[Info] new line\n"));
    }

    void noPathGivesNoInstance() { QVERIFY(!DBCLog::initWithFullPath(QString())); }

    void folderThatCannotBeMadeGivesNoInstance()
    {
        const QString file = _home->writeFile(u"file"_s, "kept");
        QVERIFY(!DBCLog::logInstance(file + u"/x.log"_s));
    }

    void folderAtThePathGivesNoInstance()
    {
        QVERIFY(!DBCLog::logInstance(_home->makeFolder(u"folder.log"_s)));
    }

    void instanceThatFailedIsTriedAgain()
    {
        const QString folder = _home->makeFolder(u"later.log"_s);
        QVERIFY(!DBCLog::logInstance(folder));
        QVERIFY(QDir().rmdir(folder));
        QVERIFY(DBCLog::logInstance(folder));
    }

    void lineHoldsDateTimeNameTagAndMessage_data()
    {
        QTest::addColumn<DBCLogType>("type");
        QTest::addColumn<QString>("tag");
        QTest::newRow("info") << DBCLogType::Info << u"[Info]"_s;
        QTest::newRow("warning") << DBCLogType::Warning << u"[Warning]"_s;
        QTest::newRow("error") << DBCLogType::Error << u"[Error]"_s;
    }
    void lineHoldsDateTimeNameTagAndMessage()
    {
        QFETCH(DBCLogType, type);
        QFETCH(QString, tag);
        const QDateTime before = QDateTime::currentDateTime().addMSecs(-1000);
        QCOMPARE(DBCLog::logInstance()->output(u"読み込み %1"_s, type), Code::Success);
        static const QRegularExpression form(
            u"^(\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d) VelmoraConverter (\\[\\w+\\]) (.*)\n$"_s);
        const auto match = form.match(_home->logText());
        QVERIFY2(match.hasMatch(), qPrintable(_home->logText()));
        const auto time = QDateTime::fromString(match.captured(1), u"yyyy/MM/dd HH:mm:ss"_s);
        QVERIFY(time >= before && time <= QDateTime::currentDateTime());
        QCOMPARE(match.captured(2), tag);
        QCOMPARE(match.captured(3), u"読み込み %1"_s);
    }

    void digitsDoNotFollowTheLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
        const QString line = DBCLog::getLogString(u"m"_s, u"[Tag]"_s);
        QLocale::setDefault(before);
        static const QRegularExpression form(
            u"^[0-9]{4}/[0-9]{2}/[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2} VelmoraConverter \\[Tag\\] m\n$"_s);
        QVERIFY2(form.match(line).hasMatch(), qPrintable(line));
    }

    void lineIsOnDiskAtOnce()
    {
        DBCLog::logInstance()->logInfo(u"one"_s);
        QCOMPARE(loggedLines(), QStringList {u"[Info] one"_s});
        DBCLog::logInstance()->logInfo(u"two"_s);
        QCOMPARE(loggedLines(), (QStringList {u"[Info] one"_s, u"[Info] two"_s}));
    }

    void messageStaysAsItIs()
    {
        const QString message = u"%1 100% \t[x] 𠮷"_s;
        DBCLog::logInstance()->logInfo(message);
        QCOMPARE(loggedLines(), QStringList {u"[Info] "_s + message});
    }

    void missingMessageIsNotWritten()
    {
        DBCLog* const log = DBCLog::logInstance();
        QCOMPARE(log->logDebug({}), Code::GeneralFailure);
        QCOMPARE(log->logInfo({}), Code::GeneralFailure);
        QCOMPARE(log->logWarning({}), Code::GeneralFailure);
        QCOMPARE(log->logError({}), Code::GeneralFailure);
        QVERIFY(!log->hasWarningOrError());
        QCOMPARE(_home->logText(), QString());
    }

    void logTakenAwayIsMadeAnew()
    {
        DBCLog* const log = DBCLog::logInstance();
        QVERIFY(QFile::remove(log->logFilePath()));
        QCOMPARE(log->logInfo(u"one"_s), Code::Success);
        QVERIFY(QFile::remove(log->logFilePath()));
        QCOMPARE(log->logInfo(u"two"_s), Code::Success);
        QCOMPARE(loggedLines(), QStringList {u"[Info] two"_s});
    }

    void lineThatCannotBeWrittenGoesToTheConsole()
    {
        DBCLog* const log = DBCLog::logInstance();
        QVERIFY(QFile::remove(log->logFilePath()));
        QVERIFY(QDir().mkdir(log->logFilePath()));
        CapturedStandardError console;
        const Code code = log->logWarning(u"名刺"_s);
        QCOMPARE(console.text(), u"名刺\n"_s);
        QVERIFY(isFailure(code));
        QCOMPARE(log->warningLogCount(), 1U);
    }

    void shortFormsUseTheDefaultInstance()
    {
        DBCLog::debug(u"d"_s);
        DBCLog::info(u"i"_s);
        DBCLog::warning(u"w"_s);
        DBCLog::error(u"e"_s);
        QCOMPARE(loggedLines(), (QStringList {u"[Info] i"_s, u"[Warning] w"_s, u"[Error] e"_s}));
        QCOMPARE(DBCLog::logInstance()->warningLogCount(), 1U);
        QCOMPARE(DBCLog::logInstance()->errorLogCount(), 1U);
    }

    void shortFormsWithoutALogAreLost()
    {
        _home->writeFile(u"home/Library"_s, "in the way");
        QVERIFY(!DBCLog::logInstance());
        DBCLog::debug(u"d"_s);
        DBCLog::info(u"i"_s);
        DBCLog::warning(u"w"_s);
        DBCLog::error(u"e"_s);
        QCOMPARE(_home->readFile(u"home/Library"_s), QByteArray("in the way"));
    }

    void linesOfSeveralThreadsStayWhole()
    {
        constexpr int linesOfEach = 50;
        const auto writeLines = [](const QString& message) {
            for (int i = 0; i < linesOfEach; ++i)
                DBCLog::warning(message);
        };
        std::thread other(writeLines, u"from the operation"_s);
        writeLines(u"from the window"_s);
        other.join();
        const QStringList lines = loggedLines();
        QCOMPARE(lines.size(), 2 * linesOfEach);
        QCOMPARE(lines.count(u"[Warning] from the operation"_s), linesOfEach);
        QCOMPARE(lines.count(u"[Warning] from the window"_s), linesOfEach);
        QCOMPARE(DBCLog::logInstance()->warningLogCount(), static_cast<quint32>(2 * linesOfEach));
    }
};

QTEST_GUILESS_MAIN(tst_log)
#include "tst_log.moc"
