// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the state in which the converter screen appears for each operation, and what its controls
// do.
#include "app/desktop/DBCPaths.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_converterScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { _fixture.reset(); }

    void textsFollowTheOperation_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("dataLabel");
        QTest::addColumn<QString>("databaseLabel");
        QTest::addColumn<QString>("button");
        QTest::newRow("import") << static_cast<int>(OperationType::Import)
                                << u"Interchange f&older to import:"_s
                                << u"Card &database to import into:"_s << u"&Import"_s;
        QTest::newRow("export") << static_cast<int>(OperationType::Export)
                                << u"F&older to export into:"_s << u"Card &database to export:"_s
                                << u"&Export"_s;
    }
    void textsFollowTheOperation()
    {
        QFETCH(int, type);
        choose(static_cast<OperationType>(type));
        QTEST(_fixture->control<QLabel>("_dataPathTitleTextField").text(), "dataLabel");
        QTEST(_fixture->control<QLabel>("_vmdbPathTitleTextField").text(), "databaseLabel");
        QTEST(_fixture->convert().text(), "button");
    }

    void sourceStandsOnTopAlsoAfterAChangeOfOperation()
    {
        for (const OperationType type :
            {OperationType::Import, OperationType::Export, OperationType::Import}) {
            choose(type);
            QTest::qWait(0);
            const bool isDataOnTop = verticalPlace("_dataPathBox") < verticalPlace("_vmdbPathBox");
            QCOMPARE(isDataOnTop, type == OperationType::Import);
            _fixture->button("_return2MainWindowBtn").click();
        }
    }

    void tabGoesThroughTheSourceFirst()
    {
        choose(OperationType::Export);
        _fixture->window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&_fixture->window));
        _fixture->dataPath().setText(u"/a"_s);
        _fixture->databasePath().setText(u"/b.vmdb"_s);
        _fixture->databasePath().setFocus();
        QStringList visited;
        for (int i = 0; i < 9; ++i) {
            visited << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(visited,
            QStringList({u"_vmdbPathTextField"_s, u"_vmdbPathSelectionBtn"_s, u"backupsBtn"_s,
                u"_dataPathTextField"_s, u"_dataPathSelectionBtn"_s, u"_openLogBtn"_s,
                u"_return2MainWindowBtn"_s, u"_closeBtn"_s, u"_convertBtn"_s}));
    }

    void databaseOfTheMainApplicationIsTakenWhenItExists()
    {
        const QString package = _fixture->home.makeFolder(u"Mine.vmdb"_s);
        makePreferences(package);
        _fixture->home.makeFolder(u"home/Library/Application Support/Velmora/Velmora DB.vmdb"_s);
        choose(OperationType::Import);
        QCOMPARE(_fixture->databasePath().text(), package);
    }

    void standardDatabaseIsTakenWhenTheMainApplicationsIsGone()
    {
        makePreferences(_fixture->home.path(u"gone.vmdb"_s));
        const QString standard = _fixture->home.makeFolder(
            u"home/Library/Application Support/Velmora/Velmora DB.vmdb"_s);
        choose(OperationType::Import);
        QCOMPARE(_fixture->databasePath().text(), standard);
    }

    void databaseStaysEmptyWhenThereIsNone()
    {
        choose(OperationType::Import);
        QCOMPARE(_fixture->databasePath().text(), QString());
    }

    void exportGoesToTheDesktopFolder()
    {
        const QString desktop = _fixture->home.makeFolder(u"home/Desktop"_s);
        choose(OperationType::Export);
        QCOMPARE(_fixture->dataPath().text(), desktop);
    }

    void exportFolderStaysEmptyWithoutADesktopFolder()
    {
        choose(OperationType::Export);
        QCOMPARE(_fixture->dataPath().text(), QString());
    }

    void importFolderStaysEmpty()
    {
        _fixture->home.makeFolder(u"home/Desktop"_s);
        choose(OperationType::Import);
        QCOMPARE(_fixture->dataPath().text(), QString());
    }

    void convertNeedsBothPaths()
    {
        choose(OperationType::Import);
        QVERIFY(!_fixture->convert().isEnabled());
        _fixture->dataPath().setText(u"/a"_s);
        QVERIFY(!_fixture->convert().isEnabled());
        _fixture->databasePath().setText(u"/b"_s);
        QVERIFY(_fixture->convert().isEnabled());
    }

    void emptyingEitherPathDisablesConvertAtOnce()
    {
        choose(OperationType::Import);
        for (QLineEdit* const field : {&_fixture->dataPath(), &_fixture->databasePath()}) {
            _fixture->dataPath().setText(u"/a"_s);
            _fixture->databasePath().setText(u"/b"_s);
            QVERIFY(_fixture->convert().isEnabled());
            field->clear();
            QVERIFY(!_fixture->convert().isEnabled());
        }
    }

    void startingAnewEmptiesTheScreen()
    {
        choose(OperationType::Import);
        _fixture->dataPath().setText(u"/a"_s);
        _fixture->databasePath().setText(u"/b"_s);
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = false});
        _fixture->button("_return2MainWindowBtn").click();
        choose(OperationType::Import);
        QCOMPARE(_fixture->dataPath().text(), QString());
        QCOMPARE(_fixture->databasePath().text(), QString());
        QCOMPARE(_fixture->hint(), QString());
        QCOMPARE(_fixture->message(), QString());
        QVERIFY(_fixture->barText() != u"busy"_s);
        QVERIFY(!_fixture->convert().isEnabled());
    }

    void lastFolderIsOfferedAndTakenByTheDownKey()
    {
        DBCPaths::rememberDataPath(OperationType::Import, u"/cards/2009"_s);
        choose(OperationType::Import);
        _fixture->window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&_fixture->window));
        QVERIFY(_fixture->dataPath().placeholderText().contains(u"/cards/2009"_s));
        QTest::keyClick(&_fixture->dataPath(), Qt::Key_Down);
        QCOMPARE(_fixture->dataPath().text(), u"/cards/2009"_s);
    }

    void lastFolderIsKeptForEachOperation()
    {
        DBCPaths::rememberDataPath(OperationType::Import, u"/cards/2009"_s);
        DBCPaths::rememberDataPath(OperationType::Export, u"/out"_s);
        choose(OperationType::Export);
        QVERIFY(_fixture->dataPath().placeholderText().contains(u"/out"_s));
        QVERIFY(!_fixture->dataPath().placeholderText().contains(u"/cards/2009"_s));
    }

    void missingLogIsTold()
    {
        choose(OperationType::Import);
        QFile::remove(DBCLog::_defaultLogFilePath());
        _fixture->button("_openLogBtn").click();
        QCOMPARE(_fixture->presenter.numbers, QList<quint32>({101}));
    }

    void folderInPlaceOfTheLogIsTold()
    {
        choose(OperationType::Import);
        _fixture->window.converter().setLogFilePath(_fixture->home.path());
        _fixture->button("_openLogBtn").click();
        QCOMPARE(_fixture->presenter.numbers, QList<quint32>({101}));
    }

    void droppedPackageGoesIntoTheDatabaseField()
    {
        choose(OperationType::Export);
        const QString package = _fixture->home.makeFolder(u"Dropped.vmdb"_s);
        QVERIFY(drop(package));
        QCOMPARE(_fixture->databasePath().text(), package);
        QCOMPARE(_fixture->dataPath().text(), QString());
    }

    void droppedFolderGoesIntoTheDataField()
    {
        choose(OperationType::Import);
        const QString folder = _fixture->home.makeFolder(u"名刺"_s);
        QVERIFY(drop(folder));
        QCOMPARE(_fixture->dataPath().text(), folder);
        QCOMPARE(_fixture->databasePath().text(), QString());
    }

    void droppedFileIsNotTaken()
    {
        choose(OperationType::Import);
        QVERIFY(!drop(_fixture->home.writeFile(u"file.txt"_s, "text")));
        QCOMPARE(_fixture->dataPath().text(), QString());
    }

    void nothingCanBeDroppedOnTheChoiceScreen()
    {
        QVERIFY(!drop(_fixture->home.makeFolder(u"folder"_s)));
    }

    void escapeChangesNothing()
    {
        choose(OperationType::Import);
        _fixture->dataPath().setText(u"/a"_s);
        QTest::keyClick(&_fixture->dataPath(), Qt::Key_Escape);
        QTest::keyClick(&_fixture->window, Qt::Key_Escape);
        QVERIFY(_fixture->window.isVisible());
        QCOMPARE(_fixture->dataPath().text(), u"/a"_s);
    }

private:
    void choose(OperationType type) { _fixture->choose(type); }
    int verticalPlace(const char* box)
    {
        auto& widget = _fixture->control<QWidget>(box);
        return widget.mapTo(&_fixture->window, QPoint(0, 0)).y();
    }
    QString makePreferences(const QString& package)
    {
        return _fixture->home.writeFile(u"home/Library/Preferences/com.velmora.Velmora.plist"_s,
            "<plist version=\"1.0\"><dict><key>DB path</key><string>" + package.toUtf8()
                + "</string></dict></plist>");
    }
    bool drop(const QString& path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&_fixture->window, &enter);
        QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        dropped.ignore();
        QApplication::sendEvent(&_fixture->window, &dropped);
        return enter.isAccepted() && dropped.isAccepted();
    }

    std::unique_ptr<WindowFixture> _fixture;
};

QTEST_MAIN(tst_converterScreen)
#include "tst_converterScreen.moc"
