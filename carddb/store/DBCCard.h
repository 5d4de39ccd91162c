// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "datafile/records/DBCRecord.h"

#include <optional>

// One object of the store's entity Card: the values of its attributes (see DBCCardAttributes).
// An attribute without a value is NULL in a fetched card, and left to the store's default in a new
// one.
class Card {
public:
    Card() = default; // without an identity
    explicit Card(const QString& identityURI)
        : _identityURI(identityURI)
    {
    }

    // Text form of the URI by which the context knows a new card; none for any other.
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
