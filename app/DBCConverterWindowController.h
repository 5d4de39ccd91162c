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
    // This object does not own the window or the menu item; both must outlive it.
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

    // takeDrop() enters the path of a folder that the user has dropped on the window: the path of a
    // package (a card database) into the database field, any other path into the data field.
    // canTakeDrop() is true only for an existing folder, and only while this screen is shown and
    // the user can change the fields.
    bool canTakeDrop(const QString& path) const;
    void takeDrop(const QString& path);

    // The checks before an operation. Each check returns true if the operation may begin. If a
    // check returns false, it has shown its message, or the user has answered its question with No.
    // _networkPathCheck shows nothing and only returns its result.
    bool _checkPrecondition() const;
    bool _dataPathCheck() const;
    bool _vmdbPathCheck() const;
    bool createExportFolder() const;
    static DBCResultCode _networkPathCheck(const QString& path);

    void refreshProgress(const DBCEvent& event) override;
    void setLogFilePath(const QString& path) { _logPathString = path; }

    bool isRunning() const { return _isOperationRunning; }
    // Returns whether an operation is running or a backup is being restored or deleted.
    bool isBusy() const;
    // Shows a tool tip that says why the window does not close.
    void explainWhyItStaysOpen() const;
    // Called when a signal tells the program to end. Cancels a running operation without asking the
    // user, does not disturb a running restore, and closes the window once the card database is
    // complete again. Returns at once.
    void endSoon();
    // Cancels a running operation in the same way, but does not close the window, and returns only
    // when the operation or restore has ended, so that the program may exit afterwards. Needs no
    // event loop.
    void windDown();

    // Sets the functions that create the objects with which an operation works. Only tests call it.
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
    // Return the typed paths in the form that the operation needs (see DBCPaths::usable).
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
    DBCBackupsDialog* _backupsDialog = nullptr; // likewise owned by the window

    OperationType _operationType = OperationType::None;
    QString _logPathString;
    bool _IsCloseApp = false; // NOLINT(readability-identifier-naming)
    std::array<Reaction, DBCEventNames.size()> _reactions {}; // by DBCEventName
    DBCConversionFactories _factories = DBCConversionFactories::real();
    std::unique_ptr<DBCConverterController> _ctrlDBCConverterController;
    std::unique_ptr<QThread> _operationThread;
    bool _isOperationRunning = false; // true from the operation's start to its last event
    bool _isReacting = false; // this screen handles an event; the operation's thread waits
    bool _isEnding = false; // close the window when the operation or restore ends
    QString _lastDataPath; // last one of this operation's type; may be empty

    // Events of single cards come faster than a screen is repainted, so each time the timer fires,
    // only the newest event is shown.
    QTimer _runningTimer;
    std::optional<DBCEvent> _newestRunning;
    DBCRemainingTime _remainingTime;
    DBCSuspendInhibitor _inhibitor;
    DBCDesktopNotification _notification;
};
