// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/records/DBCColumns.h"

#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCFileWriter.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/TestHome.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_columns : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void column_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("titleKey");
        QTest::addColumn<QString>("recordKey");
        QTest::addColumn<qsizetype>("maxLength");
        const auto row = [](int position, const char* titleKey, const char* recordKey,
                             int maxLength) {
            QTest::newRow(recordKey) << position << QString::fromLatin1(titleKey)
                                     << QString::fromLatin1(recordKey) << qsizetype(maxLength);
        };
        row(1, "IDS_CSV_TITLE_IMG_FACE", "face_Image_File", 0);
        row(2, "IDS_CSV_TITLE_IMG_BACK", "back_Image_File", 0);
        row(3, "IDS_CSV_TITLE_ATT_FILE", "attachmentFile", 0);
        row(4, "IDS_CSV_TITLE_FULL_NAME", "full_Name", 64);
        row(5, "IDS_CSV_TITLE_FULL_NAME_S", "full_Name_Kana", 64);
        row(6, "IDS_CSV_TITLE_OFFICE_NAME", "company", 128);
        row(7, "IDS_CSV_TITLE_OFFICE_NAME_S", "company_Kana", 128);
        row(8, "IDS_CSV_TITLE_DEPARTMENT", "department", 128);
        row(9, "IDS_CSV_TITLE_JOB_TITLE", "job_Title", 128);
        row(10, "IDS_CSV_TITLE_OFFICE_POST", "zip_PostalCode", 32);
        row(11, "IDS_CSV_TITLE_OFFICE_ADDRESS_STATE", "state", 128);
        row(12, "IDS_CSV_TITLE_OFFICE_ADDRESS_CITY", "city", 128);
        row(13, "IDS_CSV_TITLE_OFFICE_ADDRESS_STREET", "street", 128);
        row(14, "IDS_CSV_TITLE_OFFICE_ADDRESS", "address", 128);
        row(15, "IDS_CSV_TITLE_OFFICE_PHONE", "telephone_Number", 32);
        row(16, "IDS_CSV_TITLE_OFFICE_FAX", "fax_Number", 32);
        row(17, "IDS_CSV_TITLE_OFFICE_MOBILE_PHONE", "mobile_Number", 32);
        row(18, "IDS_CSV_TITLE_OFFICE_E_MAIL", "e_Mail", 128);
        row(19, "IDS_CSV_TITLE_OFFICE_WEB", "web_Page_Address", 128);
        row(20, "IDS_CSV_TITLE_MEMO1", "memo", 256);
        row(21, "IDS_CSV_TITLE_ENTRY_DATE", "register_Date", 0);
    }
    void column()
    {
        const TestHome home;
        QFETCH(int, position);
        QFETCH(QString, titleKey);
        QFETCH(QString, recordKey);
        QFETCH(qsizetype, maxLength);
        const QString title = getLocalString(titleKey);
        QVERIFY(title != titleKey);

        QCOMPARE(DBCCommonFunction::createTitleNamesForDataFile().at(position - 1), title);
        const auto keys = DBCCommonFunction::createRecordKeyNamesForDataFile();
        QCOMPARE(recordKeyName(keys.at(std::size_t(position - 1))), recordKey);
        const auto reader = DBCFileReader::initWithFullFileName(u"unused"_s);
        QCOMPARE(reader->mappingItemMaxLengthDic().value(title, -1), maxLength);
    }

    void thereAre21ColumnsWithTitlesOfTheirOwn()
    {
        const TestHome home;
        const QStringList titles = DBCCommonFunction::createTitleNamesForDataFile();
        QCOMPARE(titles.size(), 21);
        QCOMPARE(QSet<QString>(titles.begin(), titles.end()).size(), 21);
        QCOMPARE(DBCCommonFunction::createRecordKeyNamesForDataFile().size(), std::size_t(21));
    }

    // An import in one language must be able to read a folder that was exported in the other
    // language.
    void titlesAreTheSameInBothLanguages()
    {
        const TestHome home;
        DBCLocalizable::setLanguage(DBCLocalizable::Language::English);
        const QStringList english = DBCCommonFunction::createTitleNamesForDataFile();
        DBCLocalizable::setLanguage(DBCLocalizable::Language::Japanese);
        QCOMPARE(DBCCommonFunction::createTitleNamesForDataFile(), english);
    }

    void readerAndWriterAgreeOnTitlesAndKeys()
    {
        const TestHome home;
        const auto writer = DBCFileWriter::initWithFileName(
            home.path(u"data.txt"_s), DBCTextEncoding::Utf16, u"\r\n"_s);
        DBCRecord titles;
        DBCRecord values;
        for (auto i = writer->mappingTitleDic().begin(); i != writer->mappingTitleDic().end();
             ++i) {
            titles.setValue(i.key(), i.value());
            values.setValue(i.key(), recordKeyName(i.key()));
        }
        writer->write(titles);
        writer->write(values);
        writer->close();

        DBCError error;
        const auto records
            = DBCFileReader::initWithFullFileName(home.path(u"data.txt"_s))->loadData(&error);
        QVERIFY(!error);
        QCOMPARE(records->size(), std::size_t(1));
        for (const DBCColumn& column : DBCColumns)
            QCOMPARE(records->front().text(column.key), recordKeyName(column.key));
    }
};

QTEST_GUILESS_MAIN(tst_columns)
#include "tst_columns.moc"
