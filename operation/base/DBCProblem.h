// SPDX-License-Identifier: GPL-3.0-or-later
// The problems that an inspection of an interchange folder or a card database package finds.
#pragma once

#include <QString>

#include <optional>
#include <vector>

struct DBCProblem {
    QString text; // localized: what is wrong, where it is, and what the user can do
    QString path; // the file or folder with the problem
    std::optional<qint64> lineNo = {}; // 1-based line of the data file; not set if there is no line
};

struct DBCFindings {
    // Empty if the inspection found no problem, or if it ended before it found one.
    std::vector<DBCProblem> problems;
    // Why the inspection ended early. This is not set if the inspection was complete.
    std::optional<DBCProblem> couldNotLook = {};
};
