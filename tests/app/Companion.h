// SPDX-License-Identifier: GPL-3.0-or-later
// Starts and stops companions: the server processes that a test needs.
#pragma once

#include <QByteArray>
#include <QProcess>

// Starts a process that ends when the test's process ends, even if the test crashes.
void startCompanion(QProcess& process, const QString& program, const QStringList& arguments);
void endCompanion(QProcess& process);

// Waits until the process has written a line, and returns the line without its line end.
QByteArray firstLineOf(QProcess& process);
