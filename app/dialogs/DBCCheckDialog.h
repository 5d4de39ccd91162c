// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that checks an interchange folder and lists its problems, which the user can sort,
// copy and save.
#pragma once

#include "operation/DBCFolderInspector.h"

#include <QDialog>
#include <QThreadPool>

#include <atomic>
#include <memory>

class DBCProblemModel;
class QSortFilterProxyModel;

namespace Ui {
class DBCCheckView;
}

class DBCCheckDialog : public QDialog {
    Q_OBJECT
public:
    explicit DBCCheckDialog(QWidget* parent);
    ~DBCCheckDialog() override;

    // Shows the dialog and checks the folder on a separate thread. Returns at once. If a check is
    // still running, the dialog abandons it, also when the user closes the dialog.
    void check(const QString& folder);
    bool isChecking() const { return _isStopWanted != nullptr; }

    // Shows the result of a check. Called when the check has ended.
    void showReport(const QString& folder, const DBCFolderReport& report);

    void done(int result) override;

private:
    using StopFlag = std::shared_ptr<std::atomic<bool>>;

    void makeTable();
    void connectControls();
    void start();
    void giveUp();
    DBCFolderInspector::Progress progressFor(const StopFlag& isStopWanted);
    void showProgress(qint64 finished, qint64 max);
    void showSummary(const DBCFolderReport& report);
    void showPage(const DBCFolderReport& report);
    void setButtons();

    void stopOrCheckAgain();
    void showSelectedProblem();
    void copySelection();
    void copyAll();
    void askWhereToSave();
    void save(const QString& path);

    std::unique_ptr<Ui::DBCCheckView> _ui;
    DBCProblemModel* _problems; // owned by the dialog
    QSortFilterProxyModel* _sorted; // owned by the dialog
    QString _folder;
    StopFlag _isStopWanted; // belongs to the running check; null if none is running
    QThreadPool _pool; // the last member: its destructor waits for abandoned checks
};
