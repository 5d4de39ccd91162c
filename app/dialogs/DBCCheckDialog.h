// SPDX-License-Identifier: GPL-3.0-or-later
// Checks an interchange folder, and shows what is wrong with it: to be sorted, copied and saved.
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

    // Shows the dialog and checks the folder on a thread of its own. A check that still runs is
    // given up, here and when the dialog is closed.
    void check(const QString& folder);
    bool isChecking() const { return _isStopWanted != nullptr; }

    // The result of a check.
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
    StopFlag _isStopWanted; // of the check that runs; null: none does
    QThreadPool _pool; // last, so that its end waits for what was given up
};
