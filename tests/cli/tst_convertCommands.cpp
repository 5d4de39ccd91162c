// SPDX-License-Identifier: GPL-3.0-or-later
// velmora-convert import and export, as a person and as a script run them.
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
#include <unistd.h>

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
    // Puts a child's standard input and standard error on the terminal.
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
        folder.image(QStringLiteral("1.jpg"), JpegBuilder(30, 20).dotsPerInch(300, 300).bytes());
        folder.dataFile(DataFileBuilder()
                            .titleLine()
                            .row({{Key::full_Name, QStringLiteral("Hoshino Taro")},
                                {Key::face_Image_File, QStringLiteral("1.jpg")}})
                            .row({{Key::full_Name, QStringLiteral("Tanaka Hanako")}})
                            .build());
        parent = home.makeFolder(QStringLiteral("parent folder"));
    }
    void hasManyCards(int count)
    {
        DataFileBuilder builder;
        builder.titleLine();
        for (int card = 0; card < count; ++card)
            builder.row({{Key::full_Name, QStringLiteral("Card %1").arg(card)}});
        folder.dataFile(builder.build());
    }
    QStringList importing(const QStringList& options = {QStringLiteral("--yes")}) const
    {
        return QStringList({QStringLiteral("import"), folder.path(), package.path()}) + options;
    }
    QStringList exporting(const QStringList& options = {QStringLiteral("--yes")}) const
    {
        return QStringList({QStringLiteral("export"), package.path(), parent}) + options;
    }
    QString exported() const { return parent + u'/' + DBCInterchangeNames::rootFolderName(); }
    // The path of the one report there is; empty: none or several.
    QString report() const
    {
        const QDir logs(home.path(QStringLiteral("home/Library/Logs")));
        const QStringList pages = logs.entryList({QStringLiteral("*.html")});
        return pages.size() == 1 ? logs.filePath(pages.constFirst()) : QString();
    }
    qlonglong cardCount() const
    {
        return package.value(QStringLiteral("SELECT count(*) FROM ZCARD")).toLongLong();
    }

    TestHome home;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    QString parent;
    ConvertProgram program {home};
};

const QStringList yesAndJson {QStringLiteral("--yes"), QStringLiteral("--json")};

} // namespace

class tst_convertCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importTellsWhatWasConvertedAndWhereItLies();
    void exportTellsWhatWasConvertedAndWhereItLies();
    void importInJapaneseSpeaksJapanese();
    void quietSaysNothing();
    void jsonOfAnImport();
    void jsonOfAnExport();
    void jsonOfAFailure();
    void warningsEndWithFour();
    void reportThatCannotBeWrittenChangesNoExitStatus();

    void withoutTerminalTheAnswerIsNo();
    void refusedImportChangesNothing_data();
    void refusedImportChangesNothing();
    void olderExportIsKeptWithoutYes();
    void olderExportIsReplacedWithYes();
    void refusalOfTheChecksIsInTheJson();

    void failedImportEndsWithOneAndRestores();
    void packageThatDoesNotOpenEndsWithOne();
    void closedStandardDescriptorsDoNoHarm();
    void readerOfTheOutputThatGoesAwayDoesNotStopTheImport();

    void signalCancelsAnImport_data();
    void signalCancelsAnImport();
    void signalCancelsAnExport();
    void secondSignalDoesNoHarm();

    void questionIsAskedAtATerminal_data();
    void questionIsAskedAtATerminal();
    void progressIsShownAtATerminal();
    void controlCharactersDoNotReachATerminal();
};

void tst_convertCommands::importTellsWhatWasConvertedAndWhereItLies()
{
    const Desk desk;

    const ProgramRun run = desk.program.run(desk.importing());

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors));
    QCOMPARE(run.outputLines().size(), 4);
    QVERIFY(run.outputLines().at(0).contains(QStringLiteral("2 of 2")));
    QVERIFY(run.outputLines().at(0).contains(desk.package.path()));
    QVERIFY(
        run.outputLines().at(1).contains(desk.home.path(QStringLiteral("Velmora DB_bak.vmdb"))));
    QVERIFY(run.outputLines().at(2).contains(QStringLiteral("[%1]").arg(desk.report())));
    QVERIFY(run.outputLines().at(3).contains(
        desk.home.path(QStringLiteral("home/Library/Logs/VelmoraConverter.log"))));
    QCOMPARE(desk.cardCount(), 2);
}

void tst_convertCommands::exportTellsWhatWasConvertedAndWhereItLies()
{
    Desk desk;
    desk.package.card();

    const ProgramRun run = desk.program.run(desk.exporting());

    // The card names no image, and the package has none for it, which the log warns of.
    QCOMPARE(run.exitCode, 4);
    QVERIFY(run.outputLines().at(0).contains(QStringLiteral("1 of 1")));
    QVERIFY(run.outputLines().at(0).contains(desk.exported()));
    QVERIFY(QFile::exists(DBCInterchangeNames::dataFile(desk.exported())));
}

void tst_convertCommands::importInJapaneseSpeaksJapanese()
{
    Desk desk;
    desk.program.language = QStringLiteral("ja_JP.UTF-8");

    const ProgramRun run = desk.program.run(desk.importing());

    QCOMPARE(run.exitCode, 0);
    QVERIFY2(run.output.contains(QStringLiteral("インポート")), qPrintable(run.output));
    QVERIFY(desk.home.logText().contains(QStringLiteral("バックアップ")));
}

void tst_convertCommands::quietSaysNothing()
{
    const Desk desk;
    const ProgramRun run
        = desk.program.run(desk.importing({QStringLiteral("--yes"), QStringLiteral("--quiet")}));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.isEmpty());
    QVERIFY(run.errors.isEmpty());
    QCOMPARE(desk.cardCount(), 2);
}

void tst_convertCommands::jsonOfAnImport()
{
    const Desk desk;

    const ProgramRun run = desk.program.run(desk.importing(yesAndJson));

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.names(),
        QStringList(
            {QStringLiteral("question"), QStringLiteral("DBC_DatabaseBackupWillBeginNotification"),
                QStringLiteral("DBC_DatabaseBackupDidFinishedNotification"),
                QStringLiteral("DBC_ImportWillBeginNotification"),
                QStringLiteral("DBC_ImportDataLoadDidFinishedNotification"),
                QStringLiteral("DBC_ImportIsRunningNotification"),
                QStringLiteral("DBC_ImportIsRunningNotification"),
                QStringLiteral("DBC_ImportDidFinishedNotification"),
                QStringLiteral("DBC_OperationDidFinishedNotification"), QStringLiteral("result")}));
    QCOMPARE(run.object(QStringLiteral("DBC_ImportIsRunningNotification")),
        QJsonObject({{QStringLiteral("ProgressInfoMaxCount"), 2},
            {QStringLiteral("ProgressInfoFinishedCount"), 2}}));
    QCOMPARE(run.object(QStringLiteral("DBC_OperationDidFinishedNotification")),
        QJsonObject({{QStringLiteral("OperationIsOk"), true}}));
    QCOMPARE(run.object(QStringLiteral("question")).value(QStringLiteral("key")).toString(),
        QStringLiteral("IDS_MSG_ERR_0106"));
    QCOMPARE(run.object(QStringLiteral("result")),
        QJsonObject({{QStringLiteral("ok"), true}, {QStringLiteral("code"), 0},
            {QStringLiteral("cancelled"), false}, {QStringLiteral("max"), 2},
            {QStringLiteral("finished"), 2}, {QStringLiteral("warnings"), 0},
            {QStringLiteral("errors"), 0},
            {QStringLiteral("backup"), desk.home.path(QStringLiteral("Velmora DB_bak.vmdb"))},
            {QStringLiteral("report"), desk.report()}}));
}

void tst_convertCommands::jsonOfAnExport()
{
    Desk desk;
    desk.package.card();

    const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

    QCOMPARE(run.exitCode, 4);
    QCOMPARE(run.names(),
        QStringList({QStringLiteral("question"), QStringLiteral("DBC_ExportWillBeginNotification"),
            QStringLiteral("DBC_ExportDataFetchDidFinishedNotification"), QStringLiteral("warning"),
            QStringLiteral("DBC_ExportIsRunningNotification"),
            QStringLiteral("DBC_ExportDidFinishedNotification"),
            QStringLiteral("DBC_OperationDidFinishedNotification"), QStringLiteral("result")}));
    const QJsonObject result = run.object(QStringLiteral("result"));
    QCOMPARE(result.value(QStringLiteral("ok")), QJsonValue(true));
    QCOMPARE(result.value(QStringLiteral("warnings")), QJsonValue(1));
    QVERIFY(result.value(QStringLiteral("backup")).isNull());
}

void tst_convertCommands::jsonOfAFailure()
{
    Desk desk;
    desk.folder.version(QStringLiteral("TELKA"));

    const ProgramRun run = desk.program.run(desk.importing(yesAndJson));

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.names(),
        QStringList({QStringLiteral("question"), QStringLiteral("message"), QStringLiteral("error"),
            QStringLiteral("DBC_OperationDidFinishedNotification"), QStringLiteral("result")}));
    QCOMPARE(run.object(QStringLiteral("message")).value(QStringLiteral("number")).toInt(), 314);
    const QJsonObject result = run.object(QStringLiteral("result"));
    QCOMPARE(result.value(QStringLiteral("ok")), QJsonValue(false));
    QCOMPARE(result.value(QStringLiteral("code")), QJsonValue(-115));
    QCOMPARE(result.value(QStringLiteral("errors")), QJsonValue(1));
}

void tst_convertCommands::warningsEndWithFour()
{
    Desk desk;
    QVERIFY(QFile::remove(desk.folder.imagePath(QStringLiteral("1.jpg"))));

    const ProgramRun run = desk.program.run(desk.importing());

    QCOMPARE(run.exitCode, 4);
    QVERIFY(run.outputLines().constLast().contains(QStringLiteral("warnings: 1")));
    QCOMPARE(desk.cardCount(), 2);
}

void tst_convertCommands::reportThatCannotBeWrittenChangesNoExitStatus()
{
    const AsOrdinaryUser user;
    const Desk desk;
    const QString logs = desk.home.makeFolder(QStringLiteral("home/Library/Logs"));
    desk.home.writeFile(QStringLiteral("home/Library/Logs/VelmoraConverter.log"), {});
    const ScopedMode mode(logs, 0555);

    // A program that is not quite its user's would not start.
    const auto becomeUser = [] { (void)setreuid(geteuid(), geteuid()); };
    const ProgramRun run = ConvertProgram::finish(
        desk.program.start(ConvertProgram::path(), desk.importing(yesAndJson), becomeUser));

    QCOMPARE(run.exitCode, 0);
    const QJsonObject result = run.object(QStringLiteral("result"));
    QVERIFY(result.value(QStringLiteral("report")).isNull());
    QCOMPARE(result.value(QStringLiteral("warnings")), QJsonValue(0));
    QVERIFY(!run.names().contains(QStringLiteral("warning")));
    QVERIFY(desk.home.logText().contains(QStringLiteral("[Warning] The report [")));
}

void tst_convertCommands::withoutTerminalTheAnswerIsNo()
{
    Desk desk;
    desk.program.input = "y\n";

    const ProgramRun run = desk.program.run(desk.importing({}));

    QCOMPARE(run.exitCode, 3);
    QVERIFY2(run.errors.contains(QStringLiteral("--yes")), qPrintable(run.errors));
    QVERIFY(run.output.isEmpty());
    QCOMPARE(desk.cardCount(), 0);
    QVERIFY(!QFile::exists(desk.home.path(QStringLiteral("Velmora DB_bak.vmdb"))));
}

void tst_convertCommands::refusedImportChangesNothing_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("package");
    QTest::addColumn<QString>("named"); // what the refusal is about
    QTest::newRow("no folder") << QStringLiteral("nowhere") << QStringLiteral("Velmora DB.vmdb")
                               << QStringLiteral("nowhere");
    QTest::newRow("no package") << QStringLiteral("Interchange") << QStringLiteral("none.vmdb")
                                << QStringLiteral("none.vmdb");
    QTest::newRow("folder without data file")
        << QStringLiteral("parent folder") << QStringLiteral("Velmora DB.vmdb")
        << QStringLiteral("parent folder");
    QTest::newRow("no package at all")
        << QStringLiteral("Interchange") << QStringLiteral("parent folder")
        << QStringLiteral("parent folder");
}

void tst_convertCommands::refusedImportChangesNothing()
{
    QFETCH(QString, folder);
    QFETCH(QString, package);
    const Desk desk;
    const auto before = desk.package.contents();

    const ProgramRun run = desk.program.run({QStringLiteral("import"), QStringLiteral("--yes"),
        desk.home.path(folder), desk.home.path(package)});

    QCOMPARE(run.exitCode, 3);
    QFETCH(QString, named);
    QVERIFY2(run.errors.contains(desk.home.path(named)), qPrintable(run.errors));
    QVERIFY(run.output.isEmpty());
    QCOMPARE(desk.package.contents(), before);
    QVERIFY(!desk.home.logText().contains(QStringLiteral("Import started")));
}

void tst_convertCommands::olderExportIsKeptWithoutYes()
{
    Desk desk;
    desk.package.card();
    desk.home.writeFile(
        QStringLiteral("parent folder/%1/precious.txt").arg(DBCInterchangeNames::rootFolderName()),
        "x");

    QCOMPARE(desk.program.run(desk.exporting({})).exitCode, 3);

    QVERIFY(QFile::exists(desk.exported() + QStringLiteral("/precious.txt")));
}

void tst_convertCommands::olderExportIsReplacedWithYes()
{
    Desk desk;
    desk.package.card();
    desk.home.writeFile(
        QStringLiteral("parent folder/%1/old.txt").arg(DBCInterchangeNames::rootFolderName()), "x");

    const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

    QCOMPARE(run.exitCode, 4);
    QVERIFY(!QFile::exists(desk.exported() + QStringLiteral("/old.txt")));
    QCOMPARE(run.names().count(QStringLiteral("question")), 2);
}

void tst_convertCommands::refusalOfTheChecksIsInTheJson()
{
    const Desk desk;
    const ProgramRun run = desk.program.run({QStringLiteral("export"), QStringLiteral("--yes"),
        QStringLiteral("--json"), desk.package.path(), desk.home.path(QStringLiteral("nowhere"))});

    QCOMPARE(run.exitCode, 3);
    QCOMPARE(run.object(QStringLiteral("message")).value(QStringLiteral("number")).toInt(), 202);
    QCOMPARE(run.object(QStringLiteral("result")).value(QStringLiteral("ok")), QJsonValue(false));
}

void tst_convertCommands::failedImportEndsWithOneAndRestores()
{
    Desk desk;
    desk.folder.dataFile(DataFileBuilder()
                             .titleLine()
                             .row({{Key::full_Name, QStringLiteral("Hoshino Taro")}})
                             .row({{Key::full_Name, QStringLiteral("Tanaka Hanako")},
                                 {Key::attachmentFile, QStringLiteral("missing")}})
                             .build());
    const auto before = desk.package.contents();

    const ProgramRun run = desk.program.run(desk.importing());

    QCOMPARE(run.exitCode, 1);
    QVERIFY(!run.errors.isEmpty());
    QCOMPARE(desk.package.contents(), before);
    QVERIFY(desk.home.logText().contains(QStringLiteral("missing")));
}

void tst_convertCommands::packageThatDoesNotOpenEndsWithOne()
{
    const Desk desk;
    desk.package.writeFile(QStringLiteral("Velmora.sqldb"), "these are no cards");
    const auto before = desk.package.contents();

    QCOMPARE(desk.program.run(desk.importing()).exitCode, 1);
    const ProgramRun run = desk.program.run(desk.exporting(yesAndJson));

    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.object(QStringLiteral("result")).value(QStringLiteral("code")), QJsonValue(-201));
    QCOMPARE(desk.package.contents(), before);
}

void tst_convertCommands::closedStandardDescriptorsDoNoHarm()
{
    const Desk desk;

    const ProgramRun run
        = desk.program.runInShell(desk.importing(), QStringLiteral("<&- >&- 2>&-"));

    QCOMPARE(run.exitCode, 0);
    QCOMPARE(desk.cardCount(), 2);
    QCOMPARE(desk.package.value(QStringLiteral("PRAGMA integrity_check")).toString(),
        QStringLiteral("ok"));

    desk.package.writeFile(QStringLiteral("Velmora.sqldb"), "these are no cards");
    QCOMPARE(desk.program.runInShell(desk.importing(), QStringLiteral("<&- >&- 2>&-")).exitCode, 1);
}

void tst_convertCommands::readerOfTheOutputThatGoesAwayDoesNotStopTheImport()
{
    const Desk desk;

    // The shell waits for both ends of the pipe.
    desk.program.runInShell(desk.importing(yesAndJson), QStringLiteral("| true"));

    QCOMPARE(desk.cardCount(), 2);
}

namespace {

// Starts a conversion of many cards and sends the signal once the first card is through. Nobody
// reads the output meanwhile, so a full pipe holds the program before it can come to its end.
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

void tst_convertCommands::signalCancelsAnImport_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void tst_convertCommands::signalCancelsAnImport()
{
    QFETCH(int, number);
    Desk desk;
    desk.hasManyCards(moreCardsThanAPipeHolds);
    const auto before = desk.package.contents();

    const ProgramRun run
        = signalled(desk, desk.importing(yesAndJson), "DBC_ImportIsRunningNotification", {number});

    QCOMPARE(run.exitCode, 130);
    QVERIFY(!run.names().contains(QString()));
    QCOMPARE(run.object(QStringLiteral("DBC_OperationDidCanceledNotification")),
        QJsonObject({{QStringLiteral("ConfirmCancelResult"), true}}));
    const QJsonObject result = run.object(QStringLiteral("result"));
    QCOMPARE(result.value(QStringLiteral("cancelled")), QJsonValue(true));
    QCOMPARE(result.value(QStringLiteral("ok")), QJsonValue(false));
    QVERIFY(result.value(QStringLiteral("backup")).isNull());
    QCOMPARE(desk.package.contents(), before);
    QVERIFY(!QFile::exists(desk.home.path(QStringLiteral("Velmora DB_bak.vmdb"))));
}

void tst_convertCommands::signalCancelsAnExport()
{
    Desk desk;
    desk.hasManyCards(moreCardsThanAPipeHolds);
    QCOMPARE(desk.program.run(desk.importing()).exitCode, 0);

    const ProgramRun run
        = signalled(desk, desk.exporting(yesAndJson), "DBC_ExportIsRunningNotification", {SIGINT});

    QCOMPARE(run.exitCode, 130);
    QVERIFY(!QFile::exists(desk.exported()));
    QVERIFY(QFile::exists(desk.parent));
}

void tst_convertCommands::secondSignalDoesNoHarm()
{
    Desk desk;
    desk.hasManyCards(moreCardsThanAPipeHolds);
    const auto before = desk.package.contents();

    const ProgramRun run = signalled(desk, desk.importing(yesAndJson),
        "DBC_ImportIsRunningNotification", {SIGINT, SIGTERM, SIGINT});

    QCOMPARE(run.exitCode, 130);
    QCOMPARE(desk.package.contents(), before);
}

void tst_convertCommands::questionIsAskedAtATerminal_data()
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

void tst_convertCommands::questionIsAskedAtATerminal()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, exitCode);
    const Desk desk;
    const Terminal terminal;
    terminal.type(answer);

    const ProgramRun run = ConvertProgram::finish(
        desk.program.start(ConvertProgram::path(), desk.importing({}), terminal.attach()));

    QCOMPARE(run.exitCode, exitCode);
    QVERIFY(terminal.screen().contains(QStringLiteral("[y/N]")));
    QCOMPARE(desk.cardCount(), exitCode == 0 ? 2 : 0);
}

void tst_convertCommands::progressIsShownAtATerminal()
{
    const Desk desk;
    const Terminal terminal;

    const ProgramRun run = ConvertProgram::finish(
        desk.program.start(ConvertProgram::path(), desk.importing(), terminal.attach()));

    QCOMPARE(run.exitCode, 0);
    const QString screen = terminal.screen();
    QVERIFY2(screen.contains(QStringLiteral("100%")), qPrintable(screen));
    QVERIFY(screen.contains(QStringLiteral("2 of 2")));
    QVERIFY(run.output.contains(QStringLiteral("2 of 2")));
}

void tst_convertCommands::controlCharactersDoNotReachATerminal()
{
    Desk desk;
    desk.folder.dataFile(DataFileBuilder()
                             .titleLine()
                             .row({{Key::full_Name, QStringLiteral("A\u001b[2J\u009b1m\u202eB")},
                                 {Key::face_Image_File, QStringLiteral("no\u0007.jpg")}})
                             .build());

    const QString plain = desk.program.run({QStringLiteral("check"), desk.folder.path()}).output;
    const QString json
        = desk.program.run({QStringLiteral("check"), QStringLiteral("--json"), desk.folder.path()})
              .output;

    for (const QString& output : {plain, json}) {
        for (const QChar character : {QChar(0x1b), QChar(0x9b), QChar(0x07), QChar(0x202e)})
            QVERIFY(!output.contains(character));
    }
    QVERIFY2(plain.contains(QStringLiteral("A\\u001B[2J\\u009B1m\\u202EB")), qPrintable(plain));
    QVERIFY(plain.contains(QStringLiteral("no\\u0007.jpg")));
}

QTEST_GUILESS_MAIN(tst_convertCommands)
#include "tst_convertCommands.moc"
