// SPDX-License-Identifier: GPL-3.0-or-later
// Captures what the default log writes at debug level. Debug lines go to standard error only. A
// test creates this object right after its TestHome, because the log reads its level from the
// preferences when it writes its first line.
#pragma once

#include "tests/support/CapturedStandardError.h"
#include "tests/support/TestHome.h"

using namespace Qt::StringLiterals;

class DebugLog {
public:
    explicit DebugLog(const TestHome& home)
        : _preferences(home.writeFile(
            u"home/Library/Preferences/com.velmora.VelmoraConverter.plist"_s,
            "<plist version=\"1.0\"><dict><key>Log Level</key><integer>0</integer></dict></plist>"))
    {
    }

    // Ends the capture and returns what was written until now.
    QString text() { return _console.text(); }

private:
    QString _preferences;
    CapturedStandardError _console;
};
