// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>

// The decimal number that the text begins with, blanks before it skipped; 0 when there is none or
// when it is beyond a double. The locale has no say in it.
double leadingDecimalNumber(QByteArrayView text);
