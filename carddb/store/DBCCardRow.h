// SPDX-License-Identifier: GPL-3.0-or-later
// Converts cards between their form in memory and the rows of the store. Rows hold the attributes
// in the order of DBCCardAttributes. All functions may throw SQLite::Exception.
#pragma once

#include "carddb/store/DBCCard.h"

#include <SQLiteCpp/Statement.h>

#include <limits>

// Reads the row that the statement has just returned. A date that is no number, or that is more
// than about 30,000 years away, becomes an attribute without a value.
Card readCardRow(SQLite::Statement& row);

// Makes the accept dates that cards are stored with, in microseconds since 1970. Exports sort cards
// by these dates, but the clock may give several cards the same date, or be set back. So next()
// returns the given date if it is later than the one it returned before, else one microsecond after
// that one.
class DBCRisingDates {
public:
    qint64 next(const QDateTime& date);

private:
    qint64 _last = std::numeric_limits<qint64>::min();
};

// Binds the values of one card after the other to the attribute parameters of an INSERT statement.
// firstParameter is the number of the first of these parameters. If an attribute has no value, its
// parameter stays unbound. The statement must outlive the binder.
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

// Compares rows that were read back from the store with the cards that a DBCCardRowBinder bound.
// Both must come in the same order.
class DBCCardRowComparison {
public:
    explicit DBCCardRowComparison(int firstColumn)
        : _firstColumn(firstColumn)
    {
    }

    // Whether the row holds every value that is set in the card, in a type that readCardRow() reads
    // as that value.
    bool isEqual(SQLite::Statement& row, const Card& card);

private:
    bool isEqual(const SQLite::Column& column, DBCRecordKey key, const DBCValue& value);

    int _firstColumn;
    DBCRisingDates _acceptDates;
};
