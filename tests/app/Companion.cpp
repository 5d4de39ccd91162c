// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/Companion.h"

#include <csignal>
#include <sys/prctl.h>

namespace {

constexpr int patienceMs = 20'000;

} // namespace

void startCompanion(QProcess& process, const QString& program, const QStringList& arguments)
{
    // A test that crashes or runs out of time does not come to its destructors.
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
