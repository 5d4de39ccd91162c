// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/log/DBCPropertyList.h"

#include "tests/support/TestHome.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray xml(const QByteArray& body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + body
        + "</plist>\n";
}

// Returns {"DB path": "/Users/田中/Velmora DB.vmdb", "Log Level": 2, "ratio": 0.5, "on": true,
// "list": [1]} as another program writes it.
QByteArray binaryDictionary()
{
    return QByteArray::fromHex(
        "62706c6973743030d501020304050607080a0b5744422070617468594c6f67204c6576656c546c69737452"
        "6f6e55726174696f6f1019002f00550073006500720073002f75304e2d002f00560065006c006d006f0072"
        "0061002000440042002e0076006d006400621002a109100109233fe000000000000008131b252a2d33686a"
        "6c6e6f0000000000000101000000000000000c00000000000000000000000000000078");
}

// Returns a dictionary whose value "a" is a list that contains itself.
QByteArray cyclicBinary()
{
    return QByteArray::fromHex("62706c6973743030"
                               "d10102"
                               "5161"
                               "a102"
                               "080b0d"
                               "000000000000"
                               "0101"
                               "0000000000000003"
                               "0000000000000000"
                               "000000000000000f");
}

} // namespace

class tst_propertyList : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void readsXml()
    {
        const auto list
            = read(xml("<dict><key>DB path</key><string>/名刺 &amp; co</string><key>n</key>"
                       "<integer>-3</integer><key>r</key><real>0.25</real><key>t</key><true/>"
                       "<key>f</key><false/></dict>"));
        QVERIFY(list);
        QCOMPARE(*list,
            (QVariantMap {{u"DB path"_s, u"/名刺 & co"_s}, {u"n"_s, qlonglong {-3}}, {u"r"_s, 0.25},
                {u"t"_s, true}, {u"f"_s, false}}));
    }

    void readsBinary()
    {
        const auto list = read(binaryDictionary());
        QVERIFY(list);
        QCOMPARE(*list,
            (QVariantMap {{u"DB path"_s, u"/Users/田中/Velmora DB.vmdb"_s},
                {u"Log Level"_s, qlonglong {2}}, {u"ratio"_s, 0.5}, {u"on"_s, true}}));
    }

    void leavesOutEntriesOfOtherKinds()
    {
        const auto list = read(xml("<dict><key>a</key><array><integer>1</integer></array>"
                                   "<key>d</key><dict/><key>x</key><data>AAAA</data>"
                                   "<key>t</key><date>2009-05-14T00:00:00Z</date>"
                                   "<key>s</key><string>kept</string></dict>"));
        QVERIFY(list);
        QCOMPARE(*list, (QVariantMap {{u"s"_s, u"kept"_s}}));
    }

    void emptyDictionary()
    {
        const auto list = read(xml("<dict/>"));
        QVERIFY(list);
        QVERIFY(list->isEmpty());
    }

    void noDictionary_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("DB path=/x\n");
        QTest::newRow("zeros") << QByteArray(100, '\0');
        QTest::newRow("other XML") << QByteArray("<html><body/></html>");
        QTest::newRow("nothing inside") << xml("");
        QTest::newRow("a list") << xml("<array><string>x</string></array>");
        QTest::newRow("a text") << xml("<string>x</string>");
        QTest::newRow("unclosed") << QByteArray("<plist version=\"1.0\"><dict><key>a</key>");
        QTest::newRow("binary mark alone") << QByteArray("bplist00");
        QTest::newRow("UTF-16") << QByteArray("\xFF\xFE<\0p\0", 6);
    }
    void noDictionary()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!read(bytes));
    }

    void everyTruncationEndsWell()
    {
        const QByteArray whole = binaryDictionary();
        for (qsizetype length = 0; length < whole.size(); ++length)
            QVERIFY2(!read(whole.first(length)), qPrintable(QString::number(length)));
    }

    void cycleEndsWell()
    {
        const auto list = read(cyclicBinary());
        QVERIFY(!list || list->isEmpty());
    }

    void listThatUnfoldsWithoutEndIsNone()
    {
        // The dictionary's value "a" is the first of 30 lists. Each list contains the next one
        // twice, so a reader that follows them all would never end.
        QByteArray parts("\xD1\x01\x02\x51\x61");
        QByteArray offsets("\x08\x0B");
        constexpr char lists = 30;
        for (char number = 2; number < 2 + lists; ++number) {
            offsets += static_cast<char>(8 + parts.size());
            const char next = static_cast<char>(number + 1);
            parts += "\xA2" + QByteArray(2, next);
        }
        offsets += static_cast<char>(8 + parts.size());
        parts += '\x09';
        const auto tableAt = static_cast<char>(8 + parts.size());
        const QByteArray trailer = QByteArray(6, '\0') + "\x01\x01" + QByteArray(7, '\0')
            + static_cast<char>(lists + 3) + QByteArray(15, '\0') + tableAt;
        QVERIFY(!read("bplist00" + parts + offsets + trailer));
    }

    void zeroByteIsPartOfAText()
    {
        const auto list
            = read(xml("<dict><key>a</key><string>b" + QByteArray(1, '\0') + "c</string></dict>"));
        QVERIFY(!list || list->value(u"a"_s).toString().startsWith(u'b'));
    }

    void deepNestingEndsWell()
    {
        const auto list = read(xml("<dict><key>a</key>" + QByteArray("<array>").repeated(15000)
            + QByteArray("</array>").repeated(15000) + "</dict>"));
        QVERIFY(!list || list->isEmpty());
    }

    void fileOfTheLargestSizeIsRead()
    {
        const QByteArray start = xml("<dict><key>a</key><true/></dict>");
        QVERIFY(read(start + QByteArray(262144 - start.size(), '\n')));
    }

    void fileBeyondTheLargestSizeIsNotRead()
    {
        const QByteArray start = xml("<dict><key>a</key><true/></dict>");
        QVERIFY(!read(start + QByteArray(262145 - start.size(), '\n')));
    }

    void missingFileFolderAndPipeAreNone()
    {
        QVERIFY(!DBCPropertyList::read(QString()));
        QVERIFY(!DBCPropertyList::read(_home->path(u"missing.plist"_s)));
        QVERIFY(!DBCPropertyList::read(_home->path()));
        const QString pipe = _home->path(u"pipe.plist"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!DBCPropertyList::read(pipe));
    }

private:
    std::optional<QVariantMap> read(const QByteArray& bytes) const
    {
        return DBCPropertyList::read(_home->writeFile(u"list.plist"_s, bytes));
    }

    std::optional<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_propertyList)
#include "tst_propertyList.moc"
