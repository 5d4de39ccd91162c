// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCSettings.h"

#include "tests/support/TestHome.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_settings : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void preferencesLieInTheHomeFolder()
    {
        QCOMPARE(DBCSettings::preferencesFile(DBCSettings::mainApplicationIdentifier),
            _home->path(u"home/Library/Preferences/com.velmora.Velmora.plist"_s));
    }

    void shippedDictionaryHasTheLogLevel()
    {
        QCOMPARE(
            DBCSettings::informationDictionary().value(u"Log Level"_s), QVariant(qlonglong {1}));
        QCOMPARE(DBCSettings::logLevel(), 1);
    }

    void preferencesStandInFrontOfTheShippedDictionary()
    {
        writeOwnPreferences("<key>Log Level</key><integer>2</integer>");
        QCOMPARE(DBCSettings::logLevel(), 2);
        QCOMPARE(DBCSettings::informationDictionary().value(u"CFBundleName"_s),
            QVariant(u"VelmoraConverter"_s));
    }

    void unreadablePreferencesLeaveTheShippedDictionary()
    {
        _home->writeFile(
            u"home/Library/Preferences/com.velmora.VelmoraConverter.plist"_s, "garbage");
        QCOMPARE(DBCSettings::logLevel(), 1);
    }

    void logLevel_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<int>("expected"); // 99 if there must be no level
        QTest::newRow("0") << QByteArray("<integer>0</integer>") << 0;
        QTest::newRow("3") << QByteArray("<integer>3</integer>") << 3;
        QTest::newRow("real") << QByteArray("<real>2.0</real>") << 2;
        QTest::newRow("negative") << QByteArray("<integer>-1</integer>") << -1;
        QTest::newRow("text") << QByteArray("<string>2</string>") << 99;
        QTest::newRow("truth value") << QByteArray("<true/>") << 99;
        QTest::newRow("list") << QByteArray("<array/>") << 1;
    }
    void logLevel()
    {
        QFETCH(QByteArray, value);
        QFETCH(int, expected);
        writeOwnPreferences("<key>Log Level</key>" + value);
        QCOMPARE(DBCSettings::logLevel().value_or(99), expected);
    }

    void databasePathOfTheMainApplication()
    {
        writeMainPreferences("<key>DB path</key><string>/cards/名刺.vmdb</string>");
        QCOMPARE(DBCSettings::mainApplicationDatabasePath(), u"/cards/名刺.vmdb"_s);
    }

    void databasePathOfNoTextIsNone()
    {
        writeMainPreferences("<key>DB path</key><integer>5</integer>");
        QVERIFY(!DBCSettings::mainApplicationDatabasePath());
    }

    void withoutTheMainApplicationThereIsNoDatabasePath()
    {
        QVERIFY(DBCSettings::mainApplicationPreferences().isEmpty());
        QVERIFY(!DBCSettings::mainApplicationDatabasePath());
    }

    void preferencesAreReadAnew()
    {
        writeMainPreferences("<key>DB path</key><string>/old</string>");
        QCOMPARE(DBCSettings::mainApplicationDatabasePath(), u"/old"_s);
        writeMainPreferences("<key>DB path</key><string>/new</string>");
        QCOMPARE(DBCSettings::mainApplicationDatabasePath(), u"/new"_s);
    }

private:
    void writePreferences(const char* identifier, const QByteArray& entries) const
    {
        _home->writeFile(
            u"home/Library/Preferences/%1.plist"_s.arg(QString::fromLatin1(identifier)),
            "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    }
    void writeOwnPreferences(const QByteArray& entries) const
    {
        writePreferences("com.velmora.VelmoraConverter", entries);
    }
    void writeMainPreferences(const QByteArray& entries) const
    {
        writePreferences("com.velmora.Velmora", entries);
    }

    std::optional<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
