// SPDX-License-Identifier: GPL-3.0-or-later
// Reads numbers as PDF files write them, whatever the locale.
#pragma once

#include <QByteArrayView>

// The decimal number at the beginning of the text, after blanks. 0 when there is none or when it is
// too large for a double.
double leadingDecimalNumber(QByteArrayView text);
