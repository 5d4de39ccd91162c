// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/DBCPathChecks.h"
#include "system/DBCPathNames.h"

#include "tests/support/TestHome.h"

#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_pathNames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void restBelowAFolder_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("rest"); // null if the path is not below the folder
        QTest::newRow("inside") << u"/a"_s << u"/a/b"_s << u"b"_s;
        QTest::newRow("deep inside") << u"/a"_s << u"/a/b/c"_s << u"b/c"_s;
        QTest::newRow("slash behind the folder") << u"/a/"_s << u"/a/b"_s << u"b"_s;
        QTest::newRow("root") << u"/"_s << u"/b"_s << u"b"_s;
        QTest::newRow("the folder itself") << u"/a"_s << u"/a"_s << QString();
        QTest::newRow("longer name") << u"/a"_s << u"/ab/c"_s << QString();
        QTest::newRow("the other way round") << u"/a/b"_s << u"/a"_s << QString();
    }
    void restBelowAFolder()
    {
        QFETCH(QString, folder);
        QFETCH(QString, path);
        QTEST(pathBelow(folder, path).value_or(QString()), "rest");
    }

    void folderWithASlashBehindItHasAnEmptyRest()
    {
        QVERIFY(pathBelow(u"/a"_s, u"/a/"_s).has_value());
        QVERIFY(!pathBelow(u"/a"_s, u"/a"_s).has_value());
    }

    void nativePathKeepsJapaneseNames()
    {
        QCOMPARE(nativePath(u"/名刺.vmdb"_s).string(), std::string("/名刺.vmdb"));
    }

    void linksAreResolvedBeforePathsAreCompared()
    {
        TestHome home;
        const QString folder = home.makeFolder(u"folder"_s);
        const QString inner = home.makeFolder(u"folder/inner"_s);
        const QString beside = home.makeFolder(u"folder beside"_s);
        const QString linkIn = home.path(u"link in"_s);
        const QString linkOut = folder + u"/link out"_s;
        QVERIFY(QFile::link(inner, linkIn));
        QVERIFY(QFile::link(beside, linkOut));

        QVERIFY(isSameOrInside(folder, folder));
        QVERIFY(isSameOrInside(folder, folder + u'/'));
        QVERIFY(isSameOrInside(folder, inner));
        QVERIFY(isSameOrInside(folder, linkIn));
        QVERIFY(isSameOrInside(linkIn, inner));
        QVERIFY(isSameOrInside(u"/"_s, folder));
        QVERIFY(!isSameOrInside(folder, linkOut));
        QVERIFY(!isSameOrInside(folder, beside));
        QVERIFY(!isSameOrInside(inner, folder));
    }

    void missingPathsAreInsideNothing()
    {
        TestHome home;
        const QString folder = home.makeFolder(u"folder"_s);
        QVERIFY(!isSameOrInside(folder, folder + u"/none"_s));
        QVERIFY(!isSameOrInside(folder + u"/none"_s, folder));
        QVERIFY(!isSameOrInside(folder + u"/none"_s, folder + u"/none"_s));
    }

    void linkToAFolderIsNoFolder()
    {
        TestHome home;
        const QString folder = home.makeFolder(u"folder"_s);
        const QString link = home.path(u"link"_s);
        QVERIFY(QFile::link(folder, link));
        QVERIFY(isFolderNotLink(folder));
        QVERIFY(!isFolderNotLink(link));
        QVERIFY(!isFolderNotLink(home.writeFile(u"file"_s, "x")));
        QVERIFY(!isFolderNotLink(home.path(u"none"_s)));
        QVERIFY(!isFolderNotLink({}));
    }
};

QTEST_GUILESS_MAIN(tst_pathNames)
#include "tst_pathNames.moc"
