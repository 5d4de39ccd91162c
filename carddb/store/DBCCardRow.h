// SPDX-License-Identifier: GPL-3.0-or-later
// A card's values in the store's form and back. Rows hold the attributes in the order of
// DBCCardAttributes. Everything here throws SQLite::Exception.
#pragma once

#include "carddb/store/DBCCard.h"

#include <SQLiteCpp/Statement.h>

#include <limits>

// Reads the row that the statement stands on. A date that is no number of seconds, or none a
// calendar knows, counts as no value.
Card readCardRow(SQLite::Statement& row);

// Binds cards to the attributes' parameters of an INSERT, one after the other. An attribute
// without a value is left unbound.
class DBCCardRowBinder {
public:
    DBCCardRowBinder(SQLite::Statement& insert, int firstParameter)
        : _insert(insert)
        , _firstParameter(firstParameter)
    {
    }

    void bind(const Card& card);

private:
    void bindValue(int parameter, DBCRecordKey key, const DBCValue& value);
    // Microseconds since the epoch of the card's accept date. Exports follow these dates, but a
    // clock stands still within a millisecond and may be set back: each date is moved behind the
    // one before it.
    qint64 risingAcceptDate(const QDateTime& date);

    SQLite::Statement& _insert;
    int _firstParameter;
    qint64 _lastAcceptDate = std::numeric_limits<qint64>::min();
};
