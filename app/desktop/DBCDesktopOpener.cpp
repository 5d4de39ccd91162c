// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCDesktopOpener.h"

#include "system/DBCHost.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <unistd.h>

namespace {

// An opener that ran longer has shown the file itself, so its exit code does not matter.
constexpr qint64 millisecondsToRefuse = 5000;

// Runs in the opener's process. It stays open when this program or its terminal ends, and it does
// not inherit the blocked signals of this program.
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
    // Only the exit code of the opener says that no program opens such files. The process object
    // has no owner, because closing a window must not end the opener.
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
