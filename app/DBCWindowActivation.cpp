// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DBCWindowActivation.h"

#include <QApplication>
#include <QWidget>

#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace {

constexpr const char* activationTokenVariable = "XDG_ACTIVATION_TOKEN";

template <typename Reply> auto owned(Reply* reply)
{
    return std::unique_ptr<Reply, decltype(&std::free)>(reply, &std::free);
}

// What QWidget::activateWindow() sends counts as the program's own wish, which window managers
// refuse to a program that was not used last.
void activateForUser(xcb_connection_t* connection, xcb_window_t window)
{
    constexpr std::string_view name = "_NET_ACTIVE_WINDOW";
    constexpr uint32_t askedByUser = 2;
    const auto atom = owned(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, name.size(), name.data()), nullptr));
    const auto geometry
        = owned(xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
    if (!atom || !geometry)
        return;
    xcb_client_message_event_t message {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom->atom;
    message.data.data32[0] = askedByUser;
    message.data.data32[1] = XCB_CURRENT_TIME;
    xcb_send_event(connection, 0, geometry->root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

} // namespace

QByteArray activationTokenOfStart()
{
    const QByteArray token = qgetenv(activationTokenVariable);
    return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

void bringToFront(QWidget& window, const QByteArray& activationToken)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11) {
        activateForUser(x11->connection(), static_cast<xcb_window_t>(window.winId()));
        return;
    }
    // Where the toolkit looks for the leave.
    if (!activationToken.isEmpty())
        qputenv(activationTokenVariable, activationToken);
    window.activateWindow();
}
