// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/VirtualDisplay.h"

#include "tests/app/Companion.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 20'000;

} // namespace

VirtualDisplay::VirtualDisplay()
{
    startServer();
    _windows = std::make_unique<DesktopWindows>(_name);
    startWindowManager();
}

VirtualDisplay::~VirtualDisplay()
{
    _windows.reset();
    endCompanion(_windowManager);
    endCompanion(_server);
}

void VirtualDisplay::startServer()
{
    startCompanion(_server, u"Xvfb"_s,
        {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x1024x24"_s, u"-nolisten"_s, u"tcp"_s,
            u"-noreset"_s});
    _name = u':' + QString::fromLatin1(firstLineOf(_server));
}

void VirtualDisplay::startWindowManager()
{
    _windowManager.setProcessEnvironment(environment());
    startCompanion(_windowManager, u"openbox"_s, {u"--sm-disable"_s});
    if (!QTest::qWaitFor([this] { return _windows->hasManager(); }, patienceMs))
        qFatal("openbox does not manage the windows");
}

QProcessEnvironment VirtualDisplay::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, _name);
    environment.remove(u"WAYLAND_DISPLAY"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"XDG_RUNTIME_DIR"_s, _runtimeFolder.path());
    return environment;
}

void VirtualDisplay::breakDown()
{
    _windows.reset();
    endCompanion(_server);
}
