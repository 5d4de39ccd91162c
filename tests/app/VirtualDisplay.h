// SPDX-License-Identifier: GPL-3.0-or-later
// A screen in memory with a window manager, for programs that are tested in processes of their own:
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
    // On a display number that is free. Both servers end with the object, and with this process
    // however that ends.
    VirtualDisplay();
    ~VirtualDisplay();

    // ":7"
    const QString& name() const { return _name; }
    // This process's, with the display in place of the user's own screen and a runtime folder that
    // belongs to this display alone.
    QProcessEnvironment environment() const;
    DesktopWindows& windows() { return *_windows; }

    // The display vanishes, as when its server crashes.
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
