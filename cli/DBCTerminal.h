// SPDX-License-Identifier: GPL-3.0-or-later
// Where velmora-convert writes and asks.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <cstdio>

class DBCTerminal {
public:
    // Keeps a descriptor of its own for standard input, because descriptor 0 is closed under way
    // when a package cannot be opened.
    DBCTerminal();

    // Whether somebody sits there to be asked: standard input and standard error are terminals.
    bool isInteractive() const;
    static bool isStandardErrorTerminal();

    // Asks on standard error and waits for a line; anything but a yes, in any language of the
    // program, is a no.
    bool confirms(const QString& question) const;

    // In UTF-8, at once. Every character that could control a terminal is written as "\u001B";
    // line ends are kept.
    static void write(std::FILE* stream, const QString& text);
    // The same, with line ends escaped too, and one of its own at the end.
    static void writeLine(std::FILE* stream, const QString& text);

private:
    DBCDescriptor _input;
};
