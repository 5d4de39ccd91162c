// SPDX-License-Identifier: GPL-3.0-or-later
// The base class of the tests of the log. It gives each test its own home folder and returns the
// lines of the default log in that folder.
#pragma once

#include "tests/support/TestHome.h"

#include <QStringList>

#include <optional>

class LogFixture {
protected:
    void begin() { _home.emplace(); }
    void end() { _home.reset(); }

    // Returns the lines of the default log without the text before their tag, such as "[Info]".
    QStringList loggedLines() const
    {
        QStringList lines = _home->logText().split(u'\n', Qt::SkipEmptyParts);
        for (QString& line : lines)
            line = line.mid(line.indexOf(u'['));
        return lines;
    }

    std::optional<TestHome> _home;
};
