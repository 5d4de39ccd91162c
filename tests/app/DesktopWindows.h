// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of an X11 display as its window manager sees them, named by their titles, and what a
// user does to them outside of their program.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

class DesktopWindows {
public:
    // display: ":7"
    explicit DesktopWindows(const QString& display);
    ~DesktopWindows();
    DesktopWindows(const DesktopWindows&) = delete;
    DesktopWindows& operator=(const DesktopWindows&) = delete;

    bool hasManager();
    // From the lowest to the topmost.
    QStringList titles();
    // Empty: no window has the focus.
    QString activeTitle();
    bool isMinimised(const QString& title);
    // Whether the window manager has been told that the user wants the window in front, and not
    // merely its program.
    bool isWantedByUser(const QString& title);
    // What has been said about programs that start, one text after the other.
    QByteArray startFeedback();

    // Another program's window, in front and with the focus. It stays while this object lives.
    void openOther(const QString& title);
    void minimise(const QString& title);
    // What the close box of the window's frame does.
    void askToClose(const QString& title);

private:
    void readEvents();
    std::uint32_t atom(const char* name);
    std::vector<std::uint32_t> numbers(std::uint32_t window, const char* property);
    QString titleOf(std::uint32_t window);
    std::uint32_t windowOf(const QString& title);
    void tellManager(std::uint32_t window, const char* message, std::uint32_t first);

    xcb_connection_t* _connection;
    std::uint32_t _root = 0;
    std::vector<std::uint32_t> _wantedByUser;
    QByteArray _startFeedback;
};
