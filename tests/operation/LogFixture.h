// SPDX-License-Identifier: GPL-3.0-or-later
// Shared by the tests of the log: a home folder of their own and the lines of the default log in
// it.
#pragma once

#include "tests/support/TestHome.h"

#include <QStringList>

#include <optional>

class LogFixture {
protected:
    void begin() { _home.emplace(); }
    void end() { _home.reset(); }

    // The lines of the default log, each from its tag on.
    QStringList loggedLines() const
    {
        QStringList lines = _home->logText().split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line = line.mid(line.indexOf(u'['));
        return lines;
    }

    std::optional<TestHome> _home;
};
