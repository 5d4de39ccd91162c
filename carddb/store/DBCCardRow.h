// SPDX-License-Identifier: GPL-3.0-or-later
// Converts cards between their form in memory and the rows of the store. Rows hold the attributes
// in the order of DBCCardAttributes. All functions may throw SQLite::Exception.
#pragma once

#include "carddb/store/DBCCard.h"

#include <SQLiteCpp/Statement.h>

#include <limits>

// Reads the row that the statement has just returned. A date that is no number, or is more than
// some 30,000 years away, counts as no value.
Card readCardRow(SQLite::Statement& row);

// Binds one card after the other to the attribute parameters of an INSERT, the first of which has
// the number firstParameter. An attribute without a value is left unbound. The statement must
// outlive the binder.
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
    // The card's accept date in microseconds since 1970. Exports are sorted by these dates, but two
    // cards of one millisecond have the same date, and a clock may be set back. So each date is
    // made at least one microsecond later than the one before.
    qint64 risingAcceptDate(const QDateTime& date);

    SQLite::Statement& _insert;
    int _firstParameter;
    qint64 _lastAcceptDate = std::numeric_limits<qint64>::min();
};
