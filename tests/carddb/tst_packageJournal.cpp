// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageJournal.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using Journal = DBCPackageJournal;
using Stage = DBCPackageJournal::Stage;
using Search = DBCPackageJournal::Search;

class tst_packageJournal : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<Journal> begin() const { return Journal::begin(_package, _backup); }
    // Leaves a journal like that of a program that died in this stage.
    void leaveBehind(Stage stage) const
    {
        const auto journal = begin();
        if (!journal || (stage != Stage::Backup && !journal->enter(stage)))
            qFatal("no journal");
    }
    Search search() const { return Journal::find(_package).search; }
    QByteArray bytes() const { return _home->readFile(u".A.vmdb.velmora-import"_s); }
    void write(const QByteArray& bytes) const
    {
        _home->writeFile(u".A.vmdb.velmora-import"_s, bytes);
    }

    std::unique_ptr<TestHome> _home;
    QString _package;
    QString _backup;
    QString _path;

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _package = _home->makeFolder(u"A.vmdb"_s);
        _backup = _home->path(u"A_bak.vmdb"_s);
        _path = _home->path(u".A.vmdb.velmora-import"_s);
    }
    void cleanup() { _home.reset(); }

    void withoutAJournalThereIsNone() { QCOMPARE(search(), Search::None); }

    void journalStandsBesideThePackageForItsUserAlone()
    {
        const auto journal = begin();
        QVERIFY(journal);
        QCOMPARE(journal->stage(), Stage::Backup);
        QCOMPARE(journal->backupPath(), _backup);
        struct stat status { };
        QCOMPARE(stat(QFile::encodeName(_path).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t(0600));
        QVERIFY(QDir(_package).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void journalOfARunningImportIsHeld()
    {
        const auto journal = begin();
        QCOMPARE(search(), Search::HeldByAnother);
        QVERIFY(!begin());
    }

    void journalOfADeadImportIsFoundWithWhatItNoted()
    {
        begin()->enterImport(u"0A1B-"_s);
        const auto found = Journal::find(_package);
        QCOMPARE(found.search, Search::Found);
        QCOMPARE(found.journal->stage(), Stage::Import);
        QCOMPARE(found.journal->backupPath(), _backup);
        QCOMPARE(found.journal->cardIDStart(), u"0A1B-"_s);
        QCOMPARE(search(), Search::HeldByAnother); // "found" still holds the lock
    }

    void deadImportKeepsANewOneFromBeginning()
    {
        leaveBehind(Stage::Backup);
        QVERIFY(!begin());
        QCOMPARE(search(), Search::Found);
    }

    void everyStageIsReadBack_data()
    {
        QTest::addColumn<int>("stage");
        for (const Stage stage : {Stage::Backup, Stage::Import, Stage::Restore, Stage::Restored})
            QTest::addRow("%d", int(stage)) << int(stage);
    }
    void everyStageIsReadBack()
    {
        QFETCH(int, stage);
        leaveBehind(Stage(stage));
        const auto found = Journal::find(_package);
        QCOMPARE(found.journal->stage(), Stage(stage));
        QCOMPARE(found.journal->backupPath(), _backup);
    }

    void foundJournalGoesOn()
    {
        leaveBehind(Stage::Import);
        QVERIFY(Journal::find(_package).journal->enter(Stage::Restored));
        QCOMPARE(Journal::find(_package).journal->stage(), Stage::Restored);
    }

    void endRemovesTheFile()
    {
        const auto journal = begin();
        QVERIFY(journal->end());
        QVERIFY(!QFileInfo::exists(_path));
        QCOMPARE(search(), Search::None);
        QVERIFY(!journal->end());
    }

    void stagesAreLinesThatAnybodyCanRead()
    {
        begin()->enterImport(u"0A1B-"_s);
        QByteArrayList lines = bytes().split('\n');
        lines.removeAll({});
        QCOMPARE(lines,
            QByteArrayList({R"({"backup":"A_bak.vmdb","stage":"backup"})",
                R"({"cards":"0A1B-","stage":"import"})"}));
    }

    void movedFolderTakesItsJournalAlong()
    {
        _home->makeFolder(u"old"_s);
        _package = _home->makeFolder(u"old/A.vmdb"_s);
        _backup = _home->path(u"old/A_bak.vmdb"_s);
        leaveBehind(Stage::Import);
        QVERIFY(QDir().rename(_home->path(u"old"_s), _home->path(u"new"_s)));
        const auto found = Journal::find(_home->path(u"new/A.vmdb"_s));
        QCOMPARE(found.journal->backupPath(), _home->path(u"new/A_bak.vmdb"_s));
    }

    void linesThatAreNoneOfOursCountForNothing_data()
    {
        QTest::addColumn<QByteArray>("further");
        QTest::addColumn<int>("stage");
        const auto row = [](const char* name, const QByteArray& further, Stage stage) {
            QTest::newRow(name) << further << int(stage);
        };
        row("line cut short", "\n{\"stage\":\"restored\"", Stage::Import);
        row("line without its end", "\n{\"stage\":\"restored\"}", Stage::Import);
        row("line behind one cut short", "{\"sta\n{\"stage\":\"restored\"}\n", Stage::Restored);
        row("unknown stage", "{\"stage\":\"finished\"}\n", Stage::Import);
        row("number as stage", "{\"stage\":3}\n", Stage::Import);
        row("no JSON", "restored\n", Stage::Import);
        row("list", "[\"stage\"]\n", Stage::Import);
        row("bytes that are no text", QByteArray("\xFF\xFE\0\n", 4), Stage::Import);
    }
    void linesThatAreNoneOfOursCountForNothing()
    {
        QFETCH(QByteArray, further);
        begin()->enterImport(u"0A1B-"_s);
        write(bytes() + further);
        const auto found = Journal::find(_package);
        QTEST(int(found.journal->stage()), "stage");
        QCOMPARE(found.journal->backupPath(), _backup);
        QCOMPARE(found.journal->cardIDStart(), u"0A1B-"_s);
    }

    void forgedBackupNameLeadsNowhere()
    {
        leaveBehind(Stage::Backup);
        write(bytes() + "{\"stage\":\"import\",\"backup\":\"../../etc\"}\n");
        QCOMPARE(Journal::find(_package).journal->backupPath(), _backup);
        write("{\"stage\":\"import\",\"backup\":\"/etc\"}\n");
        QCOMPARE(Journal::find(_package).journal->backupPath(), QString());
    }

    void emptyJournalTellsThatNothingHadBegun()
    {
        write({});
        const auto found = Journal::find(_package);
        QCOMPARE(found.search, Search::Found);
        QCOMPARE(found.journal->stage(), Stage::None);
        QCOMPARE(found.journal->backupPath(), QString());
    }

    void endlessJournalIsReadToALimit()
    {
        leaveBehind(Stage::Import);
        QVERIFY(QFile::resize(_path, qint64(1) << 36)); // a sparse file, which takes no space
        const auto found = Journal::find(_package);
        QCOMPARE(found.search, Search::Found);
        QCOMPARE(found.journal->stage(), Stage::Import);
    }

    void whatIsNoFileCannotBeRead_data()
    {
        QTest::addColumn<QString>("kind");
        for (const char* kind : {"folder", "pipe", "link"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }
    void whatIsNoFileCannotBeRead()
    {
        QFETCH(QString, kind);
        if (kind == u"folder")
            _home->makeFolder(u".A.vmdb.velmora-import"_s);
        else if (kind == u"pipe")
            QCOMPARE(mkfifo(QFile::encodeName(_path).constData(), 0600), 0);
        else
            QVERIFY(QFile::link(_home->writeFile(u"file"_s, "x"), _path));
        QCOMPARE(search(), Search::Unreadable);
        QVERIFY(!begin());
    }

    void journalThatMayNotBeReadIsUnreadable()
    {
        const AsOrdinaryUser user;
        cleanup();
        init();
        leaveBehind(Stage::Import);
        const ScopedMode mode(_path, 0);
        QCOMPARE(search(), Search::Unreadable);
    }

    void folderThatMayNotBeWrittenTakesNoJournal()
    {
        const AsOrdinaryUser user;
        cleanup();
        init();
        const ScopedMode mode(_home->path(), S_IRUSR | S_IXUSR);
        QVERIFY(!begin());
        QCOMPARE(search(), Search::None);
    }

    void fullDiskTakesNoJournalAndLeavesNone()
    {
        {
            const FileSizeLimit full(10);
            QVERIFY(!begin());
        }
        QVERIFY(!QFileInfo::exists(_path));
    }

    void fullDiskLeavesTheStageBefore()
    {
        const auto journal = begin();
        {
            const FileSizeLimit full(rlim_t(bytes().size()) + 3);
            QVERIFY(!journal->enterImport(u"0A1B-"_s));
            QCOMPARE(journal->stage(), Stage::Backup);
        }
        QVERIFY(journal->enter(Stage::Restore));
        QCOMPARE(journal->stage(), Stage::Restore);
    }
};

QTEST_GUILESS_MAIN(tst_packageJournal)
#include "tst_packageJournal.moc"
