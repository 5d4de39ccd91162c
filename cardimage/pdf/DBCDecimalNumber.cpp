// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCDecimalNumber.h"

#include <charconv>
#include <cmath>

double leadingDecimalNumber(QByteArrayView text)
{
    text = text.trimmed();
    if (text.startsWith('+'))
        text = text.sliced(1);
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::isfinite(number) ? number : 0; // from_chars() also accepts "inf" and "nan"
}
