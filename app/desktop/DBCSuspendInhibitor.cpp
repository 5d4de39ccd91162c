// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCSuspendInhibitor.h"

#include "app/desktop/DBCSessionBus.h"
#include "operation/log/DBCSettings.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <array>

namespace {

// Desktops have different services for keeping the computer awake. Each service answers a request
// with a number, which the program needs later to take the request back.
struct Service {
    const char* name;
    const char* path;
    const char* interface;
    const char* release;
    QVariantList (*arguments)(const QString& program, const QString& reason);
};

constexpr uint noWindow = 0;
constexpr uint logoutAndSuspend = 1 + 4; // org.gnome.SessionManager, Inhibit

constexpr std::array<Service, 2> services {{
    {"org.gnome.SessionManager", "/org/gnome/SessionManager", "org.gnome.SessionManager",
        "Uninhibit",
        [](const QString& program, const QString& reason) {
            return QVariantList {program, noWindow, reason, logoutAndSuspend};
        }},
    {"org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit",
        "org.freedesktop.PowerManagement.Inhibit", "UnInhibit",
        [](const QString& program, const QString& reason) {
            return QVariantList {program, reason};
        }},
}};

void takeBack(const Service& service, uint number)
{
    const auto bus = sessionBus();
    if (!bus)
        return;
    QDBusMessage call = sessionCall(service.name, service.path, service.interface, service.release);
    call << number;
    bus->send(call);
}

} // namespace

void DBCSuspendInhibitor::hold(const QString& reason)
{
    release();
    const auto bus = sessionBus();
    if (!bus)
        return;
    _holding = ++_holds;
    const QString program = QString::fromLatin1(DBCSettings::bundleIdentifier);
    for (const Service& service : services) {
        QDBusMessage call = sessionCall(service.name, service.path, service.interface, "Inhibit");
        call.setArguments(service.arguments(program, reason));
        auto* const watcher = new QDBusPendingCallWatcher(bus->asyncCall(call), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, &service, watcher, number = _holding] {
                const QDBusPendingReply<uint> reply = *watcher;
                watcher->deleteLater();
                if (reply.isError())
                    return;
                const uint granted = reply.value();
                if (number == _holding)
                    _releases << [&service, granted] { takeBack(service, granted); };
                else
                    takeBack(service, granted);
            });
    }
}

void DBCSuspendInhibitor::release()
{
    _holding = 0;
    for (const auto& giveBack : std::exchange(_releases, {}))
        giveBack();
}
