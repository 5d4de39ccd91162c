// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the converter screen opens the check of a folder and the list of backups.
#include "app/dialogs/DBCBackupsDialog.h"
#include "app/dialogs/DBCCheckDialog.h"
#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageCopy.h"
#include "datafile/DBCFileReader.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/StandardInputKeeper.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

struct Screen : WindowFixture {
    explicit Screen(OperationType type = OperationType::Import)
    {
        package.card();
        if (DBCPackageCopy().copy(package.path(), backup) != DBCPackageCopy::Outcome::Copied)
            qFatal("no backup");
        chosen = snapshotOf(backup);
        package.card();
        folder.dataFile(DataFileBuilder().titleLine().row({{Key::full_Name, u"星野"_s}}).build());
        choose(type);
        dataPath().setText(folder.path());
        databasePath().setText(package.path());
        presenter.answer = DBCAnswer::Default;
    }
    ~Screen() { gate.release(1000); }

    DBCCheckDialog* checkDialog() { return window.findChild<DBCCheckDialog*>(); }
    DBCBackupsDialog* backupsDialog() { return window.findChild<DBCBackupsDialog*>(); }
    QPushButton& restore() { return *backupsDialog()->findChild<QPushButton*>(u"restoreBtn"_s); }
    void openBackups()
    {
        button("backupsBtn").click();
        QTRY_VERIFY(restore().isEnabled());
    }
    // Starts a restore, which waits when it asks the host for the free space until the test opens
    // the gate.
    void restoreUpToTheGate()
    {
        openBackups();
        host->freeBytes = [this](const QString&) {
            reached.release();
            gate.acquire();
            return std::optional<quint64>(quint64(1) << 40);
        };
        restore().click();
        reached.acquire();
    }

    StandardInputKeeper standardInput;
    PackageFixture package {home};
    InterchangeFolder folder {home};
    QString backup = home.path(u"Velmora DB_bak.vmdb"_s);
    QStringList chosen;
    QSemaphore reached;
    QSemaphore gate;
};

} // namespace

class tst_dialogsOfTheScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void checkStandsOnTheImportScreenAlone()
    {
        Screen screen;
        QVERIFY(screen.button("checkBtn").isVisible());
        QVERIFY(screen.button("backupsBtn").isVisible());
        screen.button("_return2MainWindowBtn").click();
        screen.choose(OperationType::Export);
        QVERIFY(!screen.button("checkBtn").isVisible());
        QVERIFY(screen.button("backupsBtn").isVisible());
    }

    void eachButtonNeedsItsPath()
    {
        Screen screen;
        screen.dataPath().clear();
        QVERIFY(!screen.button("checkBtn").isEnabled());
        QVERIFY(screen.button("backupsBtn").isEnabled());
        screen.dataPath().setText(u"/a"_s);
        screen.databasePath().clear();
        QVERIFY(screen.button("checkBtn").isEnabled());
        QVERIFY(!screen.button("backupsBtn").isEnabled());
    }

    void checkLooksAtTheChosenFolder()
    {
        Screen screen;
        screen.button("checkBtn").click();
        QVERIFY(screen.checkDialog()->isVisible());
        QTRY_VERIFY(!screen.checkDialog()->isChecking());
        const QString summary = screen.checkDialog()->findChild<QLabel*>(u"summary"_s)->text();
        QVERIFY2(summary.contains(screen.folder.path()), qPrintable(summary));
        QVERIFY(screen.checkDialog()->findChild<QLabel*>(u"noProblems"_s)->isVisible());
    }

    void blanksAroundThePathAreNoMatter()
    {
        Screen screen;
        screen.dataPath().setText(u" %1 "_s.arg(screen.folder.path()));
        screen.button("checkBtn").click();
        QTRY_VERIFY(!screen.checkDialog()->isChecking());
        QVERIFY(screen.checkDialog()->findChild<QLabel*>(u"noProblems"_s)->isVisible());
    }

    void checkLeavesTheWindowUsable()
    {
        Screen screen;
        screen.button("checkBtn").click();
        QVERIFY(!screen.checkDialog()->isModal());
        QVERIFY(screen.convert().isEnabled());
        QVERIFY(screen.window.close());
    }

    void checkAgainFromTheWindowUsesTheSameDialog()
    {
        Screen screen;
        screen.button("checkBtn").click();
        QTRY_VERIFY(!screen.checkDialog()->isChecking());
        screen.dataPath().setText(screen.home.path(u"nowhere"_s));
        screen.button("checkBtn").click();
        QTRY_VERIFY(!screen.checkDialog()->isChecking());
        QCOMPARE(screen.window.findChildren<DBCCheckDialog*>().size(), 1);
        QVERIFY(
            screen.checkDialog()->findChild<QLabel*>(u"summary"_s)->text().contains(u"nowhere"));
    }

    void bothAreRefusedWhileAnOperationRuns()
    {
        Screen screen;
        screen.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        bool isAnyEnabled = true;
        DBCConversionFactories factories = DBCConversionFactories::real();
        factories.createReader = [&, real = factories.createReader](const QString& path) {
            QMetaObject::invokeMethod(
                &screen.window,
                [&] {
                    isAnyEnabled = screen.button("checkBtn").isEnabled()
                        || screen.button("backupsBtn").isEnabled();
                },
                Qt::BlockingQueuedConnection);
            return real(path);
        };
        screen.window.converter().setFactories(std::move(factories));
        screen.convert().click();
        QTRY_VERIFY(!screen.window.converter().isRunning());
        QVERIFY(!isAnyEnabled);
    }

    void bothAreBackAfterAnOperation()
    {
        Screen screen;
        screen.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        screen.convert().click();
        QTRY_VERIFY(!screen.window.converter().isRunning());
        QVERIFY(!screen.convert().isEnabled());
        QVERIFY(screen.button("checkBtn").isEnabled());
        QVERIFY(screen.button("backupsBtn").isEnabled());
    }

    void backupsOfTheChosenPackageAreListed()
    {
        Screen screen(OperationType::Export);
        screen.openBackups();
        QVERIFY(screen.backupsDialog()->isModal());
        const QString summary = screen.backupsDialog()->findChild<QLabel*>(u"summary"_s)->text();
        QVERIFY2(summary.contains(screen.package.path()), qPrintable(summary));
    }

    void windowStaysOpenWhileABackupIsRestored()
    {
        Screen screen;
        screen.restoreUpToTheGate();
        QVERIFY(screen.window.converter().isBusy());
        QVERIFY(!screen.window.close());
        QVERIFY(!screen.quitMenuItem().isEnabled());
        screen.gate.release(1000);
        QTRY_VERIFY(!screen.window.converter().isBusy());
        QVERIFY(screen.quitMenuItem().isEnabled());
        QCOMPARE(snapshotOf(screen.package.path()), screen.chosen);
        QVERIFY(screen.window.close());
    }

    void importIsOfferedAgainAfterARestore()
    {
        Screen screen;
        screen.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        screen.convert().click();
        QTRY_VERIFY(!screen.window.converter().isRunning());
        QVERIFY(!screen.convert().isEnabled());
        screen.openBackups();
        screen.restore().click();
        QTRY_VERIFY(!screen.window.converter().isBusy());
        QVERIFY(screen.convert().isEnabled());
    }

    void programThatHasToEndLetsTheRestoreEnd()
    {
        Screen screen;
        const QSignalSpy end(&screen.window, &DBCMainWindowController::terminateRequested);
        screen.restoreUpToTheGate();
        screen.window.converter().endSoon();
        QCOMPARE(end.size(), 0);
        screen.gate.release(1000);
        QTRY_COMPARE(end.size(), 1);
        QCOMPARE(snapshotOf(screen.package.path()), screen.chosen);
    }

    void programThatEndsAtOnceWaitsForTheRestore()
    {
        Screen screen;
        screen.restoreUpToTheGate();
        screen.gate.release(1000);
        screen.window.converter().windDown();
        QCOMPARE(snapshotOf(screen.package.path()), screen.chosen);
    }
};

QTEST_MAIN(tst_dialogsOfTheScreen)
#include "tst_dialogsOfTheScreen.moc"
