// SPDX-License-Identifier: GPL-3.0-or-later
// The 21 columns of the interchange data file, in the order in which an export writes them. A file
// to import may have them in any order.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <array>
#include <optional>

struct DBCColumn {
    const char* titleKey; // key of the column's title in the strings table
    DBCRecordKey key;
    // The length of the longest value that gives no warning, in UTF-16 units. If it is
    // std::nullopt, the length is not checked. DBCItemLengths.h says which text is measured for the
    // address.
    std::optional<qsizetype> maxLength;
};

inline constexpr std::array<DBCColumn, 21> DBCColumns {{
    {"IDS_CSV_TITLE_IMG_FACE", DBCRecordKey::face_Image_File, {}},
    {"IDS_CSV_TITLE_IMG_BACK", DBCRecordKey::back_Image_File, {}},
    {"IDS_CSV_TITLE_ATT_FILE", DBCRecordKey::attachmentFile, {}},
    {"IDS_CSV_TITLE_FULL_NAME", DBCRecordKey::full_Name, 64},
    {"IDS_CSV_TITLE_FULL_NAME_S", DBCRecordKey::full_Name_Kana, 64},
    {"IDS_CSV_TITLE_OFFICE_NAME", DBCRecordKey::company, 128},
    {"IDS_CSV_TITLE_OFFICE_NAME_S", DBCRecordKey::company_Kana, 128},
    {"IDS_CSV_TITLE_DEPARTMENT", DBCRecordKey::department, 128},
    {"IDS_CSV_TITLE_JOB_TITLE", DBCRecordKey::job_Title, 128},
    {"IDS_CSV_TITLE_OFFICE_POST", DBCRecordKey::zip_PostalCode, 32},
    {"IDS_CSV_TITLE_OFFICE_ADDRESS_STATE", DBCRecordKey::state, 128},
    {"IDS_CSV_TITLE_OFFICE_ADDRESS_CITY", DBCRecordKey::city, 128},
    {"IDS_CSV_TITLE_OFFICE_ADDRESS_STREET", DBCRecordKey::street, 128},
    {"IDS_CSV_TITLE_OFFICE_ADDRESS", DBCRecordKey::address, 128},
    {"IDS_CSV_TITLE_OFFICE_PHONE", DBCRecordKey::telephone_Number, 32},
    {"IDS_CSV_TITLE_OFFICE_FAX", DBCRecordKey::fax_Number, 32},
    {"IDS_CSV_TITLE_OFFICE_MOBILE_PHONE", DBCRecordKey::mobile_Number, 32},
    {"IDS_CSV_TITLE_OFFICE_E_MAIL", DBCRecordKey::e_Mail, 128},
    {"IDS_CSV_TITLE_OFFICE_WEB", DBCRecordKey::web_Page_Address, 128},
    {"IDS_CSV_TITLE_MEMO1", DBCRecordKey::memo, 256},
    {"IDS_CSV_TITLE_ENTRY_DATE", DBCRecordKey::register_Date, {}},
}};

// Returns the index of a column in DBCColumns. key must be the key of a column.
constexpr int columnIndex(DBCRecordKey key)
{
    return static_cast<int>(key);
}
static_assert([] {
    for (std::size_t i = 0; i < DBCColumns.size(); ++i) {
        if (columnIndex(DBCColumns[i].key) != static_cast<int>(i))
            return false;
    }
    return true;
}());
