// SPDX-License-Identifier: GPL-3.0-or-later
// Looks for text in a card PDF, which decides whether its images are taken out or its first page is
// drawn.
#pragma once

#include <QString>

class QPDF;

// True when a page of the document has more than one character of text. The document must have been
// read from the file at the path, which is opened again, by the drawing library, only if a page
// uses fonts: that takes longer than everything else that is done to a card PDF. False when the
// search takes too long or the drawing library cannot open the file. Throws the structure library's
// exceptions for a damaged document.
bool hasPageText(QPDF* document, const QString& path);
