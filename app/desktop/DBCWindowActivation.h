// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the window to the front at the user's request, on X11 and on Wayland.
#pragma once

#include <QByteArray>

class QWidget;

// The desktop's permission to take the focus after this start; empty: none. Call it before the
// application object is created, because that removes the token from the environment.
QByteArray activationTokenOfStart();

// Shows the window, even if minimised, in front of all others and gives it the focus. Call it when
// the user has asked for the window elsewhere on the desktop. activationToken is the desktop's
// permission to take the focus; empty: none.
void bringToFront(QWidget& window, const QByteArray& activationToken);
