// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCCardRow.h"

#include "carddb/store/DBCCardAttributes.h"

#include <SQLiteCpp/Column.h>

#include <QStringDecoder>

#include <cmath>
#include <optional>

namespace {

constexpr qint64 microsecondsPerMillisecond = 1000;
constexpr double microsecondsPerSecond = 1e6;
constexpr double millisecondsPerSecond = 1e3;

// 2001-01-01 00:00:00 UTC in milliseconds since 1970; the store counts seconds from this moment.
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

std::optional<DBCValue> fromStoredDate(double seconds)
{
    constexpr double farthest = 1e12; // some 30,000 years
    if (!(std::abs(seconds) < farthest))
        return std::nullopt;
    return QDateTime::fromMSecsSinceEpoch(
        referenceDateMs + std::llround(seconds * millisecondsPerSecond));
}

DBCValue storedText(const SQLite::Column& column)
{
    // A leading U+FEFF is kept as part of the text: in the store it is no byte order mark.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const char* bytes = column.getText();
    QString text = decoder(QByteArrayView(bytes, column.getBytes()));
    text.squeeze(); // decoding reserves three times as much as a Japanese text needs
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
    // A null QString is a value like any other and is stored as "", not as NULL.
    if (const QString* text = std::get_if<QString>(&value))
        _insert.bind(parameter, text->toStdString());
    else if (const qint64* number = std::get_if<qint64>(&value))
        _insert.bind(parameter, static_cast<int64_t>(*number));
    else if (const QDateTime* date = std::get_if<QDateTime>(&value))
        _insert.bind(parameter,
            toStoredDate(key == DBCRecordKey::accept_Date ? risingAcceptDate(*date)
                                                          : microsecondsSinceEpoch(*date)));
}

qint64 DBCCardRowBinder::risingAcceptDate(const QDateTime& date)
{
    _lastAcceptDate = std::max(microsecondsSinceEpoch(date), _lastAcceptDate + 1);
    return _lastAcceptDate;
}
