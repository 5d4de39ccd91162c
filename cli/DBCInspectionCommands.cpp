// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommands.h"

#include "carddb/DBCPackageCreator.h"
#include "carddb/DBCPackageVerifier.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/DBCFolderInspector.h"

namespace {

// Passes the problems to the reporter and returns the result of the command. The first line of its
// summary gives the number of problems.
DBCCommandResult resultOf(const DBCFindings& findings, const QString& path, DBCReporter& reporter)
{
    for (const DBCProblem& problem : findings.problems)
        reporter.problem(problem);
    const auto count = static_cast<qint64>(findings.problems.size());
    DBCCommandResult result {.problemCount = count};
    if (findings.couldNotLook) {
        reporter.message({}, findings.couldNotLook->text);
        result.exitCode = DBCExitCode::Failed;
        result.code = DBCResultCode::GeneralFailure;
        return result;
    }
    result.exitCode = count == 0 ? DBCExitCode::Done : DBCExitCode::DoneWithWarnings;
    result.summary << (count == 0 ? getLocalString("IDS_CHECK_NO_PROBLEMS", {path})
                                  : getLocalString("IDS_CHECK_PROBLEMS", {path, count}));
    return result;
}

} // namespace

DBCCommandResult checkFolder(const DBCRequest& request, DBCReporter& reporter)
{
    const QString folder = request.paths.constFirst();
    const DBCFolderReport report = DBCFolderInspector::inspect(folder);
    DBCCommandResult result = resultOf(report.findings, folder, reporter);
    result.maxCount = report.cardCount;
    result.finishedCount = report.cardCount;
    if (!report.findings.couldNotLook) {
        result.bytesNeeded = report.bytesNeeded;
        result.summary << getLocalString("IDS_CHECK_CARDS_AND_SPACE",
            {report.cardCount,
                DBCLocalizable::locale().formattedDataSize(
                    static_cast<qint64>(report.bytesNeeded))});
    }
    return result;
}

DBCCommandResult verifyPackage(const DBCRequest& request, DBCReporter& reporter)
{
    const QString package = request.paths.constFirst();
    qint64 cardCount = 0;
    const DBCFindings findings
        = DBCPackageVerifier::verify(package, [&](qint64 finished, qint64 max) {
              cardCount = max;
              reporter.verifying(finished, max);
          });
    DBCCommandResult result = resultOf(findings, package, reporter);
    result.maxCount = cardCount;
    result.finishedCount = cardCount;
    if (!findings.couldNotLook)
        result.summary << getLocalString("IDS_CLI_VERIFIED", {cardCount});
    return result;
}

DBCCommandResult createPackage(const DBCRequest& request, DBCReporter& reporter)
{
    const QString package = request.paths.constFirst();
    const DBCPackageCreator::Result created = DBCPackageCreator::create(package);
    if (created.outcome == DBCPackageCreator::Outcome::Created)
        return {.summary = {getLocalString("IDS_CLI_CREATED", {package})}};
    reporter.message({}, created.problem.text);
    return {
        .exitCode = created.outcome == DBCPackageCreator::Outcome::Refused ? DBCExitCode::Refused
                                                                           : DBCExitCode::Failed,
        .code = DBCResultCode::GeneralFailure,
    };
}
