// SPDX-License-Identifier: GPL-3.0-or-later
// Brings the window to the front at the user's request, on X11 and on Wayland.
#pragma once

#include <QByteArray>

class QWidget;

// Returns the token with which the desktop permits the started program to take the focus. Returns
// an empty text if the desktop gave no token. Call this function before you create the application
// object, because the application object removes the token from the environment.
QByteArray activationTokenOfStart();

// Shows the window, even if minimised, in front of all others and gives it the focus. Call it when
// the user has asked for the window elsewhere on the desktop, for example by clicking a
// notification. activationToken is the desktop's permission to take the focus; it is empty if there
// is none.
void bringToFront(QWidget& window, const QByteArray& activationToken);
