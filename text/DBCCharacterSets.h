// SPDX-License-Identifier: GPL-3.0-or-later
// The character sets by which texts are trimmed and lines are ended. Qt's trimmed() and isSpace()
// know other characters, so texts of cards are never trimmed with those.
#pragma once

#include <QStringView>

// U+000D, U+2028, U+000A, U+2029, U+0085.
QStringView newLineCharacters();
// U+0009, U+0020, U+3000, U+000A, U+000D, U+0085, U+2028; not U+2029.
QStringView blankAndNewLineCharacters();

// Tab and every Unicode space separator, U+00A0 and U+3000 among them; no line ends.
bool isWhiteSpace(QChar character);

// text without the characters at both ends for which unwanted(QChar) holds.
template <typename Predicate> QStringView trimmedWhere(QStringView text, Predicate unwanted)
{
    while (!text.isEmpty() && unwanted(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && unwanted(text.back()))
        text.chop(1);
    return text;
}

// True for an empty text, too: nothing but blankAndNewLineCharacters().
bool isBlank(QStringView text);

// text without the characters of set at both ends.
QStringView trimmedBy(QStringView text, QStringView set);
