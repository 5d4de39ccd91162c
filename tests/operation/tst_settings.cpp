// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCSettings.h"

#include "tests/support/TestHome.h"

#include <QTest>

class tst_settings : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void preferencesLieInTheHomeFolder();
    void shippedDictionaryHasTheLogLevel();
    void preferencesStandInFrontOfTheShippedDictionary();
    void unreadablePreferencesLeaveTheShippedDictionary();
    void logLevel_data();
    void logLevel();
    void databasePathOfTheMainApplication();
    void databasePathOfNoTextIsNone();
    void withoutTheMainApplicationThereIsNoDatabasePath();
    void preferencesAreReadAnew();

private:
    void writePreferences(const char* identifier, const QByteArray& entries) const
    {
        _home->writeFile(QStringLiteral("home/Library/Preferences/%1.plist")
                             .arg(QString::fromLatin1(identifier)),
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

void tst_settings::preferencesLieInTheHomeFolder()
{
    QCOMPARE(DBCSettings::preferencesFile(DBCSettings::mainApplicationIdentifier),
        _home->path(QStringLiteral("home/Library/Preferences/com.velmora.Velmora.plist")));
}

void tst_settings::shippedDictionaryHasTheLogLevel()
{
    QCOMPARE(DBCSettings::informationDictionary().value(QStringLiteral("Log Level")),
        QVariant(qlonglong {1}));
    QCOMPARE(DBCSettings::logLevel(), 1);
}

void tst_settings::preferencesStandInFrontOfTheShippedDictionary()
{
    writeOwnPreferences("<key>Log Level</key><integer>2</integer>");
    QCOMPARE(DBCSettings::logLevel(), 2);
    QCOMPARE(DBCSettings::informationDictionary().value(QStringLiteral("CFBundleName")),
        QVariant(QStringLiteral("VelmoraConverter")));
}

void tst_settings::unreadablePreferencesLeaveTheShippedDictionary()
{
    _home->writeFile(
        QStringLiteral("home/Library/Preferences/com.velmora.VelmoraConverter.plist"), "garbage");
    QCOMPARE(DBCSettings::logLevel(), 1);
}

void tst_settings::logLevel_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("expected"); // 99: none
    QTest::newRow("0") << QByteArray("<integer>0</integer>") << 0;
    QTest::newRow("3") << QByteArray("<integer>3</integer>") << 3;
    QTest::newRow("real") << QByteArray("<real>2.0</real>") << 2;
    QTest::newRow("negative") << QByteArray("<integer>-1</integer>") << -1;
    QTest::newRow("text") << QByteArray("<string>2</string>") << 99;
    QTest::newRow("truth value") << QByteArray("<true/>") << 99;
    QTest::newRow("list") << QByteArray("<array/>") << 1;
}

void tst_settings::logLevel()
{
    QFETCH(QByteArray, value);
    QFETCH(int, expected);
    writeOwnPreferences("<key>Log Level</key>" + value);
    QCOMPARE(DBCSettings::logLevel().value_or(99), expected);
}

void tst_settings::databasePathOfTheMainApplication()
{
    writeMainPreferences("<key>DB path</key><string>/cards/名刺.vmdb</string>");
    QCOMPARE(DBCSettings::mainApplicationDatabasePath(), QStringLiteral("/cards/名刺.vmdb"));
}

void tst_settings::databasePathOfNoTextIsNone()
{
    writeMainPreferences("<key>DB path</key><integer>5</integer>");
    QVERIFY(!DBCSettings::mainApplicationDatabasePath());
}

void tst_settings::withoutTheMainApplicationThereIsNoDatabasePath()
{
    QVERIFY(DBCSettings::mainApplicationPreferences().isEmpty());
    QVERIFY(!DBCSettings::mainApplicationDatabasePath());
}

void tst_settings::preferencesAreReadAnew()
{
    writeMainPreferences("<key>DB path</key><string>/old</string>");
    QCOMPARE(DBCSettings::mainApplicationDatabasePath(), QStringLiteral("/old"));
    writeMainPreferences("<key>DB path</key><string>/new</string>");
    QCOMPARE(DBCSettings::mainApplicationDatabasePath(), QStringLiteral("/new"));
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
