// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "datafile/helpers/DBCCommonFunction.h"

#include <QRegularExpression>
#include <QUuid>

#include <array>

using namespace Qt::StringLiterals;

namespace {

// The first 20 characters of a card's identity URI are a fixed prefix; the rest is the card ID.
constexpr qsizetype identityPrefixLength = 20;

using Key = DBCRecordKey;

constexpr std::array syncAttributes {
    Key::sync_Email,
    Key::sync_Phone_work,
    Key::sync_Phone_Mobile,
    Key::sync_URL,
    Key::sync_Street,
    Key::sync_Phone_Fax,
};

enum class DetailRule : quint8 {
    Formatted, // always set: to formatValue(), or to "" when the record lacks the key
    RawIfPresent, // set only when the record has the key, to the unchanged value, even ""
};

struct DetailAttribute {
    qint32 type;
    Key key;
    DetailRule rule;
};

constexpr qint32 firstDetailType = 21;
constexpr qint32 nameDetailType = 21;
constexpr qint32 addressDetailType = 26;
constexpr qint32 lastDetailType = 33;

// The attributes that are copied one by one from the record to the card. That no attribute has type
// 28 is on purpose. setNameParts() and setAddress() set further attributes of types 21 and 26.
constexpr std::array<DetailAttribute, 25> detailAttributes {{
    {21, Key::full_Name, DetailRule::Formatted},
    {21, Key::full_Name_XY, DetailRule::RawIfPresent},
    {21, Key::full_Name_Kana, DetailRule::Formatted},
    {22, Key::job_Title, DetailRule::Formatted},
    {22, Key::job_Title_XY, DetailRule::RawIfPresent},
    {23, Key::telephone_Number, DetailRule::Formatted},
    {23, Key::telephone_Number_XY, DetailRule::RawIfPresent},
    {24, Key::fax_Number, DetailRule::Formatted},
    {24, Key::fax_Number_XY, DetailRule::RawIfPresent},
    {25, Key::zip_PostalCode, DetailRule::Formatted},
    {25, Key::zip_PostalCode_XY, DetailRule::RawIfPresent},
    {26, Key::address_XY, DetailRule::RawIfPresent},
    {27, Key::e_Mail, DetailRule::Formatted},
    {27, Key::e_Mail_XY, DetailRule::RawIfPresent},
    {29, Key::web_Page_Address, DetailRule::Formatted},
    {29, Key::web_Page_Address_XY, DetailRule::RawIfPresent},
    {30, Key::company, DetailRule::Formatted},
    {30, Key::company_XY, DetailRule::RawIfPresent},
    {30, Key::company_Kana, DetailRule::Formatted},
    {31, Key::department, DetailRule::Formatted},
    {31, Key::department_XY, DetailRule::RawIfPresent},
    {32, Key::memo, DetailRule::Formatted},
    {32, Key::memo_XY, DetailRule::RawIfPresent},
    {33, Key::mobile_Number, DetailRule::Formatted},
    {33, Key::mobile_Number_XY, DetailRule::RawIfPresent},
}};

// Returns the UUID in capital letters, as the main application writes UUIDs.
QString newUUID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QString formatted(const DBCRecord& record, Key key)
{
    return DBCCommonFunction::formatValue(record.text(key));
}

void setDetail(Card& card, const DBCRecord& record, const DetailAttribute& detail)
{
    if (detail.rule == DetailRule::Formatted)
        card.setValue(detail.key, formatted(record, detail.key));
    else if (const DBCValue* value = record.value(detail.key))
        card.setValue(detail.key, *value);
}

void setIfPresent(Card& card, Key key, const std::optional<QString>& text)
{
    if (text)
        card.setValue(key, *text);
}

void setNameParts(Card& card)
{
    const DBCNameParts name = DBCDataBaseController::separateName(card.textOrEmpty(Key::full_Name));
    const DBCNameParts kana
        = DBCDataBaseController::separateNameYomi(card.textOrEmpty(Key::full_Name_Kana));
    setIfPresent(card, Key::first_Name, name.first);
    setIfPresent(card, Key::first_Name_Kana, kana.first);
    setIfPresent(card, Key::middle_Name, name.middle);
    setIfPresent(card, Key::middle_Name_Kana, kana.middle);
    setIfPresent(card, Key::family_Name, name.family);
    setIfPresent(card, Key::family_Name_Kana, kana.family);
    setIfPresent(card, Key::suffix_Name, name.suffix);
    setIfPresent(card, Key::suffix_Name_Kana, kana.suffix);
    setIfPresent(card, Key::prefix_Name, name.prefix);
    setIfPresent(card, Key::prefix_Name_Kana, kana.prefix);
}

void setAddress(Card& card, const DBCRecord& record)
{
    QString street = formatted(record, Key::street);
    const QString city = formatted(record, Key::city);
    const QString state = formatted(record, Key::state);
    auto address = DBCDataBaseController::composeAddressWithStreet(street, city, state);
    if (!address) {
        // If the record gives the address as one text, that text is also stored as the street.
        street = formatted(record, Key::address);
        address = DBCDataBaseController::composeAddressWithStreet(street, city, state);
    }
    card.setValue(Key::street, street);
    card.setValue(Key::city, city);
    card.setValue(Key::state, state);
    card.setValue(Key::address, address.value_or(QString()));
}

// Reads year/month/day with a four-digit year. Month and day may lack their leading zero, because
// spreadsheets write them without it. Returns the first moment of that day in local time, or
// std::nullopt for any other text and for days that do not exist, such as 2009/02/30.
std::optional<QDateTime> parseRegisterDate(const QString& text)
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(u"(\\d{4})/(\\d{1,2})/(\\d{1,2})"_s));
    const QRegularExpressionMatch match = pattern.match(text);
    const QDate date(match.capturedView(1).toInt(), match.capturedView(2).toInt(),
        match.capturedView(3).toInt());
    if (!match.hasMatch() || !date.isValid())
        return std::nullopt;
    return date.startOfDay();
}

// Returns the error with which the image step has failed. An error with a code above 0 is no
// failure: the import of the card continues, with the image's name if the step returned one.
DBCError imageStepError(const std::optional<QString>& fileName, const DBCError& error)
{
    if (error)
        return isFailure(error.code()) ? error : DBCError();
    return fileName ? DBCError() : DBCError(DBCResultCode::GeneralFailure);
}

DBCError attachmentStepError(const std::optional<QString>& result, const DBCError& error)
{
    if (error)
        return error;
    return result ? DBCError() : DBCError(DBCResultCode::GeneralFailure);
}

} // namespace

bool DBCDataBaseController::addDataToDataBase(
    const DBCRecord& record, const QString& fromPath, DBCError* errors)
{
    if (fromPath.isEmpty() || !errors || _strDBPath.isEmpty())
        return false;
    if (const DBCError error = addCard(record, fromPath))
        *errors = error;
    return !*errors;
}

DBCError DBCDataBaseController::addCard(const DBCRecord& record, const QString& fromPath)
{
    // A store without the card entity cannot be opened, so an open context can always insert a
    // card.
    DBCManagedObjectContext* context = managedObjectContext();
    if (!context)
        return DBCError(DBCResultCode::GeneralFailure);
    Card* card = context->insertNewCard();
    const QString cardId = generateCardId(card);

    DBCError stepError;
    const auto imageName = _addImageFileIntoDB(fromPath, record, cardId, &stepError);
    if (DBCError error = imageStepError(imageName, stepError))
        return error;

    stepError = DBCError();
    const auto attached = _addAttachFileIntoDB(fromPath, record, cardId, &stepError);
    if (DBCError error = attachmentStepError(attached, stepError))
        return error;

    DBCRecord completed = record;
    completed.setValue(Key::face_Image_File, imageName.value_or(QString()));
    completed.setValue(Key::back_Image_File, QString());
    completed.setValue(Key::attachmentFile, QString());
    completed.setValue(Key::cardID, cardId);
    return DBCError::ifFailure(setDataToManagedObject(card, &completed));
}

DBCResultCode DBCDataBaseController::setDataToManagedObject(Card* object, const DBCRecord* dataDic)
{
    if (!object || !dataDic)
        return DBCResultCode::GeneralFailure;
    for (const Key key : syncAttributes)
        object->setValue(key, generateUUID());
    object->setValue(Key::cardID, dataDic->textOrEmpty(Key::cardID));
    object->setValue(Key::face_Image_File, dataDic->textOrEmpty(Key::face_Image_File));
    object->setValue(Key::scanNow, qint64 {1});
    object->setValue(Key::register_Date,
        parseRegisterDate(dataDic->textOrEmpty(Key::register_Date))
            .value_or(QDateTime::currentDateTime()));
    object->setValue(Key::accept_Date, QDateTime::currentDateTime());

    auto result = DBCResultCode::Success;
    for (qint32 type = firstDetailType; type <= lastDetailType; ++type)
        result = setDetailDataDicToManagedObject(object, dataDic, type);
    return result;
}

DBCResultCode DBCDataBaseController::setDetailDataDicToManagedObject(
    Card* object, const DBCRecord* dataDic, qint32 withType)
{
    if (!object || !dataDic)
        return DBCResultCode::GeneralFailure;
    for (const DetailAttribute& detail : detailAttributes) {
        if (detail.type == withType)
            setDetail(*object, *dataDic, detail);
    }
    if (withType == nameDetailType)
        setNameParts(*object);
    if (withType == addressDetailType)
        setAddress(*object, *dataDic);
    return DBCResultCode::Success;
}

QString DBCDataBaseController::generateCardId(const Card* object)
{
    if (object && object->identityURI())
        return object->identityURI()->mid(identityPrefixLength);
    return newUUID();
}

QString DBCDataBaseController::cardIDStart()
{
    const DBCManagedObjectContext* context = managedObjectContext();
    return context ? context->identityPrefix().mid(identityPrefixLength) : QString();
}

QString DBCDataBaseController::generateUUID()
{
    constexpr qint32 firstVersionWithPlainIdentifiers = 0x1050;
    if (getSystemVersion() < firstVersionWithPlainIdentifiers)
        return u"com.apple.syncservices:"_s + newUUID();
    return newUUID();
}
