// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/DBCWindowActivation.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>
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

// Sends messages in the name of one window of this program to the window manager and the desktop.
class DesktopTalk {
public:
    DesktopTalk(xcb_connection_t* connection, xcb_window_t window)
        : _connection(connection)
        , _window(window)
    {
        const auto geometry = owned(
            xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
        _root = geometry ? geometry->root : xcb_window_t(XCB_WINDOW_NONE);
    }
    ~DesktopTalk() { xcb_flush(_connection); }
    DesktopTalk(const DesktopTalk&) = delete;
    DesktopTalk& operator=(const DesktopTalk&) = delete;

    void activateForUser() const;
    void endStartFeedback(const QByteArray& startId) const;

private:
    xcb_client_message_event_t message(std::string_view type, uint8_t bitsPerUnit) const;
    void send(const xcb_client_message_event_t& message, uint32_t receivers) const;

    xcb_connection_t* _connection;
    xcb_window_t _window;
    xcb_window_t _root;
};

xcb_client_message_event_t DesktopTalk::message(std::string_view type, uint8_t bitsPerUnit) const
{
    const auto atom = owned(xcb_intern_atom_reply(_connection,
        xcb_intern_atom(_connection, 0, static_cast<uint16_t>(type.size()), type.data()), nullptr));
    xcb_client_message_event_t message {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = bitsPerUnit;
    message.window = _window;
    message.type = atom ? atom->atom : xcb_atom_t(XCB_ATOM_NONE);
    return message;
}

void DesktopTalk::send(const xcb_client_message_event_t& message, uint32_t receivers) const
{
    xcb_send_event(_connection, 0, _root, receivers, reinterpret_cast<const char*>(&message));
}

// Sends the request for the focus in the name of the user. QWidget::activateWindow() would send the
// request in the name of the program, and window managers refuse such a request unless the user
// used this program last.
void DesktopTalk::activateForUser() const
{
    constexpr uint32_t askedByUser = 2;
    xcb_client_message_event_t request = message("_NET_ACTIVE_WINDOW", 32);
    request.data.data32[0] = askedByUser;
    request.data.data32[1] = XCB_CURRENT_TIME;
    send(request, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
}

// Ends the busy pointer, which the desktop shows until a started program opens a window. A second
// copy of this program opens no window, so the first copy sends this message. The text of the
// message is sent in pieces and ends with a zero.
void DesktopTalk::endStartFeedback(const QByteArray& startId) const
{
    const QByteArray text = "remove: ID=" + startId + '\0';
    xcb_client_message_event_t piece = message("_NET_STARTUP_INFO_BEGIN", 8);
    for (qsizetype sent = 0; sent < text.size();) {
        const qsizetype length = std::min<qsizetype>(text.size() - sent, sizeof piece.data.data8);
        std::copy_n(text.constData() + sent, length, piece.data.data8);
        send(piece, XCB_EVENT_MASK_PROPERTY_CHANGE);
        sent += length;
        piece = message("_NET_STARTUP_INFO", 8);
    }
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
    if (x11 && x11->connection()) {
        const DesktopTalk talk(x11->connection(), static_cast<xcb_window_t>(window.winId()));
        talk.activateForUser();
        if (!activationToken.isEmpty())
            talk.endStartFeedback(activationToken);
        return;
    }
    // activateWindow() takes the token from this environment variable.
    if (!activationToken.isEmpty())
        qputenv(activationTokenVariable, activationToken);
    window.activateWindow();
}
