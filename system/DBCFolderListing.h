// SPDX-License-Identifier: GPL-3.0-or-later
// Lists the names in a folder given by its path.
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <system_error>
#include <vector>

// All names, hidden ones included, sorted by their bytes, which need not be valid UTF-8. None, with
// the reason in error, when the folder cannot be read to its end.
std::optional<std::vector<std::string>> namesInFolder(
    const QString& folder, std::error_code* error);
