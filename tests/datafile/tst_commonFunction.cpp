// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/helpers/DBCCommonFunction.h"

#include "datafile/records/DBCRecord.h"
#include "tests/support/RecordKeys.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

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

    void titlesStandInColumnOrder()
    {
        QCOMPARE(Common::createTitleNamesForDataFile().join(u' '),
            u"名刺画像(表) 名刺画像(裏) 添付ファイル 氏名 氏名(フリガナ) 会社名 "
            "会社名(フリガナ) 部署 役職 郵便番号 都道府県 市区町村 町名・番地 住所 "
            "電話番号 FAX番号 携帯電話番号 メールアドレス Webページ メモ 登録日"_s);
    }

    void recordKeysStandInColumnOrder()
    {
        QStringList names;
        for (const DBCRecordKey key : Common::createRecordKeyNamesForDataFile())
            names << recordKeyName(key);
        QCOMPARE(names.join(u' '),
            u"face_Image_File back_Image_File attachmentFile full_Name full_Name_Kana "
            "company company_Kana department job_Title zip_PostalCode state city street "
            "address telephone_Number fax_Number mobile_Number e_Mail web_Page_Address "
            "memo register_Date"_s);
    }

    void cleanTempFileRemovesAFile()
    {
        const QString path = _home->writeFile(u"file"_s, "x");
        QVERIFY(Common::cleanTempFile(path));
        QVERIFY(!QFileInfo::exists(path));
    }

    void cleanTempFileLeavesAFolderInPlace()
    {
        const QString folder = _home->makeFolder(u"folder"_s);
        QVERIFY(!Common::cleanTempFile(folder));
        QVERIFY(QFileInfo(folder).isDir());
    }

    void cleanTempFileLeavesALinkToAFolder()
    {
        const QString link = _home->path(u"link"_s);
        QVERIFY(QFile::link(_home->makeFolder(u"folder"_s), link));
        QVERIFY(!Common::cleanTempFile(link));
        QVERIFY(QFileInfo(link).isSymLink());
    }

    void cleanTempFileOfNothingFails()
    {
        QVERIFY(!Common::cleanTempFile(QString()));
        QVERIFY(!Common::cleanTempFile(_home->path(u"missing"_s)));
    }

    void cleanTempFileRemovesALinkAndNotItsTarget()
    {
        const QString target = _home->writeFile(u"target"_s, "kept");
        const QString link = _home->path(u"link"_s);
        QVERIFY(QFile::link(target, link));
        QVERIFY(Common::cleanTempFile(link));
        QVERIFY(!QFileInfo(link).isSymLink());
        QCOMPARE(_home->readFile(u"target"_s), QByteArray("kept"));
    }

    void makeDirectoryMakesThreeNestedFolders()
    {
        QVERIFY(Common::makeDirectory(_home->path(u"a/b/名刺"_s)));
        QVERIFY(QFileInfo(_home->path(u"a/b/名刺"_s)).isDir());
    }

    void makeDirectoryOfNothingIsDone() { QVERIFY(Common::makeDirectory(QString())); }

    void makeDirectoryOfAnExistingFolderIsDone()
    {
        QVERIFY(Common::makeDirectory(_home->path()));
        QVERIFY(Common::makeDirectory(u"/"_s));
    }

    void makeDirectoryBelowAFileFails()
    {
        const QString file = _home->writeFile(u"file"_s, "kept");
        QVERIFY(!Common::makeDirectory(file + u"/folder"_s));
        QCOMPARE(_home->readFile(u"file"_s), QByteArray("kept"));
    }

    void makeDirectoryWhereAFileStandsFails()
    {
        QVERIFY(!Common::makeDirectory(_home->writeFile(u"file"_s, "kept")));
    }

    void makeDirectoryTakesDoubledAndFinalSlashes()
    {
        QVERIFY(Common::makeDirectory(_home->path() + u"//a///b/"_s));
        QVERIFY(QFileInfo(_home->path(u"a/b"_s)).isDir());
    }

    void makeDirectoryWalksRelativePaths()
    {
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(_home->path()));
        const bool isMade = Common::makeDirectory(u"one/two"_s);
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(isMade);
        QVERIFY(QFileInfo(_home->path(u"one/two"_s)).isDir());
    }

    void makeDirectoryFollowsALinkToAFolder()
    {
        const QString target = _home->makeFolder(u"target"_s);
        QVERIFY(QFile::link(target, _home->path(u"link"_s)));
        QVERIFY(Common::makeDirectory(_home->path(u"link/inner"_s)));
        QVERIFY(QFileInfo(_home->path(u"target/inner"_s)).isDir());
    }

    void formatValueOfNoneIsEmptyAndNotNull()
    {
        const QString value = Common::formatValue({});
        QVERIFY(value.isEmpty());
        QVERIFY(!value.isNull());
        QVERIFY(!Common::formatValue(QString()).isNull());
    }

    void formatValueWidensKatakanaAndCuts()
    {
        QCOMPARE(Common::formatValue(u"ｶﾞA 1"_s), u"ガA 1"_s);
        QCOMPARE(Common::formatValue(QString(300, u'x')), QString(256, u'x'));
    }

    void systemVersionFallsBackTo0x1050()
    {
        ScopedHost host;
        host->systemVersion = [] { return std::optional<qint32>(); };
        QCOMPARE(getSystemVersion(), 4176);
    }

    void systemVersionIsWhatTheMachineSays()
    {
        ScopedHost host;
        host->systemVersion = [] { return std::optional<qint32>(0x1068); };
        QCOMPARE(getSystemVersion(), 0x1068);
    }

    void isKindOfClassKnowsDerivedClasses()
    {
        const Dog dog;
        const Animal* animal = &dog;
        const Animal* none = nullptr;
        QVERIFY(isKindOfClass<Dog>(animal));
        QVERIFY(isKindOfClass<Animal>(animal));
        QVERIFY(!isKindOfClass<Cat>(animal));
        QVERIFY(!isKindOfClass<Animal>(none));
    }

private:
    std::optional<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_commonFunction)
#include "tst_commonFunction.moc"
