// SPDX-License-Identifier: GPL-3.0-or-later
// Lists the names in a folder given by its path.
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <system_error>
#include <vector>

// Returns all names, including hidden ones, sorted by their bytes, which need not be valid UTF-8.
// If the folder cannot be read to its end, returns std::nullopt and stores the reason in error.
std::optional<std::vector<std::string>> namesInFolder(
    const QString& folder, std::error_code* error);
