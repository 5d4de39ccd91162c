// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCItemLengths.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCColumns.h"
#include "text/DBCAddresses.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// These columns are measured as part of the address and not by themselves.
constexpr std::array partsOfTheAddress {
    DBCRecordKey::state, DBCRecordKey::city, DBCRecordKey::street};

bool isMeasured(const DBCColumn& column)
{
    return column.maxLength
        && std::find(partsOfTheAddress.begin(), partsOfTheAddress.end(), column.key)
        == partsOfTheAddress.end();
}

std::optional<QString> composedAddress(const DBCRecord& record)
{
    return DBCAddresses::composeAddressWithDefaultAddress(record.textOrEmpty(DBCRecordKey::address),
        record.textOrEmpty(DBCRecordKey::street), record.textOrEmpty(DBCRecordKey::city),
        record.textOrEmpty(DBCRecordKey::state));
}

QString titleOf(DBCRecordKey key)
{
    return getLocalString(DBCColumns[std::size_t(columnIndex(key))].titleKey);
}

} // namespace

QString DBCMeasuredItem::label() const
{
    if (key != DBCRecordKey::address)
        return titleOf(key);
    return titleOf(DBCRecordKey::state) + u'+' + titleOf(DBCRecordKey::city) + u'+'
        + titleOf(DBCRecordKey::street) + u'/' + titleOf(DBCRecordKey::address);
}

std::vector<DBCMeasuredItem> measuredItems(const DBCRecord& record)
{
    std::vector<DBCMeasuredItem> items;
    items.reserve(DBCColumns.size());
    for (const DBCColumn& column : DBCColumns) {
        if (!isMeasured(column))
            continue;
        const bool isAddress = column.key == DBCRecordKey::address;
        items.push_back({column.key, isAddress ? composedAddress(record) : record.text(column.key),
            *column.maxLength});
    }
    return items;
}
