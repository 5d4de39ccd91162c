// SPDX-License-Identifier: GPL-3.0-or-later
// The converter screen: the two paths, the checks before an operation, its start, the display of
// the running operation, and the way to the check of a folder and to the backups. One object lives
// as long as the window and serves every operation.
#pragma once

#include "app/DBCPathHint.h"
#include "app/DBCWindowPresenter.h"
#include "app/desktop/DBCDesktopNotification.h"
#include "app/desktop/DBCSuspendInhibitor.h"
#include "operation/DBCConverterController.h"
#include "operation/DBCPreconditions.h"
#include "operation/messages/DBCRemainingTime.h"

#include <QThread>
#include <QTimer>

#include <array>
#include <memory>

class DBCBackupsDialog;
class DBCCheckDialog;
class DBCWindowFrame;
struct DBCConverterWindowTexts;
class QAction;
class QShortcut;

namespace Ui {
class DBCConverterView;
}

class DBCConverterWindowController : public DBCEventReceiver {
public:
    // Neither is owned; both outlive this object.
    DBCConverterWindowController(DBCWindowFrame& mainWndCtrl, QAction& menuItemTerminate);
    ~DBCConverterWindowController() override;

    // Lays the screen out for the operation and shows it.
    void setOperationType(OperationType type);

    static QString _getDefaultDBPath();
    static std::optional<QString> _getDefaultDataFilePath();

    void selectDataFilePathAction();
    void selectDBFilePathAction();
    void convertAction();
    void cancelConverting();
    void checkAction();
    void backupsAction();
    void readLogAction();
    void return2MainWndAction();
    void quitBtnAction();
    void controlTextDidChange();

    // Takes a folder that was dropped on the window: a package goes into the database field, any
    // other folder into the data field. canTakeDrop() is false for anything but an existing folder
    // and while the fields cannot be changed.
    bool canTakeDrop(const QString& path) const;
    void takeDrop(const QString& path);

    // The checks before an operation. Each returns true to go on; otherwise it has shown its
    // message or the user has answered No. _networkPathCheck only returns its result.
    bool _checkPrecondition() const;
    bool _dataPathCheck() const;
    bool _vmdbPathCheck() const;
    bool createExportFolder() const;
    static DBCResultCode _networkPathCheck(const QString& path);

    void refreshProgress(const DBCEvent& event) override;
    void setLogFilePath(const QString& path) { _logPathString = path; }

    bool isRunning() const { return _isOperationRunning; }
    // Whether an operation is running or a backup is being restored or deleted.
    bool isBusy() const;
    // Shows a tool tip that says why the window does not close.
    void explainWhyItStaysOpen() const;
    // Called when the program is asked to end: cancels a running operation without a question, lets
    // a running restore finish, and closes the window once the card database is complete again.
    // Returns at once.
    void endSoon();
    // Does the same, but returns only when everything has ended. It works without an event loop, so
    // the program may exit afterwards.
    void windDown();

    // Creates the driver's collaborators; a test sets its own.
    void setFactories(DBCConversionFactories factories) { _factories = std::move(factories); }

private:
    using Reaction = void (DBCConverterWindowController::*)(const DBCEvent&);
    struct Subscription {
        DBCEventName name;
        Reaction reaction;
    };
    static const std::array<Subscription, DBCEventNames.size()> subscriptions;

    const DBCConverterWindowTexts& _texts() const;

    bool _isImport() const { return _operationType == OperationType::Import; }
    DBCPreconditions _preconditions() const;
    // The typed paths in the form in which the operation gets them.
    QString _dataPath() const;
    QString _databasePath() const;

    // --- set-up ---
    void _connectControls();
    void _initConverterWindow();
    void _showOperationTexts();
    void _orderPathBoxes();
    void _fillDefaultPaths();
    void _takeLastDataPath();
    void _startOperation();

    // --- states of the controls ---
    void _setBtnStatus();
    void _disenableAllButtons();
    std::array<QWidget*, 9> _controlsBesidesConvert() const;
    void _setToolBtnStatus();
    void _disenableMenuItem();
    void _enableMenuItem();
    void _enableWindowsCloseBtnWith(bool flag);
    void _setOpenLogBtnStatus();
    void _setToCanelBtn();
    void _restoreToConvertBtn();
    void _updateStatusAfterProcessBY(bool isStopped, bool AndBy);

    // --- backups ---
    void _backupChangeWillBegin();
    void _backupChangeDidEnd(bool isRestored);

    // --- the progress area ---
    void _initMsgAndProgressBar();
    void _resetProgressAreaStatus();
    void _updateProgressMessageResult(const DBCEvent& event, bool isFinished);
    void _forgetCards();
    void _showBar(qint64 value, qint64 maximum);
    void _showBusyBar();
    void _showCounts(const DBCEvent& event);
    void _showCardAndTime(const DBCEvent& event);
    void _showRunning();
    void _redrawProgressBox();
    static bool _hasWarningsInLog();
    bool _isStopped() const;
    void _askToQuit(const DBCEvent& event);
    void _notifyUnwatched();

    // --- reactions ---
    void _registerObsever();
    void _operationWillBegin(const DBCEvent& event);
    void _cardsAreKnown(const DBCEvent& event);
    void _cardIsDone(const DBCEvent& event);
    void _allCardsAreDone(const DBCEvent& event);
    void _backupWillBegin(const DBCEvent& event);
    void _backupDidFinish(const DBCEvent& event);
    void _restoreWillBegin(const DBCEvent& event);
    void _restoreDidFinish(const DBCEvent& event);
    void _operationDidFinish(const DBCEvent& event);
    void _cancelWasAnswered(const DBCEvent& event);

    DBCWindowFrame& _mainWndCtrl;
    QAction& _menuItemTerminate;
    QWidget* _converterView; // owned by the window
    std::unique_ptr<Ui::DBCConverterView> _ui;
    QShortcut* _convertKey; // owned by the view
    std::unique_ptr<DBCPathHint> _dataPathHint;
    std::unique_ptr<DBCPathHint> _vmdbPathHint;
    DBCWindowPresenter _presenter;
    DBCCheckDialog* _checkDialog = nullptr; // owned by the window, created when first needed
    DBCBackupsDialog* _backupsDialog = nullptr; // owned and created likewise

    OperationType _operationType = OperationType::None;
    QString _logPathString;
    bool _IsCloseApp = false; // NOLINT(readability-identifier-naming)
    std::array<Reaction, DBCEventNames.size()> _reactions {}; // by DBCEventName
    DBCConversionFactories _factories = DBCConversionFactories::real();
    std::unique_ptr<DBCConverterController> _ctrlDBCConverterController;
    std::unique_ptr<QThread> _operationThread;
    bool _isOperationRunning = false; // from its start to its last event
    bool _isReacting = false; // an event is being handled while the operation's thread waits
    bool _isEnding = false; // the window closes when the operation or restore has ended
    QString _lastDataPath; // of this operation's type; empty: none

    // Events of single cards come faster than a screen is repainted, so only the newest one is
    // shown each time the timer fires.
    QTimer _runningTimer;
    std::optional<DBCEvent> _newestRunning;
    DBCRemainingTime _remainingTime;
    DBCSuspendInhibitor _inhibitor;
    DBCDesktopNotification _notification;
};
