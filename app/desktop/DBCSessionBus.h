// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

// The desktop session's message bus; none where no session offers one. None is ever started.
std::optional<QDBusConnection> sessionBus();

// A call that does not start the service it is for.
QDBusMessage sessionCall(
    const char* service, const char* path, const char* interface, const char* method);
