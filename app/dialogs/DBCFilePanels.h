// SPDX-License-Identifier: GPL-3.0-or-later
// The two panels in which the user chooses a path. They are the toolkit's panels, because a
// desktop's panel cannot show a package folder as one item or hide the button that creates folders.
#pragma once

#include <QFileDialog>

// Chooses one folder. The panel changes nothing on the disk unless new folders are allowed.
class DBCFolderPanel : public QFileDialog {
    Q_OBJECT
public:
    enum class NewFolders : bool { Forbidden, Allowed };
    DBCFolderPanel(
        QWidget* parent, const QString& title, const QString& folder, NewFolders newFolders);
};

// Chooses one card database: a folder named "*.vmdb" can be chosen but not entered, and any other
// folder can be entered but not chosen.
class DBCPackagePanel : public QFileDialog {
    Q_OBJECT
public:
    // start is a package, which is preselected in its parent folder, or a folder to begin in.
    DBCPackagePanel(QWidget* parent, const QString& title, const QString& start);

    void accept() override;

private:
    void stayOutsidePackages(const QString& entered);
    QString chosenPath() const;
};
