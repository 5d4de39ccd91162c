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

// The accept dates that cards are stored with, in microseconds since the epoch. Exports follow
// these dates, but a clock stands still within a millisecond and may be set back: each date is
// moved behind the one before it.
class DBCRisingDates {
public:
    qint64 next(const QDateTime& date);

private:
    qint64 _last = std::numeric_limits<qint64>::min();
};

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

    SQLite::Statement& _insert;
    int _firstParameter;
    DBCRisingDates _acceptDates;
};

// Compares rows that were read back with the cards that a DBCCardRowBinder bound, in the same
// order.
class DBCCardRowComparison {
public:
    explicit DBCCardRowComparison(int firstColumn)
        : _firstColumn(firstColumn)
    {
    }

    // Whether the row has every value that is set in the card, in a type that is read back as it.
    bool isEqual(SQLite::Statement& row, const Card& card);

private:
    bool isEqual(const SQLite::Column& column, DBCRecordKey key, const DBCValue& value);

    int _firstColumn;
    DBCRisingDates _acceptDates;
};
