// SPDX-License-Identifier: GPL-3.0-or-later
// Opens a file in the desktop's program for files of its kind.
#pragma once

#include <QString>

#include <functional>

class QObject;

// path: an existing file. Returns at once; onRefusal is called when there is no such program,
// unless context is destroyed first.
void openOnDesktop(
    const QString& path, const QObject* context, const std::function<void()>& onRefusal);
