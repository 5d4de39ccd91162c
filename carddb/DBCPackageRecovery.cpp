// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageRecovery.h"

#include "carddb/DBCBackupName.h"
#include "carddb/DBCPackageCopy.h"
#include "carddb/DBCPackageGuard.h"
#include "carddb/DBCPackageJournal.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCPackageRestore.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "carddb/store/DBCManagedObjectModel.h"
#include "system/DBCHiddenName.h"

#include <SQLiteCpp/Exception.h>

#include <QFileInfo>

#include <utility>

namespace {

using Stage = DBCPackageJournal::Stage;
using Search = DBCPackageJournal::Search;

} // namespace

DBCPackageRecovery::DBCPackageRecovery(const QString& package)
    : _package(DBCPackageLayout::withoutLink(package))
{
    auto [search, journal] = DBCPackageJournal::find(_package);
    if (search == Search::HeldByAnother)
        _state = State::InUse;
    else if (search == Search::Unreadable)
        _state = State::Unreadable;
    if (!journal)
        return;
    _journal = std::move(journal);
    _state = settleWhatNeedsNoDecision();
}

DBCPackageRecovery::~DBCPackageRecovery() = default;

QString DBCPackageRecovery::journalPath() const
{
    return DBCHiddenName::journalOf(_package);
}

QString DBCPackageRecovery::backupPath() const
{
    return _journal ? _journal->backupPath() : QString();
}

DBCPackageRecovery::State DBCPackageRecovery::settleWhatNeedsNoDecision()
{
    if (!DBCPackageGuard::hold(_package, DBCPackageGuard::Use::Changing))
        return State::InUse;
    switch (_journal->stage()) {
    case Stage::None:
    case Stage::Backup:
    case Stage::Restored:
        return cleanUp() ? State::Nothing : State::Unreadable;
    case Stage::Import:
        if (wasSaved())
            return cleanUp() ? State::Nothing : State::Unreadable;
        break;
    case Stage::Restore:
        break;
    }
    return State::Unfinished;
}

// An import commits all its cards in one transaction, after it has copied the files that they name.
// So a single card of the import in the store proves that the import was complete.
bool DBCPackageRecovery::wasSaved() const
{
    const QString start = _journal->cardIDStart();
    const QString store = DBCPackageLayout::storeFile(_package);
    if (start.isEmpty() || !QFileInfo::exists(store))
        return false;
    bool isFound = false;
    const DBCManagedObjectModel model;
    const auto context = DBCManagedObjectContext::open(store, model);
    try {
        if (context) {
            context->fetchCards(DBCCardSelection::All, [&](const Card& card) {
                isFound = card.textOrEmpty(DBCRecordKey::cardID).startsWith(start);
                return !isFound;
            });
        }
    } catch (const SQLite::Exception&) {
        // If the store cannot be read, the user has to decide.
        return false;
    }
    return isFound;
}

DBCPackageChanges DBCPackageRecovery::changes() const
{
    if (!_journal || _journal->backupPath().isEmpty())
        return {};
    return changesSinceBackup(_package, _journal->backupPath(), _journal->cardIDStart());
}

DBCResultCode DBCPackageRecovery::restore()
{
    const auto guard = DBCPackageGuard::hold(_package, DBCPackageGuard::Use::Changing);
    if (!guard || !_journal || _journal->backupPath().isEmpty())
        return DBCResultCode::RestoreFailure;
    const DBCResultCode code = changes().any()
        ? DBCPackageRestore::restoreKeepingPackage(
            _package, _journal->backupPath(), &_keptPackagePath)
        : DBCPackageRestore::restore(_package, _journal->backupPath());
    if (code == DBCResultCode::Success && cleanUp())
        _state = State::Nothing;
    return code;
}

bool DBCPackageRecovery::keep()
{
    if (!_journal || !QFileInfo(_package).isDir())
        return false;
    if (changes().any()) {
        const auto kept = DBCBackupName::firstFree(_package);
        if (!kept || DBCPackageCopy().copy(_package, *kept) != DBCPackageCopy::Outcome::Copied)
            return false;
        _keptPackagePath = *kept;
    }
    if (!cleanUp())
        return false;
    _state = State::Nothing;
    return true;
}

bool DBCPackageRecovery::cleanUp()
{
    DBCPackageCopy::cleanUpBeside(_package);
    if (const QString backup = _journal->backupPath(); !backup.isEmpty())
        DBCPackageCopy::cleanUpBeside(backup);
    return _journal->end();
}
