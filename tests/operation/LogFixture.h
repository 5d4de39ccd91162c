// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of the log share: a home of their own and the lines of its default log.
#pragma once

#include "tests/support/TestHome.h"

#include <QStringList>

#include <optional>

class LogFixture {
protected:
    void begin() { _home.emplace(); }
    void end() { _home.reset(); }

    // The messages of the default log without what stands before their tags.
    QStringList loggedLines() const
    {
        QStringList lines = _home->logText().split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line = line.mid(line.indexOf(u'['));
        return lines;
    }

    std::optional<TestHome> _home;
};
