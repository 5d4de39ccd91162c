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

DBCSettlement decide(DBCPackageRecovery& recovery)
{
    const DBCAnswer answer
        = DBCMessage::ShowInfoMessage(DBCMessage::keyOf(DBCQuestionId::SettleUnfinishedImport),
            DBCButton::Yes, DBCButton::No, {}, {recovery.package(), recovery.backupPath()});
    switch (answer) {
    case DBCAnswer::Default:
        return restore(recovery);
    case DBCAnswer::Alternate:
        return keep(recovery);
    case DBCAnswer::Other:
    case DBCAnswer::NotShown:
        break;
    }
    return DBCSettlement::NotAnswered;
}

} // namespace

DBCSettlement settleUnfinishedImport(const QString& package)
{
    DBCPackageRecovery recovery(package);
    switch (recovery.state()) {
    case DBCPackageRecovery::State::Nothing:
        break;
    case DBCPackageRecovery::State::InUse:
        return DBCSettlement::InUse;
    case DBCPackageRecovery::State::Unreadable:
        return reportUnreadable(recovery.journalPath());
    case DBCPackageRecovery::State::Unfinished:
        return decide(recovery);
    }
    return DBCSettlement::NothingToSettle;
}
