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

class tst_dataBaseController : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void emptyPathGivesNoneWithoutTouchingTheDisk();
    void packageThatDoesNotOpenGivesNoneAndNoLockFile_data();
    void packageThatDoesNotOpenGivesNoneAndNoLockFile();
    void packageThatCannotBeLockedGivesNone();
    void ordinaryPackageOpens();
    void controllerWithoutAPathHasNoContext();
    void controllerWithAPathOpensOnTheFirstCall();
    void contextIsOpenedOnce();
    void contextIsDroppedWhenTheLockFails();
    void modelIsLoadedOnce();
    void openingAndClosingLeavesThePackageAsItWas();

    void saveWithoutAContextIsAGeneralFailure();
    void saveWithNothingChangedSucceeds();
    void saveStoresTheNewCards();
    void saveThatTheStoreRefusesFails();
    void saveInAStoreThatLostItsEntityFails();
    void cardsOfAFailedSaveAreNotInTheStore();

    void freshControllerHasNoBackup();

private:
    std::unique_ptr<DBCDataBaseController> openPackage() const
    {
        return DBCDataBaseController::initDBwithPath(_package->path());
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
};

void tst_dataBaseController::init()
{
    _home = std::make_unique<TestHome>();
    _package = std::make_unique<PackageFixture>(*_home);
    if (fcntl(STDIN_FILENO, F_GETFD) == -1)
        QCOMPARE(open("/dev/null", O_RDONLY), STDIN_FILENO);
}

void tst_dataBaseController::cleanup()
{
    _package.reset();
    _home.reset();
}

void tst_dataBaseController::emptyPathGivesNoneWithoutTouchingTheDisk()
{
    const QString old = QDir::currentPath();
    const QString empty = _home->makeFolder(QStringLiteral("empty"));
    QDir::setCurrent(empty);
    const auto fromEmpty = DBCDataBaseController::initDBwithPath(QStringLiteral(""));
    const auto fromNull = DBCDataBaseController::initDBwithPath(QString());
    QDir::setCurrent(old);
    QVERIFY(!fromEmpty);
    QVERIFY(!fromNull);
    QVERIFY(QDir(empty).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    // No controller was made, so none closed it.
    QVERIFY(fcntl(STDIN_FILENO, F_GETFD) != -1);
}

void tst_dataBaseController::packageThatDoesNotOpenGivesNoneAndNoLockFile_data()
{
    QTest::addColumn<QString>("situation");
    QTest::newRow("no package") << QStringLiteral("no package");
    QTest::newRow("no store") << QStringLiteral("no store");
    QTest::newRow("text file as store") << QStringLiteral("text");
    QTest::newRow("empty file as store") << QStringLiteral("empty");
    QTest::newRow("store of another model") << QStringLiteral("model");
}

void tst_dataBaseController::packageThatDoesNotOpenGivesNoneAndNoLockFile()
{
    QFETCH(QString, situation);
    const QString store = QStringLiteral("Velmora.sqldb");
    if (situation == QStringLiteral("no package"))
        QVERIFY(QDir(_package->path()).removeRecursively());
    else if (situation == QStringLiteral("no store"))
        _package->remove(store);
    else if (situation == QStringLiteral("text"))
        _package->writeFile(store, QByteArray("no store\n").repeated(200));
    else if (situation == QStringLiteral("empty"))
        _package->writeFile(store, {});
    else
        _package->execute(QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE"));

    const auto before = _package->contents();
    QVERIFY(!openPackage());
    QCOMPARE(_package->contents(), before);
    QVERIFY(!QFileInfo::exists(_package->path(QStringLiteral(".VMLock.vmlk"))));
}

void tst_dataBaseController::packageThatCannotBeLockedGivesNone()
{
    _package->writeFile(QStringLiteral(".VMLock.vmlk/x"), "x");
    QVERIFY(!openPackage());
}

void tst_dataBaseController::ordinaryPackageOpens()
{
    const auto controller = openPackage();
    QVERIFY(controller);
    QVERIFY(controller->managedObjectContext());
}

void tst_dataBaseController::controllerWithoutAPathHasNoContext()
{
    DBCDataBaseController controller;
    QVERIFY(!controller.managedObjectContext());
}

void tst_dataBaseController::controllerWithAPathOpensOnTheFirstCall()
{
    DBCDataBaseController controller;
    controller.setDBPath(_package->path());
    QVERIFY(!QFileInfo::exists(_package->path(QStringLiteral(".VMLock.vmlk"))));
    QVERIFY(controller.managedObjectContext());
    QVERIFY(QFileInfo::exists(_package->path(QStringLiteral(".VMLock.vmlk"))));
}

void tst_dataBaseController::contextIsOpenedOnce()
{
    const auto controller = openPackage();
    QCOMPARE(controller->managedObjectContext(), controller->managedObjectContext());
}

void tst_dataBaseController::contextIsDroppedWhenTheLockFails()
{
    _package->writeFile(QStringLiteral(".VMLock.vmlk/x"), "x");
    DBCDataBaseController controller;
    controller.setDBPath(_package->path());
    QVERIFY(!controller.managedObjectContext());
    QVERIFY(!controller.managedObjectContext());
    _package->remove(QStringLiteral(".VMLock.vmlk"));
    QVERIFY(controller.managedObjectContext());
}

void tst_dataBaseController::modelIsLoadedOnce()
{
    DBCDataBaseController controller;
    const DBCManagedObjectModel* model = controller.managedObjectModel();
    QVERIFY(model);
    QCOMPARE(controller.managedObjectModel(), model);
}

void tst_dataBaseController::openingAndClosingLeavesThePackageAsItWas()
{
    _package->card();
    const auto before = _package->contents();
    QVERIFY(openPackage());
    QCOMPARE(_package->contents(), before);
}

void tst_dataBaseController::saveWithoutAContextIsAGeneralFailure()
{
    DBCDataBaseController controller;
    QCOMPARE(controller.save(), DBCResultCode::GeneralFailure);
}

void tst_dataBaseController::saveWithNothingChangedSucceeds()
{
    const auto before = _package->contents();
    QCOMPARE(openPackage()->save(), DBCResultCode::Success);
    QCOMPARE(_package->contents(), before);
}

void tst_dataBaseController::saveStoresTheNewCards()
{
    const auto controller = openPackage();
    controller->managedObjectContext()->insertNewCard()->setValue(
        DBCRecordKey::cardID, QStringLiteral("new"));
    QCOMPARE(controller->save(), DBCResultCode::Success);
    QCOMPARE(_package->value(QStringLiteral("SELECT ZCARDID FROM ZCARD")).toString(),
        QStringLiteral("new"));
}

void tst_dataBaseController::saveThatTheStoreRefusesFails()
{
    DebugLog log(*_home);
    const auto controller = openPackage();
    controller->managedObjectContext()->insertNewCard();
    _package->execute(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON ZCARD "
                                     "BEGIN SELECT RAISE(ABORT, 'no more cards'); END"));
    QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
    QVERIFY(log.text().contains(QStringLiteral("Exception happended.[no more cards]")));
}

void tst_dataBaseController::saveInAStoreThatLostItsEntityFails()
{
    const auto controller = openPackage();
    controller->managedObjectContext()->insertNewCard();
    _package->execute(QStringLiteral("DELETE FROM Z_PRIMARYKEY WHERE Z_NAME = 'Card'"));
    QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
    _package->execute(QStringLiteral("DROP TABLE Z_PRIMARYKEY"));
    QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
    QCOMPARE(_package->value(QStringLiteral("SELECT count(*) FROM ZCARD")).toInt(), 0);
}

void tst_dataBaseController::cardsOfAFailedSaveAreNotInTheStore()
{
    const auto controller = openPackage();
    controller->managedObjectContext()->insertNewCard();
    controller->managedObjectContext()->insertNewCard();
    _package->execute(QStringLiteral("CREATE TRIGGER refuse BEFORE INSERT ON ZCARD "
                                     "WHEN NEW.Z_PK = 2 BEGIN SELECT RAISE(ABORT, 'full'); END"));
    QCOMPARE(controller->save(), DBCResultCode::DatabaseSaveFailure);
    QCOMPARE(_package->value(QStringLiteral("SELECT count(*) FROM ZCARD")).toInt(), 0);
    QCOMPARE(_package->value(QStringLiteral("SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_NAME = 'Card'"))
                 .toInt(),
        0);
}

void tst_dataBaseController::freshControllerHasNoBackup()
{
    DBCDataBaseController controller;
    QVERIFY(controller.backupDBPath().isEmpty());
    controller.setBackupDBPath(QStringLiteral("/backups/Velmora DB_bak.vmdb"));
    QCOMPARE(controller.backupDBPath(), QStringLiteral("/backups/Velmora DB_bak.vmdb"));
}

QTEST_GUILESS_MAIN(tst_dataBaseController)
#include "tst_dataBaseController.moc"
