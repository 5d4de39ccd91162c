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

using Key = DBCRecordKey;

class tst_store : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void missingStoreIsNotMade();
    void whatIsNoStoreDoesNotOpen_data();
    void whatIsNoStoreDoesNotOpen();
    void pipeAsStoreDoesNotOpenAndDoesNotHang();
    void folderAsStoreDoesNotOpen();
    void storeOfAnotherModelDoesNotOpen_data();
    void storeOfAnotherModelDoesNotOpen();
    void columnNamesInSmallLettersOpen();
    void storeHeldByAnotherConnectionDoesNotOpen();
    void openingLeavesTheFilesAsTheyWere_data();
    void openingLeavesTheFilesAsTheyWere();

    void newCardsHaveDistinctIdentities();
    void cardsDroppedUnsavedLeaveTheFilesAsTheyWere_data();
    void cardsDroppedUnsavedLeaveTheFilesAsTheyWere();
    void whatAnotherProgramLeftInTheLogStaysThere();
    void savingKeepsWhatAnotherProgramLeftInTheLog();
    void savedCardTakesTheKeyAfterTheHighest();
    void entityNumberIsTheStoresOwn();
    void savedCardHasExactlyWhatWasSet();
    void unsetNumbersAreZeroAndTheRestIsNull();
    void tablesOwnDefaultStandsForAnUnsetAttribute();
    void setValueWinsOverTheTablesOwnDefault();
    void textThatWasSetEmptyIsNotNull();
    void textsAreStoredAsUtf8();
    void datesAreSecondsSince2001();
    void savingLeavesEverythingElseInTheStoreAlone();
    void savingNothingTouchesNothing();
    void savedCardsAreNotSavedAgain();
    void failedSaveLeavesTheStoreAndKeepsTheCards();
    void storeHeldByAnotherConnectionFailsTheSave();
    void keyThatIsTakenFailsTheSave();
    void savingKeepsTheJournalMode_data();
    void savingKeepsTheJournalMode();
    void storeIsSoundAfterManyCards();
    void cardsOfOneMillisecondKeepTheirOrder();
    void cardsKeepTheirOrderWhenTheClockIsSetBack();

    void liveCardsComeInTheOrderOfTheirAcceptDates();
    void cardWithoutAcceptDateComesFirst();
    void deletedCardsAndThoseWithoutFlagAreNotLive();
    void allCardsIncludeTheDeletedOnes();
    void visitorEndsTheFetch();
    void waitingCardsAreNotFetched();
    void everyAttributeIsReadFromItsColumn_data();
    void everyAttributeIsReadFromItsColumn();
    void nullColumnsHaveNoValue();
    void dateColumnsWithOtherContentsHaveNoValue_data();
    void dateColumnsWithOtherContentsHaveNoValue();
    void fetchFromABrokenStoreThrows();

private:
    std::unique_ptr<DBCManagedObjectContext> open(const PackageFixture& package) const
    {
        return DBCManagedObjectContext::open(package.storePath(), _model);
    }
    // The cards' texts of one attribute, in the order of a fetch.
    QStringList fetchTexts(const PackageFixture& package, Key key,
        DBCCardSelection selection = DBCCardSelection::Live) const;

    DBCManagedObjectModel _model;
    std::unique_ptr<TestHome> _home;
};

namespace {

const auto live = DBCCardSelection::Live;

QDateTime utc(int year, int month, int day, int milliseconds = 0)
{
    return QDateTime({year, month, day}, QTime(0, 0), Qt::UTC).addMSecs(milliseconds);
}

Card* addCard(DBCManagedObjectContext& context, const QString& cardID)
{
    Card* card = context.insertNewCard();
    card->setValue(Key::cardID, cardID);
    return card;
}

// Holds the store as a program in the middle of a write does.
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

QStringList tst_store::fetchTexts(
    const PackageFixture& package, Key key, DBCCardSelection selection) const
{
    QStringList texts;
    open(package)->fetchCards(selection, [&](const Card& card) {
        texts << card.textOrEmpty(key);
        return true;
    });
    return texts;
}

void tst_store::init()
{
    _home = std::make_unique<TestHome>();
}

void tst_store::cleanup()
{
    _home.reset();
}

void tst_store::missingStoreIsNotMade()
{
    const QString folder = _home->makeFolder(QStringLiteral("empty"));
    QVERIFY(!DBCManagedObjectContext::open(folder + QStringLiteral("/Velmora.sqldb"), _model));
    QVERIFY(QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void tst_store::whatIsNoStoreDoesNotOpen_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("text") << QByteArray("These are the cards.\n").repeated(100);
    QTest::newRow("the first bytes of a store") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("a store's first bytes and rubbish")
        << QByteArray("SQLite format 3\0", 16) + QByteArray(5000, '\x5A');
}

void tst_store::whatIsNoStoreDoesNotOpen()
{
    QFETCH(QByteArray, bytes);
    PackageFixture package(*_home);
    package.writeFile(QStringLiteral("Velmora.sqldb"), bytes);
    const auto before = package.contents();
    QVERIFY(!open(package));
    QCOMPARE(package.contents(), before);
}

void tst_store::pipeAsStoreDoesNotOpenAndDoesNotHang()
{
    PackageFixture package(*_home);
    package.remove(QStringLiteral("Velmora.sqldb"));
    QCOMPARE(mkfifo(QFile::encodeName(package.storePath()).constData(), S_IRWXU), 0);
    QVERIFY(!open(package));
}

void tst_store::folderAsStoreDoesNotOpen()
{
    PackageFixture package(*_home);
    package.remove(QStringLiteral("Velmora.sqldb"));
    QVERIFY(QDir().mkdir(package.storePath()));
    QVERIFY(!open(package));
}

void tst_store::storeOfAnotherModelDoesNotOpen_data()
{
    QTest::addColumn<QString>("sql");
    QTest::newRow("no attribute memo")
        << QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO ZNOTE");
    QTest::newRow("no accept date")
        << QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZACCEPT_DATE TO ZACCEPTED");
    QTest::newRow("no flag2") << QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZFLAG2 TO ZFLAG3");
    QTest::newRow("no version column")
        << QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN Z_OPT TO ZOPT");
    QTest::newRow("no card table") << QStringLiteral("ALTER TABLE ZCARD RENAME TO ZPERSON");
    QTest::newRow("no entity Card")
        << QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_NAME = 'card' WHERE Z_NAME = 'Card'");
    QTest::newRow("no table of entities") << QStringLiteral("DROP TABLE Z_PRIMARYKEY");
}

void tst_store::storeOfAnotherModelDoesNotOpen()
{
    QFETCH(QString, sql);
    PackageFixture package(*_home);
    QVERIFY(open(package));
    package.execute(sql);
    QVERIFY(!open(package));
}

void tst_store::columnNamesInSmallLettersOpen()
{
    PackageFixture package(*_home);
    package.card({{"ZMEMO", QStringLiteral("met in Osaka")}});
    package.execute(QStringLiteral("ALTER TABLE ZCARD RENAME COLUMN ZMEMO TO zmemo"));
    QCOMPARE(fetchTexts(package, Key::memo), QStringList({QStringLiteral("met in Osaka")}));
}

void tst_store::storeHeldByAnotherConnectionDoesNotOpen()
{
    PackageFixture package(*_home);
    {
        const StoreHolder holder(package);
        QVERIFY(!open(package));
    }
    QVERIFY(open(package));
}

void tst_store::openingLeavesTheFilesAsTheyWere_data()
{
    QTest::addColumn<bool>("writeAheadLog");
    QTest::newRow("rollback journal") << false;
    QTest::newRow("write-ahead log") << true;
}

void tst_store::openingLeavesTheFilesAsTheyWere()
{
    QFETCH(bool, writeAheadLog);
    PackageFixture package(*_home, {.writeAheadLog = writeAheadLog});
    package.card();
    const auto before = package.contents();
    QCOMPARE(fetchTexts(package, Key::cardID), QStringList({QStringLiteral("CARD-1")}));
    QCOMPARE(package.contents(), before);
}

void tst_store::newCardsHaveDistinctIdentities()
{
    PackageFixture package(*_home);
    QStringList identities;
    for (int opened = 0; opened < 2; ++opened) {
        const auto context = open(package);
        for (int i = 0; i < 12; ++i)
            identities << context->insertNewCard()->identityURI().value();
    }
    for (const QString& identity : identities) {
        QCOMPARE(identity.left(20), QStringLiteral("x-coredata:///Card/t"));
        static const QRegularExpression rest(
            QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}[0-9]+$"));
        QVERIFY2(rest.match(identity.mid(20)).hasMatch(), qPrintable(identity));
    }
    QCOMPARE(identities.removeDuplicates(), 0);
}

void tst_store::cardsDroppedUnsavedLeaveTheFilesAsTheyWere_data()
{
    openingLeavesTheFilesAsTheyWere_data();
}

void tst_store::cardsDroppedUnsavedLeaveTheFilesAsTheyWere()
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

void tst_store::whatAnotherProgramLeftInTheLogStaysThere()
{
    PackageFixture package(*_home, {.writeAheadLog = true});
    package.card();
    package.executeIntoLog(QStringLiteral("UPDATE ZCARD SET ZMEMO = 'from the log'"));
    const QByteArray store = package.readFile(QStringLiteral("Velmora.sqldb"));
    const QByteArray log = package.readFile(QStringLiteral("Velmora.sqldb-wal"));
    QVERIFY(!log.isEmpty());

    QCOMPARE(fetchTexts(package, Key::memo), QStringList({QStringLiteral("from the log")}));
    QCOMPARE(package.readFile(QStringLiteral("Velmora.sqldb")), store);
    QCOMPARE(package.readFile(QStringLiteral("Velmora.sqldb-wal")), log);
}

void tst_store::savingKeepsWhatAnotherProgramLeftInTheLog()
{
    PackageFixture package(*_home, {.writeAheadLog = true});
    package.card();
    package.executeIntoLog(QStringLiteral("UPDATE ZCARD SET ZMEMO = 'from the log'"));
    {
        const auto context = open(package);
        addCard(*context, QStringLiteral("new"));
        context->save();
    }
    QVERIFY(!QFile::exists(package.storePath() + QStringLiteral("-wal")));
    QCOMPARE(package.value(QStringLiteral("SELECT ZMEMO FROM ZCARD WHERE Z_PK = 1")).toString(),
        QStringLiteral("from the log"));
    QCOMPARE(package.value(QStringLiteral("SELECT count(*) FROM ZCARD")).toInt(), 2);
}

void tst_store::savedCardTakesTheKeyAfterTheHighest()
{
    PackageFixture package(*_home);
    package.card();
    package.execute(QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = 41 WHERE Z_NAME = 'Card'"));
    const auto context = open(package);
    addCard(*context, QStringLiteral("a"));
    addCard(*context, QStringLiteral("b"));
    context->save();
    QCOMPARE(package.rows(QStringLiteral("SELECT ZCARDID, Z_PK, Z_OPT FROM ZCARD ORDER BY Z_PK")),
        QList<QVariantList>({{QStringLiteral("CARD-1"), 1, 1}, {QStringLiteral("a"), 42, 1},
            {QStringLiteral("b"), 43, 1}}));
    QCOMPARE(package.rows(QStringLiteral("SELECT Z_NAME, Z_MAX FROM Z_PRIMARYKEY ORDER BY Z_ENT")),
        QList<QVariantList>({{QStringLiteral("Card"), 43}, {QStringLiteral("Folder"), 1}}));
}

void tst_store::entityNumberIsTheStoresOwn()
{
    PackageFixture package(*_home, {.entityNumber = 7});
    const auto context = open(package);
    addCard(*context, QStringLiteral("a"));
    context->save();
    QCOMPARE(package.value(QStringLiteral("SELECT Z_ENT FROM ZCARD")).toInt(), 7);
    QCOMPARE(
        package.value(QStringLiteral("SELECT Z_MAX FROM Z_PRIMARYKEY WHERE Z_ENT = 7")).toInt(), 1);
}

void tst_store::savedCardHasExactlyWhatWasSet()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    Card* card = context->insertNewCard();
    card->setValue(Key::cardID, QStringLiteral("id"));
    card->setValue(Key::full_Name, QStringLiteral("Ada Lovelace"));
    card->setValue(Key::scanNow, qint64 {1});
    card->setValue(Key::groupID, qint64 {9'007'199'254'740'993});
    card->setValue(Key::update_Date, utc(2009, 1, 1));
    context->save();
    QCOMPARE(package.rows(QStringLiteral(
                 "SELECT ZCARDID, ZFULL_NAME, ZSCANNOW, ZGROUPID, ZUPDATE_DATE, ZMEMO FROM ZCARD")),
        QList<QVariantList>({{QStringLiteral("id"), QStringLiteral("Ada Lovelace"), 1,
            9'007'199'254'740'993LL, 252'460'800, QVariant()}}));
}

void tst_store::unsetNumbersAreZeroAndTheRestIsNull()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    context->insertNewCard();
    context->save();
    for (const QVariantList& column :
        package.rows(QStringLiteral("SELECT name, type FROM pragma_table_info('ZCARD')"))) {
        const QString name = column[0].toString();
        if (name.startsWith(QStringLiteral("Z_")) || name == QStringLiteral("ZOWNER"))
            continue;
        const QVariant value = package.value(QStringLiteral("SELECT %1 FROM ZCARD").arg(name));
        if (column[1] == QStringLiteral("INTEGER"))
            QVERIFY2(value.isValid() && value.toInt() == 0, qPrintable(name));
        else
            QVERIFY2(!value.isValid(), qPrintable(name));
    }
}

void tst_store::tablesOwnDefaultStandsForAnUnsetAttribute()
{
    PackageFixture package(*_home,
        {.columnDefaults = {{QStringLiteral("ZSTATUS"), QStringLiteral("5")},
             {QStringLiteral("ZFLAG1"), QStringLiteral("NULL")},
             {QStringLiteral("ZCOUNTRY"), QStringLiteral("'Japan, ''home'''")},
             {QStringLiteral("ZMEMO_XY"), QStringLiteral("(upper('xy') || '1')")},
             {QStringLiteral("ZUPDATE_DATE"), QStringLiteral("1.5")}}});
    const auto context = open(package);
    context->insertNewCard();
    context->save();
    QCOMPARE(package.rows(QStringLiteral(
                 "SELECT ZSTATUS, ZFLAG1, ZCOUNTRY, ZMEMO_XY, ZUPDATE_DATE FROM ZCARD")),
        QList<QVariantList>({{5, 0, QStringLiteral("Japan, 'home'"), QStringLiteral("XY1"), 1.5}}));
}

void tst_store::setValueWinsOverTheTablesOwnDefault()
{
    PackageFixture package(*_home,
        {.columnDefaults = {{QStringLiteral("ZSTATUS"), QStringLiteral("5")},
             {QStringLiteral("ZCOUNTRY"), QStringLiteral("'Japan'")}}});
    const auto context = open(package);
    Card* card = context->insertNewCard();
    card->setValue(Key::status, qint64 {0});
    card->setValue(Key::country, QStringLiteral(""));
    context->save();
    QCOMPARE(package.rows(QStringLiteral("SELECT ZSTATUS, ZCOUNTRY FROM ZCARD")),
        QList<QVariantList>({{0, QString()}}));
}

void tst_store::textThatWasSetEmptyIsNotNull()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    Card* card = context->insertNewCard();
    card->setValue(Key::memo, QStringLiteral(""));
    card->setValue(Key::company, QString());
    context->save();
    QCOMPARE(package.rows(QStringLiteral("SELECT typeof(ZMEMO), length(ZMEMO), typeof(ZCOMPANY), "
                                         "length(ZCOMPANY), typeof(ZCITY) FROM ZCARD")),
        QList<QVariantList>(
            {{QStringLiteral("text"), 0, QStringLiteral("text"), 0, QStringLiteral("null")}}));
}

void tst_store::textsAreStoredAsUtf8()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    Card* card = context->insertNewCard();
    card->setValue(Key::company, QStringLiteral("\u4F1A\u793E'; \U0002000B"));
    context->save();
    QCOMPARE(package.value(QStringLiteral("SELECT hex(ZCOMPANY) FROM ZCARD")).toString(),
        QStringLiteral("E4BC9AE7A4BE273B20F0A0808B"));
    QCOMPARE(fetchTexts(package, Key::company),
        QStringList({QStringLiteral("\u4F1A\u793E'; \U0002000B")}));
}

void tst_store::datesAreSecondsSince2001()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    Card* card = context->insertNewCard();
    card->setValue(Key::register_Date, utc(2001, 1, 1));
    card->setValue(Key::update_Date, utc(2000, 12, 31));
    card->setValue(Key::accept_Date, utc(2009, 1, 1, 250));
    context->save();
    QCOMPARE(package.rows(
                 QStringLiteral("SELECT ZREGISTER_DATE, ZUPDATE_DATE, ZACCEPT_DATE FROM ZCARD")),
        QList<QVariantList>({{0, -86'400, 252'460'800.25}}));
}

void tst_store::savingLeavesEverythingElseInTheStoreAlone()
{
    PackageFixture package(*_home);
    package.card({{"ZOWNER", 1}, {"ZTHUMBNAIL", QByteArray("\0\1\2", 3)}});
    const QStringList queries {QStringLiteral("SELECT * FROM Z_METADATA"),
        QStringLiteral("SELECT * FROM ZFOLDER"),
        QStringLiteral("SELECT * FROM ZCARD WHERE Z_PK = 1"),
        QStringLiteral("SELECT * FROM sqlite_master")};
    QList<QList<QVariantList>> before;
    for (const QString& query : queries)
        before << package.rows(query);

    const auto context = open(package);
    addCard(*context, QStringLiteral("new"));
    context->save();
    for (qsizetype i = 0; i < queries.size(); ++i)
        QCOMPARE(package.rows(queries[i]), before[i]);
}

void tst_store::savingNothingTouchesNothing()
{
    PackageFixture package(*_home);
    const auto before = package.contents();
    const auto context = open(package);
    context->save();
    QCOMPARE(package.contents(), before);
}

void tst_store::savedCardsAreNotSavedAgain()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    addCard(*context, QStringLiteral("a"));
    context->save();
    context->save();
    addCard(*context, QStringLiteral("b"));
    context->save();
    QCOMPARE(package.rows(QStringLiteral("SELECT Z_PK, ZCARDID FROM ZCARD ORDER BY Z_PK")),
        QList<QVariantList>({{1, QStringLiteral("a")}, {2, QStringLiteral("b")}}));
}

void tst_store::failedSaveLeavesTheStoreAndKeepsTheCards()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    for (int i = 0; i < 500; ++i)
        addCard(*context, QString::number(i))->setValue(Key::memo, QString(20'000, u'x'));
    package.execute(QStringLiteral("CREATE TRIGGER full BEFORE INSERT ON ZCARD WHEN NEW.Z_PK = 500 "
                                   "BEGIN SELECT RAISE(ABORT, 'no more'); END"));
    const auto before = package.contents();
    QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
    QCOMPARE(package.contents(), before);

    package.execute(QStringLiteral("DROP TRIGGER full"));
    context->save();
    QCOMPARE(package.value(QStringLiteral("SELECT count(*) FROM ZCARD")).toInt(), 500);
}

void tst_store::storeHeldByAnotherConnectionFailsTheSave()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    addCard(*context, QStringLiteral("a"));
    {
        const StoreHolder holder(package);
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
    }
    QCOMPARE(package.value(QStringLiteral("SELECT count(*) FROM ZCARD")).toInt(), 0);
}

void tst_store::keyThatIsTakenFailsTheSave()
{
    PackageFixture package(*_home);
    package.card();
    package.execute(QStringLiteral("UPDATE Z_PRIMARYKEY SET Z_MAX = 0 WHERE Z_NAME = 'Card'"));
    const auto before = package.contents();
    const auto context = open(package);
    addCard(*context, QStringLiteral("a"));
    QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
    QCOMPARE(package.contents(), before);
}

void tst_store::savingKeepsTheJournalMode_data()
{
    openingLeavesTheFilesAsTheyWere_data();
}

void tst_store::savingKeepsTheJournalMode()
{
    QFETCH(bool, writeAheadLog);
    PackageFixture package(*_home, {.writeAheadLog = writeAheadLog});
    {
        const auto context = open(package);
        addCard(*context, QStringLiteral("a"));
        context->save();
    }
    QVERIFY(!QFile::exists(package.storePath() + QStringLiteral("-wal")));
    QVERIFY(!QFile::exists(package.storePath() + QStringLiteral("-journal")));
    QCOMPARE(package.value(QStringLiteral("PRAGMA journal_mode")).toString(),
        writeAheadLog ? QStringLiteral("wal") : QStringLiteral("delete"));
    QCOMPARE(
        package.value(QStringLiteral("SELECT ZCARDID FROM ZCARD")).toString(), QStringLiteral("a"));
}

void tst_store::storeIsSoundAfterManyCards()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    constexpr int count = 3000;
    for (int i = 0; i < count; ++i)
        addCard(*context, QString::number(i))->setValue(Key::memo, QString(300, QChar(0x3042)));
    context->save();
    QCOMPARE(
        package.value(QStringLiteral("PRAGMA integrity_check")).toString(), QStringLiteral("ok"));
    QCOMPARE(package.rows(
                 QStringLiteral("SELECT count(*), count(DISTINCT ZCARDID), max(Z_PK) FROM ZCARD")),
        QList<QVariantList>({{count, count, count}}));
}

void tst_store::cardsOfOneMillisecondKeepTheirOrder()
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
    QCOMPARE(
        package.value(QStringLiteral("SELECT count(DISTINCT ZACCEPT_DATE) FROM ZCARD")).toInt(),
        300);
    // 300 microseconds apart at the most.
    QVERIFY(package.value(QStringLiteral("SELECT max(ZACCEPT_DATE) - min(ZACCEPT_DATE) FROM ZCARD"))
                .toDouble()
        < 0.001);
}

void tst_store::cardsKeepTheirOrderWhenTheClockIsSetBack()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    addCard(*context, QStringLiteral("before"))->setValue(Key::accept_Date, utc(2020, 5, 5, 7000));
    addCard(*context, QStringLiteral("after"))->setValue(Key::accept_Date, utc(2020, 5, 5, 0));
    context->save();
    QCOMPARE(fetchTexts(package, Key::cardID),
        QStringList({QStringLiteral("before"), QStringLiteral("after")}));
}

void tst_store::liveCardsComeInTheOrderOfTheirAcceptDates()
{
    PackageFixture package(*_home);
    package.card().acceptedAt(300.25);
    package.card().acceptedAt(-5);
    package.card().acceptedAt(300.5);
    QCOMPARE(fetchTexts(package, Key::cardID),
        QStringList(
            {QStringLiteral("CARD-2"), QStringLiteral("CARD-1"), QStringLiteral("CARD-3")}));
}

void tst_store::cardWithoutAcceptDateComesFirst()
{
    PackageFixture package(*_home);
    package.card().acceptedAt(-1e9);
    package.card({{"ZACCEPT_DATE", QVariant()}});
    QCOMPARE(fetchTexts(package, Key::cardID),
        QStringList({QStringLiteral("CARD-2"), QStringLiteral("CARD-1")}));
}

void tst_store::deletedCardsAndThoseWithoutFlagAreNotLive()
{
    PackageFixture package(*_home);
    package.card().deleted();
    package.card();
    package.card().set("ZDELETEDFLAG", QVariant());
    package.card().set("ZDELETEDFLAG", 2);
    QCOMPARE(fetchTexts(package, Key::cardID), QStringList({QStringLiteral("CARD-2")}));
}

void tst_store::allCardsIncludeTheDeletedOnes()
{
    PackageFixture package(*_home);
    package.card().deleted();
    package.card();
    QCOMPARE(fetchTexts(package, Key::cardID, DBCCardSelection::All),
        QStringList({QStringLiteral("CARD-1"), QStringLiteral("CARD-2")}));
}

void tst_store::visitorEndsTheFetch()
{
    PackageFixture package(*_home);
    for (int i = 0; i < 5; ++i)
        package.card();
    int seen = 0;
    open(package)->fetchCards(live, [&](const Card&) { return ++seen < 3; });
    QCOMPARE(seen, 3);
}

void tst_store::waitingCardsAreNotFetched()
{
    PackageFixture package(*_home);
    const auto context = open(package);
    addCard(*context, QStringLiteral("waiting"));
    context->fetchCards(live, [](const Card&) {
        qFatal("nothing has been saved");
        return false;
    });
}

void tst_store::everyAttributeIsReadFromItsColumn_data()
{
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("type");
    TestHome home;
    PackageFixture package(home);
    for (const QVariantList& row :
        package.rows(QStringLiteral("SELECT name, type FROM pragma_table_info('ZCARD')"))) {
        const QString column = row[0].toString();
        if (!column.startsWith(QStringLiteral("Z_")) && column != QStringLiteral("ZOWNER")
            && column != QStringLiteral("ZTHUMBNAIL"))
            QTest::newRow(qPrintable(column)) << column << row[1].toString();
    }
}

void tst_store::everyAttributeIsReadFromItsColumn()
{
    QFETCH(QString, column);
    QFETCH(QString, type);
    PackageFixture package(*_home);
    const bool isText = type == QStringLiteral("VARCHAR");
    const QVariant stored = isText ? QVariant(column) : QVariant(252'460'800);
    package.card().set("ZDELETEDFLAG", 0);
    package.execute(QStringLiteral("UPDATE ZCARD SET %1 = ?").arg(column), {stored});

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
        : type == QStringLiteral("INTEGER")
        ? DBCValue(qint64 {252'460'800})
        : DBCValue(QDateTime({2009, 1, 1}, QTime(0, 0), Qt::UTC).toLocalTime());
    QVERIFY(value);
    QVERIFY(*value == expected);
}

void tst_store::nullColumnsHaveNoValue()
{
    PackageFixture package(*_home);
    package.card({{"ZFACE_IMAGE_FILE", QVariant()}, {"ZSTATUS", QVariant()},
        {"ZREGISTER_DATE", QVariant()}, {"ZMEMO", QStringLiteral("")}});
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

void tst_store::dateColumnsWithOtherContentsHaveNoValue_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::newRow("text") << QVariant(QStringLiteral("spring"));
    QTest::newRow("bytes") << QVariant(QByteArray("\1\2"));
    QTest::newRow("endless") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("beyond any calendar") << QVariant(-1e300);
}

void tst_store::dateColumnsWithOtherContentsHaveNoValue()
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

void tst_store::fetchFromABrokenStoreThrows()
{
    PackageFixture package(*_home);
    package.card();
    const auto context = open(package);
    package.execute(QStringLiteral("DROP TABLE ZCARD"));
    QVERIFY_THROWS_EXCEPTION(
        SQLite::Exception, context->fetchCards(live, [](const Card&) { return true; }));
}

QTEST_GUILESS_MAIN(tst_store)
#include "tst_store.moc"
