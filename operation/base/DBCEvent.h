// SPDX-License-Identifier: GPL-3.0-or-later
// The events by which a running operation tells its window what stage it has reached.
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

// The events' public names, in the order of DBCEventName.
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

// Public names of the values an event may carry.
inline constexpr const char* DBCEventOperationIsOk = "OperationIsOk";
inline constexpr const char* DBCEventMaxCount = "ProgressInfoMaxCount";
inline constexpr const char* DBCEventFinishedCount = "ProgressInfoFinishedCount";
inline constexpr const char* DBCEventConfirmCancelResult = "ConfirmCancelResult";

struct DBCEvent {
    DBCEventName name;
    const DBCConverterController* sender = nullptr; // never null when delivered; not owned
    std::optional<bool> operationIsOk = {};
    std::optional<qint64> maxCount = {}; // records read or cards fetched
    std::optional<qint64> finishedCount = {}; // records or cards completely handled so far
    std::optional<bool> confirmCancelResult = {}; // true: the operation will stop
    QString currentCard = {}; // full name on the card whose turn it is; empty: none
    // With OperationDidFinished: the page about the whole conversion; empty: none could be written.
    QString reportPath = {};
    qint64 concernedCardCount = 0; // cards with warnings or errors

    QLatin1StringView publicName() const
    {
        return QLatin1StringView(DBCEventNames[static_cast<std::size_t>(name)]);
    }
};

// Receives the events. It is called on the thread that the object lives in, and the operation
// thread waits until the call returns: that thread's event loop must run until the operation has
// ended.
class DBCEventReceiver : public QObject {
public:
    virtual void refreshProgress(const DBCEvent& event) = 0;
};
