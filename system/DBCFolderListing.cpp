// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCFolderListing.h"

#include <QFile>

#include <algorithm>
#include <filesystem>

std::optional<std::vector<std::string>> namesInFolder(const QString& folder, std::error_code* error)
{
    std::vector<std::string> names;
    std::filesystem::directory_iterator entry(QFile::encodeName(folder).toStdString(), *error);
    for (; !*error && entry != std::filesystem::directory_iterator(); entry.increment(*error))
        names.push_back(entry->path().filename().native());
    if (*error)
        return std::nullopt;
    std::sort(names.begin(), names.end());
    return names;
}
