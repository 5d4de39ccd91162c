// SPDX-License-Identifier: GPL-3.0-or-later
// Enables and disables the controls of the converter screen.
#include "app/DBCConverterWindowController.h"
#include "app/DBCConverterWindowTexts.h"
#include "app/DBCWindowFrame.h"
#include "ui_DBCConverterView.h"

#include <QAction>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr QKeyCombination cancelKey = Qt::CTRL | Qt::Key_A;

} // namespace

void DBCConverterWindowController::_setBtnStatus()
{
    _ui->_convertBtn->setEnabled(
        !_ui->_dataPathTextField->text().isEmpty() && !_ui->_vmdbPathTextField->text().isEmpty());
    _setToolBtnStatus();
}

void DBCConverterWindowController::_setToolBtnStatus()
{
    _ui->checkBtn->setEnabled(!_ui->_dataPathTextField->text().isEmpty());
    _ui->backupsBtn->setEnabled(!_ui->_vmdbPathTextField->text().isEmpty());
}

std::array<QWidget*, 9> DBCConverterWindowController::_controlsBesidesConvert() const
{
    return {_ui->_dataPathSelectionBtn, _ui->_vmdbPathSelectionBtn, _ui->_openLogBtn,
        _ui->_return2MainWindowBtn, _ui->_closeBtn, _ui->_dataPathTextField,
        _ui->_vmdbPathTextField, _ui->_dataPathTitleTextField, _ui->_vmdbPathTitleTextField};
}

void DBCConverterWindowController::_disenableAllButtons()
{
    _ui->_convertBtn->setEnabled(false);
    for (QWidget* const control : _controlsBesidesConvert())
        control->setEnabled(false);
    _ui->checkBtn->setEnabled(false);
    _ui->backupsBtn->setEnabled(false);
}

void DBCConverterWindowController::_disenableMenuItem()
{
    _menuItemTerminate.setEnabled(false);
}

void DBCConverterWindowController::_enableMenuItem()
{
    _menuItemTerminate.setEnabled(true);
}

void DBCConverterWindowController::_enableWindowsCloseBtnWith(bool flag)
{
    _mainWndCtrl.setCloseBoxEnabled(flag);
}

void DBCConverterWindowController::_setOpenLogBtnStatus()
{
    _ui->_openLogBtn->setEnabled(true);
}

void DBCConverterWindowController::_setToCanelBtn()
{
    _ui->_convertBtn->setText(getLocalString(u"IDS_BUTTON_CANCEL"_s));
    _convertKey->setKey(cancelKey);
    _ui->_convertBtn->setEnabled(true);
    _ui->_convertBtn->setFocus();
}

void DBCConverterWindowController::_restoreToConvertBtn()
{
    _ui->_convertBtn->setText(_texts().convertButton.text());
    _convertKey->setKey(_texts().convertKey);
}

void DBCConverterWindowController::_updateStatusAfterProcessBY(bool isStopped, bool AndBy)
{
    for (QWidget* const control : _controlsBesidesConvert())
        control->setEnabled(true);
    _setToolBtnStatus();
    const bool isDone = !isStopped && AndBy;
    if (isDone)
        _ui->_convertBtn->setEnabled(false);
    else
        _setBtnStatus();
}

void DBCConverterWindowController::cancelConverting()
{
    _ui->_convertBtn->setEnabled(false);
    _ctrlDBCConverterController->setConfirmCancelOperation(true);
}
