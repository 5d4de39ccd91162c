// SPDX-License-Identifier: GPL-3.0-or-later
// A record holds the data of one card, by key, while the data is moved between the data file and
// the card database. The set of keys is fixed, so a record stores its values in key order, and one
// bit per key that says whether the value is present. A hash per record would need three times the
// time and memory.
#pragma once

#include <QDateTime>
#include <QString>

#include <array>
#include <bitset>
#include <optional>
#include <string_view>
#include <variant>
#include <vector>

// The first 21 keys are the columns of the data file in their order. recordNo, lineNo and
// attachmentFile exist only during a conversion; all others are attributes of a stored card.
enum class DBCRecordKey : quint8 {
    face_Image_File,
    back_Image_File,
    attachmentFile,
    full_Name,
    full_Name_Kana,
    company,
    company_Kana,
    department,
    job_Title,
    zip_PostalCode,
    state,
    city,
    street,
    address,
    telephone_Number,
    fax_Number,
    mobile_Number,
    e_Mail,
    web_Page_Address,
    memo,
    register_Date,

    recordNo,
    lineNo,

    cardID,
    scanNow,
    status,
    deletedFlag,
    connected,
    prefix_Name,
    prefix_Name_Kana,
    first_Name,
    first_Name_Kana,
    middle_Name,
    middle_Name_Kana,
    family_Name,
    family_Name_Kana,
    suffix_Name,
    suffix_Name_Kana,
    full_Name_XY,
    company_XY,
    job_Title_XY,
    department_XY,
    zip_PostalCode_XY,
    country,
    address_XY,
    telephone_Number_XY,
    fax_Number_XY,
    mobile_Number_XY,
    e_Mail_XY,
    web_Page_Address_XY,
    memo_XY,
    update_Date,
    accept_Date,
    face_Image_Page,
    back_Image_page,
    other_Image_File,
    other_Image_Page,
    select,
    check,
    syncID,
    sync_Email,
    sync_Phone_Mobile,
    sync_Phone_work,
    sync_Phone_Fax,
    sync_Street,
    sync_URL,
    groupID,
    countryID,
    short_Cut,
    flag1,
    flag2,
};

inline constexpr std::size_t DBCRecordKeyCount = static_cast<std::size_t>(DBCRecordKey::flag2) + 1;

// The names of the keys, in the order of DBCRecordKey. The column names of the card database derive
// from these names.
inline constexpr std::array<std::string_view, DBCRecordKeyCount> DBCRecordKeyNames {
    "face_Image_File",
    "back_Image_File",
    "attachmentFile",
    "full_Name",
    "full_Name_Kana",
    "company",
    "company_Kana",
    "department",
    "job_Title",
    "zip_PostalCode",
    "state",
    "city",
    "street",
    "address",
    "telephone_Number",
    "fax_Number",
    "mobile_Number",
    "e_Mail",
    "web_Page_Address",
    "memo",
    "register_Date",
    "recordNo",
    "lineNo",
    "cardID",
    "scanNow",
    "status",
    "deletedFlag",
    "connected",
    "prefix_Name",
    "prefix_Name_Kana",
    "first_Name",
    "first_Name_Kana",
    "middle_Name",
    "middle_Name_Kana",
    "family_Name",
    "family_Name_Kana",
    "suffix_Name",
    "suffix_Name_Kana",
    "full_Name_XY",
    "company_XY",
    "job_Title_XY",
    "department_XY",
    "zip_PostalCode_XY",
    "country",
    "address_XY",
    "telephone_Number_XY",
    "fax_Number_XY",
    "mobile_Number_XY",
    "e_Mail_XY",
    "web_Page_Address_XY",
    "memo_XY",
    "update_Date",
    "accept_Date",
    "face_Image_Page",
    "back_Image_page",
    "other_Image_File",
    "other_Image_Page",
    "select",
    "check",
    "syncID",
    "sync_Email",
    "sync_Phone_Mobile",
    "sync_Phone_work",
    "sync_Phone_Fax",
    "sync_Street",
    "sync_URL",
    "groupID",
    "countryID",
    "short_Cut",
    "flag1",
    "flag2",
};
static_assert(DBCRecordKeyNames.back() == "flag2");

// A text, a number or a point in time.
using DBCValue = std::variant<QString, qint64, QDateTime>;

class DBCRecord {
public:
    bool contains(DBCRecordKey key) const { return _present.test(index(key)); }
    std::size_t count() const { return _values.size(); }
    bool isEmpty() const { return _values.empty(); }
    void reserve(std::size_t count) { _values.reserve(count); }

    // Returns null when the key is absent. The pointer is valid until the record changes.
    const DBCValue* value(DBCRecordKey key) const;
    // Returns std::nullopt when the key is absent or its value is not a text.
    std::optional<QString> text(DBCRecordKey key) const;
    // Returns an empty text when the key is absent or its value is not a text.
    QString textOrEmpty(DBCRecordKey key) const;

    void setValue(DBCRecordKey key, DBCValue value);
    void removeValue(DBCRecordKey key);

    bool operator==(const DBCRecord& other) const = default;

private:
    static constexpr std::size_t index(DBCRecordKey key) { return static_cast<std::size_t>(key); }
    // Returns the index of the key's value in _values, or the index at which the value would be
    // inserted.
    std::size_t position(DBCRecordKey key) const;

    std::bitset<DBCRecordKeyCount> _present;
    std::vector<DBCValue> _values;
};
