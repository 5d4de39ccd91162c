// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCPathNames.h"

#include <QFile>

std::optional<QString> pathBelow(const QString& folder, const QString& path)
{
    const QString start = folder.endsWith(u'/') ? folder : folder + u'/';
    return path.startsWith(start) ? std::optional(path.sliced(start.size())) : std::nullopt;
}

std::filesystem::path nativePath(const QString& path)
{
    return QFile::encodeName(path).toStdString();
}
