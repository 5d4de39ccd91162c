// SPDX-License-Identifier: GPL-3.0-or-later
// The two panels in which the user chooses a path. Both are panels of the toolkit and not of the
// desktop, because a desktop's panel cannot show a package folder (a card database) as one item and
// cannot hide the button that creates folders.
#pragma once

#include <QFileDialog>

// Lets the user choose one folder. Unless newFolders is Allowed, the user cannot change anything on
// the disk in this panel.
class DBCFolderPanel : public QFileDialog {
    Q_OBJECT
public:
    enum class NewFolders : bool { Forbidden, Allowed };
    DBCFolderPanel(
        QWidget* parent, const QString& title, const QString& folder, NewFolders newFolders);
};

// Lets the user choose one card database: the user can choose but not enter a folder named
// "*.vmdb", and can enter but not choose any other folder.
class DBCPackagePanel : public QFileDialog {
    Q_OBJECT
public:
    // start is a package or another folder. The panel opens in the parent folder of a package, with
    // the package selected, or in the other folder itself.
    DBCPackagePanel(QWidget* parent, const QString& title, const QString& start);

    void accept() override;

private:
    void stayOutsidePackages(const QString& entered);
    QString chosenPath() const;
};
