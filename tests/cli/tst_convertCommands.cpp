// SPDX-License-Identifier: GPL-3.0-or-later
// Tests "velmora-convert import" and "export", run by a user at a terminal and run by a script.
#include "datafile/helpers/DBCInterchangeNames.h"
#include "tests/cli/ConvertProgram.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/ScopedMode.h"

#include <QDir>
#include <QtTest>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

struct Terminal {
    Terminal()
        : master(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (master == -1 || grantpt(master) != 0 || unlockpt(master) != 0)
            qFatal("no terminal to be had");
        const char* name = ptsname(master);
        slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~Terminal()
    {
        ::close(slave);
        ::close(master);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(const QByteArray& keys) const
    {
        if (write(master, keys.constData(), static_cast<size_t>(keys.size())) != keys.size())
            qFatal("cannot type");
    }
    QString screen() const
    {
        fcntl(master, F_SETFL, O_NONBLOCK);
        QByteArray bytes(65536, '\0');
        const ssize_t count = read(master, bytes.data(), static_cast<size_t>(bytes.size()));
        return QString::fromUtf8(bytes.left(qMax(ssize_t {0}, count)));
    }
    // Returns a function that connects a child's standard input and standard error to the terminal.
    std::function<void()> attach() const
    {
        return [this] {
            dup2(slave, STDIN_FILENO);
            dup2(slave, STDERR_FILENO);
        };
    }

    int master;
    int slave = -1;
};

struct Desk {
    Desk()
    {
        folder.image(u"1.jpg"_s, JpegBuilder(30, 20).dotsPerInch(300, 300).bytes());
        folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .row({{Key::full_Name, u"Hoshino Taro"_s}, {Key::face_Image_File, u"1.jpg"_s}})
                .row({{Key::full_Name, u"Tanaka Hanako"_s}})
                .build());
        parent = home.makeFolder(u"parent folder"_s);
    }
    void hasManyCards(int count)
    {
        DataFileBuilder builder;
        builder.titleLine();
        for (int card = 0; card < count; ++card)
            builder.row({{Key::full_Name, u"Card %1"_s.arg(card)}});
        folder.dataFile(builder.build());
    }
    QStringList importing(const QStringList& options = {u"--yes"_s}) const
    {
        return QStringList({u"import"_s, folder.path(), package.path()}) + options;
    }
    QStringList exporting(const QStringList& options = {u"--yes"_s}) const
    {
        return QStringList({u"export"_s, package.path(), parent}) + options;
    }
    QString exported() const { return parent + u'/' + DBCInterchangeNames::rootFolderName(); }
    // Returns the path of the report, or an empty text if there is not exactly one report.
    QString report() const
    {
        const QDir logs(home.path(u"home/Library/Logs"_s));
        const QStringList pages = logs.entryList({u"*.html"_s});
        return pages.size() == 1 ? logs.filePath(pages.constFirst()) : QString();
    }
    qlonglong cardCount() const
    {
        return package.value(u"SELECT count(*) FROM ZCARD"_s).toLongLong();
    }

    TestHome home;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    QString parent;
    ConvertProgram program {home};
};

const QStringList yesAndJson {u"--yes"_s, u"--json"_s};

// Starts a conversion of many cards and sends the signals after the first card. The test does not
// read the output meanwhile, so the pipe becomes full and blocks the program before it reaches the
// last card.
ProgramRun signalled(const Desk& desk, const QStringList& arguments, const char* event,
    const QList<int>& signalNumbers)
{
    const auto process = desk.program.start(ConvertProgram::path(), arguments);
    QByteArray seen;
    while (!seen.contains(event)) {
        if (!process->waitForReadyRead(120'000))
            qFatal("the first card does not come: %s", seen.constData());
        seen += process->readAllStandardOutput();
    }
    for (const int number : signalNumbers)
        kill(static_cast<pid_t>(process->processId()), number);
    ProgramRun run = ConvertProgram::finish(process);
    run.output.prepend(QString::fromUtf8(seen));
    return run;
}

constexpr int moreCardsThanAPipeHolds = 2000;

} // namespace

class tst_convertCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importTellsWhatWasConvertedAndWhereItLies()
    {
        const Desk desk;

        const ProgramRun run = desk.program.run(desk.importing());

        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors));
        QCOMPARE(run.outputLines().size(), 4);
        QVERIFY(run.outputLines().at(0).contains(u"2 of 2"_s));
        QVERIFY(run.outputLines().at(0).contains(desk.package.path()));
        QVERIFY(run.outputLines().at(1).contains(desk.home.path(u"Velmora DB_bak.vmdb"_s)));
        QVERIFY(run.outputLines().at(2).contains(u"[%1]"_s.arg(desk.report())));
        QVERIFY(run.outputLines().at(3).contains(
            desk.home.path(u"home/Library/Logs/VelmoraConverter.log"_s)));
        QCOMPARE(desk.cardCount(), 2);
    }

    void exportTellsWhatWasConvertedAndWhereItLies()
    {
        Desk desk;
        desk.package.card();

        const ProgramRun run = desk.program.run(desk.exporting());

        // Code 4 means warnings: the card has no image, and the log contains a warning about this.
        QCOMPARE(run.exitCode, 4);
        QVERIFY(run.outputLines().at(0).contains(u"1 of 1"_s));
        QVERIFY(run.outputLines().at(0).contains(desk.exported()));
        QVERIFY(QFile::exists(DBCInterchangeNames::dataFile(desk.exported())));
    }

    void importInJapaneseSpeaksJapanese()
    {
        Desk desk;
        desk.program.language = u"ja_JP.UTF-8"_s;

        const ProgramRun run = desk.program.run(desk.importing());

        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains(u"インポート"_s), qPrintable(run.output));
        QVERIFY(desk.home.logText().contains(u"バックアップ"_s));
    }

    void quietSaysNothing()
    {
        const Desk desk;
        const ProgramRun run = desk.program.run(desk.importing({u"--yes"_s, u"--quiet"_s}));
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.isEmpty());
        QVERIFY(run.errors.isEmpty());
        QCOMPARE(desk.cardCount(), 2);
    }

    void jsonOfAnImport()
    {
        const Desk desk;

        const ProgramRun run = desk.program.run(desk.importing(yesAndJson));

        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.names(),
            QStringList({u"question"_s, u"DBC_DatabaseBackupWillBeginNotification"_s,
                u"DBC_DatabaseBackupDidFinishedNotification"_s,
                u"DBC_ImportWillBeginNotification"_s,
                u"DBC_ImportDataLoadDidFinishedNotification"_s,
                u"DBC_ImportIsRunningNotification"_s, u"DBC_ImportIsRunningNotification"_s,
                u"DBC_ImportDidFinishedNotification"_s, u"DBC_OperationDidFinishedNotification"_s,
                u"result"_s}));
        QCOMPARE(run.object(u"DBC_ImportIsRunningNotification"_s),
            QJsonObject({{u"ProgressInfoMaxCount"_s, 2}, {u"ProgressInfoFinishedCount"_s, 2}}));
        QCOMPARE(run.object(u"DBC_OperationDidFinishedNotification"_s),
            QJsonObject({{u"OperationIsOk"_s, true}}));
        QCOMPARE(run.object(u"question"_s).value(u"key"_s).toString(), u"IDS_MSG_ERR_0106"_s);
        QCOMPARE(run.object(u"result"_s),
            QJsonObject({{u"ok"_s, true}, {u"code"_s, 0}, {u"cancelled"_s, false}, {u"max"_s, 2},
                {u"finished"_s, 2}, {u"warnings"_s, 0}, {u"errors"_s, 0},
                {u"backup"_s, desk.home.path(u"Velmora DB_bak.vmdb"_s)},
                {u"report"_s, desk.report()}}));
    }

    void jsonOfAnExport()
    {
        Desk desk;
        desk.package.card();

        const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

        QCOMPARE(run.exitCode, 4);
        QCOMPARE(run.names(),
            QStringList({u"question"_s, u"DBC_ExportWillBeginNotification"_s,
                u"DBC_ExportDataFetchDidFinishedNotification"_s, u"warning"_s,
                u"DBC_ExportIsRunningNotification"_s, u"DBC_ExportDidFinishedNotification"_s,
                u"DBC_OperationDidFinishedNotification"_s, u"result"_s}));
        const QJsonObject result = run.object(u"result"_s);
        QCOMPARE(result.value(u"ok"_s), QJsonValue(true));
        QCOMPARE(result.value(u"warnings"_s), QJsonValue(1));
        QVERIFY(result.value(u"backup"_s).isNull());
    }

    void jsonOfAFailure()
    {
        Desk desk;
        desk.folder.version(u"TELKA"_s);

        const ProgramRun run = desk.program.run(desk.importing(yesAndJson));

        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.names(),
            QStringList({u"question"_s, u"message"_s, u"error"_s,
                u"DBC_OperationDidFinishedNotification"_s, u"result"_s}));
        QCOMPARE(run.object(u"message"_s).value(u"number"_s).toInt(), 314);
        const QJsonObject result = run.object(u"result"_s);
        QCOMPARE(result.value(u"ok"_s), QJsonValue(false));
        QCOMPARE(result.value(u"code"_s), QJsonValue(-115));
        QCOMPARE(result.value(u"errors"_s), QJsonValue(1));
    }

    void warningsEndWithFour()
    {
        Desk desk;
        QVERIFY(QFile::remove(desk.folder.imagePath(u"1.jpg"_s)));

        const ProgramRun run = desk.program.run(desk.importing());

        QCOMPARE(run.exitCode, 4);
        QVERIFY(run.outputLines().constLast().contains(u"warnings: 1"_s));
        QCOMPARE(desk.cardCount(), 2);
    }

    void reportThatCannotBeWrittenChangesNoExitStatus()
    {
        const AsOrdinaryUser user;
        const Desk desk;
        const QString logs = desk.home.makeFolder(u"home/Library/Logs"_s);
        desk.home.writeFile(u"home/Library/Logs/VelmoraConverter.log"_s, {});
        const ScopedMode mode(logs, 0555);

        // The real user becomes the effective user, because the toolkit refuses to start when the
        // two differ.
        const auto becomeUser = [] { (void)setreuid(geteuid(), geteuid()); };
        const ProgramRun run = ConvertProgram::finish(
            desk.program.start(ConvertProgram::path(), desk.importing(yesAndJson), becomeUser));

        QCOMPARE(run.exitCode, 0);
        const QJsonObject result = run.object(u"result"_s);
        QVERIFY(result.value(u"report"_s).isNull());
        QCOMPARE(result.value(u"warnings"_s), QJsonValue(0));
        QVERIFY(!run.names().contains(u"warning"_s));
        QVERIFY(desk.home.logText().contains(u"[Warning] The report ["_s));
    }

    void withoutTerminalTheAnswerIsNo()
    {
        Desk desk;
        desk.program.input = "y\n";

        const ProgramRun run = desk.program.run(desk.importing({}));

        QCOMPARE(run.exitCode, 3);
        QVERIFY2(run.errors.contains(u"--yes"_s), qPrintable(run.errors));
        QVERIFY(run.output.isEmpty());
        QCOMPARE(desk.cardCount(), 0);
        QVERIFY(!QFile::exists(desk.home.path(u"Velmora DB_bak.vmdb"_s)));
    }

    void refusedImportChangesNothing_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("package");
        QTest::addColumn<QString>("named"); // the path in the message about the refusal
        QTest::newRow("no folder") << u"nowhere"_s << u"Velmora DB.vmdb"_s << u"nowhere"_s;
        QTest::newRow("no package") << u"Interchange"_s << u"none.vmdb"_s << u"none.vmdb"_s;
        QTest::newRow("folder without data file")
            << u"parent folder"_s << u"Velmora DB.vmdb"_s << u"parent folder"_s;
        QTest::newRow("no package at all")
            << u"Interchange"_s << u"parent folder"_s << u"parent folder"_s;
    }
    void refusedImportChangesNothing()
    {
        QFETCH(QString, folder);
        QFETCH(QString, package);
        const Desk desk;
        const auto before = desk.package.contents();

        const ProgramRun run = desk.program.run(
            {u"import"_s, u"--yes"_s, desk.home.path(folder), desk.home.path(package)});

        QCOMPARE(run.exitCode, 3);
        QFETCH(QString, named);
        QVERIFY2(run.errors.contains(desk.home.path(named)), qPrintable(run.errors));
        QVERIFY(run.output.isEmpty());
        QCOMPARE(desk.package.contents(), before);
        QVERIFY(!desk.home.logText().contains(u"Import started"_s));
    }

    void olderExportIsKeptWithoutYes()
    {
        Desk desk;
        desk.package.card();
        desk.home.writeFile(
            u"parent folder/%1/precious.txt"_s.arg(DBCInterchangeNames::rootFolderName()), "x");

        QCOMPARE(desk.program.run(desk.exporting({})).exitCode, 3);

        QVERIFY(QFile::exists(desk.exported() + u"/precious.txt"_s));
    }

    void olderExportIsReplacedWithYes()
    {
        Desk desk;
        desk.package.card();
        desk.home.writeFile(
            u"parent folder/%1/old.txt"_s.arg(DBCInterchangeNames::rootFolderName()), "x");

        const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

        QCOMPARE(run.exitCode, 4);
        QVERIFY(!QFile::exists(desk.exported() + u"/old.txt"_s));
        QCOMPARE(run.names().count(u"question"_s), 2);
    }

    void refusalOfTheChecksIsInTheJson()
    {
        const Desk desk;
        const ProgramRun run = desk.program.run({u"export"_s, u"--yes"_s, u"--json"_s,
            desk.package.path(), desk.home.path(u"nowhere"_s)});

        QCOMPARE(run.exitCode, 3);
        QCOMPARE(run.object(u"message"_s).value(u"number"_s).toInt(), 202);
        QCOMPARE(run.object(u"result"_s).value(u"ok"_s), QJsonValue(false));
    }

    void failedImportEndsWithOneAndRestores()
    {
        Desk desk;
        desk.folder.dataFile(
            DataFileBuilder()
                .titleLine()
                .row({{Key::full_Name, u"Hoshino Taro"_s}})
                .row({{Key::full_Name, u"Tanaka Hanako"_s}, {Key::attachmentFile, u"missing"_s}})
                .build());
        const auto before = desk.package.contents();

        const ProgramRun run = desk.program.run(desk.importing());

        QCOMPARE(run.exitCode, 1);
        QVERIFY(!run.errors.isEmpty());
        QCOMPARE(desk.package.contents(), before);
        QVERIFY(desk.home.logText().contains(u"missing"_s));
    }

    void storeThatDropsTheCardsEndsWithOne()
    {
        const Desk desk;
        desk.package.execute(u"CREATE TRIGGER other BEFORE INSERT ON ZCARD "
                             "BEGIN SELECT RAISE(IGNORE); END"_s);
        const auto before = desk.package.contents();

        const ProgramRun run = desk.program.run(desk.importing());

        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.errors.contains(u"did not keep the new cards"_s), qPrintable(run.errors));
        QCOMPARE(desk.package.contents(), before);
    }

    void limitOnTheSizeOfFilesEndsWithOne()
    {
        Desk desk;
        desk.package.card({{"ZMEMO", QString(300'000, u'x')}});
        const auto before = desk.package.contents();

        const auto process = desk.program.start(ConvertProgram::path(), desk.importing(), [] {
            constexpr rlim_t limit = 200'000;
            const rlimit limited {limit, limit};
            setrlimit(RLIMIT_FSIZE, &limited);
        });
        const ProgramRun run = ConvertProgram::finish(process);

        QCOMPARE(run.exitCode, 1);
        QVERIFY2(
            run.errors.contains(u"Backup of the card database failed"_s), qPrintable(run.errors));
        QCOMPARE(desk.package.contents(), before);
    }

    void packageThatDoesNotOpenEndsWithOne()
    {
        const Desk desk;
        desk.package.writeFile(u"Velmora.sqldb"_s, "these are no cards");
        const auto before = desk.package.contents();

        QCOMPARE(desk.program.run(desk.importing()).exitCode, 1);
        const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.object(u"result"_s).value(u"code"_s), QJsonValue(-201));
        QCOMPARE(desk.package.contents(), before);
    }

    void closedStandardDescriptorsDoNoHarm()
    {
        const Desk desk;

        const ProgramRun run = desk.program.runInShell(desk.importing(), u"<&- >&- 2>&-"_s);

        QCOMPARE(run.exitCode, 0);
        QCOMPARE(desk.cardCount(), 2);
        QCOMPARE(desk.package.value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);

        desk.package.writeFile(u"Velmora.sqldb"_s, "these are no cards");
        QCOMPARE(desk.program.runInShell(desk.importing(), u"<&- >&- 2>&-"_s).exitCode, 1);
    }

    void readerOfTheOutputThatGoesAwayDoesNotStopTheImport()
    {
        const Desk desk;

        // The shell ends only after both programs of the pipe, so the import has ended below.
        desk.program.runInShell(desk.importing(yesAndJson), u"| true"_s);

        QCOMPARE(desk.cardCount(), 2);
    }

    void signalCancelsAnImport_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGHUP") << SIGHUP;
    }
    void signalCancelsAnImport()
    {
        QFETCH(int, number);
        Desk desk;
        desk.hasManyCards(moreCardsThanAPipeHolds);
        const auto before = desk.package.contents();

        const ProgramRun run = signalled(
            desk, desk.importing(yesAndJson), "DBC_ImportIsRunningNotification", {number});

        QCOMPARE(run.exitCode, 130);
        QVERIFY(!run.names().contains(QString()));
        QCOMPARE(run.object(u"DBC_OperationDidCanceledNotification"_s),
            QJsonObject({{u"ConfirmCancelResult"_s, true}}));
        const QJsonObject result = run.object(u"result"_s);
        QCOMPARE(result.value(u"cancelled"_s), QJsonValue(true));
        QCOMPARE(result.value(u"ok"_s), QJsonValue(false));
        QVERIFY(result.value(u"backup"_s).isNull());
        QCOMPARE(desk.package.contents(), before);
        QVERIFY(!QFile::exists(desk.home.path(u"Velmora DB_bak.vmdb"_s)));
    }

    void signalCancelsAnExport()
    {
        Desk desk;
        desk.hasManyCards(moreCardsThanAPipeHolds);
        QCOMPARE(desk.program.run(desk.importing()).exitCode, 0);

        const ProgramRun run = signalled(
            desk, desk.exporting(yesAndJson), "DBC_ExportIsRunningNotification", {SIGINT});

        QCOMPARE(run.exitCode, 130);
        QVERIFY(!QFile::exists(desk.exported()));
        QVERIFY(QFile::exists(desk.parent));
    }

    void secondSignalDoesNoHarm()
    {
        Desk desk;
        desk.hasManyCards(moreCardsThanAPipeHolds);
        const auto before = desk.package.contents();

        const ProgramRun run = signalled(desk, desk.importing(yesAndJson),
            "DBC_ImportIsRunningNotification", {SIGINT, SIGTERM, SIGINT});

        QCOMPARE(run.exitCode, 130);
        QCOMPARE(desk.package.contents(), before);
    }

    void questionIsAskedAtATerminal_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("y") << QByteArray("y\n") << 0;
        QTest::newRow("Yes") << QByteArray("Yes\n") << 0;
        QTest::newRow("n") << QByteArray("n\n") << 3;
        QTest::newRow("nothing") << QByteArray("\n") << 3;
        QTest::newRow("anything else") << QByteArray("yet\n") << 3;
        QTest::newRow("end of input") << QByteArray("\x04") << 3;
    }
    void questionIsAskedAtATerminal()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, exitCode);
        const Desk desk;
        const Terminal terminal;
        terminal.type(answer);

        const ProgramRun run = ConvertProgram::finish(
            desk.program.start(ConvertProgram::path(), desk.importing({}), terminal.attach()));

        QCOMPARE(run.exitCode, exitCode);
        QVERIFY(terminal.screen().contains(u"[y/N]"_s));
        QCOMPARE(desk.cardCount(), exitCode == 0 ? 2 : 0);
    }

    void progressIsShownAtATerminal()
    {
        const Desk desk;
        const Terminal terminal;

        const ProgramRun run = ConvertProgram::finish(
            desk.program.start(ConvertProgram::path(), desk.importing(), terminal.attach()));

        QCOMPARE(run.exitCode, 0);
        const QString screen = terminal.screen();
        QVERIFY2(screen.contains(u"100%"_s), qPrintable(screen));
        QVERIFY(screen.contains(u"2 of 2"_s));
        QVERIFY(run.output.contains(u"2 of 2"_s));
    }

    void controlCharactersDoNotReachATerminal()
    {
        Desk desk;
        desk.folder.dataFile(DataFileBuilder()
                                 .titleLine()
                                 .row({{Key::full_Name, u"A\u001b[2J\u009b1m\u202eB"_s},
                                     {Key::face_Image_File, u"no\u0007.jpg"_s}})
                                 .build());

        const QString plain = desk.program.run({u"check"_s, desk.folder.path()}).output;
        const QString json = desk.program.run({u"check"_s, u"--json"_s, desk.folder.path()}).output;

        for (const QString& output : {plain, json}) {
            for (const QChar character : {QChar(0x1b), QChar(0x9b), QChar(0x07), QChar(0x202e)})
                QVERIFY(!output.contains(character));
        }
        QVERIFY2(plain.contains(u"A\\u001B[2J\\u009B1m\\u202EB"_s), qPrintable(plain));
        QVERIFY(plain.contains(u"no\\u0007.jpg"_s));
    }
};

QTEST_GUILESS_MAIN(tst_convertCommands)
#include "tst_convertCommands.moc"
