// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCDiskUsage.h"

#include "operation/base/DBCError.h"
#include "operation/base/DBCStopQuestion.h"
#include "system/DBCProgramOutput.h"
#include "tests/support/CapturedStandardError.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>

#include <csignal>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 KiB = 1024;

void sendDebugTextsToTheConsole(const TestHome& home)
{
    home.writeFile(u"home/Library/Preferences/com.velmora.VelmoraConverter.plist"_s,
        "<plist version=\"1.0\"><dict><key>Log Level</key><integer>0</integer></dict></plist>");
}

// Makes a home folder and sets a shell script as the program that measures the disk usage.
struct ScriptedHome {
    TestHome home;
    ScopedHost host;

    explicit ScriptedHome(const QByteArray& script)
    {
        sendDebugTextsToTheConsole(home);
        const QString program = home.writeFile(u"du"_s, "#!/bin/sh\n" + script + "\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
        host->diskUsageProgram = program;
    }
};

} // namespace

Q_DECLARE_METATYPE(DBCResultCode)

class tst_diskUsage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyPathAndMissingFileHaveNoSizeAndNoError()
    {
        const TestHome home;
        ScopedHost host;
        host->diskUsageProgram = u"/nowhere/du"_s; // must not be started
        DBCError error;
        QCOMPARE(getSizeWithPath(QString(), &error), quint64(0));
        QCOMPARE(getSizeWithPath(home.path(u"missing"_s), &error), quint64(0));
        QVERIFY(!error);
    }

    void realFileAndFolderAreMeasured()
    {
        const TestHome home;
        const QString file = home.writeFile(u"folder/file"_s, QByteArray(300 * 1024, 'x'));
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(file).constData(), &status), 0);
        const quint64 allocated = quint64(status.st_blocks) * 512;
        DBCError error;
        QCOMPARE(getSizeWithPath(file, &error), (allocated + KiB - 1) / KiB * KiB);
        QVERIFY(getSizeWithPath(home.path(u"folder"_s), &error) >= allocated);
        QVERIFY(!error);
    }

    void realFileWithABlankOrJapaneseNameIsMeasured_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blank") << u"a b"_s;
        QTest::newRow("Japanese") << u"\u540D\u523A"_s;
        QTest::newRow("tab") << u"a\tb"_s;
        QTest::newRow("line end") << u"a\nb"_s;
        QTest::newRow("quote") << u"a'b\"$c"_s;
    }
    void realFileWithABlankOrJapaneseNameIsMeasured()
    {
        QFETCH(QString, name);
        const TestHome home;
        const QString file = home.writeFile(name, QByteArray(64 * 1024, 'x'));
        DBCError error;
        QVERIFY(getSizeWithPath(file, &error) >= 64 * KiB);
        QVERIFY(!error);
    }

    void relativePathWithADashInFrontIsNoOption()
    {
        const TestHome home;
        home.writeFile(u"-version"_s, QByteArray(64 * 1024, 'x'));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(home.path()));
        DBCError error;
        const quint64 size = getSizeWithPath(u"-version"_s, &error);
        QDir::setCurrent(before);
        QVERIFY(!error);
        QVERIFY(size >= 64 * KiB);
    }

    void argumentsAreKAndSAndThePathInThisOrder()
    {
        const ScriptedHome scripted(
            "printf '%s,' \"$#\" \"$@\" > \"${0%/*}/arguments\"; printf '1\\tx'");
        DBCError error;
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), KiB);
        QCOMPARE(scripted.home.readFile(u"arguments"_s),
            "3,-k,-s," + scripted.home.path().toUtf8() + ',');
    }

    void outputIsANumberOfKibibytesBeforeTheFirstTab_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<quint64>("size");
        QTest::newRow("12, a tab and the path")
            << QByteArray("printf '12\\tpath\\n'") << quint64(12288);
        QTest::newRow("no tab at all") << QByteArray("printf 12") << quint64(12288);
        QTest::newRow("zero") << QByteArray("printf '0\\tpath\\n'") << quint64(0);
        QTest::newRow("over 4 GiB")
            << QByteArray("printf '8388608\\tpath\\n'") << quint64(8589934592);
        QTest::newRow("two tabs") << QByteArray("printf '3\\ta\\tb\\n'") << quint64(3072);
        QTest::newRow("warnings besides")
            << QByteArray("echo oops >&2; printf '3\\ta\\n'") << quint64(3072);
    }
    void outputIsANumberOfKibibytesBeforeTheFirstTab()
    {
        QFETCH(QByteArray, script);
        const ScriptedHome scripted(script);
        DBCError error;
        QTEST(getSizeWithPath(scripted.home.path(), &error), "size");
        QVERIFY(!error);
    }

    void failuresAreReported_data()
    {
        using enum DBCResultCode;
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<DBCResultCode>("code");
        QTest::addColumn<QString>("debugText");
        const auto row = [](const char* name, const char* script, const char* text) {
            QTest::newRow(name) << QByteArray(script) << SizeMeasureFailure
                                << QString::fromLatin1(text);
        };
        constexpr const char* notNumber = "The value got from Du command is not number. Path:[";
        row("space before the number", "printf ' 12\\tpath\\n'", notNumber);
        row("sign before the number", "printf -- '+12\\tpath\\n'", notNumber);
        row("line end behind the number", "printf '12\\n'", notNumber);
        row("letters", "printf '12K\\tpath\\n'", notNumber);
        row("full-width digit", "printf '\\357\\274\\221\\tpath\\n'", notNumber);
        row("nothing before the tab", "printf '\\tpath\\n'", notNumber);
        row("number beyond 64 bits", "printf '99999999999999999999\\tpath\\n'", notNumber);
        row("exit with 1", "printf '12\\tpath\\n'; exit 1", "Du failed, result 1");
        row("exit with 3 and silence", "exit 3", "Du failed, result 3");
        row("silence", "exit 0", "Du failed, result 0");
        row("killed", "printf '12\\tpath\\n'; kill -9 $$", "Du failed, result 9");
        row("bytes that are no text", "printf '12\\t\\377\\n'",
            "Get nothing from Du command. Path:[");
    }
    void failuresAreReported()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, debugText);
        const ScriptedHome scripted(script);
        const QString path = scripted.home.path();
        DBCError error;
        CapturedStandardError console;
        const quint64 size = getSizeWithPath(path, &error);
        const QString text = console.text();
        if (debugText.endsWith(u'['))
            debugText += path + u']';
        QVERIFY2(text.endsWith(debugText + u'\n'), qPrintable(text));
        QCOMPARE(size, quint64(0));
        QVERIFY(error);
        QTEST(error.code(), "code");
        QCOMPARE(error.pathName(), std::optional(path));
    }

    void missingProgramIsAnInternalException()
    {
        const TestHome home;
        sendDebugTextsToTheConsole(home);
        ScopedHost host;
        host->diskUsageProgram = home.path(u"no-du"_s);
        DBCError error;
        CapturedStandardError console;
        const quint64 size = getSizeWithPath(home.path(), &error);
        const QString text = console.text();
        QCOMPARE(size, quint64(0));
        QCOMPARE(error.code(), DBCResultCode::InternalException);
        QVERIFY2(text.contains(u"Exception happended when get file size by using du command. "
                               "Exception:["_s
                     + host->diskUsageProgram),
            qPrintable(text));
        QVERIFY(error.localizedDescription().contains(host->diskUsageProgram));
    }

    void failureWithoutAnErrorSlotIsZero()
    {
        const ScriptedHome scripted("exit 1");
        QCOMPARE(getSizeWithPath(scripted.home.path(), nullptr), quint64(0));
    }

    void errorOfTheCallerStaysWhenNothingFails()
    {
        const ScriptedHome scripted("printf '1\\tx'");
        DBCError error(DBCResultCode::NoCards);
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), KiB);
        QCOMPARE(error.code(), DBCResultCode::NoCards);
    }

    void longMeasuringCanBeStopped()
    {
        const ScriptedHome scripted("echo $$ > \"${0%/*}/process\"; sleep 60");
        int asked = 0;
        const DBCStopQuestion question([&] { return ++asked == 2; });
        QElapsedTimer timer;
        timer.start();
        DBCError error;
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), quint64(0));
        QVERIFY2(timer.elapsed() >= 1000 && timer.elapsed() < 1900,
            qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(error.code(), DBCResultCode::CancelledByUser);
        QCOMPARE(asked, 2);
        const pid_t process = scripted.home.readFile(u"process"_s).trimmed().toInt();
        QVERIFY(process > 0);
        QCOMPARE(kill(process, 0), -1);

        // After the answer to stop, a further measurement must end at once, without a further
        // question.
        timer.restart();
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), quint64(0));
        QVERIFY(timer.elapsed() < 400);
        QCOMPARE(asked, 2);
    }

    void longMeasuringGoesOnWhenItIsNotToStop()
    {
        const ScriptedHome scripted("sleep 1.3; printf '7\\tx'");
        int asked = 0;
        const DBCStopQuestion question([&] {
            ++asked;
            return false;
        });
        DBCError error;
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), 7 * KiB);
        QVERIFY(!error);
        QVERIFY2(asked >= 2, qPrintable(QString::number(asked)));
    }

    void shortMeasuringAsksNothing()
    {
        const ScriptedHome scripted("printf '7\\tx'");
        bool isAsked = false;
        const DBCStopQuestion question([&] { return isAsked = true; });
        DBCError error;
        QCOMPARE(getSizeWithPath(scripted.home.path(), &error), 7 * KiB);
        QVERIFY(!isAsked);
    }

    void programIsStartedWithoutBlockedSignalsAndInAGroupOfItsOwn()
    {
        const ScriptedHome scripted("read -r line < /proc/$$/stat\n"
                                    "echo \"$line\" > \"${0%/*}/stat\"\n"
                                    "exec grep -E 'SigBlk|SigIgn' /proc/self/status");
        const auto formerHandler = std::signal(SIGPIPE, SIG_IGN);
        sigset_t all;
        sigset_t former;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &former);
        const DBCProgramRun run = runProgram(DBCHost::current().diskUsageProgram, {});
        pthread_sigmask(SIG_SETMASK, &former, nullptr);
        std::signal(SIGPIPE, formerHandler);

        QCOMPARE(run.end, DBCProgramRun::End::Exited);
        const QList<QByteArray> lines = run.output.trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].mid(8).trimmed().toULongLong(nullptr, 16), 0ULL);
        const quint64 ignored = lines[1].mid(8).trimmed().toULongLong(nullptr, 16);
        QCOMPARE(ignored & (quint64 {1} << (SIGPIPE - 1)), 0ULL);
        const QList<QByteArray> fields = scripted.home.readFile(u"stat"_s).split(' ');
        QCOMPARE(fields.value(4), fields.value(0)); // the process leads a process group of its own
    }

    void workerThreadMeasuresToo()
    {
        const ScriptedHome scripted("printf '7\\tx'");
        quint64 size = 0;
        DBCError error;
        const std::unique_ptr<QThread> worker(
            QThread::create([&] { size = getSizeWithPath(scripted.home.path(), &error); }));
        worker->start();
        worker->wait();
        QCOMPARE(size, 7 * KiB);
    }
};

QTEST_GUILESS_MAIN(tst_diskUsage)
#include "tst_diskUsage.moc"
