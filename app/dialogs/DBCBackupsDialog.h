// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that lists the backups of a card database and restores or deletes a chosen one.
#pragma once

#include "carddb/DBCBackupChange.h"
#include "carddb/DBCPackageBackups.h"

#include <QDialog>
#include <QThreadPool>

#include <functional>
#include <memory>

class DBCBackupModel;
class QSortFilterProxyModel;

namespace Ui {
class DBCBackupsView;
}

class DBCBackupsDialog : public QDialog {
    Q_OBJECT
public:
    explicit DBCBackupsDialog(QWidget* parent);
    ~DBCBackupsDialog() override;

    // Shows the dialog over its parent, which cannot be used meanwhile, and looks for the backups
    // on a separate thread. Returns at once.
    void showBackupsOf(const QString& package);

    // Fills the table. Called when the separate thread has found the backups.
    void showList(const QString& package, const DBCBackupList& list);

    // Returns whether a backup is being restored or deleted. The user cannot close the dialog then.
    bool isChanging() const { return _isChanging; }
    // Waits until a running change has ended. The function needs no event loop, but the change may
    // ask questions, so the presenter of DBCMessage must answer them without this thread.
    void waitUntilChanged();

    void done(int result) override;

Q_SIGNALS:
    void changeWillBegin();
    // isRestored is true if a backup has replaced the package.
    void changeDidEnd(bool isRestored);

private:
    enum class Change : quint8 { Restore, Delete };

    void makeTable();
    void startListing();
    const DBCBackup* selected() const;
    void select(const QString& name);

    void start(Change change);
    DBCBackupChange::Result carryOut(Change change, const QString& package, const QString& name);
    void showStage(DBCEventName stage);
    void end(Change change, const QString& name, const DBCBackupChange::Result& result);
    void showOutcome(Change change, const QString& name, const DBCBackupChange::Result& result);

    void showSelected();
    void setControls();

    std::unique_ptr<Ui::DBCBackupsView> _ui;
    DBCBackupModel* _backups; // owned by the dialog
    QSortFilterProxyModel* _sorted; // owned by the dialog
    QString _package;
    bool _isChanging = false;
    bool _isListing = false;
    bool _isOutcomeShown = false; // result of a change, until another backup is selected
    quint64 _look = 0; // number of the newest listing; results of older ones are dropped
    QThreadPool _pool; // the last member: its destructor waits for a running task
};
