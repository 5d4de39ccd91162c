// SPDX-License-Identifier: GPL-3.0-or-later
// The program's one window and its first screen: the choice between export and import.
#pragma once

#include "operation/DBCConverterController.h"

#include <QMainWindow>

#include <memory>

class DBCConverterWindowController;
class QButtonGroup;
class QSessionManager;

namespace Ui {
class DBCOperationView;
}

class DBCMainWindowController : public QMainWindow {
    Q_OBJECT
public:
    DBCMainWindowController();
    ~DBCMainWindowController() override;

    // Shows the choice screen; its selection is kept.
    void initMainWindow();
    // Takes the screen that stands in the window away and puts view there; the window owns both.
    void showView(QWidget* view);

    void continueBtnAction();
    void quitBtnAction();

    // While the close box is disabled the window cannot be closed, whoever asks.
    void setCloseBoxEnabled(bool isEnabled);

    DBCConverterWindowController& converter() { return *_converterWndCtrl; }

Q_SIGNALS:
    // The window has closed, and the program is to end.
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
