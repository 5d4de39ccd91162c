// SPDX-License-Identifier: GPL-3.0-or-later
// Splits the full name on a card, and the reading of this name, into family name, first name and
// middle name.
#pragma once

#include <QString>

#include <optional>

enum class DBCLanguage : quint32 { Japanese = 0x10001, Other = 0x10002 };

// A part is std::nullopt when the rules do not set it, and is then not stored; an empty part is
// stored. No rule sets a prefix or a suffix.
struct DBCNameParts {
    std::optional<QString> first;
    std::optional<QString> middle;
    std::optional<QString> family;
    std::optional<QString> suffix;
    std::optional<QString> prefix;
};

namespace DBCNames {

// Returns Japanese when the text has a UTF-16 unit above U+3000. The ideographic space, U+3000
// itself, does not make a text Japanese.
DBCLanguage judgeLanguage(QStringView text);

// Both functions return a result without parts when text is std::nullopt.
DBCNameParts separateName(const std::optional<QString>& text);
DBCNameParts separateNameYomi(const std::optional<QString>& text);

} // namespace DBCNames
