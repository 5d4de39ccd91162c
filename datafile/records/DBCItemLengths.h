// SPDX-License-Identifier: GPL-3.0-or-later
// Which items of a record have a maximum length, and whether they keep to it. The data file's
// reader logs the items that are too long and the check of a folder lists them; both ask here.
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

// All items with a maximum, in column order. State, city, street and address are measured as the
// one text in which they are stored, which stands under the key and at the place of the address.
std::vector<DBCMeasuredItem> measuredItems(const DBCRecord& record);
