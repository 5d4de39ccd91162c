// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "tests/support/DebugLog.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/StandardInputKeeper.h"

#include <QDir>
#include <QFileInfo>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_dataBaseController : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _package = std::make_unique<PackageFixture>(*_home);
        if (fcntl(STDIN_FILENO, F_GETFD) == -1)
            QCOMPARE(open("/dev/null", O_RDONLY), STDIN_FILENO);
    }

    void cleanup()
    {
        _package.reset();
        _home.reset();
    }

    void emptyPathGivesNoneWithoutTouchingTheDisk()
    {
        const QString old = QDir::currentPath();
        const QString empty = _home->makeFolder(u"empty"_s);
        QDir::setCurrent(empty);
        const auto fromEmpty = DBCDataBaseController::initDBwithPath(u""_s);
        const auto fromNull = DBCDataBaseController::initDBwithPath(QString());
        QDir::setCurrent(old);
        QVERIFY(!fromEmpty);
        QVERIFY(!fromNull);
        QVERIFY(QDir(empty).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        // No controller was created, so no destructor can have closed descriptor 0.
        QVERIFY(fcntl(STDIN_FILENO, F_GETFD) != -1);
    }

    void packageThatDoesNotOpenGivesNoneAndNoLockFile_data()
    {
        QTest::addColumn<QString>("situation");
        QTest::newRow("no package") << u"no package"_s;
        QTest::newRow("no store") << u"no store"_s;
        QTest::newRow("text file as store") << u"text"_s;
        QTest::newRow("empty file as store") << u"empty"_s;
        QTest::newRow("store of another model") << u"model"_s;
    }
    void packageThatDoesNotOpenGivesNoneAndNoLockFile()
    {
        QFETCH(QString, situation);
        const QString store = u"Velmora.sqldb"_s;
        if (situation == u"no package"_s)
            QVERIFY(QDir(_package->path()).removeRecursively());
        else if (situation == u"no store"_s)
            _package->remove(store);
        else if (situation == u"text"_s)
            _package->writeFile(store, QByteArray("no store\n").repeated(200));
        else if (situation == u"empty"_s)
            _package->writeFile(store, {});
        else
            _package->execute(u"ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE"_s);

        const auto before = _package->contents();
        QVERIFY(!openPackage());
        QCOMPARE(_package->contents(), before);
        QVERIFY(!QFileInfo::exists(_package->path(u".VMLock.vmlk"_s)));
    }

    void packageThatCannotBeLockedGivesNone()
    {
        _package->writeFile(u".VMLock.vmlk/x"_s, "x");
        QVERIFY(!openPackage());
    }

    void ordinaryPackageOpens()
    {
        const auto controller = openPackage();
        QVERIFY(controller);
        QVERIFY(controller->managedObjectContext());
    }

    void controllerWithoutAPathHasNoContext()
    {
        DBCDataBaseController controller;
        QVERIFY(!controller.managedObjectContext());
    }

    void controllerWithAPathOpensOnTheFirstCall()
    {
        DBCDataBaseController controller;
        controller.setDBPath(_package->path());
        QVERIFY(!QFileInfo::exists(_package->path(u".VMLock.vmlk"_s)));
        QVERIFY(controller.managedObjectContext());
        QVERIFY(QFileInfo::exists(_package->path(u".VMLock.vmlk"_s)));
    }

    void contextIsOpenedOnce()
    {
        const auto controller = openPackage();
        QCOMPARE(controller->managedObjectContext(), controller->managedObjectContext());
    }

    void contextIsDroppedWhenTheLockFails()
    {
        _package->writeFile(u".VMLock.vmlk/x"_s, "x");
        DBCDataBaseController controller;
        controller.setDBPath(_package->path());
        QVERIFY(!controller.managedObjectContext());
        QVERIFY(!controller.managedObjectContext());
        _package->remove(u".VMLock.vmlk"_s);
        QVERIFY(controller.managedObjectContext());
    }

    void modelIsLoadedOnce()
    {
        DBCDataBaseController controller;
        const DBCManagedObjectModel* model = controller.managedObjectModel();
        QVERIFY(model);
        QCOMPARE(controller.managedObjectModel(), model);
    }

    void openingAndClosingLeavesThePackageAsItWas()
    {
        _package->card();
        const auto before = _package->contents();
        QVERIFY(openPackage());
        QCOMPARE(_package->contents(), before);
    }

    void saveWithoutAContextIsAGeneralFailure()
    {
        DBCDataBaseController controller;
        QCOMPARE(controller.save(), DBCResultCode::GeneralFailure);
    }

    void saveWithNothingChangedSucceeds()
    {
        const auto before = _package->contents();
        QCOMPARE(openPackage()->save(), DBCResultCode::Success);
        QCOMPARE(_package->contents(), before);
    }

    void saveStoresTheNewCards()
    {
        const auto controller = openPackage();
        controller->managedObjectContext()->insertNewCard()->setValue(
            DBCRecordKey::cardID, u"new"_s);
        QCOMPARE(controller->save(), DBCResultCode::Success);
        QCOMPARE(_package->value(u"SELECT ZCARDID FROM ZCARD"_s).toString(), u"new"_s);
    }

    void saveThatTheStoreRefusesFails()
    {
        DebugLog log(*_home);
        const auto controller = openPackage();
        controller->managedObjectContext()->insertNewCard();
        _package->execute(u"CREATE TRIGGER refuse BEFORE INSERT ON ZCARD "
                          "BEGIN SELECT RAISE(ABORT, 'no more cards'); END"_s);
        QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
        QVERIFY(log.text().contains(u"Exception happended.[no more cards]"_s));
    }

    void saveInAStoreThatLostItsEntityFails()
    {
        const auto controller = openPackage();
        controller->managedObjectContext()->insertNewCard();
        _package->execute(u"DELETE FROM Z_PRIMARYKEY WHERE Z_NAME = 'Card'"_s);
        QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
        _package->execute(u"DROP TABLE Z_PRIMARYKEY"_s);
        QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
        QCOMPARE(_package->value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 0);
    }

    void cardsOfAFailedSaveAreNotInTheStore()
    {
        const auto controller = openPackage();
        controller->managedObjectContext()->insertNewCard();
        controller->managedObjectContext()->insertNewCard();
        _package->execute(u"CREATE TRIGGER refuse BEFORE INSERT ON ZCARD "
                          "WHEN NEW.Z_PK = 2 BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
        QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
        QCOMPARE(_package->value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 0);
        QCOMPARE(
            _package->value(u"SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_NAME = 'Card'"_s).toInt(), 0);
    }

    void freshControllerHasNoBackup()
    {
        DBCDataBaseController controller;
        QVERIFY(controller.backupDBPath().isEmpty());
        controller.setBackupDBPath(u"/backups/Velmora DB_bak.vmdb"_s);
        QCOMPARE(controller.backupDBPath(), u"/backups/Velmora DB_bak.vmdb"_s);
    }

private:
    std::unique_ptr<DBCDataBaseController> openPackage() const
    {
        return DBCDataBaseController::initDBwithPath(_package->path());
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

QTEST_GUILESS_MAIN(tst_dataBaseController)
#include "tst_dataBaseController.moc"
