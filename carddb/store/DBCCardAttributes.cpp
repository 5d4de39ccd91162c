// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCCardAttributes.h"

std::string cardColumnName(DBCRecordKey key)
{
    std::string name = "Z";
    for (const char letter : DBCRecordKeyNames[static_cast<std::size_t>(key)])
        name += letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    return name;
}
