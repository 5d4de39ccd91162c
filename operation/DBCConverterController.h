// SPDX-License-Identifier: GPL-3.0-or-later
// The conversion driver: carries out one import or export from start to end on the thread that
// calls run(). It sends the events, writes the log, shows the errors and asks the user before it
// cancels.
//
// One controller runs once. Its owner sets it up on one thread, starts run() on the operation
// thread, and keeps the controller and the event receiver alive until run() has returned. While
// run() is going on, other threads may only use the three flags (setConfirmCancelOperation() is how
// a window asks for a cancel).
#pragma once

#include "operation/base/DBCCancelDelegate.h"
#include "operation/base/DBCError.h"
#include "operation/base/DBCEvent.h"
#include "operation/base/DBCOperation.h"
#include "operation/base/DBCThreadHandOver.h"
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

// Makes the objects that a conversion works with. A test substitutes its own. Each factory is
// called on the operation thread, at most once a run, and the driver owns the result.
struct DBCConversionFactories {
    // The package's controller with the store open and the lock taken; null if either failed.
    std::function<std::unique_ptr<DBCDataBaseController>(const QString& packagePath)> openDatabase;
    // A reader for the data file; null if the reader cannot be made.
    std::function<std::unique_ptr<DBCFileReader>(const QString& dataFilePath)> createReader;

    static DBCConversionFactories real();
};

class DBCConverterController : public DBCCancelDelegate {
public:
    // Creates a controller without paths, operation and log. The setters below fill them in.
    DBCConverterController();
    // Never returns null. fullPathFolder is the interchange folder of an import, or the folder that
    // is to hold the interchange folder of an export: the driver appends the root folder's name for
    // an export. fullPathDB is the card database package. The controller writes to the program's
    // default log.
    static std::unique_ptr<DBCConverterController> initWith(
        const QString& fullPathFolder, const QString& fullPathDB, OperationType operationType);
    ~DBCConverterController() override;

    void setFullPathFolder(const QString& path) { _fullPathFolder = path; }
    void setFullPathDB(const QString& path) { _fullPathDB = path; }
    // An empty path means the default log.
    void setLogFilePath(const QString& path) { _logFilePath = path; }
    QString logFilePath() const { return _logFilePath; }
    // Sets the receiver of all events of the run, which the controller does not own. If receiver is
    // null, nobody receives the events.
    void setWindowController(DBCEventReceiver* receiver) { _windowController = receiver; }
    // Stores None instead of a type that is neither Import nor Export.
    void setOperationType(OperationType type);
    OperationType operationType() const { return _operationType; }
    static bool _isSupportOperation(OperationType type);
    void setFactories(DBCConversionFactories factories);

    // Three flags follow; any thread may use them at any time. The first is true if the operation
    // is to stop at its next check. Only the answer to the cancel question sets it while an
    // operation runs; setStopRunning() has no caller in the program and is kept because its name is
    // part of the driver's interface.
    void setStopRunning(bool stop) { _isStopRunning = stop; }
    bool isStopRunning() const { return _isStopRunning; }
    // True if the user has requested a cancel and the operation thread has not yet asked them to
    // confirm it. The operation thread clears the flag when it asks the user.
    // isConfirmCancelOperation() has no caller in the program and is kept for the same reason as
    // setStopRunning().
    void setConfirmCancelOperation(bool confirm) { _isConfirmCancelOperation = confirm; }
    bool isConfirmCancelOperation() const { return _isConfirmCancelOperation; }
    // True once the receiver has handled the last event. isOperationFinished() has no caller in the
    // program and is kept for the same reason as setStopRunning().
    bool isOperationFinished() const { return _isOperationFinished; }

    // Runs the operation; OperationDidFinished is always its last event. Returns true if the
    // operation ended without an error, which includes a cancelled one. Returns false at once, with
    // nothing logged and no event sent, for an empty path or an unsupported type.
    bool run();
    // Starts thread, which has to call run(). Returns false if the system cannot create the thread.
    // QThread::start() does not report that failure, so this function detects it and then calls
    // endWithoutThread().
    bool start(QThread* thread);
    // Shows message 102 and sends OperationDidFinished, as after a failed run. start() calls this
    // if the system cannot create the thread for run().
    void endWithoutThread();

    // The functions of DBCCancelDelegate, which are called on the operation thread. If the user has
    // requested a cancel, both ask them to confirm it. checkIsNeedToConfirmCancelOperation()
    // returns true if the operation is to stop. fileManager() returns true if the copy may go on,
    // and ignores its arguments.
    bool checkIsNeedToConfirmCancelOperation() override;
    bool fileManager(const DBCFileManager* manager, const QString& shouldCopyItemAtPath,
        const QString& toPath) override;

    // Each returns the number of bytes that the operation will write, without the safety margin, or
    // 0 if error is null. If a size cannot be measured, error is set and contains the path, and the
    // export's estimate returns the sum of the cards before the failed one. Measuring thousands of
    // cards takes seconds. Therefore the export's estimate checks for a cancel once it has taken
    // half a second, and sets error to CancelledByUser if the operation is to stop.
    quint64 estimateDiskSpaceForImport(DBCError* error) const;
    quint64 estimateDiskSpaceForExport(const std::vector<DBCRecord>& cards, DBCError* error);

    // The two sequences, which run() calls. Each returns true if it set no error. If error is null,
    // it returns false at once. A cancelled sequence sets no error.
    bool _doImport(DBCError* error);
    bool _doExport(DBCError* error);
    // Show the error's message to the user and log its text as an error.
    void _handleImportError(const DBCError& error);
    void _handleExportError(const DBCError& error);

    // The result of run(), for callers without a window; to be read after run() has returned.
    using Outcome = DBCOutcome;
    const Outcome& outcome() const { return _outcome; }

private:
    // --- used by both sequences ---
    DBCLog* _log() const; // the operation's log; null if the file cannot be created
    void _logInfo(const QString& text) const;
    void _logStart(const char* labelKey, const QString& detail = {}) const;
    void _logEnd(const char* labelKey) const;
    QString _endLine(const char* formatKey, const char* labelKey) const;
    void _showAndLog(const DBCMessage::Mapped& message, const DBCError& error) const;
    DBCError _performOperation();
    bool _end(); // sends the last event; returns true if the outcome is no failure
    // Runs steps. If steps throws an exception, the exception's description replaces %1 in
    // debugFormat, that text goes into the log, and the function returns InternalException.
    DBCError _guarded(const QString& debugFormat, const std::function<DBCError()>& steps) const;
    DBCError _sizeError(const DBCError& error) const;
    DBCError _openDatabase(std::unique_ptr<DBCDataBaseController>* database);
    static bool _isCancel(const DBCError& error);
    // Returns CancelledByUser if there is an error and the user has confirmed a cancel, because the
    // interrupted step may have failed with any code. Otherwise returns error.
    DBCError _stopBefore(const DBCError& error) const;
    static bool _isFolder(const QString& path);

    // --- events and cancel ---
    void _send(DBCEvent event) const;
    // Sends the counts, and the name on the next of the operation's cards.
    void _sendProgress(DBCEventName name, const std::vector<DBCRecord>& cards) const;
    void _askToConfirmCancel();
    // Returns CancelledByUser if the operation is to stop, and no error otherwise. A step passes
    // CancelledByUser on to its sequence, which cleans up and then ends without an error.
    DBCError _stopIfCancelled();

    // --- report ---
    void _beginStory();
    // Writes the report. If it cannot be written, the log gets a warning that is not counted, since
    // a missing report changes neither the result of the conversion nor the program's exit status.
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
    DBCError _prepareExport(
        std::unique_ptr<DBCDataBaseController>* database, std::vector<DBCRecord>* cards);
    static DBCError _fetchCards(DBCDataBaseController& database, std::vector<DBCRecord>* cards);
    DBCError _checkSpaceForExport(const std::vector<DBCRecord>& cards);
    DBCError _writeFolder(DBCDataBaseController& database, std::vector<DBCRecord> cards);
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
    [[no_unique_address]] DBCThreadHandOver _handOver; // for the events sent to the window's thread
    DBCConversionFactories _factories;
    std::unique_ptr<DBCPackageGuard> _packageGuard; // reserves the package; null if not in use
    Outcome _outcome;
    std::unique_ptr<DBCRunStory> _story; // null while run() is not going on
};
