// SPDX-License-Identifier: GPL-3.0-or-later
// The events that a running operation sends to its window or to the command line: one at every
// stage, and one after every card.
//
// The order of an import: DatabaseBackupWillBegin, DatabaseBackupDidFinished, ImportWillBegin,
// ImportDataLoadDidFinished, one ImportIsRunning after each stored record, ImportDidFinished. After
// a failure or a cancel in the import proper, DatabaseRestoreWillBegin and
// DatabaseRestoreDidFinished take the place of the rest. The order of an export: ExportWillBegin,
// ExportDataFetchDidFinished, one ExportIsRunning after each written card, and ExportDidFinished
// unless it was cancelled. OperationDidCanceled comes whenever the user has answered the cancel
// question, and OperationDidFinished is always the last event.
#pragma once

#include <QLatin1StringView>
#include <QObject>
#include <QString>

#include <array>
#include <optional>

class DBCConverterController;

enum class DBCEventName : quint8 {
    DatabaseBackupWillBegin,
    DatabaseBackupDidFinished,
    ImportWillBegin,
    ImportDataLoadDidFinished,
    ImportIsRunning,
    ImportDidFinished,
    ExportWillBegin,
    ExportDataFetchDidFinished,
    ExportIsRunning,
    ExportDidFinished,
    DatabaseRestoreWillBegin,
    DatabaseRestoreDidFinished,
    OperationDidCanceled,
    OperationDidFinished,
};

// The names under which the events appear outside the program, in the order of DBCEventName.
// Scripts rely on them, and they never change.
inline constexpr std::array<const char*, 14> DBCEventNames {
    "DBC_DatabaseBackupWillBeginNotification",
    "DBC_DatabaseBackupDidFinishedNotification",
    "DBC_ImportWillBeginNotification",
    "DBC_ImportDataLoadDidFinishedNotification",
    "DBC_ImportIsRunningNotification",
    "DBC_ImportDidFinishedNotification",
    "DBC_ExportWillBeginNotification",
    "DBC_ExportDataFetchDidFinishedNotification",
    "DBC_ExportIsRunningNotification",
    "DBC_ExportDidFinishedNotification",
    "DBC_DatabaseRestoreWillBeginNotification",
    "DBC_DatabaseRestoreDidFinishedNotification",
    "DBC_OperationDidCanceledNotification",
    "DBC_OperationDidFinishedNotification",
};

// The names of the values that an event may carry, for the same purpose.
inline constexpr const char* DBCEventOperationIsOk = "OperationIsOk";
inline constexpr const char* DBCEventMaxCount = "ProgressInfoMaxCount";
inline constexpr const char* DBCEventFinishedCount = "ProgressInfoFinishedCount";
inline constexpr const char* DBCEventConfirmCancelResult = "ConfirmCancelResult";

// One event. A value is none in the events that do not carry it.
struct DBCEvent {
    DBCEventName name;
    // The driver that sent the event; not owned, and never null in an event that a receiver gets.
    const DBCConverterController* sender = nullptr;
    // In the three ...DidFinished events of backup, restore and export, and in
    // OperationDidFinished: whether that part succeeded. A cancelled operation has succeeded.
    std::optional<bool> operationIsOk = {};
    // The counts, in all events of the import proper and of the export from the load or the fetch
    // on: how many records were read or cards fetched, and how many of them are completely handled.
    std::optional<qint64> maxCount = {};
    std::optional<qint64> finishedCount = {};
    // In OperationDidCanceled: true if the user confirmed the cancel, so that the operation stops.
    std::optional<bool> confirmCancelResult = {};
    // In the events with counts: the full name on the next card. Empty if there is no next card or
    // it has no name.
    QString currentCard = {};
    // In OperationDidFinished: the path of the report's page, or empty if no report could be
    // written, and the number of cards with warnings or errors.
    QString reportPath = {};
    qint64 concernedCardCount = 0;

    QLatin1StringView publicName() const
    {
        return QLatin1StringView(DBCEventNames[static_cast<std::size_t>(name)]);
    }
};

// The seam through which an operation reports to a user. The call comes on the thread that the
// receiver lives in (QObject::thread()), one event at a time and in order, and the operation thread
// waits until it returns. The event loop of the receiver's thread must therefore run until the
// operation has ended. The event is only valid during the call.
class DBCEventReceiver : public QObject {
public:
    virtual void refreshProgress(const DBCEvent& event) = 0;
};
