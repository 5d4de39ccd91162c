// SPDX-License-Identifier: GPL-3.0-or-later
// Reads numbers as PDF files write them, whatever the locale.
#pragma once

#include <QByteArrayView>

// Returns the decimal number at the beginning of the text, after any blanks. Returns 0 when there
// is no number or when it is too large for a double.
double leadingDecimalNumber(QByteArrayView text);
