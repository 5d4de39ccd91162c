// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCCharacterSets.h"

QStringView newLineCharacters()
{
    return u"\u000D\u2028\u000A\u2029\u0085";
}

QStringView blankAndNewLineCharacters()
{
    return u"\u0009\u0020\u3000\u000A\u000D\u0085\u2028";
}

bool isWhiteSpace(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

QStringView trimmedBy(QStringView text, QStringView set)
{
    return trimmedWhere(text, [set](QChar character) { return set.contains(character); });
}

bool isBlank(QStringView text)
{
    return trimmedBy(text, blankAndNewLineCharacters()).isEmpty();
}
