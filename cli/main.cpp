// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommandLine.h"
#include "cli/DBCCommands.h"
#include "cli/DBCJsonReporter.h"
#include "cli/DBCPlainReporter.h"
#include "cli/DBCTerminal.h"
#include "cli/DBCTerminalPresenter.h"
#include "operation/log/DBCLogObserver.h"
#include "system/DBCSignalCleanup.h"
#include "system/DBCStandardDescriptors.h"
#include "system/DBCUtf8Locale.h"

#include <QCoreApplication>

#include <csignal>
#include <memory>

namespace {

std::unique_ptr<DBCReporter> reporterFor(const DBCRequest& request)
{
    if (request.isJson)
        return std::make_unique<DBCJsonReporter>();
    return std::make_unique<DBCPlainReporter>(request.isQuiet
            ? DBCPlainReporter::Amount::ErrorsAndProblems
            : DBCPlainReporter::Amount::Everything);
}

DBCCommandResult runCommand(const DBCRequest& request, DBCReporter& reporter)
{
    switch (request.command) {
    case DBCCommand::Import:
    case DBCCommand::Export:
        return runConversion(request, reporter);
    case DBCCommand::Check:
        return checkFolder(request, reporter);
    case DBCCommand::Verify:
        return verifyPackage(request, reporter);
    case DBCCommand::Create:
        return createPackage(request, reporter);
    case DBCCommand::Recover:
        return recoverPackage(request, reporter);
    case DBCCommand::Backups:
        return manageBackups(request, reporter);
    }
    Q_UNREACHABLE();
}

DBCExitCode run(const DBCRequest& request)
{
    const DBCTerminal terminal;
    const auto reporter = reporterFor(request);
    const DBCTerminalPresenter presenter(terminal, *reporter,
        request.saysYes ? DBCTerminalPresenter::Answers::AlwaysYes
                        : DBCTerminalPresenter::Answers::AskOrNo);
    const DBCLogObserver logObserver(
        [&](const DBCLogEntry& entry) { reporter->logged(entry.type, entry.text); });
    const DBCCommandResult result = runCommand(request, *reporter);
    reporter->result(result);
    return result.exitCode;
}

DBCExitCode show(const DBCUsage& usage)
{
    DBCTerminal::write(usage.exitCode == DBCExitCode::Done ? stdout : stderr, usage.text);
    return usage.exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    keepStandardDescriptorsOpen();
    DBCSignalCleanup::install();
    // These signals would end the program halfway through an operation: SIGPIPE when the reader of
    // the output has gone away, SIGXFSZ when a file grows beyond the user's limit. When the program
    // ignores them, the write fails instead and gives the reason.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const auto application = applicationInUtf8<QCoreApplication>(argc, argv);

    const auto parsed = parseCommandLine(QCoreApplication::arguments());
    const auto* request = std::get_if<DBCRequest>(&parsed);
    return static_cast<int>(request ? run(*request) : show(std::get<DBCUsage>(parsed)));
}
