// SPDX-License-Identifier: GPL-3.0-or-later
// The sets of characters that end lines and that are trimmed from texts of cards. Qt's trimmed()
// and isSpace() use other sets, so they must not be used for texts of cards.
#pragma once

#include <QStringView>

// U+000D, U+2028, U+000A, U+2029, U+0085.
QStringView newLineCharacters();
// U+0009, U+0020, U+3000, U+000A, U+000D, U+0085, U+2028; not U+2029.
QStringView blankAndNewLineCharacters();

// True for a tab and for every Unicode space separator, including U+00A0 and U+3000, but not for
// line ends.
bool isWhiteSpace(QChar character);

// Returns text without the characters at both ends for which unwanted(QChar) is true.
template <typename Predicate> QStringView trimmedWhere(QStringView text, Predicate unwanted)
{
    while (!text.isEmpty() && unwanted(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && unwanted(text.back()))
        text.chop(1);
    return text;
}

// True when the text is empty or consists of blankAndNewLineCharacters() only.
bool isBlank(QStringView text);

// Returns text without the characters of set at both ends.
QStringView trimmedBy(QStringView text, QStringView set);
