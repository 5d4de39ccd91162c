// SPDX-License-Identifier: GPL-3.0-or-later
// Reads a property list of any bytes.
#include "fuzz/FuzzTarget.h"
#include "operation/log/DBCPropertyList.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const FuzzFile file("input.plist");
    file.write(QByteArrayView(data, static_cast<qsizetype>(size)));
    const auto entries = DBCPropertyList::read(file.path());
    if (!entries)
        return 0;
    mustHold(entries->size() <= static_cast<qsizetype>(size), "no entry comes from nowhere");
    for (const QVariant& value : *entries) {
        const int type = value.typeId();
        mustHold(type == QMetaType::QString || type == QMetaType::LongLong
                || type == QMetaType::Double || type == QMetaType::Bool,
            "every value is of one of four kinds");
    }
    return 0;
}
