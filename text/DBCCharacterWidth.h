// SPDX-License-Identifier: GPL-3.0-or-later
// Converts half-width katakana (U+FF61..U+FF9F) to full-width ones and joins a kana with the sound
// mark that follows it. No other characters change. The conversion uses its own tables because the
// cards in existing databases were converted by them; Unicode normalization (NFKC) would give other
// characters.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

// The length of the longest text that is converted, in UTF-16 units. A longer text is cut to this
// length.
inline constexpr qsizetype DBCConvertedTextLimit = 256;

// Writes the converted text to out; the text is cut before its first U+0000. Returns Success, or
// ParameterError when text is std::nullopt or out is null.
DBCResultCode convertHalfToFull(const std::optional<QString>& text, QString* out);

// The functions below are steps of convertHalfToFull(). They are public on purpose: they are kept
// as an interface.

// Converts the zero-terminated source. destination must be filled with zeros and have room for as
// many units as the source has, plus a terminator. A null source gives an empty text.
void convertDBC2SBC(const char16_t* source, char16_t* destination);

// Joins a kana with a sound mark. markKind is 1 for the voiced mark and 2 for the semi-voiced mark.
// Returns 0 and writes the joined character to out, or returns 1 when the two do not combine.
qint32 ConvertJapChar2SBC(char16_t kana, qint32 markKind, char16_t* out);

// Returns 0 and writes the full-width character to out, or returns 1 when unit is not a half-width
// katakana.
qint32 JapUnicode_DBC2SBC(char16_t unit, char16_t* out);

// Returns the number of units before the first zero unit, at most limit. Returns -1 for a null
// buffer.
qint32 get_unicharLen(const char16_t* buffer, qint32 limit);
