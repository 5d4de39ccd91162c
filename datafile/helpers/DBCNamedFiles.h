// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the images and the attachment folder that a line of the data file names. An import and the
// check of a folder both ask here, and each reports the outcome in its own way.
#pragma once

#include "system/DBCDescriptor.h"
#include "system/DBCNameLookup.h"

#include <QString>

struct DBCNamedFile {
    enum class Outcome : quint8 {
        NotNamed, // the item is blank
        Found,
        Missing, // nothing of that name, or no regular file (no folder) by that name
        LeadsOut, // the name points out of the folder in which it must lie
    };

    Outcome outcome = Outcome::NotNamed;
    QString folder; // the image or attachment folder, in which the file must lie
    QString path; // when found, with links resolved; else the folder and the name as they are given
    // Open for reading when the file was found and could be opened; else none.
    DBCDescriptor file = DBCDescriptor(-1);
};

// folder: the interchange folder. name: the item of the data file.
DBCNamedFile openNamedImage(DBCNameLookup& lookup, const QString& folder, const QString& name);
DBCNamedFile openNamedAttachments(
    DBCNameLookup& lookup, const QString& folder, const QString& name);
