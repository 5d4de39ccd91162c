// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/DesktopWindows.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace {

constexpr std::uint32_t iconicState = 3; // value in the properties WM_STATE and WM_CHANGE_STATE
constexpr std::uint32_t askedByUser = 2; // _NET_ACTIVE_WINDOW
constexpr std::uint8_t sentEvent = 0x80; // flag in the type of an event that a program has sent
constexpr std::uint32_t longestProperty = 1024; // in units of four bytes

template <typename Reply> auto owned(Reply* reply)
{
    return std::unique_ptr<Reply, decltype(&std::free)>(reply, &std::free);
}

auto property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name)
{
    return owned(xcb_get_property_reply(connection,
        xcb_get_property(
            connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty),
        nullptr));
}

} // namespace

DesktopWindows::DesktopWindows(const QString& display)
    : _connection(xcb_connect(qPrintable(display), nullptr))
{
    if (xcb_connection_has_error(_connection))
        qFatal("no connection to the display %s", qPrintable(display));
    _root = xcb_setup_roots_iterator(xcb_get_setup(_connection)).data->root;
    // With these masks the test receives the messages that programs send to the window manager.
    constexpr std::uint32_t events
        = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(_connection, _root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(_connection);
}

DesktopWindows::~DesktopWindows()
{
    xcb_disconnect(_connection);
}

std::uint32_t DesktopWindows::atom(const char* name)
{
    const auto reply = owned(xcb_intern_atom_reply(_connection,
        xcb_intern_atom(_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> DesktopWindows::numbers(std::uint32_t window, const char* name)
{
    const auto reply = property(_connection, window, atom(name));
    if (!reply || reply->format != 32)
        return {};
    const auto* const first
        = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

QString DesktopWindows::titleOf(std::uint32_t window)
{
    const auto reply = property(_connection, window, atom("_NET_WM_NAME"));
    if (!reply)
        return {};
    return QString::fromUtf8(static_cast<const char*>(xcb_get_property_value(reply.get())),
        xcb_get_property_value_length(reply.get()));
}

std::uint32_t DesktopWindows::windowOf(const QString& title)
{
    for (const std::uint32_t window : numbers(_root, "_NET_CLIENT_LIST_STACKING")) {
        if (titleOf(window) == title)
            return window;
    }
    return XCB_WINDOW_NONE;
}

bool DesktopWindows::hasManager()
{
    return !numbers(_root, "_NET_SUPPORTING_WM_CHECK").empty();
}

QStringList DesktopWindows::titles()
{
    QStringList found;
    for (const std::uint32_t window : numbers(_root, "_NET_CLIENT_LIST_STACKING"))
        found << titleOf(window);
    return found;
}

QString DesktopWindows::activeTitle()
{
    const auto active = numbers(_root, "_NET_ACTIVE_WINDOW");
    return active.empty() || active.front() == XCB_WINDOW_NONE ? QString()
                                                               : titleOf(active.front());
}

bool DesktopWindows::isMinimised(const QString& title)
{
    const auto state = numbers(windowOf(title), "WM_STATE");
    return !state.empty() && state.front() == iconicState;
}

bool DesktopWindows::isWantedByUser(const QString& title)
{
    readEvents();
    const std::uint32_t window = windowOf(title);
    return std::find(_wantedByUser.begin(), _wantedByUser.end(), window) != _wantedByUser.end();
}

QByteArray DesktopWindows::startFeedback()
{
    readEvents();
    return _startFeedback;
}

void DesktopWindows::readEvents()
{
    const std::uint32_t activation = atom("_NET_ACTIVE_WINDOW");
    const std::uint32_t feedbackBegins = atom("_NET_STARTUP_INFO_BEGIN");
    const std::uint32_t feedbackGoesOn = atom("_NET_STARTUP_INFO");
    while (const auto event = owned(xcb_poll_for_event(_connection))) {
        if ((event->response_type & ~sentEvent) != XCB_CLIENT_MESSAGE)
            continue;
        xcb_client_message_event_t message {};
        std::memcpy(&message, event.get(), sizeof message);
        if (message.type == activation && message.data.data32[0] == askedByUser)
            _wantedByUser.push_back(message.window);
        if (message.type == feedbackBegins || message.type == feedbackGoesOn)
            _startFeedback.append(
                reinterpret_cast<const char*>(message.data.data8), sizeof message.data.data8);
    }
}

void DesktopWindows::openOther(const QString& title)
{
    const xcb_window_t window = xcb_generate_id(_connection);
    xcb_create_window(_connection, XCB_COPY_FROM_PARENT, window, _root, 0, 0, 1200, 1000, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    const QByteArray name = title.toUtf8();
    xcb_change_property(_connection, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_NAME"),
        atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(name.size()), name.constData());
    xcb_map_window(_connection, window);
    xcb_flush(_connection);
}

void DesktopWindows::tellManager(std::uint32_t window, const char* message, std::uint32_t first)
{
    xcb_client_message_event_t event {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    event.data.data32[0] = first;
    xcb_send_event(_connection, 0, _root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
    xcb_flush(_connection);
}

void DesktopWindows::minimise(const QString& title)
{
    tellManager(windowOf(title), "WM_CHANGE_STATE", iconicState);
}

void DesktopWindows::askToClose(const QString& title)
{
    tellManager(windowOf(title), "_NET_CLOSE_WINDOW", XCB_CURRENT_TIME);
}
