// SPDX-License-Identifier: GPL-3.0-or-later
// Carries out one conversion from start to end on the thread that calls run(): sends the events,
// writes the log, shows the errors and answers the cancel protocol. One controller runs once.
#pragma once

#include "operation/base/DBCCancelDelegate.h"
#include "operation/base/DBCError.h"
#include "operation/base/DBCEvent.h"
#include "operation/base/DBCOperation.h"
#include "operation/messages/DBCMessage.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

class DBCDataBaseController;
class DBCFileReader;
class DBCFileWriter;
class DBCLog;
class DBCPackageGuard;
class DBCRecord;
class DBCRunStory;
class QThread;

// How the driver comes by its collaborators; a test substitutes its own.
struct DBCConversionFactories {
    // Opened and locked, or null.
    std::function<std::unique_ptr<DBCDataBaseController>(const QString& packagePath)> openDatabase;
    // Null when the reader cannot be made.
    std::function<std::unique_ptr<DBCFileReader>(const QString& dataFilePath)> createReader;

    static DBCConversionFactories real();
};

class DBCConverterController : public DBCCancelDelegate {
public:
    DBCConverterController();
    // For Export the folder stored is fullPathFolder plus the localized root folder name.
    static std::unique_ptr<DBCConverterController> initWith(
        const QString& fullPathFolder, const QString& fullPathDB, OperationType operationType);
    ~DBCConverterController() override;

    void setFullPathFolder(const QString& path) { _fullPathFolder = path; }
    void setFullPathDB(const QString& path) { _fullPathDB = path; }
    void setLogFilePath(const QString& path) { _logFilePath = path; }
    QString logFilePath() const { return _logFilePath; }
    // Not owned; must outlive run(). Null: events go nowhere.
    void setWindowController(DBCEventReceiver* receiver) { _windowController = receiver; }
    // An unsupported type becomes None.
    void setOperationType(OperationType type);
    OperationType operationType() const { return _operationType; }
    static bool _isSupportOperation(OperationType type);
    void setFactories(DBCConversionFactories factories);

    // The flags may be used from any thread.
    void setStopRunning(bool stop) { _isStopRunning = stop; }
    bool isStopRunning() const { return _isStopRunning; }
    void setConfirmCancelOperation(bool confirm) { _isConfirmCancelOperation = confirm; }
    bool isConfirmCancelOperation() const { return _isConfirmCancelOperation; }
    bool isOperationFinished() const { return _isOperationFinished; }

    // True when the operation ended without error, a cancelled one included. False at once, with
    // nothing logged and no event, for an empty path or an unsupported type.
    bool run();
    // Starts a thread that calls run(), as QThread::start() does. False when the system gives no
    // thread, which nothing else would tell of: the user has read message 102 then, and
    // OperationDidFinished was sent, as after a failed run.
    bool start(QThread* thread);

    bool checkIsNeedToConfirmCancelOperation() override;
    bool fileManager(const DBCFileManager* manager, const QString& shouldCopyItemAtPath,
        const QString& toPath) override;

    // Bytes; 0 when error is null. A failed measurement fills error.
    quint64 estimateDiskSpaceForImport(DBCError* error) const;
    quint64 estimateDiskSpaceForExport(const std::vector<DBCRecord>& cards, DBCError* error) const;

    // The sequences; true when no error was set, false at once when error is null.
    bool _doImport(DBCError* error);
    bool _doExport(DBCError* error);
    void _handleImportError(const DBCError& error);
    void _handleExportError(const DBCError& error);

    // What the last run came to, for callers without a window.
    using Outcome = DBCOutcome;
    const Outcome& outcome() const { return _outcome; }

private:
    // --- what both sequences use ---
    DBCLog* _log() const; // the operation's log; null when it cannot be written
    void _logInfo(const QString& text) const;
    void _logStart(const char* labelKey, const QString& detail = {}) const;
    void _logEnd(const char* labelKey) const;
    QString _endLine(const char* formatKey, const char* labelKey) const;
    void _send(DBCEvent event) const;
    // cards: those of the operation, to name the one whose turn it is.
    void _sendProgress(DBCEventName name, const std::vector<DBCRecord>& cards) const;
    void _showAndLog(const DBCMessage::Mapped& message, const DBCError& error) const;
    DBCError _performOperation();
    bool _end(); // sends the last event; true when the outcome is no failure
    void _askToConfirmCancel();
    // Runs steps; an exception is logged through debugFormat (%1: its description) and becomes
    // InternalException.
    DBCError _guarded(const QString& debugFormat, const std::function<DBCError()>& steps) const;
    DBCError _sizeError(const DBCError& error) const;
    DBCError _openDatabase(std::unique_ptr<DBCDataBaseController>* database);
    // CancelledByUser when the user wants to stop: how a step tells its sequence, which ends
    // without an error then.
    DBCError _stopIfCancelled();
    static bool _isCancel(const DBCError& error);
    static bool _isFolder(const QString& path);

    // --- report ---
    void _beginStory();
    // Writes the report. One that cannot be written is a warning in the log, which is not counted:
    // it changes neither what the conversion came to nor how the program ends.
    void _endStory();
    void _writeReport(const DBCRunStory& story);

    // --- import ---
    DBCError _prepareImport(std::unique_ptr<DBCDataBaseController>* database);
    DBCError _checkFolderVersion() const;
    DBCError _checkSpaceForImport() const;
    DBCError _backUp(DBCDataBaseController& database);
    DBCError _importRecords(DBCDataBaseController& database);
    DBCError _loadRecords(std::vector<DBCRecord>* records) const;
    DBCError _storeRecords(DBCDataBaseController& database, std::vector<DBCRecord> records);
    DBCError _saveImport(DBCDataBaseController& database);
    DBCError _undoImport(DBCDataBaseController& database, const DBCError& cause);
    void _removeBackup(DBCDataBaseController& database);
    void _reportFailedImport(const DBCError& error);

    // --- export ---
    DBCError _exportCards();
    static DBCError _fetchCards(DBCDataBaseController& database, std::vector<DBCRecord>* cards);
    DBCError _checkSpaceForExport(const std::vector<DBCRecord>& cards) const;
    DBCError _openDataFile(std::unique_ptr<DBCFileWriter>* writer) const;
    DBCError _writeCards(
        DBCDataBaseController& database, std::vector<DBCRecord> cards, DBCFileWriter& writer);
    DBCError _writeCard(
        DBCDataBaseController& database, const DBCRecord& card, DBCFileWriter& writer) const;
    DBCError _closeDataFile(DBCFileWriter& writer) const;
    DBCError _writeVersionFile() const;
    void _finishExport(const DBCError& error);

    QString _fullPathFolder;
    QString _fullPathDB;
    OperationType _operationType = OperationType::None;
    QString _logFilePath;
    std::atomic<bool> _isStopRunning = false;
    std::atomic<bool> _isConfirmCancelOperation = false;
    std::atomic<bool> _isOperationFinished = false;
    DBCEventReceiver* _windowController = nullptr;
    mutable std::atomic<quint64> _eventCrossings = 0; // between the two threads
    DBCConversionFactories _factories;
    std::unique_ptr<DBCPackageGuard> _packageGuard; // while a sequence uses the package
    Outcome _outcome;
    std::unique_ptr<DBCRunStory> _story; // while run() runs
};
