// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCManagedObjectContext.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordKeys.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <QDir>
#include <QFile>
#include <QTimeZone>
#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const auto live = DBCCardSelection::Live;

QDateTime utc(int year, int month, int day, int milliseconds = 0)
{
    return QDateTime({year, month, day}, QTime(0, 0), QTimeZone::utc()).addMSecs(milliseconds);
}

Card* addCard(DBCManagedObjectContext& context, const QString& cardID)
{
    Card* card = context.insertNewCard();
    card->setValue(Key::cardID, cardID);
    return card;
}

// Locks the store like another program that is writing to it.
class StoreHolder {
public:
    explicit StoreHolder(const PackageFixture& package)
        : _store(QFile::encodeName(package.storePath()).toStdString(), SQLite::OPEN_READWRITE)
    {
        _store.exec("BEGIN EXCLUSIVE");
    }

private:
    SQLite::Database _store;
};

} // namespace

class tst_store : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }

    void cleanup() { _home.reset(); }

    void missingStoreIsNotMade()
    {
        const QString folder = _home->makeFolder(u"empty"_s);
        QVERIFY(!DBCManagedObjectContext::open(folder + u"/Velmora.sqldb"_s, _model));
        QVERIFY(QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }

    void whatIsNoStoreDoesNotOpen_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("text") << QByteArray("These are the cards.\n").repeated(100);
        QTest::newRow("the first bytes of a store") << QByteArray("SQLite format 3\0", 16);
        QTest::newRow("a store's first bytes and rubbish")
            << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, '\x5A');
    }
    void whatIsNoStoreDoesNotOpen()
    {
        QFETCH(QByteArray, bytes);
        PackageFixture package(*_home);
        package.writeFile(u"Velmora.sqldb"_s, bytes);
        const auto before = package.contents();
        QVERIFY(!open(package));
        QCOMPARE(package.contents(), before);
    }

    void pipeAsStoreDoesNotOpenAndDoesNotHang()
    {
        PackageFixture package(*_home);
        package.remove(u"Velmora.sqldb"_s);
        QCOMPARE(mkfifo(QFile::encodeName(package.storePath()).constData(), S_IRWXU), 0);
        QVERIFY(!open(package));
    }

    void folderAsStoreDoesNotOpen()
    {
        PackageFixture package(*_home);
        package.remove(u"Velmora.sqldb"_s);
        QVERIFY(QDir().mkdir(package.storePath()));
        QVERIFY(!open(package));
    }

    void storeOfAnotherModelDoesNotOpen_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::newRow("no attribute memo") << u"ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE"_s;
        QTest::newRow("no accept date")
            << u"ALTER TABLE ZCARD RENAME COLUMN ZACCEPT_DATE TO ZACCEPTED"_s;
        QTest::newRow("no flag2") << u"ALTER TABLE ZCARD RENAME COLUMN ZFLAG2 TO ZFLAG3"_s;
        QTest::newRow("no version column") << u"ALTER TABLE ZCARD RENAME COLUMN Z_OPT TO ZOPT"_s;
        QTest::newRow("no card table") << u"ALTER TABLE ZCARD RENAME TO ZPERSON"_s;
        QTest::newRow("no entity Card")
            << u"UPDATE Z_PRIMARYKEY SET Z_NAME = 'card' WHERE Z_NAME = 'Card'"_s;
        QTest::newRow("no table of entities") << u"DROP TABLE Z_PRIMARYKEY"_s;
    }
    void storeOfAnotherModelDoesNotOpen()
    {
        QFETCH(QString, sql);
        PackageFixture package(*_home);
        QVERIFY(open(package));
        package.execute(sql);
        QVERIFY(!open(package));
    }

    void columnNamesInSmallLettersOpen()
    {
        PackageFixture package(*_home);
        package.card({{"ZMEMO", u"met in Osaka"_s}});
        package.execute(u"ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO zmemo"_s);
        QCOMPARE(fetchTexts(package, Key::memo), QStringList({u"met in Osaka"_s}));
    }

    void storeHeldByAnotherConnectionDoesNotOpen()
    {
        PackageFixture package(*_home);
        {
            const StoreHolder holder(package);
            QVERIFY(!open(package));
        }
        QVERIFY(open(package));
    }

    void openingLeavesTheFilesAsTheyWere_data()
    {
        QTest::addColumn<bool>("writeAheadLog");
        QTest::newRow("rollback journal") << false;
        QTest::newRow("write-ahead log") << true;
    }
    void openingLeavesTheFilesAsTheyWere()
    {
        QFETCH(bool, writeAheadLog);
        PackageFixture package(*_home, {.writeAheadLog = writeAheadLog});
        package.card();
        const auto before = package.contents();
        QCOMPARE(fetchTexts(package, Key::cardID), QStringList({u"CARD-1"_s}));
        QCOMPARE(package.contents(), before);
    }

    void newCardsHaveDistinctIdentities()
    {
        PackageFixture package(*_home);
        QStringList identities;
        for (int opened = 0; opened < 2; ++opened) {
            const auto context = open(package);
            for (int i = 0; i < 12; ++i)
                identities << context->insertNewCard()->identityURI().value();
        }
        for (const QString& identity : identities) {
            QCOMPARE(identity.left(20), u"x-coredata:///Card/t"_s);
            static const QRegularExpression rest(
                u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[0-9]+$"_s);
            QVERIFY2(rest.match(identity.mid(20)).hasMatch(), qPrintable(identity));
        }
        QCOMPARE(identities.removeDuplicates(), 0);
    }

    void cardsDroppedUnsavedLeaveTheFilesAsTheyWere_data()
    {
        openingLeavesTheFilesAsTheyWere_data();
    }
    void cardsDroppedUnsavedLeaveTheFilesAsTheyWere()
    {
        QFETCH(bool, writeAheadLog);
        PackageFixture package(*_home, {.writeAheadLog = writeAheadLog});
        const auto before = package.contents();
        {
            const auto context = open(package);
            for (int i = 0; i < 1000; ++i)
                addCard(*context, QString::number(i))->setValue(Key::memo, QString(200, u'x'));
        }
        QCOMPARE(package.contents(), before);
    }

    void whatAnotherProgramLeftInTheLogStaysThere()
    {
        PackageFixture package(*_home, {.writeAheadLog = true});
        package.card();
        package.executeIntoLog(u"UPDATE ZCARD SET ZMEMO = 'from the log'"_s);
        const QByteArray store = package.readFile(u"Velmora.sqldb"_s);
        const QByteArray log = package.readFile(u"Velmora.sqldb-wal"_s);
        QVERIFY(!log.isEmpty());

        QCOMPARE(fetchTexts(package, Key::memo), QStringList({u"from the log"_s}));
        QCOMPARE(package.readFile(u"Velmora.sqldb"_s), store);
        QCOMPARE(package.readFile(u"Velmora.sqldb-wal"_s), log);
    }

    void savingKeepsWhatAnotherProgramLeftInTheLog()
    {
        PackageFixture package(*_home, {.writeAheadLog = true});
        package.card();
        package.executeIntoLog(u"UPDATE ZCARD SET ZMEMO = 'from the log'"_s);
        {
            const auto context = open(package);
            addCard(*context, u"new"_s);
            context->save();
        }
        QVERIFY(!QFile::exists(package.storePath() + u"-wal"_s));
        QCOMPARE(package.value(u"SELECT ZMEMO FROM ZCARD WHERE Z_PK = 1"_s).toString(),
            u"from the log"_s);
        QCOMPARE(package.value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 2);
    }

    void savedCardTakesTheKeyAfterTheHighest()
    {
        PackageFixture package(*_home);
        package.card();
        package.execute(u"UPDATE Z_PRIMARYKEY SET Z_MAX = 41 WHERE Z_NAME = 'Card'"_s);
        const auto context = open(package);
        addCard(*context, u"a"_s);
        addCard(*context, u"b"_s);
        context->save();
        QCOMPARE(package.rows(u"SELECT ZCARDID, Z_PK, Z_OPT FROM ZCARD ORDER BY Z_PK"_s),
            QList<QVariantList>({{u"CARD-1"_s, 1, 1}, {u"a"_s, 42, 1}, {u"b"_s, 43, 1}}));
        QCOMPARE(package.rows(u"SELECT Z_NAME, Z_MAX FROM Z_PRIMARYKEY ORDER BY Z_ENT"_s),
            QList<QVariantList>({{u"Card"_s, 43}, {u"Folder"_s, 1}}));
    }

    void entityNumberIsTheStoresOwn()
    {
        PackageFixture package(*_home, {.entityNumber = 7});
        const auto context = open(package);
        addCard(*context, u"a"_s);
        context->save();
        QCOMPARE(package.value(u"SELECT Z_ENT FROM ZCARD"_s).toInt(), 7);
        QCOMPARE(package.value(u"SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_ENT = 7"_s).toInt(), 1);
    }

    void savedCardHasExactlyWhatWasSet()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        Card* card = context->insertNewCard();
        card->setValue(Key::cardID, u"id"_s);
        card->setValue(Key::full_Name, u"Ada Lovelace"_s);
        card->setValue(Key::scanNow, qint64 {1});
        card->setValue(Key::groupID, qint64 {9'007'199'254'740'993});
        card->setValue(Key::update_Date, utc(2009, 1, 1));
        context->save();
        QCOMPARE(
            package.rows(
                u"SELECT ZCARDID, ZFULL_NAME, ZSCANNOW, ZGROUPID, ZUPDATE_DATE, ZMEMO FROM ZCARD"_s),
            QList<QVariantList>({{u"id"_s, u"Ada Lovelace"_s, 1, 9'007'199'254'740'993LL,
                252'460'800, QVariant()}}));
    }

    void unsetNumbersAreZeroAndTheRestIsNull()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        context->insertNewCard();
        context->save();
        for (const QVariantList& column :
            package.rows(u"SELECT name, type FROM pragma_table_info('ZCARD')"_s)) {
            const QString name = column[0].toString();
            if (name.startsWith(u"Z_"_s) || name == u"ZOWNER"_s)
                continue;
            const QVariant value = package.value(u"SELECT %1 FROM ZCARD"_s.arg(name));
            if (column[1] == u"INTEGER"_s)
                QVERIFY2(value.isValid() && value.toInt() == 0, qPrintable(name));
            else
                QVERIFY2(!value.isValid(), qPrintable(name));
        }
    }

    void tablesOwnDefaultStandsForAnUnsetAttribute()
    {
        PackageFixture package(*_home,
            {.columnDefaults = {{u"ZSTATUS"_s, u"5"_s}, {u"ZFLAG1"_s, u"NULL"_s},
                 {u"ZCOUNTRY"_s, u"'Japan, ''home'''"_s},
                 {u"ZMEMO_XY"_s, u"(upper('xy') || '1')"_s}, {u"ZUPDATE_DATE"_s, u"1.5"_s}}});
        const auto context = open(package);
        context->insertNewCard();
        context->save();
        QCOMPARE(
            package.rows(u"SELECT ZSTATUS, ZFLAG1, ZCOUNTRY, ZMEMO_XY, ZUPDATE_DATE FROM ZCARD"_s),
            QList<QVariantList>({{5, 0, u"Japan, 'home'"_s, u"XY1"_s, 1.5}}));
    }

    void setValueWinsOverTheTablesOwnDefault()
    {
        PackageFixture package(
            *_home, {.columnDefaults = {{u"ZSTATUS"_s, u"5"_s}, {u"ZCOUNTRY"_s, u"'Japan'"_s}}});
        const auto context = open(package);
        Card* card = context->insertNewCard();
        card->setValue(Key::status, qint64 {0});
        card->setValue(Key::country, u""_s);
        context->save();
        QCOMPARE(package.rows(u"SELECT ZSTATUS, ZCOUNTRY FROM ZCARD"_s),
            QList<QVariantList>({{0, QString()}}));
    }

    void textThatWasSetEmptyIsNotNull()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        Card* card = context->insertNewCard();
        card->setValue(Key::memo, u""_s);
        card->setValue(Key::company, QString());
        context->save();
        QCOMPARE(package.rows(u"SELECT typeof(ZMEMO), length(ZMEMO), typeof(ZCOMPANY), "
                              "length(ZCOMPANY), typeof(ZCITY) FROM ZCARD"_s),
            QList<QVariantList>({{u"text"_s, 0, u"text"_s, 0, u"null"_s}}));
    }

    void textsAreStoredAsUtf8()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        Card* card = context->insertNewCard();
        card->setValue(Key::company, u"\u4F1A\u793E'; \U0002000B"_s);
        context->save();
        QCOMPARE(package.value(u"SELECT hex(ZCOMPANY) FROM ZCARD"_s).toString(),
            u"E4BC9AE7A4BE273B20F0A0808B"_s);
        QCOMPARE(fetchTexts(package, Key::company), QStringList({u"\u4F1A\u793E'; \U0002000B"_s}));
    }

    void datesAreSecondsSince2001()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        Card* card = context->insertNewCard();
        card->setValue(Key::register_Date, utc(2001, 1, 1));
        card->setValue(Key::update_Date, utc(2000, 12, 31));
        card->setValue(Key::accept_Date, utc(2009, 1, 1, 250));
        context->save();
        QCOMPARE(package.rows(u"SELECT ZREGISTER_DATE, ZUPDATE_DATE, ZACCEPT_DATE FROM ZCARD"_s),
            QList<QVariantList>({{0, -86'400, 252'460'800.25}}));
    }

    void savingLeavesEverythingElseInTheStoreAlone()
    {
        PackageFixture package(*_home);
        package.card({{"ZOWNER", 1}, {"ZTHUMBNAIL", QByteArray("\0\1\2", 3)}});
        const QStringList queries {u"SELECT * FROM Z_METADATA"_s, u"SELECT * FROM ZFOLDER"_s,
            u"SELECT * FROM ZCARD WHERE Z_PK = 1"_s, u"SELECT * FROM sqlite_master"_s};
        QList<QList<QVariantList>> before;
        for (const QString& query : queries)
            before << package.rows(query);

        const auto context = open(package);
        addCard(*context, u"new"_s);
        context->save();
        for (qsizetype i = 0; i < queries.size(); ++i)
            QCOMPARE(package.rows(queries[i]), before[i]);
    }

    void savingNothingTouchesNothing()
    {
        PackageFixture package(*_home);
        const auto before = package.contents();
        const auto context = open(package);
        context->save();
        QCOMPARE(package.contents(), before);
    }

    void savedCardsAreNotSavedAgain()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        addCard(*context, u"a"_s);
        context->save();
        context->save();
        addCard(*context, u"b"_s);
        context->save();
        QCOMPARE(package.rows(u"SELECT Z_PK, ZCARDID FROM ZCARD ORDER BY Z_PK"_s),
            QList<QVariantList>({{1, u"a"_s}, {2, u"b"_s}}));
    }

    void failedSaveLeavesTheStoreAndKeepsTheCards()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        for (int i = 0; i < 500; ++i)
            addCard(*context, QString::number(i))->setValue(Key::memo, QString(20'000, u'x'));
        package.execute(u"CREATE TRIGGER full BEFORE INSERT ON ZCARD WHEN NEW.Z_PK = 500 "
                        "BEGIN SELECT RAISE(ABORT, 'no more'); END"_s);
        const auto before = package.contents();
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        QCOMPARE(package.contents(), before);

        package.execute(u"DROP TRIGGER full"_s);
        context->save();
        QCOMPARE(package.value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 500);
    }

    void storeHeldByAnotherConnectionFailsTheSave()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        addCard(*context, u"a"_s);
        {
            const StoreHolder holder(package);
            QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        }
        QCOMPARE(package.value(u"SELECT count(*) FROM ZCARD"_s).toInt(), 0);
    }

    void keyThatIsTakenFailsTheSave()
    {
        PackageFixture package(*_home);
        package.card();
        package.execute(u"UPDATE Z_PRIMARYKEY SET Z_MAX = 0 WHERE Z_NAME = 'Card'"_s);
        const auto before = package.contents();
        const auto context = open(package);
        addCard(*context, u"a"_s);
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        QCOMPARE(package.contents(), before);
    }

    void savingKeepsTheJournalMode_data() { openingLeavesTheFilesAsTheyWere_data(); }
    void savingKeepsTheJournalMode()
    {
        QFETCH(bool, writeAheadLog);
        PackageFixture package(*_home, {.writeAheadLog = writeAheadLog});
        {
            const auto context = open(package);
            addCard(*context, u"a"_s);
            context->save();
        }
        QVERIFY(!QFile::exists(package.storePath() + u"-wal"_s));
        QVERIFY(!QFile::exists(package.storePath() + u"-journal"_s));
        QCOMPARE(package.value(u"PRAGMA journal_mode"_s).toString(),
            writeAheadLog ? u"wal"_s : u"delete"_s);
        QCOMPARE(package.value(u"SELECT ZCARDID FROM ZCARD"_s).toString(), u"a"_s);
    }

    void storeIsSoundAfterManyCards()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        constexpr int count = 3000;
        for (int i = 0; i < count; ++i)
            addCard(*context, QString::number(i))->setValue(Key::memo, QString(300, QChar(0x3042)));
        context->save();
        QCOMPARE(package.value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        QCOMPARE(package.rows(u"SELECT count(*), count(DISTINCT ZCARDID), max(Z_PK) FROM ZCARD"_s),
            QList<QVariantList>({{count, count, count}}));
    }

    void cardsOfOneMillisecondKeepTheirOrder()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        QStringList expected;
        for (int i = 0; i < 300; ++i) {
            expected << QString::number(i);
            addCard(*context, expected.last())->setValue(Key::accept_Date, utc(2020, 5, 5, 7));
        }
        context->save();
        QCOMPARE(fetchTexts(package, Key::cardID), expected);
        QCOMPARE(package.value(u"SELECT count(DISTINCT ZACCEPT_DATE) FROM ZCARD"_s).toInt(), 300);
        // The 300 dates lie within 300 microseconds.
        QVERIFY(
            package.value(u"SELECT max(ZACCEPT_DATE) - min(ZACCEPT_DATE) FROM ZCARD"_s).toDouble()
            < 0.001);
    }

    void cardsKeepTheirOrderWhenTheClockIsSetBack()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        addCard(*context, u"before"_s)->setValue(Key::accept_Date, utc(2020, 5, 5, 7000));
        addCard(*context, u"after"_s)->setValue(Key::accept_Date, utc(2020, 5, 5, 0));
        context->save();
        QCOMPARE(fetchTexts(package, Key::cardID), QStringList({u"before"_s, u"after"_s}));
    }

    void liveCardsComeInTheOrderOfTheirAcceptDates()
    {
        PackageFixture package(*_home);
        package.card().acceptedAt(300.25);
        package.card().acceptedAt(-5);
        package.card().acceptedAt(300.5);
        QCOMPARE(
            fetchTexts(package, Key::cardID), QStringList({u"CARD-2"_s, u"CARD-1"_s, u"CARD-3"_s}));
    }

    void cardWithoutAcceptDateComesFirst()
    {
        PackageFixture package(*_home);
        package.card().acceptedAt(-1e9);
        package.card({{"ZACCEPT_DATE", QVariant()}});
        QCOMPARE(fetchTexts(package, Key::cardID), QStringList({u"CARD-2"_s, u"CARD-1"_s}));
    }

    void deletedCardsAndThoseWithoutFlagAreNotLive()
    {
        PackageFixture package(*_home);
        package.card().deleted();
        package.card();
        package.card().set("ZDELETEDFLAG", QVariant());
        package.card().set("ZDELETEDFLAG", 2);
        QCOMPARE(fetchTexts(package, Key::cardID), QStringList({u"CARD-2"_s}));
    }

    void allCardsIncludeTheDeletedOnes()
    {
        PackageFixture package(*_home);
        package.card().deleted();
        package.card();
        QCOMPARE(fetchTexts(package, Key::cardID, DBCCardSelection::All),
            QStringList({u"CARD-1"_s, u"CARD-2"_s}));
    }

    void visitorEndsTheFetch()
    {
        PackageFixture package(*_home);
        for (int i = 0; i < 5; ++i)
            package.card();
        int seen = 0;
        open(package)->fetchCards(live, [&](const Card&) { return ++seen < 3; });
        QCOMPARE(seen, 3);
    }

    void waitingCardsAreNotFetched()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        addCard(*context, u"waiting"_s);
        context->fetchCards(live, [](const Card&) {
            qFatal("nothing has been saved");
            return false;
        });
    }

    void everyAttributeIsReadFromItsColumn_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("type");
        TestHome home;
        PackageFixture package(home);
        for (const QVariantList& row :
            package.rows(u"SELECT name, type FROM pragma_table_info('ZCARD')"_s)) {
            const QString column = row[0].toString();
            if (!column.startsWith(u"Z_"_s) && column != u"ZOWNER"_s && column != u"ZTHUMBNAIL"_s)
                QTest::newRow(qPrintable(column)) << column << row[1].toString();
        }
    }
    void everyAttributeIsReadFromItsColumn()
    {
        QFETCH(QString, column);
        QFETCH(QString, type);
        PackageFixture package(*_home);
        const bool isText = type == u"VARCHAR"_s;
        const QVariant stored = isText ? QVariant(column) : QVariant(252'460'800);
        package.card().set("ZDELETEDFLAG", 0);
        package.execute(u"UPDATE ZCARD SET %1 = ?"_s.arg(column), {stored});

        std::optional<DBCRecordKey> key;
        for (const DBCRecordKey candidate : allRecordKeys()) {
            if (u'Z' + recordKeyName(candidate).toUpper() == column)
                key = candidate;
        }
        QVERIFY(key);
        std::optional<DBCValue> value;
        open(package)->fetchCards(DBCCardSelection::All, [&](const Card& card) {
            if (const DBCValue* found = card.value(*key))
                value = *found;
            return true;
        });
        const DBCValue expected = isText ? DBCValue(column)
            : type == u"INTEGER"_s
            ? DBCValue(qint64 {252'460'800})
            : DBCValue(QDateTime({2009, 1, 1}, QTime(0, 0), QTimeZone::utc()).toLocalTime());
        QVERIFY(value);
        QVERIFY(*value == expected);
    }

    void nullColumnsHaveNoValue()
    {
        PackageFixture package(*_home);
        package.card({{"ZFACE_IMAGE_FILE", QVariant()}, {"ZSTATUS", QVariant()},
            {"ZREGISTER_DATE", QVariant()}, {"ZMEMO", u""_s}});
        open(package)->fetchCards(live, [](const Card& card) {
            [&] {
                QVERIFY(!card.value(Key::face_Image_File));
                QVERIFY(!card.value(Key::status));
                QVERIFY(!card.value(Key::register_Date));
                QVERIFY(card.value(Key::memo));
            }();
            return true;
        });
    }

    void dateColumnsWithOtherContentsHaveNoValue_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("text") << QVariant(u"spring"_s);
        QTest::newRow("bytes") << QVariant(QByteArray("\1\2"));
        QTest::newRow("endless") << QVariant(std::numeric_limits<double>::infinity());
        QTest::newRow("beyond any calendar") << QVariant(-1e300);
    }
    void dateColumnsWithOtherContentsHaveNoValue()
    {
        QFETCH(QVariant, stored);
        PackageFixture package(*_home);
        package.card().set("ZREGISTER_DATE", stored);
        bool hasValue = true;
        open(package)->fetchCards(live, [&](const Card& card) {
            hasValue = card.value(Key::register_Date);
            return true;
        });
        QVERIFY(!hasValue);
    }

    void fetchFromABrokenStoreThrows()
    {
        PackageFixture package(*_home);
        package.card();
        const auto context = open(package);
        package.execute(u"DROP TABLE ZCARD"_s);
        QVERIFY_THROWS_EXCEPTION(
            SQLite::Exception, context->fetchCards(live, [](const Card&) { return true; }));
    }

private:
    std::unique_ptr<DBCManagedObjectContext> open(const PackageFixture& package) const
    {
        return DBCManagedObjectContext::open(package.storePath(), _model);
    }
    // Returns the text of one attribute for each card, in the order in which the cards are fetched.
    QStringList fetchTexts(const PackageFixture& package, Key key,
        DBCCardSelection selection = DBCCardSelection::Live) const
    {
        QStringList texts;
        open(package)->fetchCards(selection, [&](const Card& card) {
            texts << card.textOrEmpty(key);
            return true;
        });
        return texts;
    }

    DBCManagedObjectModel _model;
    std::unique_ptr<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_store)
#include "tst_store.moc"
