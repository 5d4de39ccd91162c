// SPDX-License-Identifier: GPL-3.0-or-later
// Texts of cards and names of files may hold anything. Shown as they are, some characters would
// start a line of their own, steer a terminal or turn the order of what stands beside them.
#pragma once

#include <QString>

// text with every control character, line end and mark that changes the direction written as
// "\u001B".
QString escapedControls(const QString& text);

// The same for a text of several lines, which become one: a line of a log is a line. Tabs stay.
QString asOneLine(QString text);
