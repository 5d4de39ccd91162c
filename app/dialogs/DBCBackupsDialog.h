// SPDX-License-Identifier: GPL-3.0-or-later
// Lists the backups of a card database, and restores or deletes a chosen one.
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
    // on a thread of its own.
    void showBackupsOf(const QString& package);

    void showList(const QString& package, const DBCBackupList& list);

    // While a backup is restored or deleted the dialog cannot be closed.
    bool isChanging() const { return _isChanging; }
    // Needs no event loop. Questions have to be answered, by whomever.
    void waitUntilChanged();

    void done(int result) override;

Q_SIGNALS:
    void changeWillBegin();
    // isRestored: the package is another one now.
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
    bool _isOutcomeShown = false; // of a change; until the user selects another backup
    quint64 _look = 0; // number of the newest look; what older ones found is stale
    QThreadPool _pool; // last, so that its end waits for what still runs
};
