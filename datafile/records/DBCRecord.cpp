// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCRecord.h"

#include <utility>

std::size_t DBCRecord::position(DBCRecordKey key) const
{
    // The shift drops the bits of `key` and of all later keys, so that count() counts only the
    // present keys before `key`.
    return (_present << (DBCRecordKeyCount - index(key))).count();
}

const DBCValue* DBCRecord::value(DBCRecordKey key) const
{
    return contains(key) ? &_values[position(key)] : nullptr;
}

std::optional<QString> DBCRecord::text(DBCRecordKey key) const
{
    const DBCValue* found = value(key);
    if (const QString* text = found ? std::get_if<QString>(found) : nullptr)
        return *text;
    return std::nullopt;
}

QString DBCRecord::textOrEmpty(DBCRecordKey key) const
{
    return text(key).value_or(QString());
}

void DBCRecord::setValue(DBCRecordKey key, DBCValue value)
{
    const auto place = _values.begin() + static_cast<std::ptrdiff_t>(position(key));
    if (contains(key)) {
        *place = std::move(value);
        return;
    }
    _values.insert(place, std::move(value));
    _present.set(index(key));
}

void DBCRecord::removeValue(DBCRecordKey key)
{
    if (!contains(key))
        return;
    _values.erase(_values.begin() + static_cast<std::ptrdiff_t>(position(key)));
    _present.reset(index(key));
}
