// SPDX-License-Identifier: GPL-3.0-or-later
// The sets of characters that end lines, and of those that are trimmed from the texts of cards.
// Qt's trimmed() and isSpace() use other sets and must not be used for the texts of cards.
#pragma once

#include <QStringView>

// Returns U+000D, U+2028, U+000A, U+2029 and U+0085.
QStringView newLineCharacters();
// Returns U+0009, U+0020, U+3000, U+000A, U+000D, U+0085 and U+2028. U+2029 does not belong to this
// set.
QStringView blankAndNewLineCharacters();

// Returns true for a tab and for every Unicode space separator, including U+00A0 and U+3000, but
// not for line ends.
bool isWhiteSpace(QChar character);

// Removes characters from both ends of the text as long as unwanted(QChar) is true for them.
template <typename Predicate> QStringView trimmedWhere(QStringView text, Predicate unwanted)
{
    while (!text.isEmpty() && unwanted(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && unwanted(text.back()))
        text.chop(1);
    return text;
}

// Returns true when the text is empty or consists of blankAndNewLineCharacters() only.
bool isBlank(QStringView text);

// Removes the characters of set from both ends of the text.
QStringView trimmedBy(QStringView text, QStringView set);
