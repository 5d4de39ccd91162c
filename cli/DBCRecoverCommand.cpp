// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommands.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCUnfinishedImport.h"

#include <QFileInfo>

namespace {

// keptPackage is the path where changes that other programs made to the package were kept. It is
// empty if there were no such changes.
DBCCommandResult done(const char* key, const QString& package, const QString& keptPackage = {})
{
    QStringList summary {getLocalString(key, {package})};
    if (!keptPackage.isEmpty())
        summary << getLocalString("IDS_CLI_RECOVER_CHANGES", {keptPackage});
    return {.backupPath = keptPackage, .summary = summary};
}

DBCCommandResult notDone(DBCExitCode exitCode)
{
    return {.exitCode = exitCode, .code = DBCResultCode::GeneralFailure};
}

DBCCommandResult refused(const char* key, const QString& package, DBCReporter& reporter)
{
    reporter.message({}, getLocalString(key, {package}));
    return notDone(DBCExitCode::Refused);
}

} // namespace

DBCCommandResult recoverPackage(const DBCRequest& request, DBCReporter& reporter)
{
    const QString package = request.paths.constFirst();
    QString keptPackage;
    switch (settleUnfinishedImport(package, request.settlement, &keptPackage)) {
    case DBCSettlement::NothingToSettle:
        return QFileInfo(package).isDir() ? done("IDS_CLI_RECOVER_NOTHING", package)
                                          : refused("IDS_VERIFY_NO_FOLDER", package, reporter);
    case DBCSettlement::Restored:
        return done("IDS_CLI_RECOVER_RESTORED", package, keptPackage);
    case DBCSettlement::Kept:
        return done("IDS_CLI_RECOVER_KEPT", package, keptPackage);
    case DBCSettlement::InUse:
        return refused("IDS_LOG_ERR_PACKAGE_IN_USE", package, reporter);
    case DBCSettlement::NotAnswered:
        return notDone(DBCExitCode::Refused);
    case DBCSettlement::Failed:
        break;
    }
    return notDone(DBCExitCode::Failed);
}
