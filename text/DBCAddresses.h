// SPDX-License-Identifier: GPL-3.0-or-later
// Composes the text of an address from state, city and street, and separates such a text again. The
// text has up to three lines, separated by LF: state, city, street. The street is always on the
// third line, even if the city is empty.
#pragma once

#include <QString>

#include <optional>

struct DBCAddressParts {
    std::optional<QString> state;
    std::optional<QString> city;
    std::optional<QString> street;
};

namespace DBCAddresses {

// All parts of the result are std::nullopt when text is std::nullopt. Nothing in the program calls
// this function; it is kept on purpose as an interface.
DBCAddressParts separateAddress(const std::optional<QString>& text);

// Returns std::nullopt when all three parts are empty. The caller passes an empty text for a
// missing part.
std::optional<QString> composeAddressWithStreet(
    const QString& street, const QString& city, const QString& state);

// Like composeAddressWithStreet(), but if street, city and state are all empty and address is not,
// address becomes the street line.
std::optional<QString> composeAddressWithDefaultAddress(
    const QString& address, const QString& street, const QString& city, const QString& state);

} // namespace DBCAddresses
