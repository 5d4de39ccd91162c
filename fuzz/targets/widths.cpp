// SPDX-License-Identifier: GPL-3.0-or-later
// Converts half-width katakana to full width.
#include "datafile/helpers/DBCCommonFunction.h"
#include "fuzz/FuzzTarget.h"
#include "text/DBCCharacterWidth.h"

#include <algorithm>

namespace {

bool isHalfWidthKatakana(QChar unit)
{
    return unit >= QChar(u'\uFF61') && unit <= QChar(u'\uFF9F');
}

void judgeUnits(QStringView text)
{
    for (const QChar unit : text) {
        for (qint32 markKind = 0; markKind <= 3; ++markKind) {
            char16_t out = 0;
            const qint32 code = ConvertJapChar2SBC(unit.unicode(), markKind, &out);
            mustHold((code == 0) == (out != 0), "a pair combines into something or into nothing");
        }
        char16_t wide = 0;
        mustHold((JapUnicode_DBC2SBC(unit.unicode(), &wide) == 0) == (wide != 0),
            "a unit is converted to something or not at all");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = FuzzInput(data, size).remainingText();
    const QString wide = DBCCommonFunction::formatValue(text);

    const QStringView converted = QStringView(text).first(qMin(text.size(), DBCConvertedTextLimit));
    const qsizetype end = converted.indexOf(QChar(u'\0'));
    const QStringView source = end < 0 ? converted : converted.first(end);
    mustHold(wide.size() <= source.size(), "no text becomes longer");
    mustHold(std::none_of(wide.begin(), wide.end(), isHalfWidthKatakana),
        "no half-width katakana is left");
    if (std::none_of(source.begin(), source.end(), isHalfWidthKatakana))
        mustHold(wide == source, "a text without half-width katakana stays as it is");
    mustHold(DBCCommonFunction::formatValue(wide) == wide, "converting twice is converting once");
    judgeUnits(source);
    return 0;
}
