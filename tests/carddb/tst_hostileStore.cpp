// SPDX-License-Identifier: GPL-3.0-or-later
// Tests saving into stores whose schema does more than hold cards, either by mistake or in order to
// do harm.
#include "carddb/store/DBCManagedObjectContext.h"
#include "operation/base/DBCStopQuestion.h"
#include "tests/support/PackageFixture.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

Card* addCard(DBCManagedObjectContext& context, const QString& cardID)
{
    Card* card = context.insertNewCard();
    card->setValue(Key::cardID, cardID);
    return card;
}

} // namespace

class tst_hostileStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }

    void cleanup() { _home.reset(); }

    void storeThatDoesNotKeepTheCardsFailsTheSave_data()
    {
        QTest::addColumn<QString>("trigger");
        const auto row = [](const char* name, const char* trigger) {
            QTest::newRow(name) << QString::fromLatin1(trigger);
        };
        row("ignores them", "BEFORE INSERT ON ZCARD BEGIN SELECT RAISE(IGNORE); END");
        row("ignores one of them",
            "BEFORE INSERT ON ZCARD WHEN NEW.ZCARDID = 'b' BEGIN SELECT RAISE(IGNORE); END");
        row("removes an earlier one",
            "AFTER INSERT ON ZCARD WHEN NEW.ZCARDID = 'c' "
            "BEGIN DELETE FROM ZCARD WHERE ZCARDID = 'a'; END");
        row("removes them at the end", "AFTER UPDATE ON Z_PRIMARYKEY BEGIN DELETE FROM ZCARD; END");
        row("changes a text", "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET ZMEMO = 'x'; END");
        row("removes a text", "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET ZMEMO = NULL; END");
        row("changes a number", "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET ZSCANNOW = 0; END");
        row("turns a number into a text",
            "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET ZSCANNOW = 'one'; END");
        row("changes a date",
            "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET ZACCEPT_DATE = ZACCEPT_DATE + 1; END");
        row("makes them another entity's",
            "AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD SET Z_ENT = Z_ENT + 1; END");
        row("does not keep the highest key",
            "BEFORE UPDATE ON Z_PRIMARYKEY BEGIN SELECT RAISE(IGNORE); END");
    }
    void storeThatDoesNotKeepTheCardsFailsTheSave()
    {
        QFETCH(QString, trigger);
        PackageFixture package(*_home);
        package.execute(u"CREATE TRIGGER other "_s + trigger);
        const auto before = package.contents();
        const auto context = open(package);
        for (const QString& cardID : {u"a"_s, u"b"_s, u"c"_s}) {
            Card* card = addCard(*context, cardID);
            card->setValue(Key::memo, u"met in Osaka"_s);
            card->setValue(Key::scanNow, qint64 {1});
            card->setValue(Key::accept_Date, QDateTime::currentDateTime());
        }
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        QCOMPARE(package.contents(), before);
    }

    void triggerThatOnlySetsWhatTheCardsLeaveOpenIsNoFault()
    {
        PackageFixture package(*_home);
        package.execute(u"CREATE TRIGGER other AFTER INSERT ON ZCARD BEGIN "
                        "UPDATE ZCARD SET ZGROUPID = 3 WHERE Z_PK = NEW.Z_PK; END"_s);
        const auto context = open(package);
        addCard(*context, u"a"_s);
        context->save();
        QCOMPARE(package.rows(u"SELECT ZCARDID, ZGROUPID FROM ZCARD"_s),
            QList<QVariantList>({{u"a"_s, 3}}));
    }

    void storeInUtf16KeepsTheCards()
    {
        PackageFixture package(*_home);
        const auto schema = package.rows(u"SELECT sql FROM sqlite_master WHERE sql NOT NULL"_s);
        package.remove(u"Velmora.sqldb"_s);
        {
            SQLite::Database store(
                package.storePath().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            store.exec("PRAGMA encoding = 'UTF-16'");
            for (const QVariantList& row : schema)
                store.exec(row[0].toString().toStdString());
            store.exec("INSERT INTO Z_PRIMARYKEY (Z_ENT, Z_NAME, Z_MAX) VALUES (1, 'Card', 0)");
        }
        const auto context = open(package);
        addCard(*context, u"\u540D\u523A\U0002000B"_s)->setValue(Key::memo, u""_s);
        context->save();
        QCOMPARE(
            package.value(u"SELECT ZCARDID FROM ZCARD"_s).toString(), u"\u540D\u523A\U0002000B"_s);
    }

    void triggerThatComputesWithoutEndCanBeStopped()
    {
        PackageFixture package(*_home);
        package.execute(u"CREATE TRIGGER other AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD "
                        "SET ZCOUNTRY = (SELECT count(*) FROM (WITH RECURSIVE c(n) AS "
                        "(SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n FROM c)); END"_s);
        const auto before = package.contents();
        const auto context = open(package);
        addCard(*context, u"a"_s);
        int asked = 0;
        const DBCStopQuestion question([&] { return ++asked == 2; });
        QElapsedTimer timer;
        timer.start();
        int code = SQLITE_OK;
        try {
            context->save();
        } catch (const SQLite::Exception& exception) {
            code = exception.getErrorCode();
        }
        QCOMPARE(code, SQLITE_INTERRUPT);
        QCOMPARE(asked, 2);
        QVERIFY2(timer.elapsed() >= 900 && timer.elapsed() < 2000,
            qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(package.contents(), before);
    }

    void hugeValuesOfTheStoresOwnFailTheSave_data()
    {
        QTest::addColumn<QString>("hugeDefault");
        QTest::newRow("bytes") << u"(zeroblob(300000000))"_s;
        QTest::newRow("text")
            << u"(replace(hex(zeroblob(8000000)), '0', '12345678901234567890'))"_s;
    }
    void hugeValuesOfTheStoresOwnFailTheSave()
    {
        QFETCH(QString, hugeDefault);
        PackageFixture package(*_home, {.columnDefaults = {{u"ZMEMO_XY"_s, hugeDefault}}});
        const auto before = package.contents();
        const auto context = open(package);
        addCard(*context, u"a"_s);
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        QCOMPARE(package.contents(), before);
    }

    void longTextsOfACardAreNoFault()
    {
        PackageFixture package(*_home);
        const auto context = open(package);
        addCard(*context, u"a"_s)->setValue(Key::memo, QString(5'000'000, QChar(0x3042)));
        context->save();
        QCOMPARE(package.value(u"SELECT length(ZMEMO) FROM ZCARD"_s).toInt(), 5'000'000);
    }

    void tablesThatSqliteKeepsForItselfCannotBeChangedByATrigger()
    {
        PackageFixture package(*_home);
        package.execute(u"CREATE VIRTUAL TABLE words USING fts5(word)"_s);
        package.execute(u"INSERT INTO words VALUES ('Osaka')"_s);
        package.execute(
            u"CREATE TRIGGER other AFTER INSERT ON ZCARD BEGIN DELETE FROM words_data; END"_s);
        const auto before = package.contents();
        const auto context = open(package);
        addCard(*context, u"a"_s);
        QVERIFY_THROWS_EXCEPTION(SQLite::Exception, context->save());
        QCOMPARE(package.contents(), before);
    }

private:
    std::unique_ptr<DBCManagedObjectContext> open(const PackageFixture& package) const
    {
        return DBCManagedObjectContext::open(package.storePath(), _model);
    }

    std::unique_ptr<TestHome> _home;
    DBCManagedObjectModel _model;
};

QTEST_GUILESS_MAIN(tst_hostileStore)
#include "tst_hostileStore.moc"
