// SPDX-License-Identifier: GPL-3.0-or-later
// Runs conversions while another program or another conversion uses the same card database. Tests
// that no data is lost, and that a conversion that cannot go on says why.
#include "tests/cli/ConvertProgram.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"

#include <SQLiteCpp/Database.h>

#include <QDir>
#include <QFile>
#include <QtTest>

#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

constexpr int cardsToImport = 40;

struct Desk {
    explicit Desk(const PackageLayout& layout = {})
        : package(home, layout)
    {
        package.card({{"ZFULL_NAME", u"Hoshino Taro"_s}});
        DataFileBuilder builder;
        builder.titleLine();
        for (int card = 0; card < cardsToImport; ++card)
            builder.row({{Key::full_Name, u"Card %1"_s.arg(card)}});
        folder.dataFile(builder.build());
        parent = home.makeFolder(u"parent folder"_s);
    }
    QStringList importing() const
    {
        return {u"import"_s, u"--yes"_s, folder.path(), package.path()};
    }
    QStringList exporting() const { return {u"export"_s, u"--yes"_s, package.path(), parent}; }
    qlonglong cardCount() const
    {
        return package.value(u"SELECT count(*) FROM ZCARD"_s).toLongLong();
    }

    TestHome home;
    PackageFixture package;
    InterchangeFolder folder {home};
    QString parent;
    ConvertProgram program {home};
};

// Plays another program that has the store, the database file inside the package, open.
class OtherProgram {
public:
    explicit OtherProgram(const PackageFixture& package)
        : _store(package.storePath().toStdString(), SQLite::OPEN_READWRITE)
    {
    }
    void run(const char* sql) { _store.exec(sql); }
    qlonglong countCards() { return _store.execAndGet("SELECT count(*) FROM ZCARD").getInt64(); }

private:
    SQLite::Database _store;
};

// Plays another running conversion: holds the lock on the package folder that a conversion holds.
class ConversionAtWork {
public:
    ConversionAtWork(const QString& package, int lock)
        : _folder(open(QFile::encodeName(package).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        if (flock(_folder, lock | LOCK_NB) != 0)
            qFatal("cannot lock");
    }
    ~ConversionAtWork() { close(_folder); }
    ConversionAtWork(const ConversionAtWork&) = delete;
    ConversionAtWork& operator=(const ConversionAtWork&) = delete;

private:
    int _folder;
};

} // namespace

class tst_otherPrograms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void storeHeldInAWayThatStopsAnImport_data()
    {
        QTest::addColumn<QByteArray>("begin");
        QTest::addColumn<bool>("reads");
        QTest::addColumn<QString>("saying");
        QTest::newRow("when it is opened")
            << QByteArray("BEGIN EXCLUSIVE") << false << u"could not be opened"_s;
        QTest::newRow("when it is saved, by a writer")
            << QByteArray("BEGIN IMMEDIATE") << false << u"could not be saved"_s;
        QTest::newRow("when it is saved, by a reader")
            << QByteArray("BEGIN") << true << u"could not be saved"_s;
    }
    void storeHeldInAWayThatStopsAnImport()
    {
        QFETCH(QByteArray, begin);
        QFETCH(bool, reads);
        QFETCH(QString, saying);
        const Desk desk;
        // The test reads the package only before and after the life of OtherProgram. Both run in
        // this process, and the kernel releases all locks that a process has on a file as soon as
        // the process closes that file once.
        const auto before = desk.package.contents();
        ProgramRun run;
        {
            OtherProgram other(desk.package);
            other.run(begin.constData());
            if (reads)
                other.countCards();
            run = desk.program.run(desk.importing());
        }
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.errors.contains(saying), qPrintable(run.errors));
        QVERIFY2(run.errors.contains(u"locked"_s), qPrintable(run.errors));
        QCOMPARE(desk.package.contents(), before);
    }

    void whatAnotherProgramLeftInItsLogStays()
    {
        const Desk desk(PackageLayout {.writeAheadLog = true});
        OtherProgram other(desk.package);
        other.run("UPDATE ZCARD SET ZFULL_NAME = 'Hoshino Jiro'");

        QCOMPARE(desk.program.run(desk.importing()).exitCode, 0);
        QCOMPARE(other.countCards(), cardsToImport + 1);
        QCOMPARE(desk.package.value(u"SELECT ZFULL_NAME FROM ZCARD WHERE Z_PK = 1"_s),
            QVariant(u"Hoshino Jiro"_s));
    }

    void changeThatAnotherProgramDidNotFinishIsTakenBack()
    {
        const Desk desk;
        const QString journal = u"Velmora.sqldb-journal"_s;
        QByteArray storeInMidChange;
        QByteArray hotJournal;
        {
            OtherProgram other(desk.package);
            other.run("PRAGMA cache_size = 1");
            other.run("BEGIN");
            other.run("UPDATE ZCARD SET ZMEMO = hex(zeroblob(200000))");
            storeInMidChange = desk.package.readFile(u"Velmora.sqldb"_s);
            hotJournal = desk.package.readFile(journal);
        }
        QVERIFY(!hotJournal.isEmpty());
        desk.package.writeFile(u"Velmora.sqldb"_s, storeInMidChange);
        desk.package.writeFile(journal, hotJournal);

        QCOMPARE(desk.program.run(desk.importing()).exitCode, 0);
        QCOMPARE(desk.cardCount(), cardsToImport + 1);
        QCOMPARE(desk.package.value(
                     u"SELECT length(ZMEMO) FROM ZCARD WHERE ZFULL_NAME = 'Hoshino Taro'"_s),
            QVariant());
    }

    void twoImportsAtOnceLoseNothing()
    {
        constexpr int rounds = 5;
        for (int round = 0; round < rounds; ++round) {
            const Desk desk;
            auto first = desk.program.start(ConvertProgram::path(), desk.importing());
            auto second = desk.program.start(ConvertProgram::path(), desk.importing());
            const ProgramRun runs[] {ConvertProgram::finish(first), ConvertProgram::finish(second)};
            int done = 0;
            for (const ProgramRun& run : runs) {
                if (run.exitCode == 0)
                    ++done;
                else
                    QVERIFY2(!run.errors.isEmpty() && (run.exitCode == 1 || run.exitCode == 3),
                        qPrintable(run.errors));
            }
            QVERIFY(done > 0);
            QCOMPARE(desk.cardCount(), done * cardsToImport + 1);
        }
    }

    void conversionGivesWayToOneAtWork_data()
    {
        QTest::addColumn<int>("lock");
        QTest::addColumn<bool>("imports");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("import while an import runs") << int(LOCK_EX) << true << 1;
        QTest::newRow("import while an export runs") << int(LOCK_SH) << true << 1;
        QTest::newRow("export while an import runs") << int(LOCK_EX) << false << 1;
        QTest::newRow("export while an export runs") << int(LOCK_SH) << false << 4; // no images
    }
    void conversionGivesWayToOneAtWork()
    {
        QFETCH(int, lock);
        QFETCH(bool, imports);
        QFETCH(int, exitCode);
        const Desk desk;
        const auto before = desk.package.contents();
        const ConversionAtWork other(desk.package.path(), lock);
        const ProgramRun run = desk.program.run(imports ? desk.importing() : desk.exporting());
        QCOMPARE(run.exitCode, exitCode);
        QCOMPARE(desk.package.contents(), before);
        if (exitCode == 1)
            QVERIFY2(run.errors.contains(u"Another conversion is using"_s), qPrintable(run.errors));
    }
};

QTEST_GUILESS_MAIN(tst_otherPrograms)
#include "tst_otherPrograms.moc"
