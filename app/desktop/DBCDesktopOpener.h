// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a file in the program that the desktop uses for this type of file.
#pragma once

#include <QString>

#include <functional>

class QObject;

// path has to name an existing file. Returns at once. onRefusal is called later on this thread if
// the desktop has no program for the file, unless context is destroyed first.
void openOnDesktop(
    const QString& path, const QObject* context, const std::function<void()>& onRefusal);
