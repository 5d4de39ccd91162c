// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the rotation in a content stream of any bytes.
#include "cardimage/pdf/DBCContentRotation.h"
#include "fuzz/FuzzTarget.h"

#include <clocale>
#include <cstdlib>
#include <locale.h>

namespace {

// Returns a locale whose decimal separator is a comma. The build creates this locale in
// LOCALE_FOLDER, because most systems do not have it.
locale_t commaLocale()
{
    ::setenv("LOCPATH", LOCALE_FOLDER, 1);
    const locale_t locale = ::newlocale(LC_ALL_MASK, "de_DE.UTF-8", nullptr);
    mustHold(locale != nullptr, "there is a locale with a comma");
    return locale;
}

qint32 rotationOf(QByteArrayView contents)
{
    qint32 degrees = -1;
    GetRotateDegreeFromStreamData(contents, &degrees);
    return degrees;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const locale_t comma = commaLocale();
    const QByteArrayView contents(data, static_cast<qsizetype>(size));
    const qint32 degrees = rotationOf(contents);
    mustHold(degrees == 0 || degrees == 90 || degrees == 180 || degrees == 270,
        "a rotation is one of four");

    const locale_t before = ::uselocale(comma);
    const qint32 degreesWithComma = rotationOf(contents);
    ::uselocale(before);
    mustHold(degreesWithComma == degrees, "a rotation does not depend on the locale");
    return 0;
}
