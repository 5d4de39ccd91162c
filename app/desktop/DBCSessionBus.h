// SPDX-License-Identifier: GPL-3.0-or-later
// Access to the message bus of the desktop session.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

// Returns the connection to the session's bus, or std::nullopt if the session has no bus. Never
// starts a bus.
std::optional<QDBusConnection> sessionBus();

// Creates a method call. If the service is not running, the bus does not start it for this call.
QDBusMessage sessionCall(
    const char* service, const char* path, const char* interface, const char* method);
