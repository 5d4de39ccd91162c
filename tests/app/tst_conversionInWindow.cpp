// SPDX-License-Identifier: GPL-3.0-or-later
// Whole conversions from the window over real folders and packages: what can be used in each state,
// and what is on the disk afterwards.
#include "carddb/DBCDataBaseController.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

namespace {

using Key = DBCRecordKey;

// A package of one card and a folder of three, chosen on the screen of one operation. look is
// called on the window's thread while the operation waits in its middle: an import when the backup
// is made, an export when the cards are fetched.
struct Conversion : WindowFixture {
    explicit Conversion(OperationType type)
    {
        package.card({{"ZFULL_NAME", QStringLiteral("古田 一")}});
        DataFileBuilder file;
        file.titleLine();
        for (const QString& name :
            {QStringLiteral("星野 太郎"), QStringLiteral("田中 花子"), QStringLiteral("渡辺 三郎")})
            file.row({{Key::full_Name, name}, {Key::face_Image_File, QStringLiteral("1.jpg")}});
        folder.image(QStringLiteral("1.jpg"), JpegBuilder(40, 24).bytes()).dataFile(file.build());
        home.makeFolder(QStringLiteral("out"));
        presenter.answer = DBCAnswer::Default;

        DBCConversionFactories factories = DBCConversionFactories::real();
        factories.createReader = [this, real = factories.createReader](const QString& path) {
            pause();
            return real(path);
        };
        window.converter().setFactories(std::move(factories));
        choose(type);
        dataPath().setText(
            type == OperationType::Import ? folder.path() : home.path(QStringLiteral("out")));
        databasePath().setText(package.path());
    }

    // On the operation's thread.
    void pause()
    {
        if (look)
            QMetaObject::invokeMethod(&window, look, Qt::BlockingQueuedConnection);
    }
    void start() { convert().click(); }
    bool hasEnded() { return !window.converter().isRunning(); }
    qint64 cards() const
    {
        return package.value(QStringLiteral("SELECT COUNT(*) FROM ZCARD")).toLongLong();
    }
    bool hasBackup() const
    {
        return QDir(home.path(QStringLiteral("Velmora DB_bak.vmdb"))).exists();
    }

    PackageFixture package {home};
    InterchangeFolder folder {home};
    std::function<void()> look;
};

const QStringList onlyConvert {QStringLiteral("_convertBtn")};

} // namespace

class tst_conversionInWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importFromTheWindowStoresEveryCard();
    void exportFromTheWindowWritesTheFolder();
    void runningOperationLeavesNothingButCancel();
    void startingOperationLeavesNothingAtAll();
    void closeOfTheWindowIsRefusedWhileAnOperationRuns();
    void secondPressStartsNothing();
    void cancelAnsweredNoGoesOn();
    void cancelAnsweredYesRestoresTheDatabase();
    void failedImportRestoresTheDatabase();
    void finishedImportOffersTheOtherPathsAgain();
    void yesToTheLastQuestionEndsTheProgram();
    void dataPathIsRemembered();
    void programThatHasToEndCancelsWithoutAsking();
};

void tst_conversionInWindow::importFromTheWindowStoresEveryCard()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(conversion.presenter.numbers, QList<quint32>());
    QCOMPARE(conversion.cards(), 4);
    QVERIFY(conversion.hasBackup());
    QCOMPARE(conversion.hint(), QStringLiteral("Importing: 100%"));
    QCOMPARE(conversion.message(), QStringLiteral("Import has finished.\nCards: 3, imported: 3"));
    QVERIFY(conversion.window.isVisible());
}

void tst_conversionInWindow::exportFromTheWindowWritesTheFolder()
{
    Conversion conversion(OperationType::Export);
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    const QString exported
        = conversion.home.path(QStringLiteral("out/") + DBCInterchangeNames::rootFolderName());
    QVERIFY(QFile::exists(DBCInterchangeNames::dataFile(exported)));
    QVERIFY(QFile::exists(DBCInterchangeNames::versionFile(exported)));
    QVERIFY(conversion.message().contains(QStringLiteral("Cards: 1, exported: 1")));
}

void tst_conversionInWindow::runningOperationLeavesNothingButCancel()
{
    Conversion conversion(OperationType::Import);
    QStringList enabled;
    QString button;
    bool canQuit = true;
    conversion.look = [&] {
        enabled = conversion.enabledControls();
        button = conversion.convert().text();
        canQuit = conversion.quitMenuItem().isEnabled();
    };
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(enabled, onlyConvert);
    QCOMPARE(button, QStringLiteral("C&ancel"));
    QVERIFY(!canQuit);
    QVERIFY(conversion.quitMenuItem().isEnabled());
    QCOMPARE(conversion.convert().text(), QStringLiteral("&Import"));
}

void tst_conversionInWindow::startingOperationLeavesNothingAtAll()
{
    Conversion conversion(OperationType::Import);
    conversion.start();
    QCOMPARE(conversion.enabledControls(), QStringList());
    QVERIFY(!conversion.quitMenuItem().isEnabled());
    QVERIFY(!conversion.window.close());
    QTRY_VERIFY(conversion.hasEnded());
}

void tst_conversionInWindow::closeOfTheWindowIsRefusedWhileAnOperationRuns()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    bool hasClosed = true;
    conversion.look = [&] { hasClosed = conversion.window.close(); };
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QVERIFY(!hasClosed);
    QVERIFY(conversion.window.isVisible());
    QVERIFY(conversion.window.close());
}

void tst_conversionInWindow::secondPressStartsNothing()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    conversion.start();
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(conversion.cards(), 4);
    QCOMPARE(conversion.presenter.questions.size(), 2); // before the operation and after it
}

void tst_conversionInWindow::cancelAnsweredNoGoesOn()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate, DBCAnswer::Alternate};
    bool isEnabledAfterPress = true;
    conversion.look = [&] {
        conversion.convert().click();
        isEnabledAfterPress = conversion.convert().isEnabled();
    };
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QVERIFY(!isEnabledAfterPress);
    QCOMPARE(conversion.presenter.questions.value(1).key, QStringLiteral("IDS_MSG_ERR_0315"));
    QCOMPARE(conversion.cards(), 4);
    QCOMPARE(conversion.message(), QStringLiteral("Import has finished.\nCards: 3, imported: 3"));
}

void tst_conversionInWindow::cancelAnsweredYesRestoresTheDatabase()
{
    Conversion conversion(OperationType::Import);
    conversion.look = [&] { conversion.convert().click(); };
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(conversion.cards(), 1);
    QVERIFY(!conversion.hasBackup());
    QCOMPARE(conversion.message(),
        QStringLiteral("Restore of the card database has ended.\nThere are warnings or errors. "
                       "Open the log to see them."));
    QVERIFY(conversion.isMessageRed());
    QVERIFY(conversion.convert().isEnabled());
    QCOMPARE(conversion.convert().text(), QStringLiteral("&Import"));
    conversion.databasePath().clear();
    QVERIFY(!conversion.convert().isEnabled());
}

void tst_conversionInWindow::failedImportRestoresTheDatabase()
{
    Conversion conversion(OperationType::Import);
    conversion.folder.dataFile(DataFileBuilder().titleLine().row(20).build());
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(conversion.presenter.numbers, QList<quint32>({306}));
    QCOMPARE(conversion.cards(), 1);
    QVERIFY(conversion.isMessageRed());
    QVERIFY(conversion.convert().isEnabled());
    QVERIFY(conversion.window.isVisible());
}

void tst_conversionInWindow::finishedImportOffersTheOtherPathsAgain()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QVERIFY(!conversion.convert().isEnabled());
    QCOMPARE(conversion.enabledControls().size(), 11);
    conversion.dataPath().setText(conversion.folder.path() + u'/');
    QVERIFY(conversion.convert().isEnabled());
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    QCOMPARE(conversion.cards(), 7);
}

void tst_conversionInWindow::yesToTheLastQuestionEndsTheProgram()
{
    Conversion conversion(OperationType::Import);
    const QSignalSpy end(&conversion.window, &DBCMainWindowController::terminateRequested);
    conversion.start();
    QTRY_COMPARE(end.size(), 1);
    QVERIFY(!conversion.window.isVisible());
    QCOMPARE(conversion.cards(), 4);
}

void tst_conversionInWindow::dataPathIsRemembered()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
    conversion.start();
    QTRY_VERIFY(conversion.hasEnded());
    conversion.button("_return2MainWindowBtn").click();
    conversion.choose(OperationType::Import);
    QVERIFY(conversion.dataPath().placeholderText().contains(conversion.folder.path()));
}

void tst_conversionInWindow::programThatHasToEndCancelsWithoutAsking()
{
    Conversion conversion(OperationType::Import);
    conversion.presenter.answers = {DBCAnswer::Default};
    conversion.start();
    // The window's own presenter knows that nobody is there any more; the test's stands for it.
    conversion.presenter.answer = DBCAnswer::Default;
    conversion.window.converter().windDown();
    QVERIFY(conversion.hasEnded());
    QCOMPARE(conversion.cards(), 1);
}

QTEST_MAIN(tst_conversionInWindow)
#include "tst_conversionInWindow.moc"
