// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the texts of velmora-convert and asks its questions on the terminal.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <cstdio>

class DBCTerminal {
public:
    // Duplicates standard input, because descriptor 0 may be closed during an operation when a
    // package cannot be opened.
    DBCTerminal();

    // Returns whether the program can ask a user: this needs a terminal as standard input and as
    // standard error.
    bool isInteractive() const;
    static bool isStandardErrorTerminal();

    // Writes the question to standard error and reads the user's answer, one line. Returns true
    // only if the answer is a yes in any language of the program.
    bool confirms(const QString& question) const;

    // Writes UTF-8 without buffering. Every character that could control a terminal is written as
    // an escape like "\u001B"; line ends are kept.
    static void write(std::FILE* stream, const QString& text);
    // Writes the text as one line: escapes line ends, too, and ends the line.
    static void writeLine(std::FILE* stream, const QString& text);

private:
    DBCDescriptor _input;
};
