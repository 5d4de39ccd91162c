// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/DBCAddresses.h"

#include "text/DBCCharacterSets.h"

using namespace Qt::StringLiterals;

namespace {

// The street is the rest of the text, including its line breaks. If the rest consists only of line
// breaks, the street is empty.
QString streetFrom(QStringView rest)
{
    const QStringView street = trimmedWhere(rest, isWhiteSpace);
    return trimmedBy(street, u"\n\r\u2028").isEmpty() ? u""_s : street.toString();
}

} // namespace

namespace DBCAddresses {

DBCAddressParts separateAddress(const std::optional<QString>& text)
{
    if (!text)
        return {};
    const QStringView whole = *text;
    const qsizetype first = whole.indexOf(u'\n');
    if (first < 0)
        return {.state = *text, .city = {}, .street = {}};

    DBCAddressParts parts;
    parts.state = whole.first(first).toString();
    const qsizetype second = whole.indexOf(u'\n', first + 1);
    if (second < 0) {
        parts.city = whole.sliced(first + 1).toString();
        return parts;
    }
    parts.city = whole.sliced(first + 1, second - first - 1).toString();
    parts.street = streetFrom(whole.sliced(second + 1));
    return parts;
}

std::optional<QString> composeAddressWithStreet(
    const QString& street, const QString& city, const QString& state)
{
    if (street.isEmpty() && city.isEmpty() && state.isEmpty())
        return std::nullopt;
    QString result = state;
    if (!city.isEmpty())
        result.append(u'\n').append(city);
    if (!street.isEmpty())
        result.append(city.isEmpty() ? u"\n\n"_s : u"\n"_s).append(street);
    return result;
}

std::optional<QString> composeAddressWithDefaultAddress(
    const QString& address, const QString& street, const QString& city, const QString& state)
{
    if (auto composed = composeAddressWithStreet(street, city, state))
        return composed;
    if (address.isEmpty())
        return std::nullopt;
    return u"\n\n"_s + address;
}

} // namespace DBCAddresses
