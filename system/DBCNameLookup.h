// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the files and folders that a record names inside a folder. Interchange folders come from
// systems that ignore case and compare names after Unicode normalisation. So the exact name is
// tried first, then its other normal form, then names that differ in case only; among equal
// candidates the first in byte order is taken. Nothing outside the folder is ever found.
#pragma once

#include "system/DBCDescriptor.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

class DBCNameLookup {
public:
    // The kind of entry to find, after following links; entries of other kinds are skipped.
    enum class Kind : quint8 { RegularFile, Folder };

    enum class Outcome : quint8 {
        Found,
        Missing,
        LeadsOut, // the name is absolute, or ".." or a link leads outside the folder
    };

    struct Result {
        Outcome outcome = Outcome::Missing;
        QString path; // path of the found entry with links resolved; empty unless Found
    };

    // The calling thread's instance. All records of an operation use it and share its listings.
    static DBCNameLookup& threadInstance();

    // name is relative to folder and may contain subfolders ("a/b.jpg"), separated by "/". The
    // folder itself is never found. If the name exists exactly as given, one system call finds it.
    // For other names the folder is listed once, and again only after the folder has changed.
    Result find(const QString& folder, const QString& name, Kind kind);

    struct Opened {
        Outcome outcome = Outcome::Missing;
        QString path; // as in Result
        // Open for reading. The descriptor is invalid unless outcome is Found and the entry could
        // be opened.
        DBCDescriptor file = DBCDescriptor(-1);
    };

    // Does the same as find(), and opens the entry that was found. Between the look-up and the
    // opening somebody may exchange the file for a link that leads out of the folder; such a link
    // is not opened.
    Opened open(const QString& folder, const QString& name, Kind kind);

    // Returns false for a name that is absolute or leaves its folder by "..". This examines the
    // text only, not the disk.
    static bool staysInside(const QString& name);

private:
    // Identifies one state of a folder. The stamp changes whenever an entry is added, renamed or
    // removed, so comparing two stamps shows whether a listing is out of date.
    struct Stamp {
        quint64 device = 0;
        quint64 inode = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;
        bool operator==(const Stamp&) const = default;
    };
    struct Listing {
        Stamp stamp;
        QHash<QString, QStringList> namesByFoldedName; // each list in byte order
    };

    static std::optional<Stamp> stampOf(const QString& folder);
    static Listing readListing(const QString& folder, const Stamp& stamp);
    QStringList otherSpellings(const QString& folder, const QString& name);
    std::optional<QString> intermediateFolder(const QString& folder, const QString& name);

    QHash<QString, Listing> _listings; // by folder
};
