// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageCreator.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

using Outcome = DBCPackageCreator::Outcome;

class tst_packageCreator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }
    void cleanup() { _home.reset(); }

    void newPackageHasEverythingAPackageHas();
    void newPackageIsUsable();
    void versionFileNamesTheVersion();
    void storeHasTheFrameworksTables();
    void newPackageTakesCardsInAndHandsThemOut();
    void capitalsAndTrailingSlashAreTaken();
    void wrongNameIsRefused_data();
    void wrongNameIsRefused();
    void whatStandsThereIsRefusedAndLeftAlone_data();
    void whatStandsThereIsRefusedAndLeftAlone();
    void missingParentFolderIsRefused();
    void halfMadePackageIsRemoved();
    void packageWhoseStoreFillsTheDiskIsRemoved();

private:
    QString packagePath() const { return _home->path(QStringLiteral("New.vmdb")); }

    std::unique_ptr<TestHome> _home;
};

void tst_packageCreator::newPackageHasEverythingAPackageHas()
{
    const auto result = DBCPackageCreator::create(packagePath());
    QCOMPARE(result.outcome, Outcome::Created);
    QVERIFY(result.problem.text.isEmpty());
    QCOMPARE(QDir(packagePath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList({QStringLiteral("Files"), QStringLiteral("Images"),
            QStringLiteral("Velmora.sqldb"), QStringLiteral("Version.txt")}));
    QVERIFY(QFileInfo(packagePath() + QStringLiteral("/Images")).isDir());
    QVERIFY(QFileInfo(packagePath() + QStringLiteral("/Files")).isDir());
}

void tst_packageCreator::newPackageIsUsable()
{
    QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
    QCOMPARE(DBCChecker::checkDBAttributes(packagePath()), DBCResultCode::PackageUsable);
}

void tst_packageCreator::versionFileNamesTheVersion()
{
    QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
    // Little-endian UTF-16 with its mark.
    QCOMPARE(_home->readFile(QStringLiteral("New.vmdb/Version.txt")).toHex(' '),
        QByteArray("ff fe 56 00 65 00 6c 00 6d 00 6f 00 72 00 61 00 09 00 "
                   "56 00 31 00 2e 00 30 00 4c 00 31 00 30 00 0d 00 0a 00"));
}

void tst_packageCreator::storeHasTheFrameworksTables()
{
    QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
    SQLite::Database store(
        QFile::encodeName(packagePath() + QStringLiteral("/Velmora.sqldb")).toStdString());
    const auto value = [&store](const char* sql) { return store.execAndGet(sql).getString(); };
    QCOMPARE(value("PRAGMA integrity_check"), "ok");
    QCOMPARE(value("SELECT count(*) FROM ZCARD"), "0");
    QCOMPARE(value("SELECT count(*) FROM pragma_table_info('ZCARD')"), "71");
    QCOMPARE(value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZMEMO'"), "VARCHAR");
    QCOMPARE(value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZFLAG2'"), "INTEGER");
    QCOMPARE(value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZUPDATE_DATE'"),
        "TIMESTAMP");
    QCOMPARE(value("SELECT Z_ENT || ' ' || Z_NAME || ' ' || Z_MAX FROM Z_PRIMARYKEY"), "1 Card 0");
    QCOMPARE(value("SELECT Z_VERSION || ' ' || length(Z_UUID) || ' ' || typeof(Z_PLIST) "
                   "FROM Z_METADATA"),
        "1 36 blob");
}

void tst_packageCreator::newPackageTakesCardsInAndHandsThemOut()
{
    QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
    const auto database = DBCDataBaseController::initDBwithPath(packagePath());
    QVERIFY(database);
    database->managedObjectContext()->insertNewCard()->setValue(
        DBCRecordKey::memo, QStringLiteral("first"));
    QCOMPARE(database->save(), DBCResultCode::Success);
    DBCError error;
    const auto cards = database->fetchCardDatas(&error);
    QCOMPARE(cards->size(), std::size_t {1});
    QCOMPARE(cards->front().textOrEmpty(DBCRecordKey::memo), QStringLiteral("first"));
}

void tst_packageCreator::capitalsAndTrailingSlashAreTaken()
{
    const QString path = _home->path(QStringLiteral("名刺.VMDB"));
    QCOMPARE(DBCPackageCreator::create(path + u'/').outcome, Outcome::Created);
    QVERIFY(QFileInfo(path + QStringLiteral("/Velmora.sqldb")).isFile());
}

void tst_packageCreator::wrongNameIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no extension") << QStringLiteral("/New");
    QTest::newRow("another extension") << QStringLiteral("/New.sqldb");
    QTest::newRow("extension in the middle") << QStringLiteral("/New.vmdb.bak");
    QTest::newRow("empty") << QStringLiteral("");
}

void tst_packageCreator::wrongNameIsRefused()
{
    QFETCH(QString, name);
    const QString path = name.isEmpty() ? name : _home->path() + name;
    const auto result = DBCPackageCreator::create(path);
    QCOMPARE(result.outcome, Outcome::Refused);
    QVERIFY(result.problem.text.contains(QStringLiteral("\".vmdb\"")));
    QVERIFY(result.problem.text.contains(path));
    QVERIFY(path.isEmpty() || !QFileInfo::exists(path));
}

void tst_packageCreator::whatStandsThereIsRefusedAndLeftAlone_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("file") << QStringLiteral("file");
    QTest::newRow("folder") << QStringLiteral("folder");
    QTest::newRow("link to nothing") << QStringLiteral("link");
}

void tst_packageCreator::whatStandsThereIsRefusedAndLeftAlone()
{
    QFETCH(QString, kind);
    if (kind == QStringLiteral("file"))
        _home->writeFile(QStringLiteral("New.vmdb"), "mine");
    else if (kind == QStringLiteral("folder"))
        _home->makeFolder(QStringLiteral("New.vmdb"));
    else
        QVERIFY(QFile::link(_home->path(QStringLiteral("nothing")), packagePath()));
    const auto result = DBCPackageCreator::create(packagePath());
    QCOMPARE(result.outcome, Outcome::Refused);
    QCOMPARE(result.problem.path, packagePath());
    QVERIFY(result.problem.text.contains(packagePath()));
    QCOMPARE(_home->readFile(QStringLiteral("New.vmdb")),
        kind == QStringLiteral("file") ? QByteArray("mine") : QByteArray());
    QVERIFY(QDir(packagePath()).isEmpty());
    QVERIFY(!QFileInfo::exists(_home->path(QStringLiteral("nothing"))));
}

void tst_packageCreator::missingParentFolderIsRefused()
{
    const auto result = DBCPackageCreator::create(_home->path(QStringLiteral("missing/New.vmdb")));
    QCOMPARE(result.outcome, Outcome::Refused);
    QCOMPARE(result.problem.path, _home->path(QStringLiteral("missing")));
    QVERIFY(!QFileInfo::exists(_home->path(QStringLiteral("missing"))));
}

void tst_packageCreator::halfMadePackageIsRemoved()
{
    ScopedHost host;
    host.setFreeBytes(100); // too little for the version file, which comes behind the folders
    const auto result = DBCPackageCreator::create(packagePath());
    QCOMPARE(result.outcome, Outcome::Failed);
    QVERIFY(result.problem.text.contains(packagePath()));
    QVERIFY(!QFileInfo::exists(packagePath()));
}

void tst_packageCreator::packageWhoseStoreFillsTheDiskIsRemoved()
{
    const FileSizeLimit full(1000); // room for the version file, and for no page of the store
    const auto result = DBCPackageCreator::create(packagePath());
    QCOMPARE(result.outcome, Outcome::Failed);
    QVERIFY(result.problem.text.contains(packagePath()));
    QVERIFY(!QFileInfo::exists(packagePath()));
}

QTEST_GUILESS_MAIN(tst_packageCreator)
#include "tst_packageCreator.moc"
