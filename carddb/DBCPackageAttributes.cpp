// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageAttributes.h"

#include "carddb/DBCPackageLayout.h"
#include "system/DBCHost.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace {

struct Rights {
    bool readable;
    bool writable;
};

Rights rightsTo(const QString& path)
{
    const DBCHost& host = DBCHost::current();
    return {host.isReadable(path), host.isWritable(path)};
}

// Returns the package, its store, and "Images" and "Files" if they exist, in this order.
std::vector<QString> partsOfPackage(const QString& package)
{
    std::vector<QString> parts {package, DBCPackageLayout::storeFile(package)};
    for (const QString& folder :
        {DBCPackageLayout::imagesFolder(package), DBCPackageLayout::filesFolder(package)}) {
        if (QFileInfo::exists(folder))
            parts.push_back(folder);
    }
    return parts;
}

// Returns PackageLocked when a part is immutable, GeneralFailure when that cannot be read, else
// PackageUsable.
DBCResultCode checkImmutable(const std::vector<QString>& parts)
{
    for (const QString& part : parts) {
        const std::optional<bool> immutable = DBCHost::current().isImmutable(part);
        if (!immutable)
            return DBCResultCode::GeneralFailure;
        if (*immutable)
            return DBCResultCode::PackageLocked;
    }
    return DBCResultCode::PackageUsable;
}

DBCResultCode checkAccessRights(const std::vector<QString>& parts)
{
    std::vector<Rights> rights;
    std::transform(parts.begin(), parts.end(), std::back_inserter(rights), rightsTo);
    const auto isUsable = [](Rights part) { return part.readable && part.writable; };
    const auto isReadOnly = [](Rights part) { return part.readable && !part.writable; };
    const auto isReadable = [](Rights part) { return part.readable; };

    if (std::all_of(rights.begin(), rights.end(), isUsable))
        return DBCResultCode::PackageUsable;
    // The rights to the package folder itself, the first entry, do not count here, because cards
    // are written into the package's parts.
    if (std::all_of(std::next(rights.begin()), rights.end(), isReadOnly))
        return DBCResultCode::PackageReadOnly;
    if (!std::all_of(rights.begin(), rights.end(), isReadable))
        return DBCResultCode::PackageInvalid;
    return DBCResultCode::PackageOtherRights;
}

} // namespace

DBCResultCode checkPackageAttributes(const QString& package)
{
    if (package.isEmpty())
        return DBCResultCode::GeneralFailure;
    if (QFileInfo(QDir::cleanPath(package)).suffix().toLower()
        != QStringView(DBCPackageLayout::extension))
        return DBCResultCode::PackageInvalid;
    if (!QFileInfo::exists(package) || !QFileInfo::exists(DBCPackageLayout::storeFile(package)))
        return DBCResultCode::PackageNotExist;

    const std::vector<QString> parts = partsOfPackage(package);
    const DBCResultCode immutable = checkImmutable(parts);
    return immutable == DBCResultCode::PackageUsable ? checkAccessRights(parts) : immutable;
}
