// SPDX-License-Identifier: GPL-3.0-or-later
// Recognises pages that would take the drawing library minutes or gigabytes, before it draws them.
#pragma once

#include <QByteArray>
#include <QSizeF>

// True when the first page of the document in these bytes, whose size is pagePoints points, uses an
// image or a tiling pattern too large for any card. The drawing library handles these in single
// steps that cannot be interrupted. Also true when the document is too damaged to be examined.
bool isTooMuchToDraw(const QByteArray& bytes, QSizeF pagePoints);
