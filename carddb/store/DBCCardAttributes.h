// SPDX-License-Identifier: GPL-3.0-or-later
// The table of a stored card's attributes. Other code derives the store's columns, the SQL
// statements and the exported record from it.
#pragma once

#include "datafile/records/DBCRecord.h"

#include <algorithm>
#include <array>
#include <string>

// How an attribute is stored: a UTF-8 text, a 64-bit integer, or seconds since 2001-01-01 00:00 UTC
// as a floating-point number.
enum class DBCAttributeKind : quint8 { Text, Number, Date };

struct DBCCardAttribute {
    DBCRecordKey key;
    DBCAttributeKind kind;
};

// The rows are in the order of DBCRecordKey, so that values can be appended to a record in key
// order. A store needs a column for each of these attributes. It may have further columns, which
// are ignored.
inline constexpr std::array<DBCCardAttribute, 68> DBCCardAttributes {{
    {DBCRecordKey::face_Image_File, DBCAttributeKind::Text},
    {DBCRecordKey::back_Image_File, DBCAttributeKind::Text},
    {DBCRecordKey::full_Name, DBCAttributeKind::Text},
    {DBCRecordKey::full_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::company, DBCAttributeKind::Text},
    {DBCRecordKey::company_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::department, DBCAttributeKind::Text},
    {DBCRecordKey::job_Title, DBCAttributeKind::Text},
    {DBCRecordKey::zip_PostalCode, DBCAttributeKind::Text},
    {DBCRecordKey::state, DBCAttributeKind::Text},
    {DBCRecordKey::city, DBCAttributeKind::Text},
    {DBCRecordKey::street, DBCAttributeKind::Text},
    {DBCRecordKey::address, DBCAttributeKind::Text},
    {DBCRecordKey::telephone_Number, DBCAttributeKind::Text},
    {DBCRecordKey::fax_Number, DBCAttributeKind::Text},
    {DBCRecordKey::mobile_Number, DBCAttributeKind::Text},
    {DBCRecordKey::e_Mail, DBCAttributeKind::Text},
    {DBCRecordKey::web_Page_Address, DBCAttributeKind::Text},
    {DBCRecordKey::memo, DBCAttributeKind::Text},
    {DBCRecordKey::register_Date, DBCAttributeKind::Date},
    {DBCRecordKey::cardID, DBCAttributeKind::Text},
    {DBCRecordKey::scanNow, DBCAttributeKind::Number},
    {DBCRecordKey::status, DBCAttributeKind::Number},
    {DBCRecordKey::deletedFlag, DBCAttributeKind::Number},
    {DBCRecordKey::connected, DBCAttributeKind::Number},
    {DBCRecordKey::prefix_Name, DBCAttributeKind::Text},
    {DBCRecordKey::prefix_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::first_Name, DBCAttributeKind::Text},
    {DBCRecordKey::first_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::middle_Name, DBCAttributeKind::Text},
    {DBCRecordKey::middle_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::family_Name, DBCAttributeKind::Text},
    {DBCRecordKey::family_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::suffix_Name, DBCAttributeKind::Text},
    {DBCRecordKey::suffix_Name_Kana, DBCAttributeKind::Text},
    {DBCRecordKey::full_Name_XY, DBCAttributeKind::Text},
    {DBCRecordKey::company_XY, DBCAttributeKind::Text},
    {DBCRecordKey::job_Title_XY, DBCAttributeKind::Text},
    {DBCRecordKey::department_XY, DBCAttributeKind::Text},
    {DBCRecordKey::zip_PostalCode_XY, DBCAttributeKind::Text},
    {DBCRecordKey::country, DBCAttributeKind::Text},
    {DBCRecordKey::address_XY, DBCAttributeKind::Text},
    {DBCRecordKey::telephone_Number_XY, DBCAttributeKind::Text},
    {DBCRecordKey::fax_Number_XY, DBCAttributeKind::Text},
    {DBCRecordKey::mobile_Number_XY, DBCAttributeKind::Text},
    {DBCRecordKey::e_Mail_XY, DBCAttributeKind::Text},
    {DBCRecordKey::web_Page_Address_XY, DBCAttributeKind::Text},
    {DBCRecordKey::memo_XY, DBCAttributeKind::Text},
    {DBCRecordKey::update_Date, DBCAttributeKind::Date},
    {DBCRecordKey::accept_Date, DBCAttributeKind::Date},
    {DBCRecordKey::face_Image_Page, DBCAttributeKind::Number},
    {DBCRecordKey::back_Image_page, DBCAttributeKind::Number},
    {DBCRecordKey::other_Image_File, DBCAttributeKind::Text},
    {DBCRecordKey::other_Image_Page, DBCAttributeKind::Number},
    {DBCRecordKey::select, DBCAttributeKind::Number},
    {DBCRecordKey::check, DBCAttributeKind::Number},
    {DBCRecordKey::syncID, DBCAttributeKind::Text},
    {DBCRecordKey::sync_Email, DBCAttributeKind::Text},
    {DBCRecordKey::sync_Phone_Mobile, DBCAttributeKind::Text},
    {DBCRecordKey::sync_Phone_work, DBCAttributeKind::Text},
    {DBCRecordKey::sync_Phone_Fax, DBCAttributeKind::Text},
    {DBCRecordKey::sync_Street, DBCAttributeKind::Text},
    {DBCRecordKey::sync_URL, DBCAttributeKind::Text},
    {DBCRecordKey::groupID, DBCAttributeKind::Number},
    {DBCRecordKey::countryID, DBCAttributeKind::Number},
    {DBCRecordKey::short_Cut, DBCAttributeKind::Text},
    {DBCRecordKey::flag1, DBCAttributeKind::Number},
    {DBCRecordKey::flag2, DBCAttributeKind::Number},
}};

static_assert(std::is_sorted(DBCCardAttributes.begin(), DBCCardAttributes.end(),
    [](const DBCCardAttribute& left, const DBCCardAttribute& right) {
        return left.key < right.key;
    }));

// Returns the name of the attribute's column: "Z" and the key's name in capitals, such as
// ZFULL_NAME_KANA for full_Name_Kana.
std::string cardColumnName(DBCRecordKey key);
