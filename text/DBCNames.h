// SPDX-License-Identifier: GPL-3.0-or-later
// Splits the full name of a card and its reading into family name, first name and middle name.
#pragma once

#include <QString>

#include <optional>

enum class DBCLanguage : quint32 { Japanese = 0x10001, Other = 0x10002 };

// A part is none when the rules do not set it; that differs from an empty part, which is stored. No
// rule sets a prefix or a suffix.
struct DBCNameParts {
    std::optional<QString> first;
    std::optional<QString> middle;
    std::optional<QString> family;
    std::optional<QString> suffix;
    std::optional<QString> prefix;
};

namespace DBCNames {

// Japanese when the text has a UTF-16 unit above U+3000, so the ideographic space does not count.
DBCLanguage judgeLanguage(QStringView text);

// Both return no parts when text is none.
DBCNameParts separateName(const std::optional<QString>& text);
DBCNameParts separateNameYomi(const std::optional<QString>& text);

} // namespace DBCNames
