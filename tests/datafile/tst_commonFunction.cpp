// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "datafile/records/DBCRecord.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

using Common = DBCCommonFunction;

namespace {

struct Animal {
    virtual ~Animal() = default;
};
struct Dog : Animal { };
struct Cat : Animal { };

} // namespace

class tst_commonFunction : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { _home.emplace(); }
    void cleanup() { _home.reset(); }

    void titlesStandInColumnOrder();
    void recordKeysStandInColumnOrder();

    void cleanTempFileRemovesAFile();
    void cleanTempFileLeavesAFolderInPlace();
    void cleanTempFileLeavesALinkToAFolder();
    void cleanTempFileOfNothingFails();
    void cleanTempFileRemovesALinkAndNotItsTarget();

    void makeDirectoryMakesThreeNestedFolders();
    void makeDirectoryOfNothingIsDone();
    void makeDirectoryOfAnExistingFolderIsDone();
    void makeDirectoryBelowAFileFails();
    void makeDirectoryWhereAFileStandsFails();
    void makeDirectoryTakesDoubledAndFinalSlashes();
    void makeDirectoryWalksRelativePaths();
    void makeDirectoryFollowsALinkToAFolder();

    void formatValueOfNoneIsEmptyAndNotNull();
    void formatValueWidensKatakanaAndCuts();

    void systemVersionFallsBackTo0x1050();
    void systemVersionIsWhatTheMachineSays();
    void isKindOfClassKnowsDerivedClasses();

private:
    std::optional<TestHome> _home;
};

void tst_commonFunction::titlesStandInColumnOrder()
{
    QCOMPARE(Common::createTitleNamesForDataFile().join(u' '),
        QStringLiteral("名刺画像(表) 名刺画像(裏) 添付ファイル 氏名 氏名(フリガナ) 会社名 "
                       "会社名(フリガナ) 部署 役職 郵便番号 都道府県 市区町村 町名・番地 住所 "
                       "電話番号 FAX番号 携帯電話番号 メールアドレス Webページ メモ 登録日"));
}

void tst_commonFunction::recordKeysStandInColumnOrder()
{
    QStringList names;
    for (const DBCRecordKey key : Common::createRecordKeyNamesForDataFile())
        names << recordKeyName(key);
    QCOMPARE(names.join(u' '),
        QStringLiteral("face_Image_File back_Image_File attachmentFile full_Name full_Name_Kana "
                       "company company_Kana department job_Title zip_PostalCode state city street "
                       "address telephone_Number fax_Number mobile_Number e_Mail web_Page_Address "
                       "memo register_Date"));
}

void tst_commonFunction::cleanTempFileRemovesAFile()
{
    const QString path = _home->writeFile(QStringLiteral("file"), "x");
    QVERIFY(Common::cleanTempFile(path));
    QVERIFY(!QFileInfo::exists(path));
}

void tst_commonFunction::cleanTempFileLeavesAFolderInPlace()
{
    const QString folder = _home->makeFolder(QStringLiteral("folder"));
    QVERIFY(!Common::cleanTempFile(folder));
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_commonFunction::cleanTempFileLeavesALinkToAFolder()
{
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(_home->makeFolder(QStringLiteral("folder")), link));
    QVERIFY(!Common::cleanTempFile(link));
    QVERIFY(QFileInfo(link).isSymLink());
}

void tst_commonFunction::cleanTempFileOfNothingFails()
{
    QVERIFY(!Common::cleanTempFile(QString()));
    QVERIFY(!Common::cleanTempFile(_home->path(QStringLiteral("missing"))));
}

void tst_commonFunction::cleanTempFileRemovesALinkAndNotItsTarget()
{
    const QString target = _home->writeFile(QStringLiteral("target"), "kept");
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(target, link));
    QVERIFY(Common::cleanTempFile(link));
    QVERIFY(!QFileInfo(link).isSymLink());
    QCOMPARE(_home->readFile(QStringLiteral("target")), QByteArray("kept"));
}

void tst_commonFunction::makeDirectoryMakesThreeNestedFolders()
{
    QVERIFY(Common::makeDirectory(_home->path(QStringLiteral("a/b/名刺"))));
    QVERIFY(QFileInfo(_home->path(QStringLiteral("a/b/名刺"))).isDir());
}

void tst_commonFunction::makeDirectoryOfNothingIsDone()
{
    QVERIFY(Common::makeDirectory(QString()));
}

void tst_commonFunction::makeDirectoryOfAnExistingFolderIsDone()
{
    QVERIFY(Common::makeDirectory(_home->path()));
    QVERIFY(Common::makeDirectory(QStringLiteral("/")));
}

void tst_commonFunction::makeDirectoryBelowAFileFails()
{
    const QString file = _home->writeFile(QStringLiteral("file"), "kept");
    QVERIFY(!Common::makeDirectory(file + QStringLiteral("/folder")));
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("kept"));
}

void tst_commonFunction::makeDirectoryWhereAFileStandsFails()
{
    QVERIFY(!Common::makeDirectory(_home->writeFile(QStringLiteral("file"), "kept")));
}

void tst_commonFunction::makeDirectoryTakesDoubledAndFinalSlashes()
{
    QVERIFY(Common::makeDirectory(_home->path() + QStringLiteral("//a///b/")));
    QVERIFY(QFileInfo(_home->path(QStringLiteral("a/b"))).isDir());
}

void tst_commonFunction::makeDirectoryWalksRelativePaths()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(_home->path()));
    const bool isMade = Common::makeDirectory(QStringLiteral("one/two"));
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(isMade);
    QVERIFY(QFileInfo(_home->path(QStringLiteral("one/two"))).isDir());
}

void tst_commonFunction::makeDirectoryFollowsALinkToAFolder()
{
    const QString target = _home->makeFolder(QStringLiteral("target"));
    QVERIFY(QFile::link(target, _home->path(QStringLiteral("link"))));
    QVERIFY(Common::makeDirectory(_home->path(QStringLiteral("link/inner"))));
    QVERIFY(QFileInfo(_home->path(QStringLiteral("target/inner"))).isDir());
}

void tst_commonFunction::formatValueOfNoneIsEmptyAndNotNull()
{
    const QString value = Common::formatValue({});
    QVERIFY(value.isEmpty());
    QVERIFY(!value.isNull());
    QVERIFY(!Common::formatValue(QString()).isNull());
}

void tst_commonFunction::formatValueWidensKatakanaAndCuts()
{
    QCOMPARE(Common::formatValue(QStringLiteral("ｶﾞA 1")), QStringLiteral("ガA 1"));
    QCOMPARE(Common::formatValue(QString(300, u'x')), QString(256, u'x'));
}

void tst_commonFunction::systemVersionFallsBackTo0x1050()
{
    ScopedHost host;
    host->systemVersion = [] { return std::optional<qint32>(); };
    QCOMPARE(getSystemVersion(), 4176);
}

void tst_commonFunction::systemVersionIsWhatTheMachineSays()
{
    ScopedHost host;
    host->systemVersion = [] { return std::optional<qint32>(0x1068); };
    QCOMPARE(getSystemVersion(), 0x1068);
}

void tst_commonFunction::isKindOfClassKnowsDerivedClasses()
{
    const Dog dog;
    const Animal* animal = &dog;
    const Animal* none = nullptr;
    QVERIFY(isKindOfClass<Dog>(animal));
    QVERIFY(isKindOfClass<Animal>(animal));
    QVERIFY(!isKindOfClass<Cat>(animal));
    QVERIFY(!isKindOfClass<Animal>(none));
}

QTEST_GUILESS_MAIN(tst_commonFunction)
#include "tst_commonFunction.moc"
