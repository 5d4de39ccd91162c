// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a file in the program that the desktop uses for this type of file.
#pragma once

#include <QString>

#include <functional>

class QObject;

// path has to name an existing file. The function returns at once. If the desktop has no program
// for the file, onRefusal is called later on the same thread, unless context has been destroyed by
// then.
void openOnDesktop(
    const QString& path, const QObject* context, const std::function<void()>& onRefusal);
