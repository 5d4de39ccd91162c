// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the file reader: warnings about items that are longer than the card application allows.
#include "tests/datafile/ReaderFixture.h"
#include "tests/support/RecordKeys.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

class tst_fileReaderLengths : public QObject, private ReaderFixture {
    Q_OBJECT
private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void overlongItemIsWarnedAboutAndKept_data()
    {
        QTest::addColumn<Key>("key");
        QTest::addColumn<int>("limit");
        const auto row = [](Key key, int limit) {
            QTest::newRow(qPrintable(recordKeyName(key))) << key << limit;
        };
        row(Key::full_Name, 64);
        row(Key::full_Name_Kana, 64);
        row(Key::company, 128);
        row(Key::company_Kana, 128);
        row(Key::department, 128);
        row(Key::job_Title, 128);
        row(Key::zip_PostalCode, 32);
        row(Key::telephone_Number, 32);
        row(Key::fax_Number, 32);
        row(Key::mobile_Number, 32);
        row(Key::e_Mail, 128);
        row(Key::web_Page_Address, 128);
        row(Key::memo, 256);
    }
    void overlongItemIsWarnedAboutAndKept()
    {
        QFETCH(Key, key);
        QFETCH(int, limit);
        const QString tooLong(limit + 1, u'x');
        const DataFileBuilder::Items fitting {{key, QString(limit, u'x')}};
        const DataFileBuilder::Items overlong {{key, tooLong}, {Key::full_Name, u"星野 太郎"_s}};
        const auto records = load(fileWithTitle().row(fitting).row(overlong));
        QVERIFY(!_error);
        QCOMPARE(records->size(), std::size_t(2));
        QCOMPARE(text(records->at(1), key), tooLong);
        QCOMPARE(warnings().size(), 1);
        QVERIFY(warnings().first().contains(DataFileBuilder::titles().at(qsizetype(key))));
        QVERIFY(warnings().first().contains(text(records->at(1), Key::full_Name)));
        QVERIFY(warnings().first().contains(u"Line 3 "_s));
    }

    void itemsWithinTheirLengthsGiveNoWarning()
    {
        load(fileWithTitle().row(21).row({{Key::face_Image_File, QString(1000, u'x')},
            {Key::back_Image_File, QString(1000, u'x')}, {Key::attachmentFile, QString(1000, u'x')},
            {Key::register_Date, QString(1000, u'x')}}));
        QVERIFY(!_error);
        QCOMPARE(warnings().size(), 0);
    }

    void overlongMemoIsImportedWholeWithOneWarning()
    {
        const auto records = load(fileWithTitle().row({{Key::memo, QString(257, u'長')}}));
        QVERIFY(!_error);
        QCOMPARE(text(records->front(), Key::memo), QString(257, u'長'));
        QCOMPARE(warnings().size(), 1);
    }

    void addressItemsAreCheckedAsOneText_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("city");
        QTest::addColumn<int>("street");
        QTest::addColumn<int>("address");
        QTest::addColumn<int>("warningCount");
        QTest::newRow("two line feeds make 128") << 40 << 40 << 46 << 0 << 0;
        QTest::newRow("two line feeds make 129") << 40 << 40 << 47 << 0 << 1;
        QTest::newRow("state alone of 128") << 128 << 0 << 0 << 0 << 0;
        QTest::newRow("state alone of 129") << 129 << 0 << 0 << 0 << 1;
        QTest::newRow("street alone behind two line feeds") << 0 << 0 << 127 << 0 << 1;
        QTest::newRow("address alone behind two line feeds") << 0 << 0 << 0 << 127 << 1;
        QTest::newRow("address alone of 126") << 0 << 0 << 0 << 126 << 0;
        QTest::newRow("long address is not used beside a city") << 0 << 1 << 0 << 500 << 0;
        QTest::newRow("nothing") << 0 << 0 << 0 << 0 << 0;
    }
    void addressItemsAreCheckedAsOneText()
    {
        QFETCH(int, state);
        QFETCH(int, city);
        QFETCH(int, street);
        QFETCH(int, address);
        QFETCH(int, warningCount);
        load(fileWithTitle().row({{Key::full_Name, u"name"_s}, {Key::state, QString(state, u's')},
            {Key::city, QString(city, u'c')}, {Key::street, QString(street, u't')},
            {Key::address, QString(address, u'a')}}));
        QCOMPARE(warnings().size(), warningCount);
        if (warningCount == 0)
            return;
        const QStringList titles = DataFileBuilder::titles();
        const QString label
            = titles[10] + u'+' + titles[11] + u'+' + titles[12] + u'/' + titles[13];
        QVERIFY(warnings().first().contains(label));
    }

    void overlongItemsAreWarnedAboutInColumnOrder()
    {
        const QString tooLong(300, u'x');
        DataFileBuilder::Items items;
        for (int i = 0; i < 21; ++i)
            items.emplace_back(static_cast<Key>(i), tooLong);
        load(fileWithTitle().row(items));

        const QStringList titles = DataFileBuilder::titles();
        QStringList expected = titles.sliced(3, 7);
        expected << titles[10] + u'+' + titles[11] + u'+' + titles[12] + u'/' + titles[13];
        expected << titles.sliced(14, 6);
        const QStringList found = warnings();
        QCOMPARE(found.size(), expected.size());
        for (qsizetype i = 0; i < found.size(); ++i)
            QVERIFY2(found[i].contains(expected[i]), qPrintable(found[i]));
    }
};

QTEST_GUILESS_MAIN(tst_fileReaderLengths)
#include "tst_fileReaderLengths.moc"
