// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCRecord.h"
#include "tests/support/RecordKeys.h"

#include <QtTest>

using Key = DBCRecordKey;

class tst_record : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void newRecordIsEmpty();
    void everyKeyHoldsItsOwnValue();
    void valueIsReplaced();
    void removedValueIsGoneAndTheOthersStay();
    void removingAnAbsentKeyChangesNothing();
    void textOfAnAbsentKeyIsNone();
    void textOfANumberOrDateIsNone();
    void recordsWithTheSameValuesAreEqual();
    void namesStandInTheOrderOfTheKeys();
};

void tst_record::newRecordIsEmpty()
{
    const DBCRecord record;
    QVERIFY(record.isEmpty());
    QCOMPARE(record.count(), std::size_t(0));
    QVERIFY(!record.contains(Key::memo));
    QVERIFY(!record.value(Key::memo));
}

// Set from the last key to the first, so that each one is put before all others.
void tst_record::everyKeyHoldsItsOwnValue()
{
    DBCRecord record;
    for (std::size_t i = DBCRecordKeyCount; i-- > 0;)
        record.setValue(static_cast<Key>(i), qint64(i) * 10);
    QCOMPARE(record.count(), DBCRecordKeyCount);
    for (std::size_t i = 0; i < DBCRecordKeyCount; ++i)
        QCOMPARE(std::get<qint64>(*record.value(static_cast<Key>(i))), qint64(i) * 10);
}

void tst_record::valueIsReplaced()
{
    DBCRecord record;
    record.setValue(Key::memo, QStringLiteral("old"));
    record.setValue(Key::company, QStringLiteral("company"));
    record.setValue(Key::memo, QStringLiteral("new"));
    QCOMPARE(record.count(), std::size_t(2));
    QCOMPARE(record.text(Key::memo), QStringLiteral("new"));
    QCOMPARE(record.text(Key::company), QStringLiteral("company"));
}

void tst_record::removedValueIsGoneAndTheOthersStay()
{
    DBCRecord record;
    record.setValue(Key::face_Image_File, QStringLiteral("first"));
    record.setValue(Key::memo, QStringLiteral("middle"));
    record.setValue(Key::flag2, QStringLiteral("last"));
    record.removeValue(Key::memo);
    QCOMPARE(record.count(), std::size_t(2));
    QVERIFY(!record.contains(Key::memo));
    QCOMPARE(record.text(Key::face_Image_File), QStringLiteral("first"));
    QCOMPARE(record.text(Key::flag2), QStringLiteral("last"));
}

void tst_record::removingAnAbsentKeyChangesNothing()
{
    DBCRecord record;
    record.setValue(Key::memo, QStringLiteral("memo"));
    const DBCRecord before = record;
    record.removeValue(Key::company);
    QVERIFY(record == before);
}

void tst_record::textOfAnAbsentKeyIsNone()
{
    const DBCRecord record;
    QVERIFY(!record.text(Key::memo));
    QCOMPARE(record.textOrEmpty(Key::memo), QString());
}

void tst_record::textOfANumberOrDateIsNone()
{
    DBCRecord record;
    record.setValue(Key::status, qint64(1));
    record.setValue(Key::register_Date, QDateTime::currentDateTime());
    QVERIFY(!record.text(Key::status));
    QVERIFY(!record.text(Key::register_Date));
    QCOMPARE(record.textOrEmpty(Key::status), QString());
}

void tst_record::recordsWithTheSameValuesAreEqual()
{
    DBCRecord one;
    one.setValue(Key::memo, QStringLiteral("memo"));
    one.setValue(Key::company, QStringLiteral("company"));
    DBCRecord other;
    other.setValue(Key::company, QStringLiteral("company"));
    other.setValue(Key::memo, QStringLiteral("memo"));
    QVERIFY(one == other);

    other.removeValue(Key::memo);
    other.setValue(Key::department, QStringLiteral("memo"));
    QVERIFY(!(one == other));
}

void tst_record::namesStandInTheOrderOfTheKeys()
{
    QCOMPARE(recordKeyName(Key::zip_PostalCode), QStringLiteral("zip_PostalCode"));
    QCOMPARE(recordKeyName(Key::lineNo), QStringLiteral("lineNo"));
    QCOMPARE(recordKeyName(Key::back_Image_page), QStringLiteral("back_Image_page"));
    QCOMPARE(recordKeyName(Key::short_Cut), QStringLiteral("short_Cut"));
}

QTEST_APPLESS_MAIN(tst_record)
#include "tst_record.moc"
