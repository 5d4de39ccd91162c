// SPDX-License-Identifier: GPL-3.0-or-later
// A composed address is up to three lines joined by LF: state, city, street. The street always
// stands on the third line.
#pragma once

#include <QString>

#include <optional>

struct DBCAddressParts {
    std::optional<QString> state;
    std::optional<QString> city;
    std::optional<QString> street;
};

namespace DBCAddresses {

// No parts for none.
DBCAddressParts separateAddress(const std::optional<QString>& text);

// None when all three are empty; a missing value counts as "".
std::optional<QString> composeAddressWithStreet(
    const QString& street, const QString& city, const QString& state);

// The same, with address on the street line when the parts give nothing and address is not empty.
std::optional<QString> composeAddressWithDefaultAddress(
    const QString& address, const QString& street, const QString& city, const QString& state);

} // namespace DBCAddresses
