// SPDX-License-Identifier: GPL-3.0-or-later
// Converts half-width katakana (U+FF61..U+FF9F) to full-width ones and joins a kana with the sound
// mark that follows it. No other characters change. Library conversions (NFKC) cannot be used: they
// give other characters than the tables here, which match the cards stored before.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

// Longest text that is converted, in UTF-16 units. The rest of a longer text is cut off.
inline constexpr qsizetype DBCConvertedTextLimit = 256;

// Returns ParameterError when text is none or out is null, otherwise Success. The result ends
// before the first U+0000.
DBCResultCode convertHalfToFull(const std::optional<QString>& text, QString* out);

// The functions below are steps of convertHalfToFull(). They are public on purpose, as an
// interface.

// Converts the zero-terminated source. destination must be filled with zeros and have room for as
// many units as the source has, plus a terminator. A null source gives an empty text.
void convertDBC2SBC(const char16_t* source, char16_t* destination);

// Joins a kana with a sound mark. markKind: 1 for the voiced mark, 2 for the semi-voiced one.
// Returns 0 and the joined character in out, or 1 when the two do not combine.
qint32 ConvertJapChar2SBC(char16_t kana, qint32 markKind, char16_t* out);

// Returns 0 and the full-width character in out, or 1 when unit is no half-width katakana.
qint32 JapUnicode_DBC2SBC(char16_t unit, char16_t* out);

// The number of units before the first zero unit, at most limit; -1 for a null buffer.
qint32 get_unicharLen(const char16_t* buffer, qint32 limit);
