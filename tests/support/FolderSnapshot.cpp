// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/FolderSnapshot.h"

#include <QFile>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentsOf(const std::filesystem::path& path, mode_t mode)
{
    if (S_ISLNK(mode))
        return QByteArray::fromStdString(std::filesystem::read_symlink(path).native());
    if (!S_ISREG(mode))
        return {};
    std::ifstream file(path, std::ios::binary);
    return QByteArray::fromStdString(std::string(std::istreambuf_iterator<char>(file), {}));
}

QString line(const std::filesystem::path& path, const std::filesystem::path& root)
{
    struct stat status { };
    if (lstat(path.c_str(), &status) != 0)
        return u"gone"_s;
    return u"%1 %2 %3.%4 %5"_s.arg(QString::fromStdString(path.lexically_relative(root).native()),
        QString::number(status.st_mode, 8), QString::number(status.st_mtim.tv_sec),
        QString::number(status.st_mtim.tv_nsec),
        QString::fromLatin1(contentsOf(path, status.st_mode).toHex()));
}

} // namespace

QStringList snapshotOf(const QString& folder)
{
    const std::filesystem::path root = QFile::encodeName(folder).toStdString();
    QStringList lines;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
        lines << line(entry.path(), root);
    lines.sort();
    lines.prepend(line(root, root));
    return lines;
}
