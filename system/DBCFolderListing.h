// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <system_error>
#include <vector>

// The names in a folder, hidden ones included, in the order of their bytes; they need not be UTF-8.
// None, with the reason in error, when the folder cannot be read to its end.
std::optional<std::vector<std::string>> namesInFolder(
    const QString& folder, std::error_code* error);
