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
#include <QTimeZone>
#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

using Values = std::initializer_list<std::pair<Key, QString>>;

DBCRecord record(const Values& values)
{
    DBCRecord result;
    for (const auto& [key, value] : values)
        result.setValue(key, value);
    return result;
}

// Returns a record like those of the file reader: with all columns, the record number and the line
// number.
DBCRecord wholeRecord(const Values& values = {})
{
    DBCRecord result;
    for (const Key key : {Key::face_Image_File, Key::back_Image_File, Key::attachmentFile,
             Key::full_Name, Key::full_Name_Kana, Key::company, Key::company_Kana, Key::department,
             Key::job_Title, Key::zip_PostalCode, Key::state, Key::city, Key::street, Key::address,
             Key::telephone_Number, Key::fax_Number, Key::mobile_Number, Key::e_Mail,
             Key::web_Page_Address, Key::memo, Key::register_Date})
        result.setValue(key, u""_s);
    result.setValue(Key::recordNo, u"2"_s);
    result.setValue(Key::lineNo, u"2"_s);
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

// Returns std::nullopt, not an empty text, for an attribute that is not set.
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
    static const QRegularExpression pattern(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    return pattern;
}

// A controller whose two steps that bring files into the package only return what the test has set.
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

    std::optional<QString> imageName = u""_s;
    DBCError imageError;
    std::optional<QString> attachment = u""_s;
    DBCError attachmentError;
    int attachmentCalls = 0;
};

std::optional<DBCResultCode> codeOf(const DBCError& error)
{
    return error ? std::optional(error.code()) : std::nullopt;
}

} // namespace

class tst_recordImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _package = std::make_unique<PackageFixture>(*_home);
        _folder = std::make_unique<InterchangeFolder>(*_home);
    }

    void cleanup()
    {
        _folder.reset();
        _package.reset();
        _home.reset();
    }

    void everyAttributeAnImportSetsReachesTheStore()
    {
        const ScopedTimeZone tokyo("JST-9");
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(
            wholeRecord({{Key::full_Name, u"山田 太郎"_s}, {Key::full_Name_Kana, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s},
                {Key::company, u"ベルモラ(株)"_s}, {Key::company_Kana, u"ﾍﾞﾙﾓﾗ"_s},
                {Key::department, u"営業部"_s}, {Key::job_Title, u"部長"_s},
                {Key::zip_PostalCode, u"100-0001"_s}, {Key::state, u"東京都"_s},
                {Key::city, u"千代田区"_s}, {Key::street, u"千代田1-1"_s},
                {Key::telephone_Number, u"03-1111-2222"_s}, {Key::fax_Number, u"03-1111-3333"_s},
                {Key::mobile_Number, u"090-1111-4444"_s}, {Key::e_Mail, u"taro@example.jp"_s},
                {Key::web_Page_Address, u"https://example.jp"_s}, {Key::memo, u"展示会で"_s},
                {Key::register_Date, u"2009/03/05"_s}}),
            _folder->path(), &error));
        QCOMPARE(database->save(), DBCResultCode::Success);

        QCOMPARE(_package->rows(
                     u"SELECT ZFULL_NAME, ZFULL_NAME_KANA, ZFAMILY_NAME, ZFIRST_NAME, "
                     "ZFAMILY_NAME_KANA, ZFIRST_NAME_KANA, ZCOMPANY, ZCOMPANY_KANA, ZDEPARTMENT, "
                     "ZJOB_TITLE FROM ZCARD"_s),
            QList<QVariantList>(
                {{u"山田 太郎"_s, u"ヤマダ タロウ"_s, u"山田"_s, u"太郎"_s, u"ヤマダ"_s,
                    u"タロウ"_s, u"ベルモラ(株)"_s, u"ベルモラ"_s, u"営業部"_s, u"部長"_s}}));
        QCOMPARE(
            _package->rows(
                u"SELECT ZZIP_POSTALCODE, ZSTATE, ZCITY, ZSTREET, ZADDRESS, ZTELEPHONE_NUMBER, "
                "ZFAX_NUMBER, ZMOBILE_NUMBER, ZE_MAIL, ZWEB_PAGE_ADDRESS, ZMEMO FROM ZCARD"_s),
            QList<QVariantList>({{u"100-0001"_s, u"東京都"_s, u"千代田区"_s, u"千代田1-1"_s,
                u"東京都\n千代田区\n千代田1-1"_s, u"03-1111-2222"_s, u"03-1111-3333"_s,
                u"090-1111-4444"_s, u"taro@example.jp"_s, u"https://example.jp"_s,
                u"展示会で"_s}}));
        // The date 257,871,600 is 2009-03-04 15:00:00 UTC, in seconds since 2001.
        QCOMPARE(_package->rows(u"SELECT ZSCANNOW, ZREGISTER_DATE, ZDELETEDFLAG, "
                                "ZFACE_IMAGE_FILE, Z_PK, Z_ENT, Z_OPT FROM ZCARD"_s),
            QList<QVariantList>({{1, 257'871'600, 0, QString(), 1, 1, 1}}));
        QCOMPARE(_package->value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
    }

    void nothingElseIsSet()
    {
        const Card card = cardOf(wholeRecord({{Key::cardID, u"id"_s},
            {Key::full_Name, u"Ada Lovelace"_s}, {Key::full_Name_Kana, u"Ada Lovelace"_s}}));
        QCOMPARE(setAttributes(card),
            sorted(u"cardID face_Image_File scanNow register_Date accept_Date "
                   "sync_Email sync_Phone_work sync_Phone_Mobile sync_URL sync_Street "
                   "sync_Phone_Fax full_Name full_Name_Kana first_Name first_Name_Kana "
                   "family_Name family_Name_Kana job_Title telephone_Number fax_Number "
                   "zip_PostalCode street city state address e_Mail web_Page_Address "
                   "company company_Kana department memo mobile_Number"_s.split(u' ')));
    }

    void halfWidthKatakanaIsWidened_data()
    {
        QTest::addColumn<Key>("key");
        for (const Key key : {Key::full_Name, Key::full_Name_Kana, Key::job_Title,
                 Key::telephone_Number, Key::fax_Number, Key::zip_PostalCode, Key::street,
                 Key::city, Key::state, Key::e_Mail, Key::web_Page_Address, Key::company,
                 Key::company_Kana, Key::department, Key::memo, Key::mobile_Number})
            QTest::newRow(qPrintable(recordKeyName(key))) << key;
    }
    void halfWidthKatakanaIsWidened()
    {
        QFETCH(Key, key);
        const Card card = cardOf(record({{key, u"ﾊﾟﾝ 1"_s}}));
        QCOMPARE(textOf(card, key), u"パン 1"_s);
    }

    void missingDetailsAreStoredEmpty()
    {
        const Card card = cardOf(DBCRecord());
        for (const Key key :
            {Key::cardID, Key::face_Image_File, Key::full_Name, Key::full_Name_Kana, Key::job_Title,
                Key::telephone_Number, Key::fax_Number, Key::zip_PostalCode, Key::street, Key::city,
                Key::state, Key::address, Key::e_Mail, Key::web_Page_Address, Key::company,
                Key::company_Kana, Key::department, Key::memo, Key::mobile_Number})
            QCOMPARE(textOf(card, key), u""_s);
    }

    void rawTextsAreKeptAsTheyStand_data()
    {
        QTest::addColumn<Key>("key");
        for (const Key key :
            {Key::full_Name_XY, Key::job_Title_XY, Key::telephone_Number_XY, Key::fax_Number_XY,
                Key::zip_PostalCode_XY, Key::address_XY, Key::e_Mail_XY, Key::web_Page_Address_XY,
                Key::company_XY, Key::department_XY, Key::memo_XY, Key::mobile_Number_XY})
            QTest::newRow(qPrintable(recordKeyName(key))) << key;
    }
    void rawTextsAreKeptAsTheyStand()
    {
        QFETCH(Key, key);
        const QString raw = u" ﾊﾟﾝ "_s + QString(300, u'x');
        QCOMPARE(textOf(cardOf(record({{key, raw}})), key), raw);
    }

    void rawTextThatIsMissingStaysUnset()
    {
        const Card card = cardOf(wholeRecord());
        QCOMPARE(textOf(card, Key::full_Name_XY), std::nullopt);
        QCOMPARE(textOf(card, Key::address_XY), std::nullopt);
        QCOMPARE(textOf(card, Key::memo_XY), std::nullopt);
    }

    void emptyFullNameXYIsStoredEmpty()
    {
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(
            wholeRecord({{Key::full_Name_XY, QString()}}), _folder->path(), &error));
        QCOMPARE(database->save(), DBCResultCode::Success);
        QCOMPARE(_package->rows(
                     u"SELECT typeof(ZFULL_NAME_XY), ZFULL_NAME_XY, typeof(ZMEMO_XY) FROM ZCARD"_s),
            QList<QVariantList>({{u"text"_s, QString(), u"null"_s}}));
    }

    void typesOutsideTheGroupsChangeNothing_data()
    {
        QTest::addColumn<qint32>("type");
        QTest::newRow("below") << 20;
        QTest::newRow("above") << 34;
        QTest::newRow("zero") << 0;
        QTest::newRow("negative") << -21;
        QTest::newRow("the gap") << 28;
    }
    void typesOutsideTheGroupsChangeNothing()
    {
        QFETCH(qint32, type);
        const DBCRecord data = wholeRecord({{Key::memo, u"text"_s}});
        Card card;
        QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(&card, &data, type),
            DBCResultCode::Success);
        QCOMPARE(setAttributes(card), QStringList());
    }

    void eachTypeSetsItsOwnAttributes_data()
    {
        QTest::addColumn<qint32>("type");
        QTest::addColumn<QString>("attributes");
        QTest::newRow("21 name") << 21
                                 << u"full_Name full_Name_XY full_Name_Kana "
                                    "family_Name family_Name_Kana"_s;
        QTest::newRow("22 title") << 22 << u"job_Title job_Title_XY"_s;
        QTest::newRow("23 telephone") << 23 << u"telephone_Number telephone_Number_XY"_s;
        QTest::newRow("24 fax") << 24 << u"fax_Number fax_Number_XY"_s;
        QTest::newRow("25 postal code") << 25 << u"zip_PostalCode zip_PostalCode_XY"_s;
        QTest::newRow("26 address") << 26 << u"street city state address address_XY"_s;
        QTest::newRow("27 mail") << 27 << u"e_Mail e_Mail_XY"_s;
        QTest::newRow("29 web page") << 29 << u"web_Page_Address web_Page_Address_XY"_s;
        QTest::newRow("30 company") << 30 << u"company company_XY company_Kana"_s;
        QTest::newRow("31 department") << 31 << u"department department_XY"_s;
        QTest::newRow("32 memo") << 32 << u"memo memo_XY"_s;
        QTest::newRow("33 mobile") << 33 << u"mobile_Number mobile_Number_XY"_s;
    }
    void eachTypeSetsItsOwnAttributes()
    {
        QFETCH(qint32, type);
        QFETCH(QString, attributes);
        DBCRecord data;
        for (const DBCRecordKey key : allRecordKeys())
            data.setValue(key, u"山"_s);
        Card card;
        QCOMPARE(DBCDataBaseController::setDetailDataDicToManagedObject(&card, &data, type),
            DBCResultCode::Success);
        QCOMPARE(setAttributes(card), sorted(attributes.split(u' ')));
    }

    void missingCardOrRecordIsAGeneralFailure()
    {
        Card card;
        const DBCRecord data;
        const auto failure = DBCResultCode::GeneralFailure;
        QCOMPARE(DBCDataBaseController::setDataToManagedObject(nullptr, &data), failure);
        QCOMPARE(DBCDataBaseController::setDataToManagedObject(&card, nullptr), failure);
        QCOMPARE(
            DBCDataBaseController::setDetailDataDicToManagedObject(nullptr, &data, 21), failure);
        QCOMPARE(
            DBCDataBaseController::setDetailDataDicToManagedObject(&card, nullptr, 99), failure);
        QCOMPARE(setAttributes(card), QStringList());
    }

    void japaneseNameIsSplitFamilyFirst()
    {
        const Card card = cardOf(record({{Key::full_Name, u"山田　太郎"_s}}));
        QCOMPARE(textOf(card, Key::full_Name), u"山田　太郎"_s);
        QCOMPARE(textOf(card, Key::family_Name), u"山田"_s);
        QCOMPARE(textOf(card, Key::first_Name), u"太郎"_s);
        QCOMPARE(textOf(card, Key::middle_Name), std::nullopt);
    }

    void westernNameIsSplitGivenNameFirst()
    {
        const Card card = cardOf(record({{Key::full_Name, u"Ada King Lovelace"_s},
            {Key::full_Name_Kana, u"Eda Kin Lavleys"_s}}));
        QCOMPARE(textOf(card, Key::first_Name), u"Ada"_s);
        QCOMPARE(textOf(card, Key::middle_Name), u"King"_s);
        QCOMPARE(textOf(card, Key::family_Name), u"Lovelace"_s);
        QCOMPARE(textOf(card, Key::first_Name_Kana), u"Eda"_s);
        QCOMPARE(textOf(card, Key::middle_Name_Kana), u"Kin"_s);
        QCOMPARE(textOf(card, Key::family_Name_Kana), u"Lavleys"_s);
    }

    void readingInHalfWidthKatakanaIsSplitAfterWidening()
    {
        const Card card = cardOf(record({{Key::full_Name_Kana, u"ﾔﾏﾀﾞ ﾀﾛｳ"_s}}));
        QCOMPARE(textOf(card, Key::family_Name_Kana), u"ヤマダ"_s);
        QCOMPARE(textOf(card, Key::first_Name_Kana), u"タロウ"_s);
    }

    void partsThatANameDoesNotHaveStayUnset()
    {
        const Card card = cardOf(record({{Key::full_Name, u"山田"_s}}));
        QCOMPARE(textOf(card, Key::family_Name), u"山田"_s);
        for (const Key key : {Key::first_Name, Key::middle_Name, Key::suffix_Name, Key::prefix_Name,
                 Key::suffix_Name_Kana, Key::prefix_Name_Kana})
            QCOMPARE(textOf(card, key), std::nullopt);
    }

    void addressIsComposedOfItsParts()
    {
        const Card card = cardOf(record({{Key::state, u"東京都"_s}, {Key::street, u"1-1 ﾋﾞﾙ"_s}}));
        QCOMPARE(textOf(card, Key::address), u"東京都\n\n1-1 ビル"_s);
        QCOMPARE(textOf(card, Key::street), u"1-1 ビル"_s);
        QCOMPARE(textOf(card, Key::city), u""_s);
        QCOMPARE(textOf(card, Key::state), u"東京都"_s);
    }

    void addressAloneBecomesTheStreet()
    {
        const Card card = cardOf(record({{Key::address, u"東京都千代田区 ﾋﾞﾙ"_s}}));
        QCOMPARE(textOf(card, Key::street), u"東京都千代田区 ビル"_s);
        QCOMPARE(textOf(card, Key::address), u"\n\n東京都千代田区 ビル"_s);
        QCOMPARE(textOf(card, Key::city), u""_s);
        QCOMPARE(textOf(card, Key::state), u""_s);
    }

    void partsWinOverTheAddress()
    {
        const Card card
            = cardOf(record({{Key::city, u"千代田区"_s}, {Key::address, u"somewhere else"_s}}));
        QCOMPARE(textOf(card, Key::address), u"\n千代田区"_s);
        QCOMPARE(textOf(card, Key::street), u""_s);
    }

    void recordWithoutAnyAddressHasEmptyOnes()
    {
        const Card card = cardOf(wholeRecord());
        QCOMPARE(textOf(card, Key::address), u""_s);
        QCOMPARE(textOf(card, Key::street), u""_s);
    }

    void registerDateIsTheLocalMidnight()
    {
        const ScopedTimeZone tokyo("JST-9");
        const Card card = cardOf(record({{Key::register_Date, u"2009/03/05"_s}}));
        QCOMPARE(dateOf(card, Key::register_Date).toUTC(),
            QDateTime({2009, 3, 4}, QTime(15, 0), QTimeZone::utc()));
    }

    void registerDateOfADayWithoutMidnightIsItsFirstMoment()
    {
        // In São Paulo, clocks went from 00:00 to 01:00 on the first Sunday of November.
        const ScopedTimeZone saoPaulo("BRT3BRST,M11.1.0/0,M2.3.0/0");
        const Card card = cardOf(record({{Key::register_Date, u"2018/11/04"_s}}));
        const QDateTime date = dateOf(card, Key::register_Date);
        QCOMPARE(date.date(), QDate(2018, 11, 4));
        QCOMPARE(date.toUTC(), QDateTime({2018, 11, 4}, QTime(3, 0), QTimeZone::utc()));
    }

    void registerDateThatParses_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("two digits") << u"2009/03/05"_s << QDate(2009, 3, 5);
        QTest::newRow("as spreadsheets write it") << u"2009/3/5"_s << QDate(2009, 3, 5);
        QTest::newRow("leap day") << u"2008/02/29"_s << QDate(2008, 2, 29);
        QTest::newRow("last of the year") << u"1999/12/31"_s << QDate(1999, 12, 31);
    }
    void registerDateThatParses()
    {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        const Card card = cardOf(record({{Key::register_Date, text}}));
        QCOMPARE(dateOf(card, Key::register_Date).toLocalTime().date(), date);
    }

    void registerDateThatDoesNotParseIsNow_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("no such day") << u"2009/02/30"_s;
        QTest::newRow("no leap year") << u"2009/02/29"_s;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("month 13") << u"2009/13/01"_s;
        QTest::newRow("month 0") << u"2009/00/10"_s;
        QTest::newRow("dashes") << u"2009-03-05"_s;
        QTest::newRow("two-digit year") << u"09/03/05"_s;
        QTest::newRow("with a time") << u"2009/03/05 10:00"_s;
        QTest::newRow("line end behind") << u"2009/03/05\n"_s;
        QTest::newRow("blank in front") << u" 2009/03/05"_s;
        QTest::newRow("wide digits") << u"２００９/０３/０５"_s;
        QTest::newRow("a word") << u"today"_s;
        QTest::newRow("year 0") << u"0000/01/01"_s;
    }
    void registerDateThatDoesNotParseIsNow()
    {
        QFETCH(QString, text);
        const QDateTime before = QDateTime::currentDateTime();
        const Card card = cardOf(record({{Key::register_Date, text}}));
        const QDateTime date = dateOf(card, Key::register_Date);
        QVERIFY(before <= date && date <= QDateTime::currentDateTime());
    }

    void missingRegisterDateIsNow()
    {
        const QDateTime before = QDateTime::currentDateTime();
        const Card card = cardOf(DBCRecord());
        const QDateTime date = dateOf(card, Key::register_Date);
        QVERIFY(before <= date && date <= QDateTime::currentDateTime());
    }

    void acceptDateIsNowWithPartsOfASecond()
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

    void eachCardGetsSixDistinctSyncIdentifiers()
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

    void cardIDIsTheIdentityWithoutItsPrefix()
    {
        const Card card(u"x-coredata:///Card/tABC-7"_s);
        QCOMPARE(DBCDataBaseController::generateCardId(&card), u"ABC-7"_s);
    }

    void cardWithoutIdentityGetsAFreshUUID()
    {
        const Card card;
        const QString first = DBCDataBaseController::generateCardId(&card);
        const QString second = DBCDataBaseController::generateCardId(nullptr);
        QVERIFY(uuidPattern().match(first).hasMatch());
        QVERIFY(uuidPattern().match(second).hasMatch());
        QVERIFY(first != second);
    }

    void syncIdentifierIsAPlainUUIDOnUnknownSystems()
    {
        ScopedHost host;
        host->systemVersion = [] { return std::optional<qint32>(); };
        QVERIFY(uuidPattern().match(DBCDataBaseController::generateUUID()).hasMatch());
    }

    void syncIdentifierOfAnOldSystemHasThePrefix()
    {
        ScopedHost host;
        host->systemVersion = [] { return std::optional<qint32>(0x1049); };
        const QString identifier = DBCDataBaseController::generateUUID();
        const QString prefix = u"com.apple.syncservices:"_s;
        QVERIFY(identifier.startsWith(prefix));
        QVERIFY(uuidPattern().match(identifier.mid(prefix.size())).hasMatch());
        host->systemVersion = [] { return std::optional<qint32>(0x1050); };
        QVERIFY(uuidPattern().match(DBCDataBaseController::generateUUID()).hasMatch());
    }

    void cardWithImagesAndAttachmentsIsTakenIn()
    {
        _folder->image(u"1.jpg"_s, JpegBuilder(300, 200).dotsPerInch(300, 300).bytes());
        _folder->attachment(u"plans"_s, u"a.txt"_s, "text");
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(
            wholeRecord({{Key::face_Image_File, u"1.jpg"_s},
                {Key::back_Image_File, u"missing.jpg"_s}, {Key::attachmentFile, u"plans"_s}}),
            _folder->path(), &error));
        QCOMPARE(database->save(), DBCResultCode::Success);

        const QString cardID = _package->value(u"SELECT ZCARDID FROM ZCARD"_s).toString();
        static const QRegularExpression pattern(
            u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[0-9]+$"_s);
        QVERIFY2(pattern.match(cardID).hasMatch(), qPrintable(cardID));
        QCOMPARE(_package->rows(u"SELECT ZFACE_IMAGE_FILE, ZBACK_IMAGE_FILE FROM ZCARD"_s),
            QList<QVariantList>({{cardID + u"_N1.pdf"_s, QVariant()}}));
        QVERIFY(_package->readFile(u"Images/%1_N1.pdf"_s.arg(cardID)).startsWith("%PDF"));
        QCOMPARE(_package->readFile(u"Files/%1/a.txt"_s.arg(cardID)), "text");
    }

    void cardWithoutImagesNamesNone()
    {
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(
            wholeRecord({{Key::face_Image_File, u"missing.jpg"_s}}), _folder->path(), &error));
        QCOMPARE(database->save(), DBCResultCode::Success);
        QCOMPARE(_package->rows(u"SELECT typeof(ZFACE_IMAGE_FILE), ZFACE_IMAGE_FILE FROM ZCARD"_s),
            QList<QVariantList>({{u"text"_s, QString()}}));
    }

    void importedCardsAreExportedInTheirOrder()
    {
        QStringList names;
        {
            const auto database = DBCDataBaseController::initDBwithPath(_package->path());
            DBCError error;
            for (int i = 0; i < 60; ++i) {
                names << u"card %1"_s.arg(i);
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

    void nothingIsStoredBeforeTheSave()
    {
        const QByteArray before = _package->readFile(u"Velmora.sqldb"_s);
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(wholeRecord(), _folder->path(), &error));
        QCOMPARE(_package->readFile(u"Velmora.sqldb"_s), before);
    }

    void recordOfTheCallerIsNotChanged()
    {
        const DBCRecord data = wholeRecord({{Key::face_Image_File, u"missing.jpg"_s}});
        const DBCRecord copy = data;
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error;
        QVERIFY(database->addDataToDataBase(data, _folder->path(), &error));
        QVERIFY(data == copy);
    }

    void missingArgumentsGiveFalseWithoutAnError()
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

    void withoutAContextItIsAGeneralFailure()
    {
        _package->remove(u"Velmora.sqldb"_s);
        DBCDataBaseController controller;
        controller.setDBPath(_package->path());
        DBCError error;
        QVERIFY(!controller.addDataToDataBase(wholeRecord(), _folder->path(), &error));
        QCOMPARE(codeOf(error), DBCResultCode::GeneralFailure);
    }

    void imageStepsOutcome_data()
    {
        using Code = DBCResultCode;
        QTest::addColumn<std::optional<QString>>("name");
        QTest::addColumn<DBCError>("stepError");
        QTest::addColumn<std::optional<DBCResultCode>>("expected");
        QTest::addColumn<QString>("stored");
        const std::optional<QString> none;
        const std::optional<QString> name = u"x_N1.pdf"_s;
        QTest::newRow("a name") << name << DBCError() << std::optional<Code>() << *name;
        QTest::newRow("no image") << std::optional(u""_s) << DBCError() << std::optional<Code>()
                                  << u""_s;
        QTest::newRow("a failure") << none << DBCError(Code::PdfCreateFailure)
                                   << std::optional(Code::PdfCreateFailure) << QString();
        QTest::newRow("a name and a failure") << name << DBCError(Code::NoSpaceForImport)
                                              << std::optional(Code::NoSpaceForImport) << QString();
        QTest::newRow("an error that is no failure")
            << none << DBCError(Code::CancelledByUser) << std::optional<Code>() << u""_s;
        QTest::newRow("a name and an error that is no failure")
            << name << DBCError(Code::CancelledByUser) << std::optional<Code>() << *name;
        QTest::newRow("neither") << none << DBCError() << std::optional(Code::GeneralFailure)
                                 << QString();
    }
    void imageStepsOutcome()
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
        QCOMPARE(_package->value(u"SELECT ZFACE_IMAGE_FILE FROM ZCARD"_s).toString(), stored);
    }

    void attachmentStepsOutcome_data()
    {
        using Code = DBCResultCode;
        QTest::addColumn<std::optional<QString>>("result");
        QTest::addColumn<DBCError>("stepError");
        QTest::addColumn<std::optional<DBCResultCode>>("expected");
        const std::optional<QString> none;
        const std::optional<QString> empty = u""_s;
        QTest::newRow("attached") << std::optional(u"id"_s) << DBCError() << std::optional<Code>();
        QTest::newRow("nothing to attach") << empty << DBCError() << std::optional<Code>();
        QTest::newRow("a failure") << empty << DBCError(Code::AttachmentImportFailure)
                                   << std::optional(Code::AttachmentImportFailure);
        QTest::newRow("an error that is no failure")
            << empty << DBCError(Code::CancelledByUser) << std::optional(Code::CancelledByUser);
        QTest::newRow("neither") << none << DBCError() << std::optional(Code::GeneralFailure);
    }
    void attachmentStepsOutcome()
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

    void errorLeftInTheSlotByTheCallerMakesItFalse()
    {
        const auto database = DBCDataBaseController::initDBwithPath(_package->path());
        DBCError error(DBCResultCode::FolderNotExist);
        QVERIFY(!database->addDataToDataBase(wholeRecord(), _folder->path(), &error));
        QCOMPARE(codeOf(error), DBCResultCode::FolderNotExist);
    }

private:
    StandardInputKeeper _standardInput;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PackageFixture> _package;
    std::unique_ptr<InterchangeFolder> _folder;
};

QTEST_GUILESS_MAIN(tst_recordImport)
#include "tst_recordImport.moc"
