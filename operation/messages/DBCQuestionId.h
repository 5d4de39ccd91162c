// SPDX-License-Identifier: GPL-3.0-or-later
// The questions that the program asks the user. Each has the buttons Yes and No. The text of a
// question is in the strings table under the key that DBCMessage::keyOf() returns, and %1 to %4
// below are the arguments of that text. Scripts recognise a question by its key, so the keys never
// change.
#pragma once

#include <QtGlobal>

enum class DBCQuestionId : quint8 {
    BeginOperation, // whether to begin, now that the main application has been quit
    ReplaceExport, // whether to delete an older export that is in the way; %1: its path
    CancelExport, // whether the user really wants to cancel the running export
    CancelImport, // whether the user really wants to cancel the running import
    QuitAfterExport, // whether to quit after an export; %L1: number of cards
    QuitAfterImport, // whether to quit after an import; %L1: number of cards
    SettleUnfinishedImport, // whether to undo an import that was cut short; %1: package, %2: backup
    SettleChangedPackage, // the same if other programs changed the package; %3: changes
    RestoreBackup, // whether to put a chosen backup back; %1 to %4: name, date, cards, package
    DeleteBackup, // whether to delete a chosen backup; %1 to %4: name, date, cards, package
};
