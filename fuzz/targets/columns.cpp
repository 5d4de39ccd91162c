// SPDX-License-Identifier: GPL-3.0-or-later
// Formats texts of any kind as a line of the data file.
#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCFileWriter.h"
#include "fuzz/FuzzTarget.h"

using namespace Qt::StringLiterals;

namespace {

const DBCFileWriter& writer()
{
    static const auto theWriter
        = DBCFileWriter::initWithFileName(u"unused"_s, DBCTextEncoding::Utf16, u"\r\n"_s);
    return *theWriter;
}

// Checks that the text is one line of 21 items, and returns these items.
QStringList itemsOf(QString line)
{
    mustHold(line.endsWith(u"\r\n"), "a line ends with its separator");
    line.chop(2);
    mustHold(!line.contains(u'\n'), "a line holds no other line feed");
    mustHold(!line.contains(u'\u2028'), "a line holds no line separator");
    const QStringList items = line.split(u'\t');
    mustHold(items.size() == qsizetype(DBCColumns.size()), "a line has 21 items");
    return items;
}

DBCRecord recordOf(const QStringList& items)
{
    DBCRecord record;
    for (qsizetype i = 0; i < items.size(); ++i)
        record.setValue(DBCColumns[std::size_t(i)].key, items[i]);
    return record;
}

void judgeReplacement(FuzzInput input)
{
    const QStringList unwanted {input.text(), input.text()};
    const QString text = input.remainingText();
    const QString without = DBCFileWriter::deleteSpecialCharater(unwanted, text);
    mustHold(without.size() <= text.size(), "deleting makes no text longer");
    mustHold(unwanted.last().isEmpty() || !without.contains(unwanted.last(), Qt::CaseInsensitive)
            || unwanted.last().size() > 1,
        "a character that is deleted is gone");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzInput input(data, size);
    judgeReplacement(input);
    QStringList values;
    while (values.size() < qsizetype(DBCColumns.size()))
        values << input.text();
    const auto line = writer().createDataStrWith(recordOf(values));
    mustHold(line.has_value(), "a record with all columns makes a line");
    const auto again = writer().createDataStrWith(recordOf(itemsOf(*line)));
    mustHold(again == line, "cleaning a cleaned text changes nothing");
    return 0;
}
