// SPDX-License-Identifier: GPL-3.0-or-later
// One card of the store in memory: an object of the entity Card with the values of its attributes,
// which DBCCardAttributes lists.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <optional>

// An attribute without a value was NULL in the store if the card was fetched. In a new card it gets
// the default of the store's table, or 0 for a number without one.
class Card {
public:
    Card() = default; // has no identity, as fetched cards
    explicit Card(const QString& identityURI)
        : _identityURI(identityURI)
    {
    }

    // The text of the URI that identifies a new card in its context; none for a fetched card.
    const std::optional<QString>& identityURI() const { return _identityURI; }

    // Null when the attribute has no value; valid until the card changes.
    const DBCValue* value(DBCRecordKey key) const { return _values.value(key); }
    QString textOrEmpty(DBCRecordKey key) const { return _values.textOrEmpty(key); }
    void setValue(DBCRecordKey key, DBCValue value) { _values.setValue(key, std::move(value)); }
    void reserve(std::size_t count) { _values.reserve(count); }

private:
    DBCRecord _values;
    std::optional<QString> _identityURI;
};
