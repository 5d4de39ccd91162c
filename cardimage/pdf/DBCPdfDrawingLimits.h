// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QSizeF>

// True when the first page, of that many points, of the document in the bytes holds what the
// drawing library would take minutes or gigabytes for, in steps in which it asks nobody: an image
// or a pattern that no card has. True also for a document that cannot be looked through before.
bool isTooMuchToDraw(const QByteArray& bytes, QSizeF pagePoints);
