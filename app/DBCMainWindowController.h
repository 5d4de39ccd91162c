// SPDX-License-Identifier: GPL-3.0-or-later
// The program's one window and its first screen: the choice between export and import.
#pragma once

#include "app/DBCWindowFrame.h"

#include <memory>

class DBCConverterWindowController;
class QButtonGroup;
class QSessionManager;

namespace Ui {
class DBCOperationView;
}

class DBCMainWindowController final : public DBCWindowFrame {
    Q_OBJECT
public:
    DBCMainWindowController();
    ~DBCMainWindowController() override;

    void initMainWindow() override;
    void showView(QWidget* view) override;
    void setCloseBoxEnabled(bool isEnabled) override;

    void continueBtnAction();
    void quitBtnAction();

    DBCConverterWindowController& converter() { return *_converterWndCtrl; }

Q_SIGNALS:
    // Emitted when the window has closed; the program should end.
    void terminateRequested();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void awakeFromNib();
    void windowWillClose();
    void makeMenu();
    void refuseLogoutWhileBusy(QSessionManager& manager);

    std::unique_ptr<Ui::DBCOperationView> _ui;
    QWidget* _operationView; // owned by the window
    QButtonGroup* _convertTypeBtn; // row 0: export, row 1: import
    QAction* _menuItemTerminate;
    bool _isCloseBoxEnabled = true;
    std::unique_ptr<DBCConverterWindowController> _converterWndCtrl;
};
