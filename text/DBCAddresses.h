// SPDX-License-Identifier: GPL-3.0-or-later
// Composes the one text of an address from state, city and street, and separates it again. The text
// has up to three lines, separated by LF: state, city, street. The street is always on the third
// line.
#pragma once

#include <QString>

#include <optional>

struct DBCAddressParts {
    std::optional<QString> state;
    std::optional<QString> city;
    std::optional<QString> street;
};

namespace DBCAddresses {

// All parts are none when text is none. The program never separates an address; the function is
// kept on purpose as an interface.
DBCAddressParts separateAddress(const std::optional<QString>& text);

// None when all three parts are empty. A missing part is passed as "".
std::optional<QString> composeAddressWithStreet(
    const QString& street, const QString& city, const QString& state);

// The same; but if all three parts are empty and address is not, address becomes the street line.
std::optional<QString> composeAddressWithDefaultAddress(
    const QString& address, const QString& street, const QString& city, const QString& state);

} // namespace DBCAddresses
