// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the two panels in which the user chooses a path, as the converter screen opens them.
#include "app/dialogs/DBCFilePanels.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

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
    panel.findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(name);
    QMetaObject::invokeMethod(&panel, "accept");
}

} // namespace

class tst_filePanels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { _fixture.reset(); }

    void chosenFolderGoesIntoTheDataField()
    {
        const QString folder = _fixture->home.makeFolder(u"名刺"_s);
        _fixture->choose(OperationType::Import);
        pressChoose(dataButton, [&](QFileDialog& panel) {
            QCOMPARE(panel.windowTitle(), u"Choose a Folder"_s);
            typeName(panel, folder);
        });
        QCOMPARE(_fixture->dataPath().text(), folder);
    }

    void rejectedPanelLeavesTheField()
    {
        _fixture->choose(OperationType::Import);
        _fixture->dataPath().setText(u"/before"_s);
        pressChoose(dataButton, [](QFileDialog& panel) { panel.reject(); });
        QCOMPARE(_fixture->dataPath().text(), u"/before"_s);
    }

    void folderPanelStartsAtTheTypedFolder()
    {
        const QString folder = _fixture->home.makeFolder(u"typed"_s);
        _fixture->choose(OperationType::Import);
        _fixture->dataPath().setText(folder);
        QString start;
        pressChoose(dataButton, [&](QFileDialog& panel) {
            start = panel.directory().path();
            panel.reject();
        });
        QCOMPARE(start, folder);
    }

    void folderPanelStartsAtTheDesktopOtherwise()
    {
        const QString desktop = _fixture->home.makeFolder(u"home/Desktop"_s);
        _fixture->choose(OperationType::Import);
        _fixture->dataPath().setText(u"/nowhere"_s);
        QString start;
        pressChoose(dataButton, [&](QFileDialog& panel) {
            start = panel.directory().path();
            panel.reject();
        });
        QCOMPARE(start, desktop);
    }

    void newFoldersAreForExportOnly()
    {
        for (const OperationType type : {OperationType::Import, OperationType::Export}) {
            _fixture->choose(type);
            bool canMakeFolders = false;
            pressChoose(dataButton, [&](QFileDialog& panel) {
                canMakeFolders = panel.findChild<QToolButton*>(u"newFolderButton"_s)->isEnabled();
                panel.reject();
            });
            QCOMPARE(canMakeFolders, type == OperationType::Export);
            _fixture->button("_return2MainWindowBtn").click();
        }
    }

    void chosenPackageGoesIntoTheDatabaseField()
    {
        const QString package = _fixture->home.makeFolder(u"Mine.vmdb"_s);
        _fixture->choose(OperationType::Export);
        pressChoose(databaseButton, [&](QFileDialog& panel) {
            QCOMPARE(panel.windowTitle(), u"Choose a Card Database"_s);
            typeName(panel, package);
        });
        QCOMPARE(_fixture->databasePath().text(), package);
    }

    void packageIsPickedAndNotEntered()
    {
        const QString package = _fixture->home.makeFolder(u"Mine.vmdb"_s);
        _fixture->home.makeFolder(u"Mine.vmdb/Images"_s);
        _fixture->choose(OperationType::Import);
        QString folder;
        pressChoose(databaseButton, [&](QFileDialog& panel) {
            // This is what the toolkit does after a double click.
            panel.setDirectory(package);
            Q_EMIT panel.directoryEntered(package);
            folder = panel.directory().path();
        });
        QCOMPARE(_fixture->databasePath().text(), package);
        QCOMPARE(folder, _fixture->home.path());
    }

    void folderIsEnteredAndNotPicked()
    {
        const QString folder = _fixture->home.makeFolder(u"cards"_s);
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

    void packagePanelPreselectsTheTypedPackage()
    {
        const QString package = _fixture->home.makeFolder(u"Mine.vmdb"_s);
        _fixture->choose(OperationType::Import);
        _fixture->databasePath().setText(package);
        pressChoose(databaseButton, [&](QFileDialog& panel) {
            QCOMPARE(panel.directory().path(), _fixture->home.path());
            QCOMPARE(panel.selectedFiles(), QStringList({package}));
            panel.reject();
        });
    }

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

QTEST_MAIN(tst_filePanels)
#include "tst_filePanels.moc"
