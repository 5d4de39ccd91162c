// SPDX-License-Identifier: GPL-3.0-or-later
// The events that a running operation sends to its window or to the command line: one at every
// stage, and one after every card.
//
// The order of an import: DatabaseBackupWillBegin, DatabaseBackupDidFinished, ImportWillBegin,
// ImportDataLoadDidFinished, one ImportIsRunning after each stored record, ImportDidFinished. If
// the import fails or is cancelled after ImportWillBegin, DatabaseRestoreWillBegin and
// DatabaseRestoreDidFinished follow instead of the remaining ones of these events. The order of an
// export: ExportWillBegin, ExportDataFetchDidFinished, one ExportIsRunning after each written card,
// and, unless the export was cancelled, ExportDidFinished. OperationDidCanceled comes each time the
// user has answered the question whether to cancel, with yes or with no. OperationDidFinished is
// always the last event.
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
// Scripts rely on these names, so the names never change.
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

// The names under which the values of an event appear outside the program. They never change
// either.
inline constexpr const char* DBCEventOperationIsOk = "OperationIsOk";
inline constexpr const char* DBCEventMaxCount = "ProgressInfoMaxCount";
inline constexpr const char* DBCEventFinishedCount = "ProgressInfoFinishedCount";
inline constexpr const char* DBCEventConfirmCancelResult = "ConfirmCancelResult";

// One event. A value that an event does not carry is std::nullopt, empty or 0.
struct DBCEvent {
    DBCEventName name;
    // The conversion driver that sent the event, which the event does not own. The pointer is never
    // null in an event that reaches a receiver.
    const DBCConverterController* sender = nullptr;
    // Whether that part of the operation succeeded. The three ...DidFinished events of backup,
    // restore and export carry this value, and so does OperationDidFinished. A cancelled operation
    // counts as one that succeeded.
    std::optional<bool> operationIsOk = {};
    // The counts: how many records were read or cards fetched, and how many of them are completely
    // handled. ImportDataLoadDidFinished, ImportIsRunning and ImportDidFinished carry them, and so
    // do the three corresponding events of an export.
    std::optional<qint64> maxCount = {};
    std::optional<qint64> finishedCount = {};
    // OperationDidCanceled carries this value. It is true if the user confirmed the cancel, so that
    // the operation stops.
    std::optional<bool> confirmCancelResult = {};
    // The full name on the next card. The events with counts carry it. The text is empty if there
    // is no next card or if that card has no name.
    QString currentCard = {};
    // OperationDidFinished carries these two values: the path of the report's page, which is empty
    // if no report could be written, and the number of cards with warnings or errors.
    QString reportPath = {};
    qint64 concernedCardCount = 0;

    QLatin1StringView publicName() const
    {
        return QLatin1StringView(DBCEventNames[static_cast<std::size_t>(name)]);
    }
};

// The interface through which an operation reports its progress to a user. refreshProgress() is
// called on the thread that the receiver lives in (QObject::thread()), for one event at a time and
// in order, and the operation thread waits until refreshProgress() returns. The event loop of the
// receiver's thread must therefore run until the operation has ended. The event is only valid
// during the call.
class DBCEventReceiver : public QObject {
public:
    virtual void refreshProgress(const DBCEvent& event) = 0;
};
