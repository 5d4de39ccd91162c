// SPDX-License-Identifier: GPL-3.0-or-later
// A screen in memory with a window manager, for tests that run a program in its own process:
//
//     VirtualDisplay display;
//     program.setProcessEnvironment(display.environment());
//     program.start(...);
//     QTRY_COMPARE(display.windows().activeTitle(), u"VelmoraConverter"_qs);
#pragma once

#include "tests/app/DesktopWindows.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <memory>

class VirtualDisplay {
public:
    // Uses a free display number. The display server and the window manager end when this object is
    // destroyed, and also when the test's process crashes.
    VirtualDisplay();
    ~VirtualDisplay();

    // The name of the display, for example ":7".
    const QString& name() const { return _name; }
    // Returns the environment of this process, but with this display instead of the user's screen
    // and with a separate runtime folder.
    QProcessEnvironment environment() const;
    DesktopWindows& windows() { return *_windows; }

    // Ends the display as if its server had crashed.
    void breakDown();

private:
    void startServer();
    void startWindowManager();

    QTemporaryDir _runtimeFolder;
    QProcess _server;
    QProcess _windowManager;
    QString _name;
    std::unique_ptr<DesktopWindows> _windows;
};
