// SPDX-License-Identifier: GPL-3.0-or-later
// What the default log says at debug level, which goes to the console only. To be made right behind
// the TestHome: a log reads its level when its first line is written.
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

    // Ends the capture.
    QString text() { return _console.text(); }

private:
    QString _preferences;
    CapturedStandardError _console;
};
