// SPDX-License-Identifier: GPL-3.0-or-later
// Splits a full name, or its phonetic reading, into parts.
#include "fuzz/FuzzTarget.h"
#include "text/DBCCharacterSets.h"
#include "text/DBCNames.h"

#include <algorithm>

namespace {

bool isBlank(QChar unit)
{
    return isWhiteSpace(unit) || (unit >= QChar(u'\n') && unit <= QChar(u'\r'))
        || newLineCharacters().contains(unit);
}

QString withoutBlanks(QString text)
{
    text.removeIf(isBlank);
    return text;
}

void judge(const QString& text, const DBCNameParts& parts)
{
    mustHold(!parts.prefix && !parts.suffix, "no rule sets a prefix or a suffix");
    const QString first = parts.first.value_or(QString());
    const QString middle = parts.middle.value_or(QString());
    const QString family = parts.family.value_or(QString());
    const bool isFamilyFirst = DBCNames::judgeLanguage(text) == DBCLanguage::Japanese;
    const QString together = isFamilyFirst ? family + first + middle : first + middle + family;
    mustHold(withoutBlanks(together) == withoutBlanks(text),
        "the parts hold what the name holds, in its order");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = FuzzInput(data, size).remainingText();
    const bool isJapanese
        = std::any_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() > 0x3000; });
    mustHold((DBCNames::judgeLanguage(text) == DBCLanguage::Japanese) == isJapanese,
        "a name is Japanese when a unit is beyond the ideographic space");
    judge(text, DBCNames::separateName(text));
    judge(text, DBCNames::separateNameYomi(text));
    return 0;
}
