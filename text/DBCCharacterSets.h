// SPDX-License-Identifier: GPL-3.0-or-later
// The two character sets by which texts are trimmed and lines are ended. Qt's trimmed() and
// isSpace() know other characters, so texts of cards are never trimmed with those.
#pragma once

#include <QStringView>

// U+000D, U+2028, U+000A, U+2029, U+0085.
QStringView newLineCharacters();
// U+0009, U+0020, U+3000, U+000A, U+000D, U+0085, U+2028; not U+2029.
QStringView blankAndNewLineCharacters();

// text without the characters of set at both ends.
QStringView trimmedBy(QStringView text, QStringView set);
