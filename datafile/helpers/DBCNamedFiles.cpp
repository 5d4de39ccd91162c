// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCNamedFiles.h"

#include "datafile/helpers/DBCInterchangeNames.h"
#include "text/DBCCharacterSets.h"

#include <utility>

namespace {

DBCNamedFile::Outcome outcomeOf(DBCNameLookup::Outcome outcome)
{
    switch (outcome) {
    case DBCNameLookup::Outcome::Found:
        return DBCNamedFile::Outcome::Found;
    case DBCNameLookup::Outcome::LeadsOut:
        return DBCNamedFile::Outcome::LeadsOut;
    case DBCNameLookup::Outcome::Missing:
        break;
    }
    return DBCNamedFile::Outcome::Missing;
}

DBCNamedFile openNamed(
    DBCNameLookup& lookup, const QString& folder, const QString& name, DBCNameLookup::Kind kind)
{
    if (isBlank(name))
        return {};
    auto opened = lookup.open(folder, name, kind);
    const bool isFound = opened.outcome == DBCNameLookup::Outcome::Found;
    return {outcomeOf(opened.outcome), folder, isFound ? opened.path : folder + u'/' + name,
        std::move(opened.file)};
}

} // namespace

DBCNamedFile openNamedImage(DBCNameLookup& lookup, const QString& folder, const QString& name)
{
    return openNamed(
        lookup, DBCInterchangeNames::imageFolder(folder), name, DBCNameLookup::Kind::RegularFile);
}

DBCNamedFile openNamedAttachments(DBCNameLookup& lookup, const QString& folder, const QString& name)
{
    return openNamed(
        lookup, DBCInterchangeNames::attachmentFolder(folder), name, DBCNameLookup::Kind::Folder);
}
