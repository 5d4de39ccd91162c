// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/DBCTerminal.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "text/DBCControlCharacters.h"

#include <QStringList>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

// Accepts each of these answers in every language of the program.
bool isYes(const QString& answer)
{
    static const QStringList yes {u"y"_s, u"yes"_s, u"\u306f\u3044"_s};
    return yes.contains(answer.trimmed(), Qt::CaseInsensitive);
}

} // namespace

DBCTerminal::DBCTerminal()
    : _input(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
}

bool DBCTerminal::isInteractive() const
{
    return isatty(_input.get()) != 0 && isStandardErrorTerminal();
}

bool DBCTerminal::isStandardErrorTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

bool DBCTerminal::confirms(const QString& question) const
{
    write(stderr, getLocalString(u"IDS_CLI_PROMPT"_s, {question}) + u' ');
    QByteArray line;
    char byte = 0;
    while (true) {
        const ssize_t count = read(_input.get(), &byte, 1);
        if (count == -1 && errno == EINTR)
            continue;
        if (count != 1 || byte == '\n')
            break;
        line += byte;
    }
    return isYes(QString::fromUtf8(line));
}

void DBCTerminal::write(std::FILE* stream, const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(u'\n'))
        lines << escapedControls(line);
    std::fputs(lines.join(u'\n').toUtf8().constData(), stream);
    std::fflush(stream);
}

void DBCTerminal::writeLine(std::FILE* stream, const QString& text)
{
    std::fputs((escapedControls(text) + u'\n').toUtf8().constData(), stream);
    std::fflush(stream);
}
