// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommandLine.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct CommandRow {
    DBCCommand command;
    const char* name;
    const char* operands;
    qsizetype operandCount;
    const char* descriptionKey;
};

constexpr std::array commands {
    CommandRow {DBCCommand::Import, "import", "FOLDER PACKAGE", 2, "IDS_CLI_HELP_IMPORT"},
    CommandRow {DBCCommand::Export, "export", "PACKAGE PARENT", 2, "IDS_CLI_HELP_EXPORT"},
    CommandRow {DBCCommand::Check, "check", "FOLDER", 1, "IDS_CLI_HELP_CHECK"},
    CommandRow {DBCCommand::Verify, "verify", "PACKAGE", 1, "IDS_CLI_HELP_VERIFY"},
    CommandRow {DBCCommand::Create, "create", "PACKAGE", 1, "IDS_CLI_HELP_CREATE"},
    CommandRow {DBCCommand::Recover, "recover", "PACKAGE", 1, "IDS_CLI_HELP_RECOVER"},
    CommandRow {DBCCommand::Backups, "backups", "PACKAGE", 1, "IDS_CLI_HELP_BACKUPS"},
};

struct OptionRow {
    const char* name;
    const char* valueName; // null if the option takes no value
    const char* descriptionKey;
};

constexpr std::array options {
    OptionRow {"restore", "NAME", "IDS_CLI_HELP_RESTORE"},
    OptionRow {"delete", "NAME", "IDS_CLI_HELP_DELETE"},
    OptionRow {"keep", nullptr, "IDS_CLI_HELP_KEEP"},
    OptionRow {"json", nullptr, "IDS_CLI_HELP_JSON"},
    OptionRow {"yes", nullptr, "IDS_CLI_HELP_YES"},
    OptionRow {"quiet", nullptr, "IDS_CLI_HELP_QUIET"},
    OptionRow {"help", nullptr, "IDS_CLI_HELP_HELP"},
    OptionRow {"version", nullptr, "IDS_CLI_HELP_VERSION"},
};

// The column at which the descriptions of the help text begin.
constexpr qsizetype descriptionColumn = 26;

QString helpLine(const QString& term, const char* descriptionKey)
{
    return u"  "_s + term.leftJustified(descriptionColumn - 2) + getLocalString(descriptionKey)
        + u'\n';
}

QString optionTerm(const OptionRow& row)
{
    const QString name = u"--"_s + QLatin1String(row.name);
    return row.valueName ? name + u' ' + QLatin1String(row.valueName) : name;
}

QString helpText()
{
    QString help = getLocalString("IDS_CLI_HELP_USAGE") + u"\n\n"_s;
    for (const CommandRow& row : commands)
        help += helpLine(u"%1 %2"_s.arg(QLatin1String(row.name), QLatin1String(row.operands)),
            row.descriptionKey);
    help += u'\n';
    for (const OptionRow& row : options)
        help += helpLine(optionTerm(row), row.descriptionKey);
    return help + u'\n' + getLocalString("IDS_CLI_HELP_EXIT") + u'\n';
}

// Returns the first argument that is not an option, or an empty text if there is none. The first
// element of arguments is the program.
QString commandOf(const QStringList& arguments)
{
    const auto command = std::find_if(std::next(arguments.begin()), arguments.end(),
        [](const QString& argument) { return !argument.startsWith(u'-'); });
    return command == arguments.end() ? QString() : *command;
}

DBCUsage wrongUsage(const char* key, const DBCMessageArguments& arguments = {})
{
    return {DBCExitCode::WrongUsage,
        getLocalString(key, arguments) + u'\n' + getLocalString("IDS_CLI_TRY_HELP") + u'\n'};
}

// On the disk, ".." after a symbolic link leads to the parent of the link's target. A path with
// ".." is therefore resolved on the disk: to remove the ".." from its text could name another
// folder.
QString absolutePath(const QString& operand)
{
    const QString path = QDir::current().absoluteFilePath(operand);
    if (path.split(u'/').contains(u".."_s)) {
        QString resolved = QFileInfo(path).canonicalFilePath();
        if (!resolved.isEmpty())
            return resolved;
    }
    return QDir::cleanPath(path);
}

std::variant<DBCRequest, DBCUsage> requestFor(QStringList operands)
{
    if (operands.isEmpty())
        return wrongUsage("IDS_CLI_ERR_NO_COMMAND");
    const QString name = operands.takeFirst();
    const auto* row = std::find_if(commands.begin(), commands.end(),
        [&](const CommandRow& candidate) { return name == QLatin1String(candidate.name); });
    if (row == commands.end())
        return wrongUsage("IDS_CLI_ERR_UNKNOWN_COMMAND", {name});
    if (operands.size() != row->operandCount || operands.contains(QString()))
        return wrongUsage("IDS_CLI_ERR_OPERANDS", {name, QString::fromLatin1(row->operands)});

    DBCRequest request {row->command, {}};
    for (const QString& operand : std::as_const(operands))
        request.paths << absolutePath(operand);
    return request;
}

// Stores in the request what --restore and --keep choose for the command recover. Returns the usage
// error if these options do not suit the command or each other, and std::nullopt otherwise.
std::optional<DBCUsage> takeSettlement(DBCRequest& request, const QCommandLineParser& parser)
{
    const bool restores = request.command == DBCCommand::Recover && parser.isSet(u"restore"_s);
    const bool keeps = parser.isSet(u"keep"_s);
    if (keeps && (restores || request.command != DBCCommand::Recover))
        return wrongUsage("IDS_CLI_ERR_RECOVER_CHOICE");
    if (restores)
        request.settlement = DBCSettlementChoice::Restore;
    if (keeps)
        request.settlement = DBCSettlementChoice::Keep;
    return std::nullopt;
}

// Stores in the request the names that --restore and --delete give for the command backups. Returns
// the usage error if these options do not suit the command, and std::nullopt otherwise.
std::optional<DBCUsage> takeBackupNames(DBCRequest& request, const QCommandLineParser& parser)
{
    const QString restore = u"restore"_s;
    const QString remove = u"delete"_s;
    const bool restores = request.command != DBCCommand::Recover && parser.isSet(restore);
    if (!restores && !parser.isSet(remove))
        return std::nullopt;
    request.backupToRestore = parser.value(restore);
    request.backupToDelete = parser.value(remove);
    const bool isOneName = request.backupToRestore.isEmpty() != request.backupToDelete.isEmpty()
        && parser.values(restore).size() + parser.values(remove).size() == 1;
    if (request.command == DBCCommand::Backups && isOneName)
        return std::nullopt;
    return wrongUsage("IDS_CLI_ERR_BACKUP_NAME");
}

} // namespace

std::variant<DBCRequest, DBCUsage> parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    const bool isRecover = commandOf(arguments) == u"recover"_s;
    for (const OptionRow& row : options) {
        const bool takesValue = !(isRecover && QLatin1StringView(row.name) == "restore"_L1);
        parser.addOption(QCommandLineOption(QString::fromLatin1(row.name), {},
            takesValue ? QString::fromLatin1(row.valueName) : QString()));
    }
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        return unknown.isEmpty() ? wrongUsage("IDS_CLI_ERR_OPTION_VALUE")
                                 : wrongUsage("IDS_CLI_ERR_UNKNOWN_OPTION", {unknown.constFirst()});
    }
    if (parser.isSet(u"help"_s))
        return DBCUsage {DBCExitCode::Done, helpText()};
    if (parser.isSet(u"version"_s))
        return DBCUsage {DBCExitCode::Done, u"velmora-convert " VELMORA_VERSION "\n"_s};

    auto parsed = requestFor(parser.positionalArguments());
    if (auto* request = std::get_if<DBCRequest>(&parsed)) {
        if (auto wrong = takeSettlement(*request, parser))
            return *wrong;
        if (auto wrong = takeBackupNames(*request, parser))
            return *wrong;
        request->isJson = parser.isSet(u"json"_s);
        request->saysYes = parser.isSet(u"yes"_s);
        request->isQuiet = parser.isSet(u"quiet"_s);
    }
    return parsed;
}
