// SPDX-License-Identifier: GPL-3.0-or-later
// What a look at an interchange folder or a card database package found wrong.
#pragma once

#include <QString>

#include <optional>
#include <vector>

struct DBCProblem {
    QString text; // localized; says what is wrong, where, and what to do
    QString path; // of the file or folder it is about
    std::optional<qint64> lineNo = {}; // of the data file, 1-based; none when it is about no line
};

struct DBCFindings {
    std::vector<DBCProblem> problems; // empty: clean, unless nobody could look
    std::optional<DBCProblem> couldNotLook = {}; // why the look did not come to its end
};
