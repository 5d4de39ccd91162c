// SPDX-License-Identifier: GPL-3.0-or-later
// Runs velmora-convert --help and splits what it prints into parts. Tests compare the manual pages
// and the completions with these parts.
#pragma once

#include "tests/cli/ConvertProgram.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

struct ProgramHelp {
    QStringList commands; // "import"
    QStringList operands; // one text for each command: "FOLDER PACKAGE"
    QStringList options; // "--json", "--restore NAME"
    QStringList descriptions; // first of the commands, then of the options
    QStringList exitStatuses; // "130"

    // language is a value of LC_ALL, such as "ja_JP.UTF-8".
    static ProgramHelp in(const QString& language)
    {
        const TestHome home;
        ConvertProgram program(home);
        program.language = language;
        ProgramHelp help;
        help.read(program.run({u"--help"_s}).output);
        return help;
    }

private:
    void read(const QString& text)
    {
        constexpr auto everyLine = QRegularExpression::MultilineOption;
        static const QRegularExpression command(
            u"^  ([a-z]+) ([A-Z]+(?: [A-Z]+)*) +(.+)$"_s, everyLine);
        static const QRegularExpression option(u"^  (--[a-z]+(?: [A-Z]+)?)  +(.+)$"_s, everyLine);
        for (const QRegularExpressionMatch& match : command.globalMatch(text)) {
            commands << match.captured(1);
            operands << match.captured(2);
            descriptions << match.captured(3);
        }
        for (const QRegularExpressionMatch& match : option.globalMatch(text)) {
            options << match.captured(1);
            descriptions << match.captured(2);
        }
        readExitStatuses(text.trimmed().section(u'\n', -1));
    }
    void readExitStatuses(const QString& line)
    {
        static const QRegularExpression number(u"\\b[0-9]+\\b"_s);
        for (const QRegularExpressionMatch& match : number.globalMatch(line))
            exitStatuses << match.captured();
        exitStatuses.removeDuplicates();
    }
};
