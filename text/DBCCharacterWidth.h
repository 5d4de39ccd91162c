// SPDX-License-Identifier: GPL-3.0-or-later
// Half-width katakana (U+FF61..U+FF9F) to full-width, joining a kana with the sound mark behind it.
// Nothing else is widened. Library conversions (NFKC) give other kana than the tables used here.
#pragma once

#include "operation/base/DBCResultCode.h"

#include <QString>

#include <optional>

// Longest text that is converted, in UTF-16 units; the rest is cut.
inline constexpr qsizetype DBCConvertedTextLimit = 256;

// ParameterError when text is none or out is null; else Success. A U+0000 ends the result.
DBCResultCode convertHalfToFull(const std::optional<QString>& text, QString* out);

// Converts the zero-terminated source into destination, which holds at least as many units as the
// source plus a terminator and is zero-filled. A null source writes a terminator.
void convertDBC2SBC(const char16_t* source, char16_t* destination);

// markKind 1: voiced, 2: semi-voiced. 1 when the pair does not combine; 0 with the combined
// character in out when it does.
qint32 ConvertJapChar2SBC(char16_t kana, qint32 markKind, char16_t* out);

// 0 with the converted unit in out, 1 when there is nothing to convert.
qint32 JapUnicode_DBC2SBC(char16_t unit, char16_t* out);

// Units before the first zero unit, at most limit; -1 for a null buffer.
qint32 get_unicharLen(const char16_t* buffer, qint32 limit);
