// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the images and the attachment folder that a line of the data file names. Both an import and
// the check of a folder use these functions, and each reports the outcome in its own way.
#pragma once

#include "system/DBCDescriptor.h"
#include "system/DBCNameLookup.h"

#include <QString>

struct DBCNamedFile {
    enum class Outcome : quint8 {
        NotNamed, // the item is blank
        Found,
        Missing, // does not exist, or is not a regular file or a folder as required
        LeadsOut, // the name points out of the folder in which it must lie
    };

    Outcome outcome = Outcome::NotNamed;
    QString folder; // the image or attachment folder, in which the file must lie
    QString path; // with links resolved when found, otherwise folder + '/' + name
    // The file, open for reading. Holds no open file when the file was not found or could not be
    // opened.
    DBCDescriptor file = DBCDescriptor(-1);
};

// The parameter folder is the interchange folder, and name is the item of the data file.
DBCNamedFile openNamedImage(DBCNameLookup& lookup, const QString& folder, const QString& name);
DBCNamedFile openNamedAttachments(
    DBCNameLookup& lookup, const QString& folder, const QString& name);
