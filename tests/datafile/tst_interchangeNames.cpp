// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCInterchangeNames.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace Names = DBCInterchangeNames;

class tst_interchangeNames : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesAreTheSameInEveryLanguage_data()
    {
        QTest::addColumn<DBCLocalizable::Language>("language");
        QTest::newRow("English") << DBCLocalizable::Language::English;
        QTest::newRow("Japanese") << DBCLocalizable::Language::Japanese;
    }
    void namesAreTheSameInEveryLanguage()
    {
        QFETCH(DBCLocalizable::Language, language);
        DBCLocalizable::setLanguage(language);
        QCOMPARE(Names::rootFolderName(), u"名刺データ"_s);
        QCOMPARE(Names::dataFileName(), u"名刺データ.txt"_s);
        QCOMPARE(Names::imageFolderName(), u"名刺画像"_s);
        QCOMPARE(Names::attachmentFolderName(), u"添付ファイル"_s);
    }

    void exportFolderIsInItsParent()
    {
        QCOMPARE(Names::exportFolder(u"/data"_s), u"/data/名刺データ"_s);
        QCOMPARE(Names::exportFolder(u"/data/"_s), u"/data/名刺データ"_s);
        QCOMPARE(Names::exportFolder(u"/"_s), u"/名刺データ"_s);
        QCOMPARE(Names::exportFolder({}), u"名刺データ"_s);
    }

    void pathsInsideTheFolder()
    {
        const QString folder = u"/data/cards"_s;
        QCOMPARE(Names::dataFile(folder), u"/data/cards/名刺データ.txt"_s);
        QCOMPARE(Names::imageFolder(folder), u"/data/cards/名刺画像"_s);
        QCOMPARE(Names::attachmentFolder(folder), u"/data/cards/添付ファイル"_s);
        QCOMPARE(Names::versionFile(folder), u"/data/cards/Version.txt"_s);
    }

    void imageNamesEndInTheSideOfTheCard()
    {
        QCOMPARE(Names::faceImageName(u"12"_s), u"12_N1.jpg"_s);
        QCOMPARE(Names::backImageName(u"12"_s), u"12_N2.jpg"_s);
    }

    void versionLine()
    {
        QCOMPARE(QString::fromUtf16(Names::productCode), u"TELKA"_s);
        QCOMPARE(QString::fromUtf16(Names::productVersion), u"V1.0L10"_s);
    }
};

QTEST_GUILESS_MAIN(tst_interchangeNames)
#include "tst_interchangeNames.moc"
