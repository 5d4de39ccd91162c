// SPDX-License-Identifier: GPL-3.0-or-later
// The converter screen as it comes up for each operation, and what its controls do.
#include "app/desktop/DBCPaths.h"
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

class tst_converterScreen : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { _fixture.reset(); }

    void textsFollowTheOperation_data();
    void textsFollowTheOperation();
    void sourceStandsOnTopAlsoAfterAChangeOfOperation();
    void tabGoesThroughTheSourceFirst();
    void databaseOfTheMainApplicationIsTakenWhenItExists();
    void standardDatabaseIsTakenWhenTheMainApplicationsIsGone();
    void databaseStaysEmptyWhenThereIsNone();
    void exportGoesToTheDesktopFolder();
    void exportFolderStaysEmptyWithoutADesktopFolder();
    void importFolderStaysEmpty();
    void convertNeedsBothPaths();
    void emptyingEitherPathDisablesConvertAtOnce();
    void startingAnewEmptiesTheScreen();
    void lastFolderIsOfferedAndTakenByTheDownKey();
    void lastFolderIsKeptForEachOperation();
    void missingLogIsTold();
    void folderInPlaceOfTheLogIsTold();
    void droppedPackageGoesIntoTheDatabaseField();
    void droppedFolderGoesIntoTheDataField();
    void droppedFileIsNotTaken();
    void nothingCanBeDroppedOnTheChoiceScreen();
    void escapeChangesNothing();

private:
    void choose(OperationType type) { _fixture->choose(type); }
    int verticalPlace(const char* box)
    {
        auto& widget = _fixture->control<QWidget>(box);
        return widget.mapTo(&_fixture->window, QPoint(0, 0)).y();
    }
    QString makePreferences(const QString& package)
    {
        return _fixture->home.writeFile(
            QStringLiteral("home/Library/Preferences/com.velmora.Velmora.plist"),
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

void tst_converterScreen::textsFollowTheOperation_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("dataLabel");
    QTest::addColumn<QString>("databaseLabel");
    QTest::addColumn<QString>("button");
    QTest::newRow("import") << static_cast<int>(OperationType::Import)
                            << QStringLiteral("Interchange f&older to import:")
                            << QStringLiteral("Card &database to import into:")
                            << QStringLiteral("&Import");
    QTest::newRow("export") << static_cast<int>(OperationType::Export)
                            << QStringLiteral("F&older to export into:")
                            << QStringLiteral("Card &database to export:")
                            << QStringLiteral("&Export");
}

void tst_converterScreen::textsFollowTheOperation()
{
    QFETCH(int, type);
    choose(static_cast<OperationType>(type));
    QTEST(_fixture->control<QLabel>("_dataPathTitleTextField").text(), "dataLabel");
    QTEST(_fixture->control<QLabel>("_vmdbPathTitleTextField").text(), "databaseLabel");
    QTEST(_fixture->convert().text(), "button");
}

void tst_converterScreen::sourceStandsOnTopAlsoAfterAChangeOfOperation()
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

void tst_converterScreen::tabGoesThroughTheSourceFirst()
{
    choose(OperationType::Export);
    _fixture->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&_fixture->window));
    _fixture->dataPath().setText(QStringLiteral("/a"));
    _fixture->databasePath().setText(QStringLiteral("/b.vmdb"));
    _fixture->databasePath().setFocus();
    QStringList visited;
    for (int i = 0; i < 9; ++i) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(visited,
        QStringList({QStringLiteral("_vmdbPathTextField"), QStringLiteral("_vmdbPathSelectionBtn"),
            QStringLiteral("backupsBtn"), QStringLiteral("_dataPathTextField"),
            QStringLiteral("_dataPathSelectionBtn"), QStringLiteral("_openLogBtn"),
            QStringLiteral("_return2MainWindowBtn"), QStringLiteral("_closeBtn"),
            QStringLiteral("_convertBtn")}));
}

void tst_converterScreen::databaseOfTheMainApplicationIsTakenWhenItExists()
{
    const QString package = _fixture->home.makeFolder(QStringLiteral("Mine.vmdb"));
    makePreferences(package);
    _fixture->home.makeFolder(
        QStringLiteral("home/Library/Application Support/Velmora/Velmora DB.vmdb"));
    choose(OperationType::Import);
    QCOMPARE(_fixture->databasePath().text(), package);
}

void tst_converterScreen::standardDatabaseIsTakenWhenTheMainApplicationsIsGone()
{
    makePreferences(_fixture->home.path(QStringLiteral("gone.vmdb")));
    const QString standard = _fixture->home.makeFolder(
        QStringLiteral("home/Library/Application Support/Velmora/Velmora DB.vmdb"));
    choose(OperationType::Import);
    QCOMPARE(_fixture->databasePath().text(), standard);
}

void tst_converterScreen::databaseStaysEmptyWhenThereIsNone()
{
    choose(OperationType::Import);
    QCOMPARE(_fixture->databasePath().text(), QString());
}

void tst_converterScreen::exportGoesToTheDesktopFolder()
{
    const QString desktop = _fixture->home.makeFolder(QStringLiteral("home/Desktop"));
    choose(OperationType::Export);
    QCOMPARE(_fixture->dataPath().text(), desktop);
}

void tst_converterScreen::exportFolderStaysEmptyWithoutADesktopFolder()
{
    choose(OperationType::Export);
    QCOMPARE(_fixture->dataPath().text(), QString());
}

void tst_converterScreen::importFolderStaysEmpty()
{
    _fixture->home.makeFolder(QStringLiteral("home/Desktop"));
    choose(OperationType::Import);
    QCOMPARE(_fixture->dataPath().text(), QString());
}

void tst_converterScreen::convertNeedsBothPaths()
{
    choose(OperationType::Import);
    QVERIFY(!_fixture->convert().isEnabled());
    _fixture->dataPath().setText(QStringLiteral("/a"));
    QVERIFY(!_fixture->convert().isEnabled());
    _fixture->databasePath().setText(QStringLiteral("/b"));
    QVERIFY(_fixture->convert().isEnabled());
}

void tst_converterScreen::emptyingEitherPathDisablesConvertAtOnce()
{
    choose(OperationType::Import);
    for (QLineEdit* const field : {&_fixture->dataPath(), &_fixture->databasePath()}) {
        _fixture->dataPath().setText(QStringLiteral("/a"));
        _fixture->databasePath().setText(QStringLiteral("/b"));
        QVERIFY(_fixture->convert().isEnabled());
        field->clear();
        QVERIFY(!_fixture->convert().isEnabled());
    }
}

void tst_converterScreen::startingAnewEmptiesTheScreen()
{
    choose(OperationType::Import);
    _fixture->dataPath().setText(QStringLiteral("/a"));
    _fixture->databasePath().setText(QStringLiteral("/b"));
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = false});
    _fixture->button("_return2MainWindowBtn").click();
    choose(OperationType::Import);
    QCOMPARE(_fixture->dataPath().text(), QString());
    QCOMPARE(_fixture->databasePath().text(), QString());
    QCOMPARE(_fixture->hint(), QString());
    QCOMPARE(_fixture->message(), QString());
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
    QVERIFY(!_fixture->convert().isEnabled());
}

void tst_converterScreen::lastFolderIsOfferedAndTakenByTheDownKey()
{
    DBCPaths::rememberDataPath(OperationType::Import, QStringLiteral("/cards/2009"));
    choose(OperationType::Import);
    _fixture->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&_fixture->window));
    QVERIFY(_fixture->dataPath().placeholderText().contains(QStringLiteral("/cards/2009")));
    QTest::keyClick(&_fixture->dataPath(), Qt::Key_Down);
    QCOMPARE(_fixture->dataPath().text(), QStringLiteral("/cards/2009"));
}

void tst_converterScreen::lastFolderIsKeptForEachOperation()
{
    DBCPaths::rememberDataPath(OperationType::Import, QStringLiteral("/cards/2009"));
    DBCPaths::rememberDataPath(OperationType::Export, QStringLiteral("/out"));
    choose(OperationType::Export);
    QVERIFY(_fixture->dataPath().placeholderText().contains(QStringLiteral("/out")));
    QVERIFY(!_fixture->dataPath().placeholderText().contains(QStringLiteral("/cards/2009")));
}

void tst_converterScreen::missingLogIsTold()
{
    choose(OperationType::Import);
    QFile::remove(DBCLog::_defaultLogFilePath());
    _fixture->button("_openLogBtn").click();
    QCOMPARE(_fixture->presenter.numbers, QList<quint32>({101}));
}

void tst_converterScreen::folderInPlaceOfTheLogIsTold()
{
    choose(OperationType::Import);
    _fixture->window.converter().setLogFilePath(_fixture->home.path());
    _fixture->button("_openLogBtn").click();
    QCOMPARE(_fixture->presenter.numbers, QList<quint32>({101}));
}

void tst_converterScreen::droppedPackageGoesIntoTheDatabaseField()
{
    choose(OperationType::Export);
    const QString package = _fixture->home.makeFolder(QStringLiteral("Dropped.vmdb"));
    QVERIFY(drop(package));
    QCOMPARE(_fixture->databasePath().text(), package);
    QCOMPARE(_fixture->dataPath().text(), QString());
}

void tst_converterScreen::droppedFolderGoesIntoTheDataField()
{
    choose(OperationType::Import);
    const QString folder = _fixture->home.makeFolder(QStringLiteral("名刺"));
    QVERIFY(drop(folder));
    QCOMPARE(_fixture->dataPath().text(), folder);
    QCOMPARE(_fixture->databasePath().text(), QString());
}

void tst_converterScreen::droppedFileIsNotTaken()
{
    choose(OperationType::Import);
    QVERIFY(!drop(_fixture->home.writeFile(QStringLiteral("file.txt"), "text")));
    QCOMPARE(_fixture->dataPath().text(), QString());
}

void tst_converterScreen::nothingCanBeDroppedOnTheChoiceScreen()
{
    QVERIFY(!drop(_fixture->home.makeFolder(QStringLiteral("folder"))));
}

void tst_converterScreen::escapeChangesNothing()
{
    choose(OperationType::Import);
    _fixture->dataPath().setText(QStringLiteral("/a"));
    QTest::keyClick(&_fixture->dataPath(), Qt::Key_Escape);
    QTest::keyClick(&_fixture->window, Qt::Key_Escape);
    QVERIFY(_fixture->window.isVisible());
    QCOMPARE(_fixture->dataPath().text(), QStringLiteral("/a"));
}

QTEST_MAIN(tst_converterScreen)
#include "tst_converterScreen.moc"
