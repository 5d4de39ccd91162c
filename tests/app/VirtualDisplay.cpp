// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/VirtualDisplay.h"

#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int patienceMs = 20'000;

void end(QProcess& process)
{
    process.kill();
    process.waitForFinished(patienceMs);
}

void startTogether(QProcess& process, const QString& program, const QStringList& arguments)
{
    // A test that crashes or runs out of time does not come to its destructors.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForStarted(patienceMs))
        qFatal("cannot start %s", qPrintable(program));
}

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
    end(_windowManager);
    end(_server);
}

void VirtualDisplay::startServer()
{
    startTogether(_server, QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
            QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
            QStringLiteral("tcp"), QStringLiteral("-noreset")});
    while (!_server.canReadLine()) {
        if (!_server.waitForReadyRead(patienceMs))
            qFatal("Xvfb names no display");
    }
    _name = u':' + QString::fromLatin1(_server.readLine().trimmed());
}

void VirtualDisplay::startWindowManager()
{
    _windowManager.setProcessEnvironment(environment());
    startTogether(_windowManager, QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
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
    end(_server);
}
