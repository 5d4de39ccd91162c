// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/VirtualDisplay.h"

#include "tests/app/Companion.h"

#include <QTest>

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
    startCompanion(_server, QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
            QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
            QStringLiteral("tcp"), QStringLiteral("-noreset")});
    _name = u':' + QString::fromLatin1(firstLineOf(_server));
}

void VirtualDisplay::startWindowManager()
{
    _windowManager.setProcessEnvironment(environment());
    startCompanion(_windowManager, QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    if (!QTest::qWaitFor([this] { return _windows->hasManager(); }, patienceMs))
        qFatal("openbox does not manage the windows");
}

QProcessEnvironment VirtualDisplay::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), _name);
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), _runtimeFolder.path());
    return environment;
}

void VirtualDisplay::breakDown()
{
    _windows.reset();
    endCompanion(_server);
}
