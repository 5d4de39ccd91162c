// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"
#include "carddb/store/DBCCard.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/ScopedTimeZone.h"
#include "tests/support/StandardInputKeeper.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using Key = DBCRecordKey;

class tst_recordImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyAttributeAnImportSetsReachesTheStore();
    void nothingElseIsSet();
    void halfWidthKatakanaIsWidened_data();
    void halfWidthKatakanaIsWidened();
    void missingDetailsAreStoredEmpty();
    void rawTextsAreKeptAsTheyStand_data();
    void rawTextsAreKeptAsTheyStand();
    void rawTextThatIsMissingStaysUnset();
    void emptyFullNameXYIsStoredEmpty();
    void typesOutsideTheGroupsChangeNothing_data();
    void typesOutsideTheGroupsChangeNothing();
    void eachTypeSetsItsOwnAttributes_data();
    void eachTypeSetsItsOwnAttributes();
    void missingCardOrRecordIsAGeneralFailure();

    void japaneseNameIsSplitFamilyFirst();
    void westernNameIsSplitGivenNameFirst();
    void readingInHalfWidthKatakanaIsSplitAfterWidening();
    void partsThatANameDoesNotHaveStayUnset();

    void addressIsComposedOfItsParts();
    void addressAloneBecomesTheStreet();
    void partsWinOverTheAddress();
    void recordWithoutAnyAddressHasEmptyOnes();

    void registerDateIsTheLocalMidnight();
    void registerDateOfADayWithoutMidnightIsItsFirstMoment();
    void registerDateThatParses_data();
    void registerDateThatParses();
    void registerDateThatDoesNotParseIsNow_data();
    void registerDateThatDoesNotParseIsNow();
    void missingRegisterDateIsNow();
    void acceptDateIsNowWithPartsOfASecond();
    void eachCardGetsSixDistinctSyncIdentifiers();

    void cardIDIsTheIdentityWithoutItsPrefix();
    void cardWithoutIdentityGetsAFreshUUID();
    void syncIdentifierIsAPlainUUIDOnUnknownSystems();
    void syncIdentifierOfAnOldSystemHasThePrefix();

    void cardWithImagesAndAttachmentsIsTakenIn();
    void cardWithoutImagesNamesNone();
    void importedCardsAreExportedInTheirOrder();
    void nothingIsStoredBeforeTheSave();
    void recordOfTheCallerIsNotChanged();
    void missingArgumentsGiveFalseWithoutAnError();
    void withoutAContextItIsAGeneralFailure();
    void imageStepsOutcome_data();
    void imageStepsOutcome();
    void attachmentStepsOutcome_data();
    void attachmentStepsOutcome();
    void errorLeftInTheSlotByTheCallerMakesItFalse();

private:
    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
    std::unique_ptr<InterchangeFolder> _folder;
};

namespace {

using Values = std::initializer_list<std::pair<Key, QString>>;

DBCRecord record(const Values& values)
{
    DBCRecord result;
    for (const auto& [key, value] : values)
        result.setValue(key, value);
    return result;
}

// The record as a reader delivers it: every column and the two numbers.
DBCRecord wholeRecord(const Values& values = {})
{
    DBCRecord result;
    for (const Key key : {Key::face_Image_File, Key::back_Image_File, Key::attachmentFile,
             Key::full_Name, Key::full_Name_Kana, Key::company, Key::company_Kana, Key::department,
             Key::job_Title, Key::zip_PostalCode, Key::state, Key::city, Key::street, Key::address,
             Key::telephone_Number, Key::fax_Number, Key::mobile_Number, Key::e_Mail,
             Key::web_Page_Address, Key::memo, Key::register_Date})
        result.setValue(key, QStringLiteral(""));
    result.setValue(Key::recordNo, QStringLiteral("2"));
    result.setValue(Key::lineNo, QStringLiteral("2"));
    for (const auto& [key, value] : values)
        result.setValue(key, value);
    return result;
}

Card cardOf(const DBCRecord& data)
{
    Card card;
    if (DBCDataBaseController::setDataToManagedObject(&card, &data) != DBCResultCode::Success)
        qFatal("the record was refused");
    return card;
}

// None, and not "", for an attribute that is not set.
std::optional<QString> textOf(const Card& card, Key key)
{
    const DBCValue* value = card.value(key);
    return value ? std::optional(std::get<QString>(*value)) : std::nullopt;
}

QDateTime dateOf(const Card& card, Key key)
{
    return std::get<QDateTime>(*card.value(key));
}

QStringList setAttributes(const Card& card)
{
    QStringList names;
    for (const DBCRecordKey key : allRecordKeys()) {
        if (card.value(key))
            names << recordKeyName(key);
    }
    names.sort();
    return names;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

const QRegularExpression& uuidPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    return pattern;
}

// Stands in for the two steps that bring files into the package.
class SubstituteSteps : public DBCDataBaseController {
public:
    std::optional<QString> _addImageFileIntoDB(
        const QString&, const DBCRecord&, const QString&, DBCError* errors) override
    {
        *errors = imageError;
        return imageName;
    }
    std::optional<QString> _addAttachFileIntoDB(
        const QString&, const DBCRecord&, const QString&, DBCError* errors) override
    {
        ++attachmentCalls;
        *errors = attachmentError;
        return attachment;
    }

    std::optional<QString> imageName = QStringLiteral("");
    DBCError imageError;
    std::optional<QString> attachment = QStringLiteral("");
    DBCError attachmentError;
    int attachmentCalls = 0;
};

std::optional<DBCResultCode> codeOf(const DBCError& error)
{
    return error ? std::optional(error.code()) : std::nullopt;
}

} // namespace

void tst_recordImport::init()
{
    _home = std::make_unique<TestHome>();
    _package = std::make_unique<PackageFixture>(*_home);
    _folder = std::make_unique<InterchangeFolder>(*_home);
}

void tst_recordImport::cleanup()
{
    _folder.reset();
    _package.reset();
    _home.reset();
}

void tst_recordImport::everyAttributeAnImportSetsReachesTheStore()
{
    const ScopedTimeZone tokyo("JST-9");
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(database->addDataToDataBase(
        wholeRecord({{Key::full_Name, QStringLiteral("山田 太郎")},
            {Key::full_Name_Kana, QStringLiteral("ﾔﾏﾀﾞ ﾀﾛｳ")},
            {Key::company, QStringLiteral("ベルモラ(株)")},
            {Key::company_Kana, QStringLiteral("ﾍﾞﾙﾓﾗ")},
            {Key::department, QStringLiteral("営業部")}, {Key::job_Title, QStringLiteral("部長")},
            {Key::zip_PostalCode, QStringLiteral("100-0001")},
            {Key::state, QStringLiteral("東京都")}, {Key::city, QStringLiteral("千代田区")},
            {Key::street, QStringLiteral("千代田1-1")},
            {Key::telephone_Number, QStringLiteral("03-1111-2222")},
            {Key::fax_Number, QStringLiteral("03-1111-3333")},
            {Key::mobile_Number, QStringLiteral("090-1111-4444")},
            {Key::e_Mail, QStringLiteral("taro@example.jp")},
            {Key::web_Page_Address, QStringLiteral("https://example.jp")},
            {Key::memo, QStringLiteral("展示会で")},
            {Key::register_Date, QStringLiteral("2009/03/05")}}),
        _folder->path(), &error));
    QCOMPARE(database->save(), DBCResultCode::Success);

    QCOMPARE(_package->rows(QStringLiteral(
                 "SELECT ZFULL_NAME, ZFULL_NAME_KANA, ZFAMILY_NAME, ZFIRST_NAME, "
                 "ZFAMILY_NAME_KANA, ZFIRST_NAME_KANA, ZCOMPANY, ZCOMPANY_KANA, ZDEPARTMENT, "
                 "ZJOB_TITLE FROM ZCARD")),
        QList<QVariantList>({{QStringLiteral("山田 太郎"), QStringLiteral("ヤマダ タロウ"),
            QStringLiteral("山田"), QStringLiteral("太郎"), QStringLiteral("ヤマダ"),
            QStringLiteral("タロウ"), QStringLiteral("ベルモラ(株)"), QStringLiteral("ベルモラ"),
            QStringLiteral("営業部"), QStringLiteral("部長")}}));
    QCOMPARE(_package->rows(QStringLiteral(
                 "SELECT ZZIP_POSTALCODE, ZSTATE, ZCITY, ZSTREET, ZADDRESS, ZTELEPHONE_NUMBER, "
                 "ZFAX_NUMBER, ZMOBILE_NUMBER, ZE_MAIL, ZWEB_PAGE_ADDRESS, ZMEMO FROM ZCARD")),
        QList<QVariantList>(
            {{QStringLiteral("100-0001"), QStringLiteral("東京都"), QStringLiteral("千代田区"),
                QStringLiteral("千代田1-1"), QStringLiteral("東京都\n千代田区\n千代田1-1"),
                QStringLiteral("03-1111-2222"), QStringLiteral("03-1111-3333"),
                QStringLiteral("090-1111-4444"), QStringLiteral("taro@example.jp"),
                QStringLiteral("https://example.jp"), QStringLiteral("展示会で")}}));
    // 2009-03-04 15:00:00 UTC.
    QCOMPARE(_package->rows(QStringLiteral("SELECT ZSCANNOW, ZREGISTER_DATE, ZDELETEDFLAG, "
                                           "ZFACE_IMAGE_FILE, Z_PK, Z_ENT, Z_OPT FROM ZCARD")),
        QList<QVariantList>({{1, 257'871'600, 0, QString(), 1, 1, 1}}));
    QCOMPARE(
        _package->value(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
}

void tst_recordImport::nothingElseIsSet()
{
    const Card card = cardOf(wholeRecord(
        {{Key::cardID, QStringLiteral("id")}, {Key::full_Name, QStringLiteral("Ada Lovelace")},
            {Key::full_Name_Kana, QStringLiteral("Ada Lovelace")}}));
    QCOMPARE(setAttributes(card),
        sorted(QStringLiteral("cardID face_Image_File scanNow register_Date accept_Date "
                              "sync_Email sync_Phone_work sync_Phone_Mobile sync_URL sync_Street "
                              "sync_Phone_Fax full_Name full_Name_Kana first_Name first_Name_Kana "
                              "family_Name family_Name_Kana job_Title telephone_Number fax_Number "
                              "zip_PostalCode street city state address e_Mail web_Page_Address "
                              "company company_Kana department memo mobile_Number")
                   .split(u' ')));
}

void tst_recordImport::halfWidthKatakanaIsWidened_data()
{
    QTest::addColumn<Key>("key");
    for (const Key key : {Key::full_Name, Key::full_Name_Kana, Key::job_Title,
             Key::telephone_Number, Key::fax_Number, Key::zip_PostalCode, Key::street, Key::city,
             Key::state, Key::e_Mail, Key::web_Page_Address, Key::company, Key::company_Kana,
             Key::department, Key::memo, Key::mobile_Number})
        QTest::newRow(qPrintable(recordKeyName(key))) << key;
}

void tst_recordImport::halfWidthKatakanaIsWidened()
{
    QFETCH(Key, key);
    const Card card = cardOf(record({{key, QStringLiteral("ﾊﾟﾝ 1")}}));
    QCOMPARE(textOf(card, key), QStringLiteral("パン 1"));
}

void tst_recordImport::missingDetailsAreStoredEmpty()
{
    const Card card = cardOf(DBCRecord());
    for (const Key key : {Key::cardID, Key::face_Image_File, Key::full_Name, Key::full_Name_Kana,
             Key::job_Title, Key::telephone_Number, Key::fax_Number, Key::zip_PostalCode,
             Key::street, Key::city, Key::state, Key::address, Key::e_Mail, Key::web_Page_Address,
             Key::company, Key::company_Kana, Key::department, Key::memo, Key::mobile_Number})
        QCOMPARE(textOf(card, key), QStringLiteral(""));
}

void tst_recordImport::rawTextsAreKeptAsTheyStand_data()
{
    QTest::addColumn<Key>("key");
    for (const Key key :
        {Key::full_Name_XY, Key::job_Title_XY, Key::telephone_Number_XY, Key::fax_Number_XY,
            Key::zip_PostalCode_XY, Key::address_XY, Key::e_Mail_XY, Key::web_Page_Address_XY,
            Key::company_XY, Key::department_XY, Key::memo_XY, Key::mobile_Number_XY})
        QTest::newRow(qPrintable(recordKeyName(key))) << key;
}

void tst_recordImport::rawTextsAreKeptAsTheyStand()
{
    QFETCH(Key, key);
    const QString raw = QStringLiteral(" ﾊﾟﾝ ") + QString(300, u'x');
    QCOMPARE(textOf(cardOf(record({{key, raw}})), key), raw);
}

void tst_recordImport::rawTextThatIsMissingStaysUnset()
{
    const Card card = cardOf(wholeRecord());
    QCOMPARE(textOf(card, Key::full_Name_XY), std::nullopt);
    QCOMPARE(textOf(card, Key::address_XY), std::nullopt);
    QCOMPARE(textOf(card, Key::memo_XY), std::nullopt);
}

void tst_recordImport::emptyFullNameXYIsStoredEmpty()
{
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(database->addDataToDataBase(
        wholeRecord({{Key::full_Name_XY, QString()}}), _folder->path(), &error));
    QCOMPARE(database->save(), DBCResultCode::Success);
    QCOMPARE(_package->rows(QStringLiteral(
                 "SELECT typeof(ZFULL_NAME_XY), ZFULL_NAME_XY, typeof(ZMEMO_XY) FROM ZCARD")),
        QList<QVariantList>({{QStringLiteral("text"), QString(), QStringLiteral("null")}}));
}

void tst_recordImport::typesOutsideTheGroupsChangeNothing_data()
{
    QTest::addColumn<qint32>("type");
    QTest::newRow("below") << 20;
    QTest::newRow("above") << 34;
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -21;
    QTest::newRow("the gap") << 28;
}

void tst_recordImport::typesOutsideTheGroupsChangeNothing()
{
    QFETCH(qint32, type);
    const DBCRecord data = wholeRecord({{Key::memo, QStringLiteral("text")}});
    Card card;
    QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(&card, &data, type),
        DBCResultCode::Success);
    QCOMPARE(setAttributes(card), QStringList());
}

void tst_recordImport::eachTypeSetsItsOwnAttributes_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("attributes");
    QTest::newRow("21 name") << 21
                             << QStringLiteral("full_Name full_Name_XY full_Name_Kana "
                                               "family_Name family_Name_Kana");
    QTest::newRow("22 title") << 22 << QStringLiteral("job_Title job_Title_XY");
    QTest::newRow("23 telephone") << 23 << QStringLiteral("telephone_Number telephone_Number_XY");
    QTest::newRow("24 fax") << 24 << QStringLiteral("fax_Number fax_Number_XY");
    QTest::newRow("25 postal code") << 25 << QStringLiteral("zip_PostalCode zip_PostalCode_XY");
    QTest::newRow("26 address") << 26 << QStringLiteral("street city state address address_XY");
    QTest::newRow("27 mail") << 27 << QStringLiteral("e_Mail e_Mail_XY");
    QTest::newRow("29 web page") << 29 << QStringLiteral("web_Page_Address web_Page_Address_XY");
    QTest::newRow("30 company") << 30 << QStringLiteral("company company_XY company_Kana");
    QTest::newRow("31 department") << 31 << QStringLiteral("department department_XY");
    QTest::newRow("32 memo") << 32 << QStringLiteral("memo memo_XY");
    QTest::newRow("33 mobile") << 33 << QStringLiteral("mobile_Number mobile_Number_XY");
}

void tst_recordImport::eachTypeSetsItsOwnAttributes()
{
    QFETCH(qint32, type);
    QFETCH(QString, attributes);
    DBCRecord data;
    for (const DBCRecordKey key : allRecordKeys())
        data.setValue(key, QStringLiteral("山"));
    Card card;
    QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(&card, &data, type),
        DBCResultCode::Success);
    QCOMPARE(setAttributes(card), sorted(attributes.split(u' ')));
}

void tst_recordImport::missingCardOrRecordIsAGeneralFailure()
{
    Card card;
    const DBCRecord data;
    const auto failure = DBCResultCode::GeneralFailure;
    QCOMPARE(DBCDataBaseController::setDataToManagedObject(nullptr, &data), failure);
    QCOMPARE(DBCDataBaseController::setDataToManagedObject(&card, nullptr), failure);
    QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(nullptr, &data, 21), failure);
    QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(&card, nullptr, 99), failure);
    QCOMPARE(setAttributes(card), QStringList());
}

void tst_recordImport::japaneseNameIsSplitFamilyFirst()
{
    const Card card = cardOf(record({{Key::full_Name, QStringLiteral("山田　太郎")}}));
    QCOMPARE(textOf(card, Key::full_Name), QStringLiteral("山田　太郎"));
    QCOMPARE(textOf(card, Key::family_Name), QStringLiteral("山田"));
    QCOMPARE(textOf(card, Key::first_Name), QStringLiteral("太郎"));
    QCOMPARE(textOf(card, Key::middle_Name), std::nullopt);
}

void tst_recordImport::westernNameIsSplitGivenNameFirst()
{
    const Card card = cardOf(record({{Key::full_Name, QStringLiteral("Ada King Lovelace")},
        {Key::full_Name_Kana, QStringLiteral("Eda Kin Lavleys")}}));
    QCOMPARE(textOf(card, Key::first_Name), QStringLiteral("Ada"));
    QCOMPARE(textOf(card, Key::middle_Name), QStringLiteral("King"));
    QCOMPARE(textOf(card, Key::family_Name), QStringLiteral("Lovelace"));
    QCOMPARE(textOf(card, Key::first_Name_Kana), QStringLiteral("Eda"));
    QCOMPARE(textOf(card, Key::middle_Name_Kana), QStringLiteral("Kin"));
    QCOMPARE(textOf(card, Key::family_Name_Kana), QStringLiteral("Lavleys"));
}

void tst_recordImport::readingInHalfWidthKatakanaIsSplitAfterWidening()
{
    const Card card = cardOf(record({{Key::full_Name_Kana, QStringLiteral("ﾔﾏﾀﾞ ﾀﾛｳ")}}));
    QCOMPARE(textOf(card, Key::family_Name_Kana), QStringLiteral("ヤマダ"));
    QCOMPARE(textOf(card, Key::first_Name_Kana), QStringLiteral("タロウ"));
}

void tst_recordImport::partsThatANameDoesNotHaveStayUnset()
{
    const Card card = cardOf(record({{Key::full_Name, QStringLiteral("山田")}}));
    QCOMPARE(textOf(card, Key::family_Name), QStringLiteral("山田"));
    for (const Key key : {Key::first_Name, Key::middle_Name, Key::suffix_Name, Key::prefix_Name,
             Key::suffix_Name_Kana, Key::prefix_Name_Kana})
        QCOMPARE(textOf(card, key), std::nullopt);
}

void tst_recordImport::addressIsComposedOfItsParts()
{
    const Card card = cardOf(
        record({{Key::state, QStringLiteral("東京都")}, {Key::street, QStringLiteral("1-1 ﾋﾞﾙ")}}));
    QCOMPARE(textOf(card, Key::address), QStringLiteral("東京都\n\n1-1 ビル"));
    QCOMPARE(textOf(card, Key::street), QStringLiteral("1-1 ビル"));
    QCOMPARE(textOf(card, Key::city), QStringLiteral(""));
    QCOMPARE(textOf(card, Key::state), QStringLiteral("東京都"));
}

void tst_recordImport::addressAloneBecomesTheStreet()
{
    const Card card = cardOf(record({{Key::address, QStringLiteral("東京都千代田区 ﾋﾞﾙ")}}));
    QCOMPARE(textOf(card, Key::street), QStringLiteral("東京都千代田区 ビル"));
    QCOMPARE(textOf(card, Key::address), QStringLiteral("\n\n東京都千代田区 ビル"));
    QCOMPARE(textOf(card, Key::city), QStringLiteral(""));
    QCOMPARE(textOf(card, Key::state), QStringLiteral(""));
}

void tst_recordImport::partsWinOverTheAddress()
{
    const Card card = cardOf(record({{Key::city, QStringLiteral("千代田区")},
        {Key::address, QStringLiteral("somewhere else")}}));
    QCOMPARE(textOf(card, Key::address), QStringLiteral("\n千代田区"));
    QCOMPARE(textOf(card, Key::street), QStringLiteral(""));
}

void tst_recordImport::recordWithoutAnyAddressHasEmptyOnes()
{
    const Card card = cardOf(wholeRecord());
    QCOMPARE(textOf(card, Key::address), QStringLiteral(""));
    QCOMPARE(textOf(card, Key::street), QStringLiteral(""));
}

void tst_recordImport::registerDateIsTheLocalMidnight()
{
    const ScopedTimeZone tokyo("JST-9");
    const Card card = cardOf(record({{Key::register_Date, QStringLiteral("2009/03/05")}}));
    QCOMPARE(
        dateOf(card, Key::register_Date).toUTC(), QDateTime({2009, 3, 4}, QTime(15, 0), Qt::UTC));
}

void tst_recordImport::registerDateOfADayWithoutMidnightIsItsFirstMoment()
{
    // Clocks there went from 00:00 to 01:00 on the first Sunday of November.
    const ScopedTimeZone saoPaulo("BRT3BRST,M11.1.0/0,M2.3.0/0");
    const Card card = cardOf(record({{Key::register_Date, QStringLiteral("2018/11/04")}}));
    const QDateTime date = dateOf(card, Key::register_Date);
    QCOMPARE(date.date(), QDate(2018, 11, 4));
    QCOMPARE(date.toUTC(), QDateTime({2018, 11, 4}, QTime(3, 0), Qt::UTC));
}

void tst_recordImport::registerDateThatParses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("two digits") << QStringLiteral("2009/03/05") << QDate(2009, 3, 5);
    QTest::newRow("as spreadsheets write it") << QStringLiteral("2009/3/5") << QDate(2009, 3, 5);
    QTest::newRow("leap day") << QStringLiteral("2008/02/29") << QDate(2008, 2, 29);
    QTest::newRow("last of the year") << QStringLiteral("1999/12/31") << QDate(1999, 12, 31);
}

void tst_recordImport::registerDateThatParses()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    const Card card = cardOf(record({{Key::register_Date, text}}));
    QCOMPARE(dateOf(card, Key::register_Date).toLocalTime().date(), date);
}

void tst_recordImport::registerDateThatDoesNotParseIsNow_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("no such day") << QStringLiteral("2009/02/30");
    QTest::newRow("no leap year") << QStringLiteral("2009/02/29");
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("month 13") << QStringLiteral("2009/13/01");
    QTest::newRow("month 0") << QStringLiteral("2009/00/10");
    QTest::newRow("dashes") << QStringLiteral("2009-03-05");
    QTest::newRow("two-digit year") << QStringLiteral("09/03/05");
    QTest::newRow("with a time") << QStringLiteral("2009/03/05 10:00");
    QTest::newRow("line end behind") << QStringLiteral("2009/03/05\n");
    QTest::newRow("blank in front") << QStringLiteral(" 2009/03/05");
    QTest::newRow("wide digits") << QStringLiteral("２００９/０３/０５");
    QTest::newRow("a word") << QStringLiteral("today");
    QTest::newRow("year 0") << QStringLiteral("0000/01/01");
}

void tst_recordImport::registerDateThatDoesNotParseIsNow()
{
    QFETCH(QString, text);
    const QDateTime before = QDateTime::currentDateTime();
    const Card card = cardOf(record({{Key::register_Date, text}}));
    const QDateTime date = dateOf(card, Key::register_Date);
    QVERIFY(before <= date && date <= QDateTime::currentDateTime());
}

void tst_recordImport::missingRegisterDateIsNow()
{
    const QDateTime before = QDateTime::currentDateTime();
    const Card card = cardOf(DBCRecord());
    const QDateTime date = dateOf(card, Key::register_Date);
    QVERIFY(before <= date && date <= QDateTime::currentDateTime());
}

void tst_recordImport::acceptDateIsNowWithPartsOfASecond()
{
    bool hasParts = false;
    for (int i = 0; i < 3 && !hasParts; ++i) {
        const QDateTime before = QDateTime::currentDateTime();
        const QDateTime date = dateOf(cardOf(wholeRecord()), Key::accept_Date);
        QVERIFY(before <= date && date <= QDateTime::currentDateTime());
        hasParts = date.time().msec() != 0;
        QTest::qSleep(1);
    }
    QVERIFY(hasParts);
}

void tst_recordImport::eachCardGetsSixDistinctSyncIdentifiers()
{
    QSet<QString> identifiers;
    for (int i = 0; i < 2; ++i) {
        const Card card = cardOf(wholeRecord());
        for (const Key key : {Key::sync_Email, Key::sync_Phone_work, Key::sync_Phone_Mobile,
                 Key::sync_URL, Key::sync_Street, Key::sync_Phone_Fax}) {
            const QString identifier = card.textOrEmpty(key);
            QVERIFY2(uuidPattern().match(identifier).hasMatch(), qPrintable(identifier));
            identifiers << identifier;
        }
    }
    QCOMPARE(identifiers.size(), 12);
}

void tst_recordImport::cardIDIsTheIdentityWithoutItsPrefix()
{
    const Card card(QStringLiteral("x-coredata:///Card/tABC-7"));
    QCOMPARE(DBCDataBaseController::generateCardId(&card), QStringLiteral("ABC-7"));
}

void tst_recordImport::cardWithoutIdentityGetsAFreshUUID()
{
    const Card card;
    const QString first = DBCDataBaseController::generateCardId(&card);
    const QString second = DBCDataBaseController::generateCardId(nullptr);
    QVERIFY(uuidPattern().match(first).hasMatch());
    QVERIFY(uuidPattern().match(second).hasMatch());
    QVERIFY(first != second);
}

void tst_recordImport::syncIdentifierIsAPlainUUIDOnUnknownSystems()
{
    ScopedHost host;
    host->systemVersion = [] { return std::optional<qint32>(); };
    QVERIFY(uuidPattern().match(DBCDataBaseController::generateUUID()).hasMatch());
}

void tst_recordImport::syncIdentifierOfAnOldSystemHasThePrefix()
{
    ScopedHost host;
    host->systemVersion = [] { return std::optional<qint32>(0x1049); };
    const QString identifier = DBCDataBaseController::generateUUID();
    const QString prefix = QStringLiteral("com.apple.syncservices:");
    QVERIFY(identifier.startsWith(prefix));
    QVERIFY(uuidPattern().match(identifier.mid(prefix.size())).hasMatch());
    host->systemVersion = [] { return std::optional<qint32>(0x1050); };
    QVERIFY(uuidPattern().match(DBCDataBaseController::generateUUID()).hasMatch());
}

void tst_recordImport::cardWithImagesAndAttachmentsIsTakenIn()
{
    _folder->image(QStringLiteral("1.jpg"), JpegBuilder(300, 200).dotsPerInch(300, 300).bytes());
    _folder->attachment(QStringLiteral("plans"), QStringLiteral("a.txt"), "text");
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(
        database->addDataToDataBase(wholeRecord({{Key::face_Image_File, QStringLiteral("1.jpg")},
                                        {Key::back_Image_File, QStringLiteral("missing.jpg")},
                                        {Key::attachmentFile, QStringLiteral("plans")}}),
            _folder->path(), &error));
    QCOMPARE(database->save(), DBCResultCode::Success);

    const QString cardID = _package->value(QStringLiteral("SELECT ZCARDID FROM ZCARD")).toString();
    static const QRegularExpression pattern(
        QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[0-9]+$"));
    QVERIFY2(pattern.match(cardID).hasMatch(), qPrintable(cardID));
    QCOMPARE(_package->rows(QStringLiteral("SELECT ZFACE_IMAGE_FILE, ZBACK_IMAGE_FILE FROM ZCARD")),
        QList<QVariantList>({{cardID + QStringLiteral("_N1.pdf"), QVariant()}}));
    QVERIFY(_package->readFile(QStringLiteral("Images/%1_N1.pdf").arg(cardID)).startsWith("%PDF"));
    QCOMPARE(_package->readFile(QStringLiteral("Files/%1/a.txt").arg(cardID)), "text");
}

void tst_recordImport::cardWithoutImagesNamesNone()
{
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(database->addDataToDataBase(
        wholeRecord({{Key::face_Image_File, QStringLiteral("missing.jpg")}}), _folder->path(),
        &error));
    QCOMPARE(database->save(), DBCResultCode::Success);
    QCOMPARE(_package->rows(
                 QStringLiteral("SELECT typeof(ZFACE_IMAGE_FILE), ZFACE_IMAGE_FILE FROM ZCARD")),
        QList<QVariantList>({{QStringLiteral("text"), QString()}}));
}

void tst_recordImport::importedCardsAreExportedInTheirOrder()
{
    QStringList names;
    {
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        for (int i = 0; i < 60; ++i) {
            names << QStringLiteral("card %1").arg(i);
            QVERIFY(database->addDataToDataBase(
                wholeRecord({{Key::memo, names.last()}}), _folder->path(), &error));
        }
        QCOMPARE(database->save(), DBCResultCode::Success);
    }
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QStringList exported;
    const auto cards = database->fetchCardDatas(&error);
    for (const DBCRecord& card : cards.value())
        exported << card.textOrEmpty(Key::memo);
    QCOMPARE(exported, names);
}

void tst_recordImport::nothingIsStoredBeforeTheSave()
{
    const QByteArray before = _package->readFile(QStringLiteral("Velmora.sqldb"));
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(database->addDataToDataBase(wholeRecord(), _folder->path(), &error));
    QCOMPARE(_package->readFile(QStringLiteral("Velmora.sqldb")), before);
}

void tst_recordImport::recordOfTheCallerIsNotChanged()
{
    const DBCRecord data = wholeRecord({{Key::face_Image_File, QStringLiteral("missing.jpg")}});
    const DBCRecord copy = data;
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(database->addDataToDataBase(data, _folder->path(), &error));
    QVERIFY(data == copy);
}

void tst_recordImport::missingArgumentsGiveFalseWithoutAnError()
{
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error;
    QVERIFY(!database->addDataToDataBase(wholeRecord(), QString(), &error));
    QVERIFY(!error);
    QVERIFY(!database->addDataToDataBase(wholeRecord(), _folder->path(), nullptr));
    DBCDataBaseController withoutPath;
    QVERIFY(!withoutPath.addDataToDataBase(wholeRecord(), _folder->path(), &error));
    QVERIFY(!error);
}

void tst_recordImport::withoutAContextItIsAGeneralFailure()
{
    _package->remove(QStringLiteral("Velmora.sqldb"));
    DBCDataBaseController controller;
    controller.setDBPath(_package->path());
    DBCError error;
    QVERIFY(!controller.addDataToDataBase(wholeRecord(), _folder->path(), &error));
    QCOMPARE(codeOf(error), DBCResultCode::GeneralFailure);
}

void tst_recordImport::imageStepsOutcome_data()
{
    using Code = DBCResultCode;
    QTest::addColumn<std::optional<QString>>("name");
    QTest::addColumn<DBCError>("stepError");
    QTest::addColumn<std::optional<DBCResultCode>>("expected");
    QTest::addColumn<QString>("stored");
    const std::optional<QString> none;
    const std::optional<QString> name = QStringLiteral("x_N1.pdf");
    QTest::newRow("a name") << name << DBCError() << std::optional<Code>() << *name;
    QTest::newRow("no image") << std::optional(QStringLiteral("")) << DBCError()
                              << std::optional<Code>() << QStringLiteral("");
    QTest::newRow("a failure") << none << DBCError(Code::PdfCreateFailure)
                               << std::optional(Code::PdfCreateFailure) << QString();
    QTest::newRow("a name and a failure") << name << DBCError(Code::NoSpaceForImport)
                                          << std::optional(Code::NoSpaceForImport) << QString();
    QTest::newRow("an error that is no failure")
        << none << DBCError(Code::CancelledByUser) << std::optional<Code>() << QStringLiteral("");
    QTest::newRow("a name and an error that is no failure")
        << name << DBCError(Code::CancelledByUser) << std::optional<Code>() << *name;
    QTest::newRow("neither") << none << DBCError() << std::optional(Code::GeneralFailure)
                             << QString();
}

void tst_recordImport::imageStepsOutcome()
{
    QFETCH(std::optional<QString>, name);
    QFETCH(DBCError, stepError);
    QFETCH(std::optional<DBCResultCode>, expected);
    QFETCH(QString, stored);
    SubstituteSteps database;
    database.setDBPath(_package->path());
    database.imageName = name;
    database.imageError = stepError;
    DBCError error;
    QCOMPARE(database.addDataToDataBase(wholeRecord(), _folder->path(), &error), !expected);
    QCOMPARE(codeOf(error), expected);
    QCOMPARE(database.attachmentCalls, expected ? 0 : 1);
    if (expected)
        return;
    QCOMPARE(database.save(), DBCResultCode::Success);
    QCOMPARE(
        _package->value(QStringLiteral("SELECT ZFACE_IMAGE_FILE FROM ZCARD")).toString(), stored);
}

void tst_recordImport::attachmentStepsOutcome_data()
{
    using Code = DBCResultCode;
    QTest::addColumn<std::optional<QString>>("result");
    QTest::addColumn<DBCError>("stepError");
    QTest::addColumn<std::optional<DBCResultCode>>("expected");
    const std::optional<QString> none;
    const std::optional<QString> empty = QStringLiteral("");
    QTest::newRow("attached") << std::optional(QStringLiteral("id")) << DBCError()
                              << std::optional<Code>();
    QTest::newRow("nothing to attach") << empty << DBCError() << std::optional<Code>();
    QTest::newRow("a failure") << empty << DBCError(Code::AttachmentImportFailure)
                               << std::optional(Code::AttachmentImportFailure);
    QTest::newRow("an error that is no failure")
        << empty << DBCError(Code::CancelledByUser) << std::optional(Code::CancelledByUser);
    QTest::newRow("neither") << none << DBCError() << std::optional(Code::GeneralFailure);
}

void tst_recordImport::attachmentStepsOutcome()
{
    QFETCH(std::optional<QString>, result);
    QFETCH(DBCError, stepError);
    QFETCH(std::optional<DBCResultCode>, expected);
    SubstituteSteps database;
    database.setDBPath(_package->path());
    database.attachment = result;
    database.attachmentError = stepError;
    DBCError error;
    QCOMPARE(database.addDataToDataBase(wholeRecord(), _folder->path(), &error), !expected);
    QCOMPARE(codeOf(error), expected);
}

void tst_recordImport::errorLeftInTheSlotByTheCallerMakesItFalse()
{
    const auto database = DBCDataBaseController::initDBwithPath(_package->path());
    DBCError error(DBCResultCode::FolderNotExist);
    QVERIFY(!database->addDataToDataBase(wholeRecord(), _folder->path(), &error));
    QCOMPARE(codeOf(error), DBCResultCode::FolderNotExist);
}

QTEST_GUILESS_MAIN(tst_recordImport)
#include "tst_recordImport.moc"
