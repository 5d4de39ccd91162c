// SPDX-License-Identifier: GPL-3.0-or-later
// Makes texts safe to show. Texts of cards and names of files may contain any character. If the
// program showed them unchanged, some characters would start a new line, control a terminal or
// reverse the text beside them.
#pragma once

#include <QString>

// Returns text with every control character, line end and direction mark replaced by its number, as
// in "\u001B".
QString escapedControls(const QString& text);

// Joins the lines of a text into one, so that each log message is one line, and escapes the
// remaining characters as escapedControls() does. Tabs stay unchanged.
QString asOneLine(QString text);
