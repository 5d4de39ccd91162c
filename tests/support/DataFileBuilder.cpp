// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataFileBuilder.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

struct Column {
    Key key;
    const char* titleKey;
};

constexpr std::array<Column, 21> columns {{
    {Key::face_Image_File, "IDS_CSV_TITLE_IMG_FACE"},
    {Key::back_Image_File, "IDS_CSV_TITLE_IMG_BACK"},
    {Key::attachmentFile, "IDS_CSV_TITLE_ATT_FILE"},
    {Key::full_Name, "IDS_CSV_TITLE_FULL_NAME"},
    {Key::full_Name_Kana, "IDS_CSV_TITLE_FULL_NAME_S"},
    {Key::company, "IDS_CSV_TITLE_OFFICE_NAME"},
    {Key::company_Kana, "IDS_CSV_TITLE_OFFICE_NAME_S"},
    {Key::department, "IDS_CSV_TITLE_DEPARTMENT"},
    {Key::job_Title, "IDS_CSV_TITLE_JOB_TITLE"},
    {Key::zip_PostalCode, "IDS_CSV_TITLE_OFFICE_POST"},
    {Key::state, "IDS_CSV_TITLE_OFFICE_ADDRESS_STATE"},
    {Key::city, "IDS_CSV_TITLE_OFFICE_ADDRESS_CITY"},
    {Key::street, "IDS_CSV_TITLE_OFFICE_ADDRESS_STREET"},
    {Key::address, "IDS_CSV_TITLE_OFFICE_ADDRESS"},
    {Key::telephone_Number, "IDS_CSV_TITLE_OFFICE_PHONE"},
    {Key::fax_Number, "IDS_CSV_TITLE_OFFICE_FAX"},
    {Key::mobile_Number, "IDS_CSV_TITLE_OFFICE_MOBILE_PHONE"},
    {Key::e_Mail, "IDS_CSV_TITLE_OFFICE_E_MAIL"},
    {Key::web_Page_Address, "IDS_CSV_TITLE_OFFICE_WEB"},
    {Key::memo, "IDS_CSV_TITLE_MEMO1"},
    {Key::register_Date, "IDS_CSV_TITLE_ENTRY_DATE"},
}};

QString itemFor(Key key, const DataFileBuilder::Items& items)
{
    for (const auto& [itemKey, value] : items) {
        if (itemKey == key)
            return value;
    }
    return {};
}

} // namespace

DataFileBuilder::DataFileBuilder(Encoding encoding, Mark mark)
    : _encoding(encoding)
{
    if (mark == Mark::Written)
        text(u"\uFEFF"_s);
}

DataFileBuilder& DataFileBuilder::titleLine()
{
    return titleLine(titles());
}

DataFileBuilder& DataFileBuilder::titleLine(const QStringList& titles)
{
    return line(titles.join(u'\t'));
}

QStringList DataFileBuilder::titles()
{
    QStringList titles;
    for (const Column& column : columns)
        titles << getLocalString(column.titleKey);
    return titles;
}

DataFileBuilder& DataFileBuilder::row(const Items& items)
{
    QStringList values;
    for (const Column& column : columns)
        values << itemFor(column.key, items);
    return line(values.join(u'\t'));
}

DataFileBuilder& DataFileBuilder::row(int itemCount)
{
    QStringList values;
    for (int i = 1; i <= itemCount; ++i)
        values << u"item %1"_s.arg(i);
    return line(values.join(u'\t'));
}

DataFileBuilder& DataFileBuilder::blankLine()
{
    return line(QString());
}

DataFileBuilder& DataFileBuilder::line(const QString& text)
{
    return this->text(text + u"\r\n"_s);
}

DataFileBuilder& DataFileBuilder::text(const QString& text)
{
    if (_encoding == Encoding::Utf8)
        return bytes(text.toUtf8());
    for (const QChar unit : text) {
        const char low = static_cast<char>(unit.cell());
        const char high = static_cast<char>(unit.row());
        if (_encoding == Encoding::Utf16LittleEndian)
            _bytes.append(low).append(high);
        else
            _bytes.append(high).append(low);
    }
    return *this;
}

DataFileBuilder& DataFileBuilder::bytes(const QByteArray& bytes)
{
    _bytes.append(bytes);
    return *this;
}

QString DataFileBuilder::writeTo(const QString& path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(_bytes) != _bytes.size() || !file.flush())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}
