// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCUnfinishedImport.h"

#include "carddb/DBCPackageRecovery.h"
#include "operation/base/DBCError.h"
#include "operation/log/DBCLog.h"
#include "operation/messages/DBCMessage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 packageUnusableMessage = 301;

DBCSettlement showFailure(DBCResultCode code, const QString& backupPath)
{
    const auto message = DBCMessage::messageForImportError(DBCError(code).withPathName(backupPath));
    DBCLog::error(DBCMessage::ShowErrorMessage(message.number, message.arguments));
    return DBCSettlement::Failed;
}

DBCSettlement reportUnreadable(const QString& journalPath)
{
    DBCLog::error(getLocalString("IDS_LOG_ERR_JOURNAL_UNREADABLE", {journalPath}));
    DBCMessage::ShowErrorMessage(packageUnusableMessage);
    return DBCSettlement::Failed;
}

DBCSettlement restore(DBCPackageRecovery& recovery)
{
    const QString backupPath = recovery.backupPath();
    DBCLog::info(
        getLocalString("IDS_LOG_INF_START", {getLocalString("IDS_LBL_RESTORE"), backupPath}));
    const DBCResultCode code = recovery.restore();
    DBCLog::info(getLocalString("IDS_LOG_INF_END", {getLocalString("IDS_LBL_RESTORE")}));
    return code == DBCResultCode::Success ? DBCSettlement::Restored : showFailure(code, backupPath);
}

DBCSettlement keep(DBCPackageRecovery& recovery)
{
    const QString backupPath = recovery.backupPath();
    if (!recovery.keep())
        return reportUnreadable(recovery.journalPath());
    DBCLog::info(getLocalString("IDS_LOG_INF_UNFINISHED_KEPT", {recovery.package(), backupPath}));
    return DBCSettlement::Kept;
}

QString textOf(const DBCPackageChanges& changes)
{
    if (changes.isUnknown)
        return getLocalString("IDS_RECOVER_UNKNOWN");
    return getLocalString("IDS_RECOVER_CHANGES",
        {changes.addedCards, changes.changedCards, changes.removedCards,
            changes.otherFiles + (changes.isOtherDataChanged ? 1 : 0)});
}

DBCAnswer ask(const DBCPackageRecovery& recovery)
{
    const DBCPackageChanges changes = recovery.changes();
    DBCMessageArguments arguments {recovery.package(), recovery.backupPath()};
    if (changes.any())
        arguments.push_back(textOf(changes));
    return DBCMessage::ShowInfoMessage(
        DBCMessage::keyOf(changes.any() ? DBCQuestionId::SettleChangedPackage
                                        : DBCQuestionId::SettleUnfinishedImport),
        DBCButton::Yes, DBCButton::No, {}, arguments);
}

DBCSettlementChoice choiceFor(DBCAnswer answer)
{
    switch (answer) {
    case DBCAnswer::Default:
        return DBCSettlementChoice::Restore;
    case DBCAnswer::Alternate:
        return DBCSettlementChoice::Keep;
    case DBCAnswer::Other:
    case DBCAnswer::NotShown:
        break;
    }
    return DBCSettlementChoice::Ask;
}

DBCSettlement settle(DBCPackageRecovery& recovery, DBCSettlementChoice choice)
{
    switch (choice) {
    case DBCSettlementChoice::Restore:
        return restore(recovery);
    case DBCSettlementChoice::Keep:
        return keep(recovery);
    case DBCSettlementChoice::Ask:
        break;
    }
    return DBCSettlement::NotAnswered;
}

} // namespace

DBCSettlement settleUnfinishedImport(
    const QString& package, DBCSettlementChoice choice, QString* keptPackage)
{
    DBCPackageRecovery recovery(package);
    switch (recovery.state()) {
    case DBCPackageRecovery::State::Nothing:
        return DBCSettlement::NothingToSettle;
    case DBCPackageRecovery::State::InUse:
        return DBCSettlement::InUse;
    case DBCPackageRecovery::State::Unreadable:
        return reportUnreadable(recovery.journalPath());
    case DBCPackageRecovery::State::Unfinished:
        break;
    }
    const DBCSettlement settlement
        = settle(recovery, choice == DBCSettlementChoice::Ask ? choiceFor(ask(recovery)) : choice);
    if (const QString kept = recovery.keptPackagePath(); !kept.isEmpty()) {
        DBCLog::info(getLocalString("IDS_LOG_INF_CHANGES_KEPT", {recovery.package(), kept}));
        if (keptPackage)
            *keptPackage = kept;
    }
    return settlement;
}
