// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConfirmedBackupChange.h"

#include "carddb/DBCPackageBackups.h"
#include "operation/DBCUnfinishedImport.h"
#include "operation/log/DBCLog.h"
#include "operation/messages/DBCMessage.h"

using namespace Qt::StringLiterals;

namespace {

using Outcome = DBCBackupChange::Outcome;
using Result = DBCBackupChange::Result;

QString cardsIn(const DBCBackup& backup)
{
    return backup.cardCount ? getLocalString("IDS_BACKUP_CARDS", {*backup.cardCount})
                            : getLocalString("IDS_BACKUP_NOT_USABLE");
}

std::optional<DBCBackup> find(const QString& package, const QString& name)
{
    const auto path = DBCPackageBackups::pathOf(package, name);
    return path ? std::optional(DBCPackageBackups::describe(*path)) : std::nullopt;
}

bool isConfirmed(DBCQuestionId question, const QString& package, const DBCBackup& backup)
{
    const DBCAnswer answer
        = DBCMessage::ShowInfoMessage(DBCMessage::keyOf(question), DBCButton::Yes, DBCButton::No,
            {}, {backup.name(), backup.dateText(), cardsIn(backup), package});
    return answer == DBCAnswer::Default;
}

Result logged(const char* label, const QString& name, const std::function<Result()>& change)
{
    DBCLog::info(
        getLocalString("IDS_LOG_INF_START", {getLocalString(label), u" [%1]"_s.arg(name)}));
    Result result = change();
    if (result.outcome != Outcome::Done)
        DBCLog::error(result.problem.text);
    DBCLog::info(getLocalString("IDS_LOG_INF_END", {getLocalString(label)}));
    return result;
}

} // namespace

Result restoreBackupIfConfirmed(
    const QString& package, const QString& name, const DBCBackupChange::Events& events)
{
    switch (settleUnfinishedImport(package)) {
    case DBCSettlement::NothingToSettle:
    case DBCSettlement::Restored:
    case DBCSettlement::Kept:
        break;
    case DBCSettlement::NotAnswered:
        return {Outcome::NotConfirmed};
    case DBCSettlement::InUse:
    case DBCSettlement::Failed:
        break; // DBCBackupChange::restore() refuses and gives the reason
    }
    // DBCBackupChange::restore() will refuse a missing or damaged backup, so the user has nothing
    // to confirm.
    const auto backup = find(package, name);
    if (backup && !backup->isDamaged()
        && !isConfirmed(DBCQuestionId::RestoreBackup, package, *backup))
        return {Outcome::NotConfirmed};
    return logged(
        "IDS_LBL_RESTORE", name, [&] { return DBCBackupChange(package, name).restore(events); });
}

Result deleteBackupIfConfirmed(const QString& package, const QString& name)
{
    const auto backup = find(package, name);
    if (backup && !isConfirmed(DBCQuestionId::DeleteBackup, package, *backup))
        return {Outcome::NotConfirmed};
    return logged(
        "IDS_LBL_DELETE_BACKUP", name, [&] { return DBCBackupChange(package, name).remove(); });
}
