// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCExtendedAttributes.h"

#include <QByteArray>
#include <QList>

#include <algorithm>
#include <array>
#include <optional>

#include <cerrno>
#include <sys/xattr.h>

namespace {

constexpr std::array copiedNamespaces {"user.", "system.posix_acl_"};

bool isCopied(const QByteArray& name)
{
    return std::any_of(copiedNamespaces.begin(), copiedNamespaces.end(),
        [&](const char* start) { return name.startsWith(start); });
}

bool isUnsupported()
{
    return errno == EOPNOTSUPP || errno == ENOSYS;
}

// Reads the size of a value and then the value, and starts again if the value has grown in between.
template <typename Ask> std::optional<QByteArray> wholeValue(Ask ask)
{
    while (true) {
        const ssize_t size = ask(nullptr, 0);
        if (size <= 0)
            return size == 0 ? std::optional(QByteArray()) : std::nullopt;
        QByteArray value(size, Qt::Uninitialized);
        const ssize_t got = ask(value.data(), static_cast<std::size_t>(size));
        if (got >= 0) {
            value.truncate(got);
            return value;
        }
        if (errno != ERANGE)
            return std::nullopt;
    }
}

bool copyAttribute(int from, int to, const QByteArray& name)
{
    const auto value = wholeValue([&](char* buffer, std::size_t size) {
        return fgetxattr(from, name.constData(), buffer, size);
    });
    if (!value)
        return errno == ENODATA; // removed since it was listed
    return fsetxattr(
               to, name.constData(), value->constData(), static_cast<std::size_t>(value->size()), 0)
        == 0
        || isUnsupported();
}

} // namespace

bool copyExtendedAttributes(int from, int to)
{
    const auto list = wholeValue(
        [from](char* buffer, std::size_t size) { return flistxattr(from, buffer, size); });
    if (!list)
        return isUnsupported();
    const QList<QByteArray> names = list->split('\0');
    return std::all_of(names.begin(), names.end(),
        [&](const QByteArray& name) { return !isCopied(name) || copyAttribute(from, to, name); });
}
