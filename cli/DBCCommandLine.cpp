// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCCommandLine.h"

#include "datafile/DBCLocalizable.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

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
};

struct OptionRow {
    const char* name;
    const char* descriptionKey;
};

constexpr std::array options {
    OptionRow {"json", "IDS_CLI_HELP_JSON"},
    OptionRow {"yes", "IDS_CLI_HELP_YES"},
    OptionRow {"quiet", "IDS_CLI_HELP_QUIET"},
    OptionRow {"help", "IDS_CLI_HELP_HELP"},
    OptionRow {"version", "IDS_CLI_HELP_VERSION"},
};

// Where the descriptions of the help text begin.
constexpr qsizetype descriptionColumn = 26;

QString text(const char* key, const DBCMessageArguments& arguments = {})
{
    return getLocalString(QString::fromLatin1(key), arguments);
}

QString helpLine(const QString& term, const char* descriptionKey)
{
    return QStringLiteral("  ") + term.leftJustified(descriptionColumn - 2) + text(descriptionKey)
        + u'\n';
}

QString helpText()
{
    QString help = text("IDS_CLI_HELP_USAGE") + QStringLiteral("\n\n");
    for (const CommandRow& row : commands)
        help += helpLine(
            QStringLiteral("%1 %2").arg(QLatin1String(row.name), QLatin1String(row.operands)),
            row.descriptionKey);
    help += u'\n';
    for (const OptionRow& row : options)
        help += helpLine(QStringLiteral("--") + QLatin1String(row.name), row.descriptionKey);
    return help + u'\n' + text("IDS_CLI_HELP_EXIT") + u'\n';
}

DBCUsage wrongUsage(const char* key, const DBCMessageArguments& arguments = {})
{
    return {
        DBCExitCode::WrongUsage, text(key, arguments) + u'\n' + text("IDS_CLI_TRY_HELP") + u'\n'};
}

// "..' behind a symbolic link leads elsewhere than its text says, so such a path is resolved.
QString absolutePath(const QString& operand)
{
    const QString path = QDir::current().absoluteFilePath(operand);
    if (path.split(u'/').contains(QStringLiteral(".."))) {
        const QString resolved = QFileInfo(path).canonicalFilePath();
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

} // namespace

std::variant<DBCRequest, DBCUsage> parseCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    for (const OptionRow& row : options)
        parser.addOption(QCommandLineOption(QString::fromLatin1(row.name)));
    if (!parser.parse(arguments)) {
        const QStringList unknown = parser.unknownOptionNames();
        return unknown.isEmpty() ? wrongUsage("IDS_CLI_ERR_OPTION_VALUE")
                                 : wrongUsage("IDS_CLI_ERR_UNKNOWN_OPTION", {unknown.constFirst()});
    }
    if (parser.isSet(QStringLiteral("help")))
        return DBCUsage {DBCExitCode::Done, helpText()};
    if (parser.isSet(QStringLiteral("version")))
        return DBCUsage {
            DBCExitCode::Done, QStringLiteral("velmora-convert " VELMORA_VERSION "\n")};

    auto parsed = requestFor(parser.positionalArguments());
    if (auto* request = std::get_if<DBCRequest>(&parsed)) {
        request->isJson = parser.isSet(QStringLiteral("json"));
        request->saysYes = parser.isSet(QStringLiteral("yes"));
        request->isQuiet = parser.isSet(QStringLiteral("quiet"));
    }
    return parsed;
}
