// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCDesktopOpener.h"

#include "system/DBCHost.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <unistd.h>

namespace {

// An opener that ends later than that was the program that showed the file, however it ended.
constexpr qint64 millisecondsToRefuse = 5000;

// What is opened stays when this program or its terminal ends, and is not deaf to the signals that
// this program takes in its own way.
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
    // The opener tells by its exit code that no program takes such files, which a mere start of it
    // would not show. It belongs to nobody: a window that closes must not end it.
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
