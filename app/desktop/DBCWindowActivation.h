// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

class QWidget;

// The leave to take the focus that the desktop gave to this start; empty: none. To be asked before
// there is an application object, which takes it out of the environment.
QByteArray activationTokenOfStart();

// Shows the window, minimised or not, in front of all others and gives it the focus. To be called
// where the user asked for the window outside of it. activationToken: the desktop's leave, where it
// gave one.
void bringToFront(QWidget& window, const QByteArray& activationToken);
