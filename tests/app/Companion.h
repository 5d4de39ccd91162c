// SPDX-License-Identifier: GPL-3.0-or-later
// Starts and stops the servers that a test needs.
#pragma once

#include <QByteArray>
#include <QProcess>

// Starts a process that ends when this one ends, even if this one crashes.
void startCompanion(QProcess& process, const QString& program, const QStringList& arguments);
void endCompanion(QProcess& process);

// Reads one line without its end, and waits for it.
QByteArray firstLineOf(QProcess& process);
