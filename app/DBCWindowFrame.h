// SPDX-License-Identifier: GPL-3.0-or-later
// The program's one window as a screen inside it sees it: the screen asks for its own view, for the
// choice screen or for a disabled close box, and does not know the class of the window.
#pragma once

#include <QMainWindow>

class DBCWindowFrame : public QMainWindow {
public:
    // Shows the choice screen; its selection is kept.
    virtual void initMainWindow() = 0;
    // Shows view in place of the present screen. The window owns both from then on.
    virtual void showView(QWidget* view) = 0;
    // While the close box is disabled nothing can close the window.
    virtual void setCloseBoxEnabled(bool isEnabled) = 0;
};
