// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCRecord.h"
#include "tests/support/RecordKeys.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

class tst_record : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void newRecordIsEmpty()
    {
        const DBCRecord record;
        QVERIFY(record.isEmpty());
        QCOMPARE(record.count(), std::size_t(0));
        QVERIFY(!record.contains(Key::memo));
        QVERIFY(!record.value(Key::memo));
    }

    // The test sets the keys from the last to the first, so that each value is inserted before all
    // others.
    void everyKeyHoldsItsOwnValue()
    {
        DBCRecord record;
        for (std::size_t i = DBCRecordKeyCount; i-- > 0;)
            record.setValue(static_cast<Key>(i), qint64(i) * 10);
        QCOMPARE(record.count(), DBCRecordKeyCount);
        for (std::size_t i = 0; i < DBCRecordKeyCount; ++i)
            QCOMPARE(std::get<qint64>(*record.value(static_cast<Key>(i))), qint64(i) * 10);
    }

    void valueIsReplaced()
    {
        DBCRecord record;
        record.setValue(Key::memo, u"old"_s);
        record.setValue(Key::company, u"company"_s);
        record.setValue(Key::memo, u"new"_s);
        QCOMPARE(record.count(), std::size_t(2));
        QCOMPARE(record.text(Key::memo), u"new"_s);
        QCOMPARE(record.text(Key::company), u"company"_s);
    }

    void removedValueIsGoneAndTheOthersStay()
    {
        DBCRecord record;
        record.setValue(Key::face_Image_File, u"first"_s);
        record.setValue(Key::memo, u"middle"_s);
        record.setValue(Key::flag2, u"last"_s);
        record.removeValue(Key::memo);
        QCOMPARE(record.count(), std::size_t(2));
        QVERIFY(!record.contains(Key::memo));
        QCOMPARE(record.text(Key::face_Image_File), u"first"_s);
        QCOMPARE(record.text(Key::flag2), u"last"_s);
    }

    void removingAnAbsentKeyChangesNothing()
    {
        DBCRecord record;
        record.setValue(Key::memo, u"memo"_s);
        const DBCRecord before = record;
        record.removeValue(Key::company);
        QVERIFY(record == before);
    }

    void textOfAnAbsentKeyIsNone()
    {
        const DBCRecord record;
        QVERIFY(!record.text(Key::memo));
        QCOMPARE(record.textOrEmpty(Key::memo), QString());
    }

    void textOfANumberOrDateIsNone()
    {
        DBCRecord record;
        record.setValue(Key::status, qint64(1));
        record.setValue(Key::register_Date, QDateTime::currentDateTime());
        QVERIFY(!record.text(Key::status));
        QVERIFY(!record.text(Key::register_Date));
        QCOMPARE(record.textOrEmpty(Key::status), QString());
    }

    void recordsWithTheSameValuesAreEqual()
    {
        DBCRecord one;
        one.setValue(Key::memo, u"memo"_s);
        one.setValue(Key::company, u"company"_s);
        DBCRecord other;
        other.setValue(Key::company, u"company"_s);
        other.setValue(Key::memo, u"memo"_s);
        QVERIFY(one == other);

        other.removeValue(Key::memo);
        other.setValue(Key::department, u"memo"_s);
        QVERIFY(!(one == other));
    }

    void namesStandInTheOrderOfTheKeys()
    {
        QCOMPARE(recordKeyName(Key::zip_PostalCode), u"zip_PostalCode"_s);
        QCOMPARE(recordKeyName(Key::lineNo), u"lineNo"_s);
        QCOMPARE(recordKeyName(Key::back_Image_page), u"back_Image_page"_s);
        QCOMPARE(recordKeyName(Key::short_Cut), u"short_Cut"_s);
    }
};

QTEST_APPLESS_MAIN(tst_record)
#include "tst_record.moc"
