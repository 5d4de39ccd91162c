// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCNameLookup.h"

#include "system/DBCFolderListing.h"
#include "system/DBCOpenInside.h"
#include "system/DBCPathNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool isOfKind(const struct stat& status, DBCNameLookup::Kind kind)
{
    return kind == DBCNameLookup::Kind::Folder ? S_ISDIR(status.st_mode) : S_ISREG(status.st_mode);
}

QString foldedName(const QString& name)
{
    // Case folding can produce text that is not in normal form, so it is normalised again.
    return name.normalized(QString::NormalizationForm_C)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_C);
}

// Decides for each candidate whether it is of the right kind and inside the folder.
class CandidateCheck {
public:
    CandidateCheck(const QString& folder, DBCNameLookup::Kind kind)
        : _folder(folder)
        , _kind(kind)
    {
    }

    // Returns the path to use, or std::nullopt if the candidate must not be used. isDirectChild is
    // true if the candidate is an entry of the folder itself and not of a subfolder.
    std::optional<QString> accept(const QString& candidate, bool isDirectChild)
    {
        const QByteArray native = QFile::encodeName(candidate);
        struct stat status { };
        if (lstat(native.constData(), &status) != 0)
            return std::nullopt;
        if (isDirectChild && !S_ISLNK(status.st_mode))
            return isOfKind(status, _kind) ? std::optional(candidate) : std::nullopt;

        const QString resolved = QFileInfo(candidate).canonicalFilePath();
        if (resolved.isEmpty())
            return std::nullopt;
        if (!pathBelow(QFileInfo(_folder).canonicalFilePath(), resolved)) {
            _ledOut = true;
            return std::nullopt;
        }
        if (stat(native.constData(), &status) != 0 || !isOfKind(status, _kind))
            return std::nullopt;
        return resolved;
    }

    bool ledOut() const { return _ledOut; }

private:
    const QString& _folder;
    DBCNameLookup::Kind _kind;
    bool _ledOut = false;
};

} // namespace

DBCNameLookup& DBCNameLookup::threadInstance()
{
    static thread_local DBCNameLookup lookup;
    return lookup;
}

bool DBCNameLookup::staysInside(const QString& name)
{
    if (name.startsWith(u'/'))
        return false;
    const QString clean = QDir::cleanPath(name);
    return clean != QLatin1String("..") && !clean.startsWith(QLatin1String("../"));
}

DBCNameLookup::Result DBCNameLookup::find(const QString& folder, const QString& name, Kind kind)
{
    if (name.startsWith(u'/'))
        return {Outcome::LeadsOut, {}};
    Result missing {staysInside(name) ? Outcome::Missing : Outcome::LeadsOut, {}};

    QStringList components = name.split(u'/', Qt::SkipEmptyParts);
    components.removeAll(u"."_s);
    // The system would cut the name at U+0000 and find another entry.
    if (components.isEmpty() || name.contains(QChar::Null))
        return missing;

    const QString last = components.takeLast();
    QString parent = folder;
    for (const QString& component : std::as_const(components)) {
        const std::optional<QString> next = intermediateFolder(parent, component);
        if (!next)
            return missing;
        parent = *next;
    }

    const bool isDirectChild = components.isEmpty() && last != QLatin1String("..");
    CandidateCheck check(folder, kind);
    if (const auto path = check.accept(parent + u'/' + last, isDirectChild))
        return {Outcome::Found, *path};
    for (const QString& spelling : otherSpellings(parent, last)) {
        if (const auto path = check.accept(parent + u'/' + spelling, isDirectChild))
            return {Outcome::Found, *path};
    }
    return check.ledOut() ? Result {Outcome::LeadsOut, {}} : missing;
}

DBCNameLookup::Opened DBCNameLookup::open(const QString& folder, const QString& name, Kind kind)
{
    const Result found = find(folder, name, kind);
    if (found.outcome != Outcome::Found)
        return {found.outcome, {}};
    // If a pipe has taken the file's place, opening it must not wait for a writer.
    const int flags = O_RDONLY | (kind == Kind::Folder ? O_DIRECTORY : O_NONBLOCK);
    return {found.outcome, found.path, openInside(folder, found.path, flags)};
}

std::optional<QString> DBCNameLookup::intermediateFolder(const QString& folder, const QString& name)
{
    const QString exact = folder + u'/' + name;
    if (QFileInfo(exact).isDir())
        return exact;
    for (const QString& spelling : otherSpellings(folder, name)) {
        const QString candidate = folder + u'/' + spelling;
        if (QFileInfo(candidate).isDir())
            return candidate;
    }
    return std::nullopt;
}

std::optional<DBCNameLookup::Stamp> DBCNameLookup::stampOf(const QString& folder)
{
    struct stat status { };
    if (stat(QFile::encodeName(folder).constData(), &status) != 0)
        return std::nullopt;
    return Stamp {status.st_dev, status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

DBCNameLookup::Listing DBCNameLookup::readListing(const QString& folder, const Stamp& stamp)
{
    Listing listing {stamp, {}};
    std::error_code error;
    for (const std::string& native :
        namesInFolder(folder, &error).value_or(std::vector<std::string>())) {
        const QString name = QFile::decodeName(native.c_str());
        listing.namesByFoldedName[foldedName(name)] << name;
    }
    return listing;
}

// Returns the folder's entries whose names equal name except for normal form or case, the best
// match first.
QStringList DBCNameLookup::otherSpellings(const QString& folder, const QString& name)
{
    const std::optional<Stamp> stamp = stampOf(folder);
    if (!stamp)
        return {};
    auto listing = _listings.find(folder);
    if (listing == _listings.end() || listing->stamp != *stamp)
        listing = _listings.insert(folder, readListing(folder, *stamp));

    QStringList names = listing->namesByFoldedName.value(foldedName(name));
    names.removeAll(name);
    const QString normalized = name.normalized(QString::NormalizationForm_C);
    std::stable_partition(names.begin(), names.end(), [&normalized](const QString& candidate) {
        return candidate.normalized(QString::NormalizationForm_C) == normalized;
    });
    return names;
}
