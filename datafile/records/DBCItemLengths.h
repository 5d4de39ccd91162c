// SPDX-License-Identifier: GPL-3.0-or-later
// Decides which items of a record are too long. The reader of the data file logs these items, and
// the check of a folder lists them; both call measuredItems().
#pragma once

#include "datafile/records/DBCRecord.h"

#include <QString>

#include <optional>
#include <vector>

struct DBCMeasuredItem {
    DBCRecordKey key;
    std::optional<QString> text; // std::nullopt when the record lacks the item
    qsizetype maxLength; // in UTF-16 units

    bool isTooLong() const { return text && text->size() > maxLength; }
    // Returns the title of the item's column, or for the address the titles of its four columns.
    QString label() const;
};

// Returns all items that have a maximum length, in column order. State, city, street and address
// give one item, because a card stores them as one text; the item has the key and the position of
// the address.
std::vector<DBCMeasuredItem> measuredItems(const DBCRecord& record);
