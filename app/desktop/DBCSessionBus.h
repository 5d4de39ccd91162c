// SPDX-License-Identifier: GPL-3.0-or-later
// Access to the message bus of the desktop session.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

// The connection to the session's bus; none if the session has no bus. Never starts a bus.
std::optional<QDBusConnection> sessionBus();

// Creates a method call that does not start the service if it is not running.
QDBusMessage sessionCall(
    const char* service, const char* path, const char* interface, const char* method);
