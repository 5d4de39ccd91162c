// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCCardAttributes.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordKeys.h"

#include <QtTest>

class tst_cardAttributes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyAttributeHasItsColumnAndType();
    void nothingButTheTransferKeysIsMissing();
    void columnNames_data();
    void columnNames();
};

void tst_cardAttributes::everyAttributeHasItsColumnAndType()
{
    TestHome home;
    PackageFixture package(home);
    QMap<QString, QString> types;
    for (const QVariantList& row :
        package.rows(QStringLiteral("SELECT name, type FROM pragma_table_info('ZCARD')")))
        types[row[0].toString()] = row[1].toString();

    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        const QString column = QString::fromStdString(cardColumnName(attribute.key));
        const char* expected = attribute.kind == DBCAttributeKind::Text ? "VARCHAR"
            : attribute.kind == DBCAttributeKind::Number                ? "INTEGER"
                                                                        : "TIMESTAMP";
        QVERIFY2(types.contains(column), qPrintable(column));
        QCOMPARE(types.take(column), QString::fromLatin1(expected));
    }
    // What is left is the framework's own and the main application's.
    QCOMPARE(types.keys(),
        QStringList({QStringLiteral("ZOWNER"), QStringLiteral("ZTHUMBNAIL"),
            QStringLiteral("Z_ENT"), QStringLiteral("Z_OPT"), QStringLiteral("Z_PK")}));
}

void tst_cardAttributes::nothingButTheTransferKeysIsMissing()
{
    QStringList missing;
    for (const DBCRecordKey key : allRecordKeys()) {
        const auto isKey
            = [key](const DBCCardAttribute& attribute) { return attribute.key == key; };
        if (std::none_of(DBCCardAttributes.begin(), DBCCardAttributes.end(), isKey))
            missing << recordKeyName(key);
    }
    QCOMPARE(missing,
        QStringList({QStringLiteral("attachmentFile"), QStringLiteral("recordNo"),
            QStringLiteral("lineNo")}));
}

void tst_cardAttributes::columnNames_data()
{
    QTest::addColumn<DBCRecordKey>("key");
    QTest::addColumn<QString>("column");
    QTest::newRow("mixed case") << DBCRecordKey::full_Name_Kana
                                << QStringLiteral("ZFULL_NAME_KANA");
    QTest::newRow("capitals inside") << DBCRecordKey::cardID << QStringLiteral("ZCARDID");
    QTest::newRow("small page") << DBCRecordKey::back_Image_page
                                << QStringLiteral("ZBACK_IMAGE_PAGE");
    QTest::newRow("digit") << DBCRecordKey::flag1 << QStringLiteral("ZFLAG1");
    QTest::newRow("reserved word") << DBCRecordKey::select << QStringLiteral("ZSELECT");
}

void tst_cardAttributes::columnNames()
{
    QFETCH(DBCRecordKey, key);
    QFETCH(QString, column);
    QCOMPARE(QString::fromStdString(cardColumnName(key)), column);
}

QTEST_GUILESS_MAIN(tst_cardAttributes)
#include "tst_cardAttributes.moc"
