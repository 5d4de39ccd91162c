// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCDesktopOpener.h"

#include "system/DBCHost.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <unistd.h>

namespace {

// If an opener ran longer than this, the opener was itself the program that showed the file, so its
// exit code does not matter.
constexpr qint64 millisecondsToRefuse = 5000;

// Called in the new process just before it runs the opener. Afterwards the opener survives the end
// of this program and of its terminal, and no signal is blocked in the opener.
void becomeIndependent()
{
    setsid();
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

} // namespace

void openOnDesktop(
    const QString& path, const QObject* context, const std::function<void()>& onRefusal)
{
    // The opener is a child process, because only its exit code tells whether the desktop has a
    // program for the file. The process object has no owner, because a window that owned it would
    // end the opener when the window is closed.
    auto* const opener = new QProcess;
    QObject::connect(opener, &QProcess::errorOccurred, context, [=](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            onRefusal();
    });
    QElapsedTimer running;
    running.start();
    QObject::connect(opener, &QProcess::finished, context, [=](int exitCode) {
        if (exitCode != 0 && running.elapsed() < millisecondsToRefuse)
            onRefusal();
    });
    QObject::connect(opener, &QProcess::stateChanged, opener, [=](QProcess::ProcessState state) {
        if (state == QProcess::NotRunning)
            opener->deleteLater();
    });
    opener->setStandardInputFile(QProcess::nullDevice());
    opener->setStandardOutputFile(QProcess::nullDevice());
    opener->setStandardErrorFile(QProcess::nullDevice());
    opener->setChildProcessModifier(becomeIndependent);
    opener->start(DBCHost::current().fileOpener, {path});
}
