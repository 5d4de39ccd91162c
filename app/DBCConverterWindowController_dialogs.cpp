// SPDX-License-Identifier: GPL-3.0-or-later
// Opens the dialogs of the converter screen: the check of a folder and the list of backups.
#include "app/DBCConverterWindowController.h"
#include "app/DBCWindowFrame.h"
#include "app/dialogs/DBCBackupsDialog.h"
#include "app/dialogs/DBCCheckDialog.h"
#include "datafile/helpers/DBCLocalizable.h"

using namespace Qt::StringLiterals;

void DBCConverterWindowController::checkAction()
{
    if (!_checkDialog)
        _checkDialog = new DBCCheckDialog(&_mainWndCtrl);
    _checkDialog->check(_dataPath());
}

void DBCConverterWindowController::backupsAction()
{
    if (!_backupsDialog) {
        _backupsDialog = new DBCBackupsDialog(&_mainWndCtrl);
        connect(_backupsDialog, &DBCBackupsDialog::changeWillBegin, this,
            &DBCConverterWindowController::_backupChangeWillBegin);
        connect(_backupsDialog, &DBCBackupsDialog::changeDidEnd, this,
            &DBCConverterWindowController::_backupChangeDidEnd);
    }
    _backupsDialog->showBackupsOf(_databasePath());
}

bool DBCConverterWindowController::isBusy() const
{
    return isRunning() || (_backupsDialog && _backupsDialog->isChanging());
}

void DBCConverterWindowController::_backupChangeWillBegin()
{
    _presenter.showOver(*_backupsDialog);
    _inhibitor.hold(getLocalString(u"IDS_LABEL_KEEP_AWAKE"_s));
    _disenableMenuItem();
    _enableWindowsCloseBtnWith(false);
}

void DBCConverterWindowController::_backupChangeDidEnd(bool isRestored)
{
    _presenter.showOver(_mainWndCtrl);
    _inhibitor.release();
    _enableMenuItem();
    _enableWindowsCloseBtnWith(true);
    // After an import the Convert button is disabled. A restore changes the card database, so the
    // user may want the same import again, and the button has to be enabled.
    if (isRestored)
        _setBtnStatus();
    if (_isEnding)
        _mainWndCtrl.close();
}
