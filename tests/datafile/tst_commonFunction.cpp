// SPDX-License-Identifier: GPL-3.0-or-later
#include "datafile/DBCCommonFunction.h"

#include "datafile/DBCRecord.h"
#include "datafile/DBCTextEncoding.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Common = DBCCommonFunction;
using Code = DBCResultCode;

namespace {

// Every write beyond this many bytes of a file fails, as on a disk that fills up.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &_old);
        const rlimit limited {bytes, _old.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &_old); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit _old {};
};

QByteArray utf16(const QString& text)
{
    QByteArray bytes("\xFF\xFE", 2);
    for (const QChar unit : text) {
        bytes.append(static_cast<char>(unit.cell()));
        bytes.append(static_cast<char>(unit.row()));
    }
    return bytes;
}

// "-" when there is no version information.
QString versionLine(const QString& path)
{
    const auto info = Common::getVersionInfo(path);
    if (!info)
        return QStringLiteral("-");
    return info->value(QStringLiteral("Product name and version in the Version.txt"));
}

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

    void saveWithoutDataFails();
    void saveWithoutPathFails();
    void saveMakesANewFile();
    void saveOfNothingMakesAnEmptyFile();
    void saveReplacesAnExistingFile();
    void saveReplacesALinkAndNotWhatItNames();
    void saveReplacesALinkThatLeadsNowhere();
    void saveReplacesAPipeWithoutWaiting();
    void saveOverAFolderFails();
    void saveIntoAMissingFolderFails();
    void saveBelowAFileFails();
    void saveIntoAReadOnlyFolderFails();
    void saveWantsTheMarginFreeBesideTheData_data();
    void saveWantsTheMarginFreeBesideTheData();
    void saveWithoutSpaceKeepsTheOldFile();
    void saveOnAFullDiskFailsAndLeavesNothing();

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

    void versionWithoutLineBreakIsTheWholeText();
    void versionEndsBeforeEachNewLineCharacter_data();
    void versionEndsBeforeEachNewLineCharacter();
    void versionOfABigEndianFile();
    void versionOfAnEmptyFileIsEmpty();
    void versionOfNoRegularFileIsNone();
    void versionOfAnOddSizedFileIsNone();
    void versionOfAPipeDoesNotWait();
    void versionOfAHugeFileReadsItsStart();
    void versionOfAHugeFileMayBeCutInsideACharacter();

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

void tst_commonFunction::saveWithoutDataFails()
{
    const QString path = _home->path(QStringLiteral("new"));
    QCOMPARE(Common::saveFile({}, path), Code::GeneralFailure);
    QVERIFY(!QFileInfo::exists(path));
}

void tst_commonFunction::saveWithoutPathFails()
{
    QCOMPARE(Common::saveFile(QByteArray("x"), QString()), Code::GeneralFailure);
}

void tst_commonFunction::saveMakesANewFile()
{
    const QByteArray data("a\0b", 3);
    QCOMPARE(Common::saveFile(data, _home->path(QStringLiteral("new"))), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("new")), data);
}

void tst_commonFunction::saveOfNothingMakesAnEmptyFile()
{
    QCOMPARE(Common::saveFile(QByteArray(), _home->path(QStringLiteral("new"))), Code::Success);
    QVERIFY(QFileInfo::exists(_home->path(QStringLiteral("new"))));
}

void tst_commonFunction::saveReplacesAnExistingFile()
{
    const QString path = _home->writeFile(QStringLiteral("file"), "a much longer old content");
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("new"));
}

void tst_commonFunction::saveReplacesALinkAndNotWhatItNames()
{
    const QString target = _home->writeFile(QStringLiteral("target"), "kept");
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(target, link));
    QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("target")), QByteArray("kept"));
    QCOMPARE(_home->readFile(QStringLiteral("link")), QByteArray("new"));
}

void tst_commonFunction::saveReplacesALinkThatLeadsNowhere()
{
    const QString target = _home->path(QStringLiteral("missing"));
    const QString link = _home->path(QStringLiteral("link"));
    QVERIFY(QFile::link(target, link));
    QCOMPARE(Common::saveFile(QByteArray("new"), link), Code::Success);
    QVERIFY(!QFileInfo::exists(target));
    QCOMPARE(_home->readFile(QStringLiteral("link")), QByteArray("new"));
}

void tst_commonFunction::saveReplacesAPipeWithoutWaiting()
{
    const QString path = _home->path(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::Success);
    QCOMPARE(_home->readFile(QStringLiteral("pipe")), QByteArray("new"));
}

void tst_commonFunction::saveOverAFolderFails()
{
    const QString folder = _home->makeFolder(QStringLiteral("folder"));
    QCOMPARE(Common::saveFile(QByteArray("new"), folder), Code::FileSaveFailure);
    QVERIFY(QFileInfo(folder).isDir());
}

void tst_commonFunction::saveIntoAMissingFolderFails()
{
    const QString path = _home->path(QStringLiteral("missing/file"));
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::FileSaveFailure);
    QVERIFY(!QFileInfo::exists(_home->path(QStringLiteral("missing"))));
}

void tst_commonFunction::saveBelowAFileFails()
{
    const QString file = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(
        Common::saveFile(QByteArray("new"), file + QStringLiteral("/x")), Code::FileSaveFailure);
}

void tst_commonFunction::saveIntoAReadOnlyFolderFails()
{
    ScopedHost host;
    host.makeReadOnly({_home->path()});
    const QString old = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(Common::saveFile(QByteArray("new"), old), Code::FileSaveFailure);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("kept"));
}

void tst_commonFunction::saveWantsTheMarginFreeBesideTheData_data()
{
    QTest::addColumn<quint64>("free");
    QTest::addColumn<Code>("expected");
    QTest::newRow("exactly enough") << quint64 {524288 + 3} << Code::Success;
    QTest::newRow("one byte less") << quint64 {524288 + 2} << Code::NoSpaceForExport;
}

void tst_commonFunction::saveWantsTheMarginFreeBesideTheData()
{
    QFETCH(quint64, free);
    QFETCH(Code, expected);
    ScopedHost host;
    QString asked;
    host->freeBytes = [&](const QString& path) {
        asked = path;
        return std::optional(free);
    };
    QCOMPARE(Common::saveFile(QByteArray("new"), _home->path(QStringLiteral("file"))), expected);
    QCOMPARE(asked, _home->path());
}

void tst_commonFunction::saveWithoutSpaceKeepsTheOldFile()
{
    ScopedHost host;
    host.setFreeBytes(1);
    const QString path = _home->writeFile(QStringLiteral("file"), "kept");
    QCOMPARE(Common::saveFile(QByteArray("new"), path), Code::NoSpaceForExport);
    QCOMPARE(_home->readFile(QStringLiteral("file")), QByteArray("kept"));
}

void tst_commonFunction::saveOnAFullDiskFailsAndLeavesNothing()
{
    const QString path = _home->path(QStringLiteral("file"));
    Code code = Code::Success;
    {
        const FileSizeLimit limit(1000);
        code = Common::saveFile(QByteArray(5000, 'x'), path);
    }
    QCOMPARE(code, Code::FileSaveFailure);
    QVERIFY(!QFileInfo::exists(path));
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

void tst_commonFunction::versionWithoutLineBreakIsTheWholeText()
{
    const QString path
        = _home->writeFile(QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10")));
    const auto info = Common::getVersionInfo(path);
    QVERIFY(info);
    QCOMPARE(info->size(), 1);
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1.0L10"));
}

void tst_commonFunction::versionEndsBeforeEachNewLineCharacter_data()
{
    QTest::addColumn<QString>("lineBreak");
    QTest::newRow("CR LF") << QStringLiteral("\r\n");
    QTest::newRow("CR") << QStringLiteral("\r");
    QTest::newRow("LF") << QStringLiteral("\n");
    QTest::newRow("U+0085") << QStringLiteral("\u0085");
    QTest::newRow("U+2028") << QStringLiteral("\u2028");
    QTest::newRow("U+2029") << QStringLiteral("\u2029");
}

void tst_commonFunction::versionEndsBeforeEachNewLineCharacter()
{
    QFETCH(QString, lineBreak);
    const QString path = _home->writeFile(QStringLiteral("Version.txt"),
        utf16(QStringLiteral("ACME\tV1") + lineBreak + QStringLiteral("second\nthird")));
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1"));
}

void tst_commonFunction::versionOfABigEndianFile()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), QByteArray("\xFE\xFF\0A\0\t\0B\0\r\0\n", 12));
    QCOMPARE(versionLine(path), QStringLiteral("A\tB"));
}

void tst_commonFunction::versionOfAnEmptyFileIsEmpty()
{
    QCOMPARE(
        versionLine(_home->writeFile(QStringLiteral("Version.txt"), utf16(QString()))), QString());
}

void tst_commonFunction::versionOfNoRegularFileIsNone()
{
    QVERIFY(!Common::getVersionInfo(QString()));
    QVERIFY(!Common::getVersionInfo(_home->path(QStringLiteral("missing"))));
    QVERIFY(!Common::getVersionInfo(_home->path()));
    QVERIFY(!Common::getVersionInfo(QStringLiteral("/dev/zero")));
}

void tst_commonFunction::versionOfAnOddSizedFileIsNone()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10\r\n")).append('x'));
    QVERIFY(!Common::getVersionInfo(path));
}

void tst_commonFunction::versionOfAPipeDoesNotWait()
{
    const QString path = _home->path(QStringLiteral("Version.txt"));
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QVERIFY(!Common::getVersionInfo(path));
}

void tst_commonFunction::versionOfAHugeFileReadsItsStart()
{
    const QString path = _home->writeFile(
        QStringLiteral("Version.txt"), utf16(QStringLiteral("ACME\tV1.0L10\r\n")));
    // A hole of 64 GB; reading it whole would need all of the memory.
    QCOMPARE(truncate(QFile::encodeName(path).constData(), off_t {1} << 36), 0);
    QCOMPARE(versionLine(path), QStringLiteral("ACME\tV1.0L10"));
}

void tst_commonFunction::versionOfAHugeFileMayBeCutInsideACharacter()
{
    for (const QString& start : {QStringLiteral("A\n"), QStringLiteral("AB\n")}) {
        const QString path = _home->writeFile(
            QStringLiteral("Version.txt"), utf16(start + QStringLiteral("𠮷").repeated(40000)));
        QCOMPARE(versionLine(path), start.chopped(1));
    }
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
