// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QPDF;

// True when a page of the document, which was read from the path, shows more than one character of
// text.
bool hasPageText(QPDF* document, const QString& path);
