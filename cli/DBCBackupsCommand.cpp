// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommands.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCConfirmedBackupChange.h"

#include <QFileInfo>

namespace {

DBCCommandResult failed(DBCExitCode exitCode)
{
    return {.exitCode = exitCode, .code = DBCResultCode::GeneralFailure};
}

DBCCommandResult listBackups(const QString& package, DBCReporter& reporter)
{
    const DBCBackupList list = DBCPackageBackups::list(package);
    if (list.couldNotLook) {
        reporter.message({}, list.couldNotLook->text);
        return failed(DBCExitCode::Failed);
    }
    // If the package is missing but has backups, the user can still restore it, so the command
    // fails only if there are no backups either.
    if (list.backups.empty() && !QFileInfo(package).isDir()) {
        reporter.message({}, getLocalString("IDS_VERIFY_NO_FOLDER", {package}));
        return failed(DBCExitCode::Refused);
    }
    reporter.backups(list.backups);
    const auto count = static_cast<qint64>(list.backups.size());
    return {.summary = {getLocalString("IDS_BACKUP_COUNT", {package, count})}};
}

// The result of a failed change needs no reason: the change has already logged the reason, and the
// reporter shows logged errors.
DBCCommandResult resultOf(const DBCBackupChange::Result& change, QStringList summary)
{
    switch (change.outcome) {
    case DBCBackupChange::Outcome::Done:
        if (!change.keptPackage.isEmpty())
            summary << getLocalString("IDS_BACKUP_KEPT", {change.keptPackage});
        return {.backupPath = change.keptPackage, .summary = summary};
    case DBCBackupChange::Outcome::NotConfirmed:
    case DBCBackupChange::Outcome::Refused:
        return failed(DBCExitCode::Refused);
    case DBCBackupChange::Outcome::Failed:
        break;
    }
    DBCCommandResult result = failed(DBCExitCode::Failed);
    result.backupPath = change.keptPackage;
    return result;
}

} // namespace

DBCCommandResult manageBackups(const DBCRequest& request, DBCReporter& reporter)
{
    const QString package = request.paths.constFirst();
    if (const QString& name = request.backupToRestore; !name.isEmpty()) {
        const auto change = restoreBackupIfConfirmed(
            package, name, [&](const DBCEvent& event) { reporter.event(event); });
        return resultOf(change, {getLocalString("IDS_BACKUP_RESTORED", {package, name})});
    }
    if (const QString& name = request.backupToDelete; !name.isEmpty())
        return resultOf(
            deleteBackupIfConfirmed(package, name), {getLocalString("IDS_BACKUP_DELETED", {name})});
    return listBackups(package, reporter);
}
