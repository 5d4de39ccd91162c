// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageAttributes.h"
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

using namespace Qt::StringLiterals;

using Outcome = DBCPackageCreator::Outcome;

class tst_packageCreator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }
    void cleanup() { _home.reset(); }

    void newPackageHasEverythingAPackageHas()
    {
        const auto result = DBCPackageCreator::create(packagePath());
        QCOMPARE(result.outcome, Outcome::Created);
        QVERIFY(result.problem.text.isEmpty());
        QCOMPARE(
            QDir(packagePath()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList({u"Files"_s, u"Images"_s, u"Velmora.sqldb"_s, u"Version.txt"_s}));
        QVERIFY(QFileInfo(packagePath() + u"/Images"_s).isDir());
        QVERIFY(QFileInfo(packagePath() + u"/Files"_s).isDir());
    }

    void newPackageIsUsable()
    {
        QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
        QCOMPARE(checkPackageAttributes(packagePath()), DBCResultCode::PackageUsable);
    }

    void versionFileNamesTheVersion()
    {
        QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
        // The expected bytes are little-endian UTF-16 with a byte order mark.
        QCOMPARE(_home->readFile(u"New.vmdb/Version.txt"_s).toHex(' '),
            QByteArray("ff fe 56 00 65 00 6c 00 6d 00 6f 00 72 00 61 00 09 00 "
                       "56 00 31 00 2e 00 30 00 4c 00 31 00 30 00 0d 00 0a 00"));
    }

    void storeHasTheFrameworksTables()
    {
        QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
        SQLite::Database store(
            QFile::encodeName(packagePath() + u"/Velmora.sqldb"_s).toStdString());
        const auto value = [&store](const char* sql) { return store.execAndGet(sql).getString(); };
        QCOMPARE(value("PRAGMA integrity_check"), "ok");
        QCOMPARE(value("SELECT count(*) FROM ZCARD"), "0");
        QCOMPARE(value("SELECT count(*) FROM pragma_table_info('ZCARD')"), "71");
        QCOMPARE(
            value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZMEMO'"), "VARCHAR");
        QCOMPARE(
            value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZFLAG2'"), "INTEGER");
        QCOMPARE(value("SELECT type FROM pragma_table_info('ZCARD') WHERE name = 'ZUPDATE_DATE'"),
            "TIMESTAMP");
        QCOMPARE(
            value("SELECT Z_ENT || ' ' || Z_NAME || ' ' || Z_MAX FROM Z_PRIMARYKEY"), "1 Card 0");
        QCOMPARE(value("SELECT Z_VERSION || ' ' || length(Z_UUID) || ' ' || typeof(Z_PLIST) "
                       "FROM Z_METADATA"),
            "1 36 blob");
    }

    void newPackageTakesCardsInAndHandsThemOut()
    {
        QCOMPARE(DBCPackageCreator::create(packagePath()).outcome, Outcome::Created);
        const auto database = DBCDataBaseController::initDBwithPath(packagePath());
        QVERIFY(database);
        database->managedObjectContext()->insertNewCard()->setValue(DBCRecordKey::memo, u"first"_s);
        QCOMPARE(database->save(), DBCResultCode::Success);
        DBCError error;
        const auto cards = database->fetchCardDatas(&error);
        QCOMPARE(cards->size(), std::size_t {1});
        QCOMPARE(cards->front().textOrEmpty(DBCRecordKey::memo), u"first"_s);
    }

    void capitalsAndTrailingSlashAreTaken()
    {
        const QString path = _home->path(u"名刺.VMDB"_s);
        QCOMPARE(DBCPackageCreator::create(path + u'/').outcome, Outcome::Created);
        QVERIFY(QFileInfo(path + u"/Velmora.sqldb"_s).isFile());
    }

    void wrongNameIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("no extension") << u"/New"_s;
        QTest::newRow("another extension") << u"/New.sqldb"_s;
        QTest::newRow("extension in the middle") << u"/New.vmdb.bak"_s;
        QTest::newRow("empty") << u""_s;
    }
    void wrongNameIsRefused()
    {
        QFETCH(QString, name);
        const QString path = name.isEmpty() ? name : _home->path() + name;
        const auto result = DBCPackageCreator::create(path);
        QCOMPARE(result.outcome, Outcome::Refused);
        QVERIFY(result.problem.text.contains(u"\".vmdb\""_s));
        QVERIFY(result.problem.text.contains(path));
        QVERIFY(path.isEmpty() || !QFileInfo::exists(path));
    }

    void whatStandsThereIsRefusedAndLeftAlone_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("file") << u"file"_s;
        QTest::newRow("folder") << u"folder"_s;
        QTest::newRow("link to nothing") << u"link"_s;
    }
    void whatStandsThereIsRefusedAndLeftAlone()
    {
        QFETCH(QString, kind);
        if (kind == u"file"_s)
            _home->writeFile(u"New.vmdb"_s, "mine");
        else if (kind == u"folder"_s)
            _home->makeFolder(u"New.vmdb"_s);
        else
            QVERIFY(QFile::link(_home->path(u"nothing"_s), packagePath()));
        const auto result = DBCPackageCreator::create(packagePath());
        QCOMPARE(result.outcome, Outcome::Refused);
        QCOMPARE(result.problem.path, packagePath());
        QVERIFY(result.problem.text.contains(packagePath()));
        QCOMPARE(
            _home->readFile(u"New.vmdb"_s), kind == u"file"_s ? QByteArray("mine") : QByteArray());
        QVERIFY(QDir(packagePath()).isEmpty());
        QVERIFY(!QFileInfo::exists(_home->path(u"nothing"_s)));
    }

    void missingParentFolderIsRefused()
    {
        const auto result = DBCPackageCreator::create(_home->path(u"missing/New.vmdb"_s));
        QCOMPARE(result.outcome, Outcome::Refused);
        QCOMPARE(result.problem.path, _home->path(u"missing"_s));
        QVERIFY(!QFileInfo::exists(_home->path(u"missing"_s)));
    }

    void halfMadePackageIsRemoved()
    {
        ScopedHost host;
        host.setFreeBytes(
            100); // too little for the version file, which is written after the folders
        const auto result = DBCPackageCreator::create(packagePath());
        QCOMPARE(result.outcome, Outcome::Failed);
        QVERIFY(result.problem.text.contains(packagePath()));
        QVERIFY(!QFileInfo::exists(packagePath()));
    }

    void packageWhoseStoreFillsTheDiskIsRemoved()
    {
        const FileSizeLimit full(1000); // enough for the version file, not for a page of the store
        const auto result = DBCPackageCreator::create(packagePath());
        QCOMPARE(result.outcome, Outcome::Failed);
        QVERIFY(result.problem.text.contains(packagePath()));
        QVERIFY(!QFileInfo::exists(packagePath()));
    }

private:
    QString packagePath() const { return _home->path(u"New.vmdb"_s); }

    std::unique_ptr<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_packageCreator)
#include "tst_packageCreator.moc"
