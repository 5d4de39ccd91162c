// SPDX-License-Identifier: GPL-3.0-or-later
// One card of the store in memory: an object of the entity Card with the values of its attributes,
// which DBCCardAttributes lists.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <optional>

// In a fetched card, an attribute has no value where the store held NULL or a date that cannot be
// used. In a new card, an attribute without a value is stored as the default of the store's table,
// or as 0 if it is a number and the table has no default for it.
class Card {
public:
    Card() = default; // for fetched cards, which have no identity
    explicit Card(const QString& identityURI)
        : _identityURI(identityURI)
    {
    }

    // The text of the URI that identifies a new card in its context; std::nullopt for a fetched
    // card.
    const std::optional<QString>& identityURI() const { return _identityURI; }

    // Returns null when the attribute has no value. The pointer is valid until the card changes.
    const DBCValue* value(DBCRecordKey key) const { return _values.value(key); }
    QString textOrEmpty(DBCRecordKey key) const { return _values.textOrEmpty(key); }
    void setValue(DBCRecordKey key, DBCValue value) { _values.setValue(key, std::move(value)); }
    void reserve(std::size_t count) { _values.reserve(count); }

private:
    DBCRecord _values;
    std::optional<QString> _identityURI;
};
