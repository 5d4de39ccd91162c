// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file writer: the lines that it makes from records.
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/datafile/WriterFixture.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/ScopedTimeZone.h"

#include <QTimeZone>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_fileWriterLines : public QObject, private WriterFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void lineHoldsTheColumnsInTheirOrder()
    {
        const QList<DBCRecordKey> order {DBCRecordKey::face_Image_File,
            DBCRecordKey::back_Image_File, DBCRecordKey::attachmentFile, DBCRecordKey::full_Name,
            DBCRecordKey::full_Name_Kana, DBCRecordKey::company, DBCRecordKey::company_Kana,
            DBCRecordKey::department, DBCRecordKey::job_Title, DBCRecordKey::zip_PostalCode,
            DBCRecordKey::state, DBCRecordKey::city, DBCRecordKey::street, DBCRecordKey::address,
            DBCRecordKey::telephone_Number, DBCRecordKey::fax_Number, DBCRecordKey::mobile_Number,
            DBCRecordKey::e_Mail, DBCRecordKey::web_Page_Address, DBCRecordKey::memo,
            DBCRecordKey::register_Date};
        DBCRecord record;
        for (qsizetype i = order.size(); i-- > 0;)
            record.setValue(order[i], u"value %1"_s.arg(i + 1));

        dataFileWriter()->write(record);

        QStringList expected;
        for (int i = 1; i <= 21; ++i)
            expected << u"value %1"_s.arg(i);
        QCOMPARE(written(), littleEndianWithMark(expected.join(u'\t') + u"\r\n"_s));
    }

    void titleLineIsWrittenInTableOrder()
    {
        const auto writer = dataFileWriter();
        DBCRecord titles;
        for (auto i = writer->mappingTitleDic().begin(); i != writer->mappingTitleDic().end(); ++i)
            titles.setValue(i.key(), i.value());
        const QStringList items = writer->createDataStrWith(titles).value().chopped(2).split(u'\t');
        QCOMPARE(items.size(), 21);
        QCOMPARE(items[0], getLocalString(u"IDS_CSV_TITLE_IMG_FACE"_s));
        QCOMPARE(items[3], getLocalString(u"IDS_CSV_TITLE_FULL_NAME"_s));
        QCOMPARE(items[20], getLocalString(u"IDS_CSV_TITLE_ENTRY_DATE"_s));
    }

    void furtherKeysAreIgnored()
    {
        DBCRecord record = emptyRecord();
        const auto writer = dataFileWriter();
        const QString line = writer->createDataStrWith(record).value();
        record.setValue(DBCRecordKey::cardID, u"id"_s);
        record.setValue(DBCRecordKey::recordNo, u"2"_s);
        QCOMPARE(writer->createDataStrWith(record).value(), line);
    }

    void recordWithoutAColumnIsNotWritten_data()
    {
        QTest::addColumn<DBCRecordKey>("key");
        for (const DBCColumn& column : DBCColumns)
            QTest::newRow(qPrintable(recordKeyName(column.key))) << column.key;
    }
    void recordWithoutAColumnIsNotWritten()
    {
        QFETCH(DBCRecordKey, key);
        DBCRecord record = emptyRecord();
        record.removeValue(key);
        const auto writer = dataFileWriter();
        QVERIFY(!writer->validateItemRequired(record));
        QVERIFY(!writer->createDataStrWith(record));
        QCOMPARE(writer->write(record), DBCResultCode::DataFileWriteFailure);
    }

    void recordWithoutFaxLeavesTheFileUnchanged()
    {
        const auto writer = dataFileWriter();
        writer->write(emptyRecord());
        const QByteArray before = written();
        DBCRecord record = emptyRecord();
        record.removeValue(DBCRecordKey::fax_Number);
        QCOMPARE(writer->write(record), DBCResultCode::DataFileWriteFailure);
        QCOMPARE(written(), before);
    }

    void valueIsCleaned_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("item");
        const auto row = [](const char* name, const char16_t* value, const char16_t* item) {
            QTest::newRow(name) << QString::fromUtf16(value) << QString::fromUtf16(item);
        };
        row("line break becomes one space, tab vanishes", u"one\r\ntwo th\tree", u"one two three");
        row("two spaces only", u"  ", u"");
        row("every blank at the ends", u"\t \u3000\r\n\u0085\u2028x\u2028\u0085\n\r\u3000 \t",
            u"x");
        row("blanks inside stay", u"a  \u3000b", u"a  \u3000b");
        row("line feed", u"a\nb", u"a b");
        row("two line feeds", u"a\n\nb", u"a  b");
        row("line separator", u"a\u2028b", u"a b");
        row("lone carriage return stays inside", u"a\rb", u"a\rb");
        row("next line stays inside", u"a\u0085b", u"a\u0085b");
        row("paragraph separator stays everywhere", u"\u2029a\u2029b\u2029",
            u"\u2029a\u2029b\u2029");
        row("tab between carriage return and line feed", u"a\r\t\nb", u"a b");
        row("no-break space stays at the ends", u"\u00A0a\u00A0", u"\u00A0a\u00A0");
        row("half-width katakana stays", u"ｶﾞ", u"ｶﾞ");
    }
    void valueIsCleaned()
    {
        QFETCH(QString, value);
        QTEST(writtenItem(DBCRecordKey::company, value), "item");
    }

    void registerDateGivenAsDate()
    {
        const QDateTime date(QDate(2009, 3, 5), QTime(0, 0));
        QCOMPARE(writtenItem(DBCRecordKey::register_Date, date), u"2009/03/05"_s);
    }

    void registerDateGivenInAnotherTimeZoneIsLocal()
    {
        const QDateTime evening(QDate(2009, 3, 4), QTime(15, 30), QTimeZone::utc());
        {
            const ScopedTimeZone tokyo("JST-9");
            QCOMPARE(writtenItem(DBCRecordKey::register_Date, evening), u"2009/03/05"_s);
        }
        const ScopedTimeZone newYork("EST5");
        QCOMPARE(writtenItem(DBCRecordKey::register_Date, evening.toOffsetFromUtc(14 * 3600)),
            u"2009/03/04"_s);
    }

    void registerDateGivenAsText()
    {
        QCOMPARE(writtenItem(DBCRecordKey::register_Date, u"2009/3/5 "_s), u"2009/3/5"_s);
    }

    void dateInAnotherColumnGivesAnEmptyItem()
    {
        QCOMPARE(writtenItem(DBCRecordKey::memo, QDateTime::currentDateTime()), u""_s);
    }

    void numberGivesAnEmptyItem()
    {
        QCOMPARE(writtenItem(DBCRecordKey::memo, qint64(5)), u""_s);
        QCOMPARE(writtenItem(DBCRecordKey::register_Date, qint64(5)), u""_s);
    }

    void listedTextsAreDeletedInOrder()
    {
        QCOMPARE(DBCFileWriter::deleteSpecialCharater({u"b"_s, u"ac"_s}, u"abcxabc"_s), u"x"_s);
        QCOMPARE(DBCFileWriter::deleteSpecialCharater({}, u"a"_s), u""_s);
        QCOMPARE(DBCFileWriter::deleteSpecialCharater({u"a"_s}, std::nullopt), u""_s);
    }

    void listedTextsAreReplacedInOrder()
    {
        QCOMPARE(DBCFileWriter::replaceSpecialChars({u"a"_s, u"bb"_s}, u"b"_s, u"Aba"_s), u"bb"_s);
    }

    void replacingWithoutListOrTextsGivesNothing()
    {
        const QString text = u"a"_s;
        QCOMPARE(DBCFileWriter::replaceSpecialChars({}, text, text), u""_s);
        QCOMPARE(DBCFileWriter::replaceSpecialChars({text}, std::nullopt, text), u""_s);
        QCOMPARE(DBCFileWriter::replaceSpecialChars({text}, text, std::nullopt), u""_s);
    }

private:
    // Writes a record with this one value as a line, and returns the text in the key's column.
    QString writtenItem(DBCRecordKey key, const DBCValue& value) const
    {
        DBCRecord record = emptyRecord();
        record.setValue(key, value);
        const QString line = dataFileWriter()->createDataStrWith(record).value();
        if (!line.endsWith(u"\r\n"_s))
            return u"line end missing"_s;
        const QStringList items = line.chopped(2).split(u'\t');
        return items.size() == 21 ? items.at(qsizetype(key)) : u"wrong item count"_s;
    }
};

QTEST_GUILESS_MAIN(tst_fileWriterLines)
#include "tst_fileWriterLines.moc"
