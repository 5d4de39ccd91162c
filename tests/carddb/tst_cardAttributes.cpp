// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/store/DBCCardAttributes.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordKeys.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_cardAttributes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyAttributeHasItsColumnAndType()
    {
        TestHome home;
        PackageFixture package(home);
        QMap<QString, QString> types;
        for (const QVariantList& row :
            package.rows(u"SELECT name, type FROM pragma_table_info('ZCARD')"_s))
            types[row[0].toString()] = row[1].toString();

        for (const DBCCardAttribute& attribute : DBCCardAttributes) {
            const QString column = QString::fromStdString(cardColumnName(attribute.key));
            const char* expected = attribute.kind == DBCAttributeKind::Text ? "VARCHAR"
                : attribute.kind == DBCAttributeKind::Number                ? "INTEGER"
                                                                            : "TIMESTAMP";
            QVERIFY2(types.contains(column), qPrintable(column));
            QCOMPARE(types.take(column), QString::fromLatin1(expected));
        }
        // The remaining columns belong to the object store framework and to the main application.
        QCOMPARE(types.keys(),
            QStringList({u"ZOWNER"_s, u"ZTHUMBNAIL"_s, u"Z_ENT"_s, u"Z_OPT"_s, u"Z_PK"_s}));
    }

    void nothingButTheTransferKeysIsMissing()
    {
        QStringList missing;
        for (const DBCRecordKey key : allRecordKeys()) {
            const auto isKey
                = [key](const DBCCardAttribute& attribute) { return attribute.key == key; };
            if (std::none_of(DBCCardAttributes.begin(), DBCCardAttributes.end(), isKey))
                missing << recordKeyName(key);
        }
        QCOMPARE(missing, QStringList({u"attachmentFile"_s, u"recordNo"_s, u"lineNo"_s}));
    }

    void columnNames_data()
    {
        QTest::addColumn<DBCRecordKey>("key");
        QTest::addColumn<QString>("column");
        QTest::newRow("mixed case") << DBCRecordKey::full_Name_Kana << u"ZFULL_NAME_KANA"_s;
        QTest::newRow("capitals inside") << DBCRecordKey::cardID << u"ZCARDID"_s;
        QTest::newRow("small page") << DBCRecordKey::back_Image_page << u"ZBACK_IMAGE_PAGE"_s;
        QTest::newRow("digit") << DBCRecordKey::flag1 << u"ZFLAG1"_s;
        QTest::newRow("reserved word") << DBCRecordKey::select << u"ZSELECT"_s;
    }
    void columnNames()
    {
        QFETCH(DBCRecordKey, key);
        QFETCH(QString, column);
        QCOMPARE(QString::fromStdString(cardColumnName(key)), column);
    }
};

QTEST_GUILESS_MAIN(tst_cardAttributes)
#include "tst_cardAttributes.moc"
