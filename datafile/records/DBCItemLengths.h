// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which items of a record are too long. The data file's reader logs these items and the
// check of a folder lists them; both ask here.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <QString>

#include <optional>
#include <vector>

struct DBCMeasuredItem {
    DBCRecordKey key;
    std::optional<QString> text; // none when the record lacks the item
    qsizetype maxLength; // in UTF-16 units

    bool isTooLong() const { return text && text->size() > maxLength; }
    // The title of the item's column. The address has the titles of its four columns.
    QString label() const;
};

// Returns all items that have a maximum length, in column order. State, city, street and address
// are stored as one text, so that text is measured; it has the key and the place of the address.
std::vector<DBCMeasuredItem> measuredItems(const DBCRecord& record);
