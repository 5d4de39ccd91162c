// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCCardRow.h"

#include "carddb/store/DBCCardAttributes.h"

#include <SQLiteCpp/Column.h>

#include <QStringDecoder>

#include <cmath>
#include <optional>
#include <string_view>

namespace {

constexpr qint64 microsecondsPerMillisecond = 1000;
constexpr double microsecondsPerSecond = 1e6;
constexpr double millisecondsPerSecond = 1e3;

// The moment from which the store counts seconds: 2001-01-01 00:00:00 UTC in milliseconds since
// 1970.
constexpr qint64 referenceDateMs = 978'307'200'000;

qint64 microsecondsSinceEpoch(const QDateTime& date)
{
    return date.toMSecsSinceEpoch() * microsecondsPerMillisecond;
}

double toStoredDate(qint64 microseconds)
{
    return static_cast<double>(microseconds - referenceDateMs * microsecondsPerMillisecond)
        / microsecondsPerSecond;
}

double toStoredDate(DBCRecordKey key, const QDateTime& date, DBCRisingDates& acceptDates)
{
    return toStoredDate(
        key == DBCRecordKey::accept_Date ? acceptDates.next(date) : microsecondsSinceEpoch(date));
}

std::optional<DBCValue> fromStoredDate(double seconds)
{
    constexpr double farthest = 1e12; // about 30,000 years, in seconds
    if (!(std::abs(seconds) < farthest))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(
        referenceDateMs + std::llround(seconds * millisecondsPerSecond));
}

// Returns the text in UTF-8, whichever encoding the store uses. It is valid until the statement
// goes to the next row.
std::string_view textOf(const SQLite::Column& column)
{
    const char* bytes = column.getText();
    return {bytes, static_cast<std::size_t>(column.getBytes())};
}

DBCValue storedText(const SQLite::Column& column)
{
    // A leading U+FEFF stays part of the text, because in a store it is no byte order mark.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const std::string_view bytes = textOf(column);
    QString text = decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    text.squeeze(); // Decoding reserves three times what a Japanese text takes.
    return text;
}

std::optional<DBCValue> storedValue(const SQLite::Column& column, DBCAttributeKind kind)
{
    if (column.isNull())
        return std::nullopt;
    switch (kind) {
    case DBCAttributeKind::Text:
        return storedText(column);
    case DBCAttributeKind::Number:
        return DBCValue(static_cast<qint64>(column.getInt64()));
    case DBCAttributeKind::Date:
        if (column.isInteger() || column.isFloat())
            return fromStoredDate(column.getDouble());
    }
    return std::nullopt;
}

} // namespace

Card readCardRow(SQLite::Statement& row)
{
    Card card;
    card.reserve(DBCCardAttributes.size());
    int index = 0;
    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        if (auto value = storedValue(row.getColumn(index++), attribute.kind))
            card.setValue(attribute.key, *std::move(value));
    }
    return card;
}

void DBCCardRowBinder::bind(const Card& card)
{
    int parameter = _firstParameter;
    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        if (const DBCValue* value = card.value(attribute.key))
            bindValue(parameter, attribute.key, *value);
        ++parameter;
    }
}

void DBCCardRowBinder::bindValue(int parameter, DBCRecordKey key, const DBCValue& value)
{
    // Store a null QString as "", not as NULL, because it is a value like any other.
    if (const QString* text = std::get_if<QString>(&value))
        _insert.bind(parameter, text->toStdString());
    else if (const qint64* number = std::get_if<qint64>(&value))
        _insert.bind(parameter, static_cast<int64_t>(*number));
    else if (const QDateTime* date = std::get_if<QDateTime>(&value))
        _insert.bind(parameter, toStoredDate(key, *date, _acceptDates));
}

bool DBCCardRowComparison::isEqual(SQLite::Statement& row, const Card& card)
{
    int column = _firstColumn;
    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        const DBCValue* value = card.value(attribute.key);
        if (value && !isEqual(row.getColumn(column), attribute.key, *value))
            return false;
        ++column;
    }
    return true;
}

bool DBCCardRowComparison::isEqual(
    const SQLite::Column& column, DBCRecordKey key, const DBCValue& value)
{
    if (const QString* text = std::get_if<QString>(&value))
        return !column.isNull() && !column.isBlob() && textOf(column) == text->toStdString();
    if (!column.isInteger() && !column.isFloat())
        return false;
    if (const qint64* number = std::get_if<qint64>(&value))
        return column.isInteger() && column.getInt64() == *number;
    const QDateTime* date = std::get_if<QDateTime>(&value);
    return date && column.getDouble() == toStoredDate(key, *date, _acceptDates);
}

qint64 DBCRisingDates::next(const QDateTime& date)
{
    _last = std::max(microsecondsSinceEpoch(date), _last + 1);
    return _last;
}
