// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the files and folders that a record names inside a folder. Interchange folders come from
// systems that ignore case and compare names after Unicode normalisation, so a name is taken
// exactly first, then in its other normal form, then without regard to case; of several equal
// candidates the first in the order of their bytes. Nothing outside the folder is ever found.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

class DBCNameLookup {
public:
    // What an entry has to be, links followed; anything else does not count as a candidate.
    enum class Kind : quint8 { RegularFile, Folder };

    enum class Outcome : quint8 {
        Found,
        Missing,
        LeadsOut, // absolute, or ".." or a link resolves to something outside the folder
    };

    struct Result {
        Outcome outcome = Outcome::Missing;
        QString path; // of what was found, links resolved; empty unless Found
    };

    // The one of the calling thread, so that all records of an operation share the listings.
    static DBCNameLookup& threadInstance();

    // name is relative to folder and may have subfolders ("a/b.jpg"); only "/" separates them. The
    // folder itself is not found, by whatever name. A name that exists exactly costs one look; for
    // the others a folder is listed once and again only after it has changed.
    Result find(const QString& folder, const QString& name, Kind kind);

    // False for a name that is absolute or climbs out of its folder by "..". Looks at the text
    // only.
    static bool staysInside(const QString& name);

private:
    // Tells a changed folder from one that was listed before.
    struct Stamp {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Listing {
        Stamp stamp;
        QHash<QString, QStringList> namesByFoldedName; // each list in the order of the names' bytes
    };

    static std::optional<Stamp> stampOf(const QString& folder);
    static Listing readListing(const QString& folder, const Stamp& stamp);
    QStringList otherSpellings(const QString& folder, const QString& name);
    std::optional<QString> intermediateFolder(const QString& folder, const QString& name);

    QHash<QString, Listing> _listings; // by folder
};
