// SPDX-License-Identifier: GPL-3.0-or-later
// Splits an address into its parts and joins the parts again.
#include "fuzz/FuzzTarget.h"
#include "text/DBCAddresses.h"

namespace {

std::optional<QString> composed(const DBCAddressParts& parts)
{
    return DBCAddresses::composeAddressWithStreet(parts.street.value_or(QString()),
        parts.city.value_or(QString()), parts.state.value_or(QString()));
}

bool saySame(const std::optional<QString>& left, const std::optional<QString>& right)
{
    return left.value_or(QString()) == right.value_or(QString());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const QString text = input.remainingText();
    const DBCAddressParts parts = DBCAddresses::separateAddress(text);
    mustHold(
        parts.state.has_value() && !parts.state->contains(u'\n'), "the state is the first line");
    mustHold(!parts.city || !parts.city->contains(u'\n'), "the city is the second line");

    const DBCAddressParts again = DBCAddresses::separateAddress(composed(parts));
    mustHold(saySame(parts.state, again.state) && saySame(parts.city, again.city)
            && saySame(parts.street, again.street),
        "what was put together comes apart the same");

    const QString street = input.text();
    const QString city = input.text();
    const QString state = input.text();
    const auto whole = DBCAddresses::composeAddressWithDefaultAddress(text, street, city, state);
    mustHold(whole.has_value()
            == !(text.isEmpty() && street.isEmpty() && city.isEmpty() && state.isEmpty()),
        "an address is none when all is empty");
    mustHold(!whole || whole->startsWith(state), "the state comes first");
    return 0;
}
