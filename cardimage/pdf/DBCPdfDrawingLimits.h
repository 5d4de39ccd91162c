// SPDX-License-Identifier: GPL-3.0-or-later
// Recognises, before a page is drawn, that the drawing library (Poppler) would need minutes or
// gigabytes for the page.
#pragma once

#include <QByteArray>
#include <QSizeF>

// The bytes are those of a PDF document whose first page has the size pagePoints. Returns true when
// this page uses an image that is too large for any card, or a tiling pattern whose tiles are too
// many: the drawing library handles each of these in one step that cannot be interrupted. Also
// returns true when the document is too damaged to be examined.
bool isTooMuchToDraw(const QByteArray& bytes, QSizeF pagePoints);
