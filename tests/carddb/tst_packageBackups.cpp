// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageBackups.h"

#include "tests/carddb/BackupFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QStringList namesOf(const DBCBackupList& list)
{
    QStringList names;
    for (const DBCBackup& backup : list.backups)
        names << backup.name();
    return names;
}

} // namespace

class tst_packageBackups : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packageWithoutBackups()
    {
        const BackupFixture fixture;
        const DBCBackupList list = DBCPackageBackups::list(fixture.package.path());
        QVERIFY(list.backups.empty());
        QVERIFY(!list.couldNotLook);
    }

    void backupTellsItsCardsAndSize()
    {
        BackupFixture fixture;
        const QString path = fixture.backUp();
        fixture.package.card();
        const DBCBackupList list = DBCPackageBackups::list(fixture.package.path());
        QCOMPARE(list.backups.size(), std::size_t {1});
        const DBCBackup& backup = list.backups.front();
        QCOMPARE(backup.path, path);
        QCOMPARE(backup.name(), u"Velmora DB_bak.vmdb"_s);
        QCOMPARE(backup.cardCount, std::optional<qint64>(2));
        QCOMPARE(backup.bytes, std::optional<quint64>(diskUsage(path)));
        QVERIFY(backup.damage.isEmpty());
    }

    // A copy keeps the times of its source, so these times do not tell when the copy was made.
    void dateIsThatOfTheBackupAndNotOfTheCards()
    {
        const BackupFixture fixture;
        const timespec longAgo[2] {{1'000'000'000, 0}, {1'000'000'000, 0}};
        QCOMPARE(
            utimensat(AT_FDCWD, QFile::encodeName(fixture.package.path()).constData(), longAgo, 0),
            0);
        // One second earlier, because file systems use the time of the kernel's last tick, which
        // may be before the present time.
        const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
        const QString path = fixture.backUp();
        QCOMPARE(QFileInfo(path).lastModified().toSecsSinceEpoch(), 1'000'000'000);
        const DBCBackup backup = DBCPackageBackups::describe(path);
        QVERIFY(backup.madeAt >= before);
        QVERIFY(backup.madeAt <= QDateTime::currentDateTime());
        QCOMPARE(backup.dateText(), backup.madeAt.toString(u"yyyy-MM-dd HH:mm"_s));
    }

    void newestBackupComesFirst()
    {
        const BackupFixture fixture;
        for (const char* const name :
            {"Velmora DB_bak1.vmdb", "Velmora DB_bak.vmdb", "Velmora DB_bak2.vmdb"}) {
            fixture.backUp(QString::fromLatin1(name));
            // Wait for the kernel's next tick, so that each backup has a different time.
            QTest::qSleep(20);
        }
        QCOMPARE(namesOf(DBCPackageBackups::list(fixture.package.path())),
            (QStringList {
                u"Velmora DB_bak2.vmdb"_s, u"Velmora DB_bak.vmdb"_s, u"Velmora DB_bak1.vmdb"_s}));
    }

    void onlyTheNamesThatBackupsGetCount_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isBackup");
        QTest::newRow("first") << u"Velmora DB_bak.vmdb"_s << true;
        QTest::newRow("second") << u"Velmora DB_bak1.vmdb"_s << true;
        QTest::newRow("last") << u"Velmora DB_bak9999.vmdb"_s << true;
        QTest::newRow("beyond the last") << u"Velmora DB_bak10000.vmdb"_s << false;
        QTest::newRow("zero") << u"Velmora DB_bak0.vmdb"_s << false;
        QTest::newRow("leading zero") << u"Velmora DB_bak01.vmdb"_s << false;
        QTest::newRow("negative") << u"Velmora DB_bak-1.vmdb"_s << false;
        QTest::newRow("plus") << u"Velmora DB_bak+1.vmdb"_s << false;
        QTest::newRow("blank") << u"Velmora DB_bak 1.vmdb"_s << false;
        QTest::newRow("full-width digit") << u"Velmora DB_bak１.vmdb"_s << false;
        QTest::newRow("word") << u"Velmora DB_bak old.vmdb"_s << false;
        QTest::newRow("backup of a backup") << u"Velmora DB_bak_bak.vmdb"_s << false;
        QTest::newRow("other package") << u"Cards_bak.vmdb"_s << false;
        QTest::newRow("other extension") << u"Velmora DB_bak.sqldb"_s << false;
        QTest::newRow("other case") << u"Velmora DB_BAK.vmdb"_s << false;
        QTest::newRow("no extension") << u"Velmora DB_bak"_s << false;
        QTest::newRow("start and end overlap") << u"Velmora DB_ba.vmdb"_s << false;
    }
    void onlyTheNamesThatBackupsGetCount()
    {
        QFETCH(QString, name);
        QFETCH(bool, isBackup);
        const BackupFixture fixture;
        fixture.backUp(name);
        QCOMPARE(namesOf(DBCPackageBackups::list(fixture.package.path())),
            isBackup ? QStringList(name) : QStringList());
        QCOMPARE(DBCPackageBackups::pathOf(fixture.package.path(), name).has_value(), isBackup);
    }

    void linksFilesAndPathsAreNoBackups()
    {
        const BackupFixture fixture;
        const QString elsewhere = fixture.backUp(u"elsewhere.vmdb"_s);
        QVERIFY(QFile::link(elsewhere, fixture.home.path(u"Velmora DB_bak.vmdb"_s)));
        fixture.home.writeFile(u"Velmora DB_bak1.vmdb"_s, "a file");
        const QString package = fixture.package.path();
        QVERIFY(DBCPackageBackups::list(package).backups.empty());
        for (const char* const name : {"", "Velmora DB_bak.vmdb", "../Velmora DB_bak1.vmdb",
                 "elsewhere.vmdb", "Velmora DB.vmdb"})
            QVERIFY(!DBCPackageBackups::pathOf(package, QString::fromLatin1(name)));
    }

    void backupThatCannotBeReliedUponSaysWhy_data()
    {
        QTest::addColumn<QByteArray>("store");
        QTest::newRow("text") << QByteArray("these are no cards");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("damaged") << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, 'x');
    }
    void backupThatCannotBeReliedUponSaysWhy()
    {
        QFETCH(QByteArray, store);
        const BackupFixture fixture;
        const QString path = fixture.backUp();
        fixture.damage(path, store);
        const DBCBackup backup = DBCPackageBackups::describe(path);
        QVERIFY(backup.isDamaged());
        QVERIFY2(backup.damage.contains(path), qPrintable(backup.damage));
    }

    // The store must be checked page by page, because counting the cards would not reveal this
    // damage.
    void backupWithADamagedPageIsDamaged()
    {
        BackupFixture fixture;
        fixture.package.execute(u"CREATE TABLE other (x)"_s);
        fixture.package.execute(u"INSERT INTO other SELECT hex(randomblob(20000))"_s);
        const QString path = fixture.backUp();
        QFile store(path + u"/Velmora.sqldb"_s);
        QVERIFY(store.open(QIODevice::ReadWrite));
        constexpr qint64 pages = 3 * 4096;
        QVERIFY(store.seek(store.size() - pages));
        store.write(QByteArray(pages, 'x'));
        store.close();
        QVERIFY(DBCPackageBackups::describe(path).isDamaged());
    }

    void backupWithoutStoreOrModelIsDamaged()
    {
        const BackupFixture fixture;
        const QString path = fixture.backUp();
        fixture.removeStore(path);
        QVERIFY(DBCPackageBackups::describe(path).isDamaged());
        const PackageFixture other(
            fixture.home, {.withoutColumns = {u"ZMEMO"_s}}, u"Velmora DB_bak1.vmdb"_s);
        const DBCBackup backup = DBCPackageBackups::describe(other.path());
        QVERIFY(backup.isDamaged());
        QVERIFY(backup.damage.contains(u"ZMEMO"_s));
    }

    void cardsInAWriteAheadLogCount()
    {
        const BackupFixture fixture;
        const PackageFixture backup(
            fixture.home, {.writeAheadLog = true}, u"Velmora DB_bak.vmdb"_s);
        backup.executeIntoLog(u"INSERT INTO ZCARD (ZDELETEDFLAG) VALUES (0)"_s);
        QCOMPARE(DBCPackageBackups::describe(backup.path()).cardCount, std::optional<qint64>(1));
    }

    void lookingChangesNothing()
    {
        const BackupFixture fixture;
        fixture.backUp();
        const PackageFixture other(
            fixture.home, {.writeAheadLog = true}, u"Velmora DB_bak1.vmdb"_s);
        other.executeIntoLog(u"INSERT INTO ZCARD (ZDELETEDFLAG) VALUES (0)"_s);
        const QStringList before = fixture.everything();
        QCOMPARE(DBCPackageBackups::list(fixture.package.path()).backups.size(), std::size_t {2});
        QCOMPARE(fixture.everything(), before);
    }

    void backupsOfAPackageThatIsGoneAreListed()
    {
        const BackupFixture fixture;
        fixture.backUp();
        fixture.removePackage();
        QCOMPARE(DBCPackageBackups::list(fixture.package.path()).backups.size(), std::size_t {1});
    }

    void linkToThePackageHasItsBackups()
    {
        const BackupFixture fixture;
        fixture.backUp();
        const QString link = fixture.home.makeFolder(u"links"_s) + u"/link.vmdb"_s;
        QVERIFY(QFile::link(fixture.package.path(), link));
        QCOMPARE(namesOf(DBCPackageBackups::list(link)), QStringList(u"Velmora DB_bak.vmdb"_s));
    }

    void folderThatMayNotBeReadIsReported()
    {
        const AsOrdinaryUser user;
        const BackupFixture fixture;
        fixture.backUp();
        const ScopedMode mode(fixture.home.path(), S_IWUSR | S_IXUSR);
        const DBCBackupList list = DBCPackageBackups::list(fixture.package.path());
        QVERIFY(list.couldNotLook);
        QVERIFY(list.couldNotLook->text.contains(fixture.home.path()));
    }
};

QTEST_GUILESS_MAIN(tst_packageBackups)
#include "tst_packageBackups.moc"
