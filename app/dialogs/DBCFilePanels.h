// SPDX-License-Identifier: GPL-3.0-or-later
// The two panels that choose a path. They are the toolkit's own and not the desktop's: no desktop's
// panel can show a folder as one thing, or leave out the button that makes folders.
#pragma once

#include <QFileDialog>

// One folder. Anything else on the disk stays as it is unless new folders are allowed.
class DBCFolderPanel : public QFileDialog {
    Q_OBJECT
public:
    enum class NewFolders : bool { Forbidden, Allowed };
    DBCFolderPanel(
        QWidget* parent, const QString& title, const QString& folder, NewFolders newFolders);
};

// One card database: a folder named "*.vmdb" can be picked but not entered, any other folder can be
// entered but not picked.
class DBCPackagePanel : public QFileDialog {
    Q_OBJECT
public:
    // start: a package, which is preselected in its parent folder, or a folder.
    DBCPackagePanel(QWidget* parent, const QString& title, const QString& start);

    void accept() override;

private:
    void stayOutsidePackages(const QString& entered);
    QString chosenPath() const;
};
