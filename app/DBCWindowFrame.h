// SPDX-License-Identifier: GPL-3.0-or-later
// The interface through which a screen uses the program's one window: to show the screen's own view
// or the choice screen, or to disable the close box. The screens do not depend on the class of the
// window.
#pragma once

#include <QMainWindow>

class DBCWindowFrame : public QMainWindow {
public:
    // Shows the choice screen with the choice that the user made there last.
    virtual void initMainWindow() = 0;
    // Shows view in place of the present screen. From then on the window owns view, too.
    virtual void showView(QWidget* view) = 0;
    // While the close box is disabled, neither the user nor the program can close the window.
    virtual void setCloseBoxEnabled(bool isEnabled) = 0;
};
