// SPDX-License-Identifier: GPL-3.0-or-later
// Formats any text as a line of the log, both alone and as the value that replaces a placeholder of
// a message.
#include "datafile/helpers/DBCLocalizable.h"
#include "fuzz/FuzzTarget.h"
#include "operation/log/DBCLog.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Returns true for a character that ends a line, controls a terminal, or reverses the order of the
// text after it.
bool isUnfit(QChar unit)
{
    static constexpr QStringView directions
        = u"\u2028\u2029\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069";
    return (unit.category() == QChar::Other_Control && unit != QChar(u'\t'))
        || directions.contains(unit);
}

void judgeLine(const QString& message)
{
    const QString line = DBCLog::getLogString(message, u"[Error]"_s);
    mustHold(line.endsWith(u'\n') && line.count(u'\n') == 1, "one message is one line");
    mustHold(std::none_of(line.begin(), line.end() - 1, isUnfit),
        "a line steers no terminal and ends only at its end");
    if (std::none_of(message.begin(), message.end(), isUnfit))
        mustHold(line.endsWith(message + u'\n'), "an ordinary message is kept unchanged");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    const QString message = input.remainingText();
    judgeLine(message);
    judgeLine(DBCLocalizable::fill(input.text(), {input.text(), input.text()}));

    const QString filled = DBCLocalizable::fill(u"%1 (%2)"_s, {message, qint64(size)});
    mustHold(filled == message + u" ("_s + QString::number(size) + u')',
        "a value's own placeholders stay as they are");
    return 0;
}
