// SPDX-License-Identifier: GPL-3.0-or-later
// Splits full names and their readings into parts.
#pragma once

#include <QString>

#include <optional>

enum class DBCLanguage : quint32 { Japanese = 0x10001, Other = 0x10002 };

// A part is none when the rules set no such part, which is not the same as an empty part. No rule
// sets a prefix or a suffix.
struct DBCNameParts {
    std::optional<QString> first;
    std::optional<QString> middle;
    std::optional<QString> family;
    std::optional<QString> suffix;
    std::optional<QString> prefix;
};

namespace DBCNames {

// Japanese when a UTF-16 unit is greater than U+3000; the ideographic space itself does not count.
DBCLanguage judgeLanguage(QStringView text);

// No parts for none.
DBCNameParts separateName(const std::optional<QString>& text);
DBCNameParts separateNameYomi(const std::optional<QString>& text);

} // namespace DBCNames
