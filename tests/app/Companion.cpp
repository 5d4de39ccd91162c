// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/Companion.h"

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int patienceMs = 20'000;

} // namespace

void startCompanion(QProcess& process, const QString& program, const QStringList& arguments)
{
    // The kernel ends the process together with the test. Destructors could not do this reliably,
    // because they do not run in a test that crashes or times out.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForStarted(patienceMs))
        qFatal("cannot start %s", qPrintable(program));
}

void endCompanion(QProcess& process)
{
    process.kill();
    process.waitForFinished(patienceMs);
}

QByteArray firstLineOf(QProcess& process)
{
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(patienceMs))
            qFatal("%s says nothing", qPrintable(process.program()));
    }
    return process.readLine().trimmed();
}
