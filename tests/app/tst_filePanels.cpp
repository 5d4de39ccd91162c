// SPDX-License-Identifier: GPL-3.0-or-later
// The two panels that choose a path, as the screen opens them.
#include "app/desktop/DBCFilePanels.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace {

void whenAPanelOpens(const std::function<void(QFileDialog&)>& act)
{
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (auto* const panel = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            act(*panel);
        }
    });
    timer->start(5);
}

void typeName(QFileDialog& panel, const QString& name)
{
    panel.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
    QMetaObject::invokeMethod(&panel, "accept");
}

} // namespace

class tst_filePanels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { _fixture.reset(); }

    void chosenFolderGoesIntoTheDataField();
    void rejectedPanelLeavesTheField();
    void folderPanelStartsAtTheTypedFolder();
    void folderPanelStartsAtTheDesktopOtherwise();
    void newFoldersAreForExportOnly();
    void chosenPackageGoesIntoTheDatabaseField();
    void packageIsPickedAndNotEntered();
    void folderIsEnteredAndNotPicked();
    void packagePanelPreselectsTheTypedPackage();

private:
    void pressChoose(const char* button, const std::function<void(QFileDialog&)>& act)
    {
        whenAPanelOpens(act);
        _fixture->button(button).click();
    }
    static constexpr const char* dataButton = "_dataPathSelectionBtn";
    static constexpr const char* databaseButton = "_vmdbPathSelectionBtn";

    std::unique_ptr<WindowFixture> _fixture;
};

void tst_filePanels::chosenFolderGoesIntoTheDataField()
{
    const QString folder = _fixture->home.makeFolder(QStringLiteral("名刺"));
    _fixture->choose(OperationType::Import);
    pressChoose(dataButton, [&](QFileDialog& panel) {
        QCOMPARE(panel.windowTitle(), QStringLiteral("Choose a Folder"));
        typeName(panel, folder);
    });
    QCOMPARE(_fixture->dataPath().text(), folder);
}

void tst_filePanels::rejectedPanelLeavesTheField()
{
    _fixture->choose(OperationType::Import);
    _fixture->dataPath().setText(QStringLiteral("/before"));
    pressChoose(dataButton, [](QFileDialog& panel) { panel.reject(); });
    QCOMPARE(_fixture->dataPath().text(), QStringLiteral("/before"));
}

void tst_filePanels::folderPanelStartsAtTheTypedFolder()
{
    const QString folder = _fixture->home.makeFolder(QStringLiteral("typed"));
    _fixture->choose(OperationType::Import);
    _fixture->dataPath().setText(folder);
    QString start;
    pressChoose(dataButton, [&](QFileDialog& panel) {
        start = panel.directory().path();
        panel.reject();
    });
    QCOMPARE(start, folder);
}

void tst_filePanels::folderPanelStartsAtTheDesktopOtherwise()
{
    const QString desktop = _fixture->home.makeFolder(QStringLiteral("home/Desktop"));
    _fixture->choose(OperationType::Import);
    _fixture->dataPath().setText(QStringLiteral("/nowhere"));
    QString start;
    pressChoose(dataButton, [&](QFileDialog& panel) {
        start = panel.directory().path();
        panel.reject();
    });
    QCOMPARE(start, desktop);
}

void tst_filePanels::newFoldersAreForExportOnly()
{
    for (const OperationType type : {OperationType::Import, OperationType::Export}) {
        _fixture->choose(type);
        bool canMakeFolders = false;
        pressChoose(dataButton, [&](QFileDialog& panel) {
            canMakeFolders
                = panel.findChild<QToolButton*>(QStringLiteral("newFolderButton"))->isEnabled();
            panel.reject();
        });
        QCOMPARE(canMakeFolders, type == OperationType::Export);
        _fixture->button("_return2MainWindowBtn").click();
    }
}

void tst_filePanels::chosenPackageGoesIntoTheDatabaseField()
{
    const QString package = _fixture->home.makeFolder(QStringLiteral("Mine.vmdb"));
    _fixture->choose(OperationType::Export);
    pressChoose(databaseButton, [&](QFileDialog& panel) {
        QCOMPARE(panel.windowTitle(), QStringLiteral("Choose a Card Database"));
        typeName(panel, package);
    });
    QCOMPARE(_fixture->databasePath().text(), package);
}

void tst_filePanels::packageIsPickedAndNotEntered()
{
    const QString package = _fixture->home.makeFolder(QStringLiteral("Mine.vmdb"));
    _fixture->home.makeFolder(QStringLiteral("Mine.vmdb/Images"));
    _fixture->choose(OperationType::Import);
    QString folder;
    pressChoose(databaseButton, [&](QFileDialog& panel) {
        // What a double click does.
        panel.setDirectory(package);
        Q_EMIT panel.directoryEntered(package);
        folder = panel.directory().path();
    });
    QCOMPARE(_fixture->databasePath().text(), package);
    QCOMPARE(folder, _fixture->home.path());
}

void tst_filePanels::folderIsEnteredAndNotPicked()
{
    const QString folder = _fixture->home.makeFolder(QStringLiteral("cards"));
    _fixture->choose(OperationType::Import);
    QString entered;
    bool isOpen = false;
    pressChoose(databaseButton, [&](QFileDialog& panel) {
        typeName(panel, folder);
        entered = panel.directory().path();
        isOpen = panel.isVisible();
        panel.reject();
    });
    QVERIFY(isOpen);
    QCOMPARE(entered, folder);
    QCOMPARE(_fixture->databasePath().text(), QString());
}

void tst_filePanels::packagePanelPreselectsTheTypedPackage()
{
    const QString package = _fixture->home.makeFolder(QStringLiteral("Mine.vmdb"));
    _fixture->choose(OperationType::Import);
    _fixture->databasePath().setText(package);
    pressChoose(databaseButton, [&](QFileDialog& panel) {
        QCOMPARE(panel.directory().path(), _fixture->home.path());
        QCOMPARE(panel.selectedFiles(), QStringList({package}));
        panel.reject();
    });
}

QTEST_MAIN(tst_filePanels)
#include "tst_filePanels.moc"
