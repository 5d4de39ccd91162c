// SPDX-License-Identifier: GPL-3.0-or-later
// Servers that a test needs beside it.
#pragma once

#include <QByteArray>
#include <QProcess>

// The process ends with this one, however this one ends.
void startCompanion(QProcess& process, const QString& program, const QStringList& arguments);
void endCompanion(QProcess& process);

// Without its end; waits for it.
QByteArray firstLineOf(QProcess& process);
