// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCInterchangeNames.h"

#include "datafile/helpers/DBCLocalizable.h"

#include <QTest>

namespace Names = DBCInterchangeNames;

class tst_interchangeNames : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void namesAreTheSameInEveryLanguage_data();
    void namesAreTheSameInEveryLanguage();
    void pathsInsideTheFolder();
    void imageNamesEndInTheSideOfTheCard();
    void versionLine();
};

void tst_interchangeNames::namesAreTheSameInEveryLanguage_data()
{
    QTest::addColumn<DBCLocalizable::Language>("language");
    QTest::newRow("English") << DBCLocalizable::Language::English;
    QTest::newRow("Japanese") << DBCLocalizable::Language::Japanese;
}

void tst_interchangeNames::namesAreTheSameInEveryLanguage()
{
    QFETCH(DBCLocalizable::Language, language);
    DBCLocalizable::setLanguage(language);
    QCOMPARE(Names::rootFolderName(), QStringLiteral("名刺データ"));
    QCOMPARE(Names::dataFileName(), QStringLiteral("名刺データ.txt"));
    QCOMPARE(Names::imageFolderName(), QStringLiteral("名刺画像"));
    QCOMPARE(Names::attachmentFolderName(), QStringLiteral("添付ファイル"));
}

void tst_interchangeNames::pathsInsideTheFolder()
{
    const QString folder = QStringLiteral("/data/cards");
    QCOMPARE(Names::dataFile(folder), QStringLiteral("/data/cards/名刺データ.txt"));
    QCOMPARE(Names::imageFolder(folder), QStringLiteral("/data/cards/名刺画像"));
    QCOMPARE(Names::attachmentFolder(folder), QStringLiteral("/data/cards/添付ファイル"));
    QCOMPARE(Names::versionFile(folder), QStringLiteral("/data/cards/Version.txt"));
}

void tst_interchangeNames::imageNamesEndInTheSideOfTheCard()
{
    QCOMPARE(Names::faceImageName(QStringLiteral("12")), QStringLiteral("12_N1.jpg"));
    QCOMPARE(Names::backImageName(QStringLiteral("12")), QStringLiteral("12_N2.jpg"));
}

void tst_interchangeNames::versionLine()
{
    QCOMPARE(QString::fromUtf16(Names::productCode), QStringLiteral("TELKA"));
    QCOMPARE(QString::fromUtf16(Names::productVersion), QStringLiteral("V1.0L10"));
}

QTEST_GUILESS_MAIN(tst_interchangeNames)
#include "tst_interchangeNames.moc"
