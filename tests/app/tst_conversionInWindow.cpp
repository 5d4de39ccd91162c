// SPDX-License-Identifier: GPL-3.0-or-later
// Runs whole conversions from the window with real folders and packages. Tests which controls the
// user can use in each state, and what is on the disk afterwards.
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

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

// A package with one card and a folder with three cards, chosen on the screen of one operation. A
// test may set look, which the window's thread calls while the operation waits halfway: an import
// waits during the backup, an export while it fetches the cards.
struct Conversion : WindowFixture {
    explicit Conversion(OperationType type)
    {
        package.card({{"ZFULL_NAME", u"古田 一"_s}});
        DataFileBuilder file;
        file.titleLine();
        for (const QString& name : {u"星野 太郎"_s, u"田中 花子"_s, u"渡辺 三郎"_s})
            file.row({{Key::full_Name, name}, {Key::face_Image_File, u"1.jpg"_s}});
        folder.image(u"1.jpg"_s, JpegBuilder(40, 24).bytes()).dataFile(file.build());
        home.makeFolder(u"out"_s);
        presenter.answer = DBCAnswer::Default;

        DBCConversionFactories factories = DBCConversionFactories::real();
        factories.createReader = [this, real = factories.createReader](const QString& path) {
            pause();
            return real(path);
        };
        window.converter().setFactories(std::move(factories));
        choose(type);
        dataPath().setText(type == OperationType::Import ? folder.path() : home.path(u"out"_s));
        databasePath().setText(package.path());
    }

    // Called on the operation's thread, which waits until look has returned.
    void pause()
    {
        if (look)
            QMetaObject::invokeMethod(&window, look, Qt::BlockingQueuedConnection);
    }
    void start() { convert().click(); }
    bool hasEnded() { return !window.converter().isRunning(); }
    qint64 cards() const { return package.value(u"SELECT COUNT(*) FROM ZCARD"_s).toLongLong(); }
    bool hasBackup() const { return QDir(home.path(u"Velmora DB_bak.vmdb"_s)).exists(); }

    PackageFixture package {home};
    InterchangeFolder folder {home};
    std::function<void()> look;
};

const QStringList onlyConvert {u"_convertBtn"_s};

} // namespace

class tst_conversionInWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importFromTheWindowStoresEveryCard()
    {
        Conversion conversion(OperationType::Import);
        conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        QCOMPARE(conversion.presenter.numbers, QList<quint32>());
        QCOMPARE(conversion.cards(), 4);
        QVERIFY(conversion.hasBackup());
        QCOMPARE(conversion.hint(), u"Importing: 100%"_s);
        QCOMPARE(conversion.message(), u"Import has finished.\nCards: 3, imported: 3"_s);
        QVERIFY(conversion.window.isVisible());
    }

    void exportFromTheWindowWritesTheFolder()
    {
        Conversion conversion(OperationType::Export);
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        const QString exported
            = conversion.home.path(u"out/"_s + DBCInterchangeNames::rootFolderName());
        QVERIFY(QFile::exists(DBCInterchangeNames::dataFile(exported)));
        QVERIFY(QFile::exists(DBCInterchangeNames::versionFile(exported)));
        QVERIFY(conversion.message().contains(u"Cards: 1, exported: 1"_s));
    }

    void runningOperationLeavesNothingButCancel()
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
        QCOMPARE(button, u"C&ancel"_s);
        QVERIFY(!canQuit);
        QVERIFY(conversion.quitMenuItem().isEnabled());
        QCOMPARE(conversion.convert().text(), u"&Import"_s);
    }

    void startingOperationLeavesNothingAtAll()
    {
        Conversion conversion(OperationType::Import);
        conversion.start();
        QCOMPARE(conversion.enabledControls(), QStringList());
        QVERIFY(!conversion.quitMenuItem().isEnabled());
        QVERIFY(!conversion.window.close());
        QTRY_VERIFY(conversion.hasEnded());
    }

    void closeOfTheWindowIsRefusedWhileAnOperationRuns()
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

    void secondPressStartsNothing()
    {
        Conversion conversion(OperationType::Import);
        conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        conversion.start();
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        QCOMPARE(conversion.cards(), 4);
        QCOMPARE(conversion.presenter.questions.size(), 2); // before the operation and after it
    }

    void cancelAnsweredNoGoesOn()
    {
        Conversion conversion(OperationType::Import);
        conversion.presenter.answers
            = {DBCAnswer::Default, DBCAnswer::Alternate, DBCAnswer::Alternate};
        bool isEnabledAfterPress = true;
        conversion.look = [&] {
            conversion.convert().click();
            isEnabledAfterPress = conversion.convert().isEnabled();
        };
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        QVERIFY(!isEnabledAfterPress);
        QCOMPARE(conversion.presenter.questions.value(1).key,
            DBCMessage::keyOf(DBCQuestionId::CancelImport));
        QCOMPARE(conversion.cards(), 4);
        QCOMPARE(conversion.message(), u"Import has finished.\nCards: 3, imported: 3"_s);
    }

    void cancelAnsweredYesRestoresTheDatabase()
    {
        Conversion conversion(OperationType::Import);
        conversion.look = [&] { conversion.convert().click(); };
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        QCOMPARE(conversion.cards(), 1);
        QVERIFY(!conversion.hasBackup());
        QCOMPARE(conversion.message(),
            u"Restore of the card database has ended.\nThere are warnings or errors. "
            "Open the log to see them."_s);
        QVERIFY(conversion.isMessageRed());
        QVERIFY(conversion.convert().isEnabled());
        QCOMPARE(conversion.convert().text(), u"&Import"_s);
        conversion.databasePath().clear();
        QVERIFY(!conversion.convert().isEnabled());
    }

    void failedImportRestoresTheDatabase()
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

    void finishedImportOffersTheOtherPathsAgain()
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

    void yesToTheLastQuestionEndsTheProgram()
    {
        Conversion conversion(OperationType::Import);
        const QSignalSpy end(&conversion.window, &DBCMainWindowController::terminateRequested);
        conversion.start();
        QTRY_COMPARE(end.size(), 1);
        QVERIFY(!conversion.window.isVisible());
        QCOMPARE(conversion.cards(), 4);
    }

    void dataPathIsRemembered()
    {
        Conversion conversion(OperationType::Import);
        conversion.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        conversion.start();
        QTRY_VERIFY(conversion.hasEnded());
        conversion.button("_return2MainWindowBtn").click();
        conversion.choose(OperationType::Import);
        QVERIFY(conversion.dataPath().placeholderText().contains(conversion.folder.path()));
    }

    void programThatHasToEndCancelsWithoutAsking()
    {
        Conversion conversion(OperationType::Import);
        conversion.presenter.answers = {DBCAnswer::Default};
        conversion.start();
        // The window's own presenter would answer the question whether to cancel with Yes, because
        // nobody is there any more. The fixture has replaced it, so the test's presenter answers
        // Yes.
        conversion.presenter.answer = DBCAnswer::Default;
        conversion.window.converter().windDown();
        QVERIFY(conversion.hasEnded());
        QCOMPARE(conversion.cards(), 1);
    }
};

QTEST_MAIN(tst_conversionInWindow)
#include "tst_conversionInWindow.moc"
