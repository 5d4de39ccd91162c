// SPDX-License-Identifier: GPL-3.0-or-later
// Finds out whether a card PDF contains text. If it does, an export draws the first page; otherwise
// it takes the images out of the file.
#pragma once

#include <QString>

class QPDF;

// Returns true when a page of the document has more than one character of text. The document must
// have been read from the file at the path. If a page uses fonts, the function opens the file again
// with the drawing library (Poppler), which can extract text; it avoids this for other documents,
// because opening takes longer than all other work on a card PDF. Returns false when the search
// takes too long or the drawing library cannot open the file. Throws the exceptions of the
// structure library (QPDF) for a damaged document.
bool hasPageText(QPDF* document, const QString& path);
