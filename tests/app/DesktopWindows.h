// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of an X11 display as its window manager sees them, and the actions of a user outside
// of the program. Windows are identified by their titles.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

class DesktopWindows {
public:
    // display is a name like ":7".
    explicit DesktopWindows(const QString& display);
    ~DesktopWindows();
    DesktopWindows(const DesktopWindows&) = delete;
    DesktopWindows& operator=(const DesktopWindows&) = delete;

    bool hasManager();
    // Returns the titles from the lowest window to the topmost.
    QStringList titles();
    // Returns the title of the window with the focus, or an empty text if no window has the focus.
    QString activeTitle();
    bool isMinimised(const QString& title);
    // Returns whether the program has requested in the name of the user, and not only in its own
    // name, that the window manager brings the window to the front.
    bool isWantedByUser(const QString& title);
    // Returns all messages that programs have sent so far about the start of a program, joined.
    QByteArray startFeedback();

    // Opens a window of another program in front and with the focus. The window stays open until
    // this object is destroyed.
    void openOther(const QString& title);
    void minimise(const QString& title);
    // Does the same as a click on the close box of the window's frame.
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
