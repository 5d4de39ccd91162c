// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCChecker.h"

#include "datafile/helpers/DBCCommonFunction.h"
#include "tests/support/ScopedHost.h"
#include "tests/support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTest>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 KiB = 1024;

// Creates a package in a home folder of its own, and returns the paths of its parts.
struct Package {
    TestHome home;
    QString path;
    QString store;
    QString images;
    QString files;

    explicit Package(const QString& name = u"cards.vmdb"_s)
        : path(home.makeFolder(name))
        , store(home.writeFile(name + u"/Velmora.sqldb"_s, "store"))
        , images(path + u"/Images"_s)
        , files(path + u"/Files"_s)
    {
    }
    Package& withImages()
    {
        QDir().mkpath(images);
        return *this;
    }
    Package& withFiles()
    {
        QDir().mkpath(files);
        return *this;
    }
    QString partNamed(const QString& part) const
    {
        return part == u"package" ? path : part == u"store" ? store : path + u'/' + part;
    }
};

DBCVersionInfo versionLine(const QString& line)
{
    return {{QString::fromLatin1(DBCCommonFunction::versionInfoKey), line}};
}

} // namespace

Q_DECLARE_METATYPE(DBCResultCode)

class tst_checker : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Tests of checkDBAttributes().

    void emptyPackagePathIsAGeneralFailure()
    {
        QCOMPARE(DBCChecker::checkDBAttributes(QString()), DBCResultCode::GeneralFailure);
    }

    void otherExtensionIsNoPackage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("other") << u"cards.db"_s;
        QTest::newRow("none") << u"vmdb"_s;
        QTest::newRow("longer") << u"cards.vmdb2"_s;
        QTest::newRow("followed by another") << u"cards.vmdb.bak"_s;
    }
    void otherExtensionIsNoPackage()
    {
        QFETCH(QString, name);
        const Package package(name);
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageInvalid);
    }

    void extensionIsJudgedBeforeExistence()
    {
        const TestHome home;
        QCOMPARE(DBCChecker::checkDBAttributes(home.path(u"missing.db"_s)),
            DBCResultCode::PackageInvalid);
    }

    void extensionInCapitalsPasses()
    {
        const Package package(u"Cards.VMDB"_s);
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageUsable);
    }

    void pathThatEndsWithASlashPasses()
    {
        const Package package;
        QCOMPARE(DBCChecker::checkDBAttributes(package.path + u'/'), DBCResultCode::PackageUsable);
    }

    void missingPackageDoesNotExist()
    {
        const TestHome home;
        QCOMPARE(DBCChecker::checkDBAttributes(home.path(u"missing.vmdb"_s)),
            DBCResultCode::PackageNotExist);
    }

    void packageWithoutStoreDoesNotExist()
    {
        const Package package;
        QVERIFY(QFile::remove(package.store));
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageNotExist);
    }

    void fileInThePlaceOfAPackageDoesNotExist()
    {
        const TestHome home;
        QCOMPARE(DBCChecker::checkDBAttributes(home.writeFile(u"cards.vmdb"_s, "x")),
            DBCResultCode::PackageNotExist);
    }

    void immutablePartLocksThePackage_data()
    {
        QTest::addColumn<QString>("part");
        for (const char* part : {"package", "store", "Images", "Files"})
            QTest::newRow(part) << QString::fromLatin1(part);
    }
    void immutablePartLocksThePackage()
    {
        QFETCH(QString, part);
        Package package;
        package.withImages().withFiles();
        ScopedHost host;
        const QString locked = package.partNamed(part);
        host->isImmutable = [&locked](const QString& path) { return path == locked; };
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageLocked);
    }

    void unreadableAttributesAreAGeneralFailure_data() { immutablePartLocksThePackage_data(); }
    void unreadableAttributesAreAGeneralFailure()
    {
        QFETCH(QString, part);
        Package package;
        package.withImages().withFiles();
        ScopedHost host;
        const QString unknown = package.partNamed(part);
        host->isImmutable = [&unknown](const QString& path) {
            return path == unknown ? std::nullopt : std::optional(false);
        };
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::GeneralFailure);
    }

    void firstPartInOrderDecidesBetweenLockedAndUnreadableAttributes()
    {
        const Package package;
        ScopedHost host;
        host->isImmutable = [&package](const QString& path) {
            return path == package.path ? std::optional(true) : std::nullopt;
        };
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageLocked);
    }

    void lockedIsJudgedBeforeAccessRights()
    {
        const Package package;
        ScopedHost host;
        host->isImmutable = [](const QString&) { return true; };
        host.makeUnreadable({package.path, package.store});
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageLocked);
    }

    void accessRightsDecide_data()
    {
        const auto list = [](std::initializer_list<const char*> names) {
            QStringList parts;
            for (const char* name : names)
                parts << QString::fromLatin1(name);
            return parts;
        };
        using enum DBCResultCode;
        QTest::addColumn<QStringList>("unreadable");
        QTest::addColumn<QStringList>("readOnly");
        QTest::addColumn<DBCResultCode>("expected");
        QTest::newRow("everything writable") << list({}) << list({}) << PackageUsable;
        QTest::newRow("package not writable")
            << list({}) << list({"package"}) << PackageOtherRights;
        QTest::newRow("store not writable") << list({}) << list({"store"}) << PackageOtherRights;
        QTest::newRow("Images not writable") << list({}) << list({"Images"}) << PackageOtherRights;
        QTest::newRow("all but the package read-only")
            << list({}) << list({"store", "Images", "Files"}) << PackageReadOnly;
        QTest::newRow("all read-only")
            << list({}) << list({"package", "store", "Images", "Files"}) << PackageReadOnly;
        QTest::newRow("read-only in a package that cannot be read")
            << list({"package"}) << list({"store", "Images", "Files"}) << PackageReadOnly;
        QTest::newRow("Files alone writable")
            << list({}) << list({"store", "Images"}) << PackageOtherRights;
        QTest::newRow("package not readable") << list({"package"}) << list({}) << PackageInvalid;
        QTest::newRow("store not readable") << list({"store"}) << list({}) << PackageInvalid;
        QTest::newRow("Images not readable") << list({"Images"}) << list({}) << PackageInvalid;
        QTest::newRow("Files not readable") << list({"Files"}) << list({}) << PackageInvalid;
        QTest::newRow("store not readable, nothing writable")
            << list({"store"}) << list({"package", "store", "Images", "Files"}) << PackageInvalid;
    }
    void accessRightsDecide()
    {
        QFETCH(QStringList, unreadable);
        QFETCH(QStringList, readOnly);
        Package package;
        package.withImages().withFiles();
        for (QStringList* parts : {&unreadable, &readOnly}) {
            for (QString& part : *parts)
                part = package.partNamed(part);
        }
        ScopedHost host;
        host.makeUnreadable(unreadable);
        host.makeReadOnly(readOnly);
        QTEST(DBCChecker::checkDBAttributes(package.path), "expected");
    }

    void packageWithoutImagesAndFilesIsUsable()
    {
        const Package package;
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageUsable);
    }

    void readOnlyStoreInAWritablePackageIsReadOnly()
    {
        const Package package;
        ScopedHost host;
        host.makeReadOnly({package.store});
        QCOMPARE(DBCChecker::checkDBAttributes(package.path), DBCResultCode::PackageReadOnly);
    }

    // Tests of checkDBFileISLocked().

    void emptyPathAndMissingFileAreNotLocked()
    {
        const TestHome home;
        QVERIFY(!DBCChecker::checkDBFileISLocked(QString()));
        QVERIFY(!DBCChecker::checkDBFileISLocked(home.path(u"missing"_s)));
    }

    void freeFileIsNotLockedAndStaysFree()
    {
        const TestHome home;
        const QString file = home.writeFile(u".VMLock.vmlk"_s, "");
        QVERIFY(!DBCChecker::checkDBFileISLocked(file));
        const int holder = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        const auto closer = qScopeGuard([holder] { close(holder); });
        QCOMPARE(flock(holder, LOCK_EX | LOCK_NB), 0);
    }

    void fileHeldByAnotherIsLockedUntilItIsReleased()
    {
        const TestHome home;
        const QString file = home.writeFile(u".VMLock.vmlk"_s, "");
        const int holder = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        QCOMPARE(flock(holder, LOCK_EX | LOCK_NB), 0);
        QVERIFY(DBCChecker::checkDBFileISLocked(file));
        close(holder);
        QVERIFY(!DBCChecker::checkDBFileISLocked(file));
    }

    void fileThatCannotBeOpenedForWritingCountsAsLocked()
    {
        const TestHome home; // opening a folder for writing fails, even as root
        QVERIFY(DBCChecker::checkDBFileISLocked(home.makeFolder(u"folder"_s)));
    }

    // Tests of checkDiskSizeIsEnough().

    void freeSpaceIsComparedWithTheNeed_data()
    {
        QTest::addColumn<quint64>("free");
        QTest::addColumn<quint64>("needed");
        QTest::addColumn<bool>("enough");
        const quint64 most = std::numeric_limits<quint64>::max();
        QTest::newRow("exactly the needed bytes") << 512 * KiB << 512 * KiB << true;
        QTest::newRow("one byte short") << 512 * KiB - 1 << 512 * KiB << false;
        QTest::newRow("more than needed") << 513 * KiB << 512 * KiB << true;
        QTest::newRow("nothing needed") << quint64(1) << quint64(0) << true;
        QTest::newRow("nothing free fails even for nothing") << quint64(0) << quint64(0) << false;
        QTest::newRow("unsigned") << (quint64(1) << 62) << most << false;
        QTest::newRow("all there is") << most << most << true;
    }
    void freeSpaceIsComparedWithTheNeed()
    {
        QFETCH(quint64, free);
        QFETCH(quint64, needed);
        const TestHome home;
        ScopedHost host;
        host.setFreeBytes(free);
        QTEST(DBCChecker::checkDiskSizeIsEnough(home.path(), needed), "enough");
    }

    void missingPathHasNoSpace()
    {
        const TestHome home;
        ScopedHost host;
        host.setFreeBytes(512 * KiB);
        QVERIFY(!DBCChecker::checkDiskSizeIsEnough(QString(), 1));
        QVERIFY(!DBCChecker::checkDiskSizeIsEnough(home.path(u"missing"_s), 1));
    }

    void unknownFreeSpaceIsNotEnough()
    {
        const TestHome home;
        ScopedHost host;
        host.setFreeBytes(std::nullopt);
        QVERIFY(!DBCChecker::checkDiskSizeIsEnough(home.path(), 0));
    }

    // Tests of checkVelmoraIsLaunched().

    void mainApplicationRunsWhenAProcessHasExactlyItsName_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("launched");
        const QString shell = u"bash"_s;
        QTest::newRow("nothing runs") << QStringList() << false;
        QTest::newRow("among others") << QStringList {shell, u"Velmora"_s} << true;
        QTest::newRow("this program alone") << QStringList {shell, u"VelmoraConverter"_s} << false;
        QTest::newRow("other case") << QStringList {u"velmora"_s} << false;
    }
    void mainApplicationRunsWhenAProcessHasExactlyItsName()
    {
        QFETCH(QStringList, names);
        ScopedHost host;
        host->runningApplications = [&names] { return names; };
        QTEST(DBCChecker::checkVelmoraIsLaunched(), "launched");
    }

    // Tests of isBlank().

    void blankTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("blank");
        QTest::newRow("none") << QString() << true;
        QTest::newRow("empty") << u""_s << true;
        QTest::newRow("blanks and line ends") << u" \t\u3000\n\r\u0085\u2028"_s << true;
        QTest::newRow("letter") << u"a"_s << false;
        QTest::newRow("letter among blanks") << u"\u3000 a \n"_s << false;
        QTest::newRow("paragraph separator is no blank") << u"\u2029"_s << false;
        QTest::newRow("no-break space is no blank") << u"\u00A0"_s << false;
        QTest::newRow("form feed is no blank") << u"\f"_s << false;
    }
    void blankTexts()
    {
        QFETCH(QString, text);
        QTEST(DBCChecker::isBlank(text), "blank");
    }

    // Tests of checkAppLocationIsCorrect().

    void programBesideTheMainApplicationStandsCorrectly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(u"Applications"_s);
        host->programFolder = home.makeFolder(u"Applications/Velmora"_s);
        home.makeFolder(u"Applications/Velmora/Velmora.app"_s);
        QVERIFY(DBCChecker::checkAppLocationIsCorrect());
    }

    void programWithoutTheMainApplicationBesideItStandsWrongly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(u"Applications"_s);
        host->programFolder = home.makeFolder(u"Applications/Velmora"_s);
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
        home.writeFile(u"Applications/Velmora/Velmora.app"_s, "a file, no folder");
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    void programInAnotherFolderStandsWrongly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(u"Applications"_s);
        host->programFolder = home.makeFolder(u"Applications/Other"_s);
        home.makeFolder(u"Applications/Velmora/Velmora.app"_s);
        home.makeFolder(u"Applications/Other/Velmora.app"_s);
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    void withoutApplicationsFolderTheLocationIsWrong()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = QString();
        host->programFolder = u"/Velmora"_s;
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    // Tests of checkVersionInfo().

    void versionLineIsJudged_data()
    {
        using enum DBCResultCode;
        QTest::addColumn<QString>("line");
        QTest::addColumn<DBCResultCode>("expected");
        QTest::newRow("product of our own exports")
            << u"TELKA\tV1.0L10"_s << VersionFileRefusedProduct;
        QTest::newRow("that product in any version") << u"TELKA\tV9"_s << VersionFileRefusedProduct;
        QTest::newRow("another product") << u"OTHER\tV1.0L10"_s << Success;
        QTest::newRow("no product at all") << u"\tV1.0L10"_s << Success;
        QTest::newRow("product in small letters") << u"telka\tV1.0L10"_s << Success;
        QTest::newRow("without a tab") << u"TELKA V1.0L10"_s << VersionFileMismatch;
        QTest::newRow("another version") << u"OTHER\tV1.0L11"_s << VersionFileMismatch;
        QTest::newRow("version with a tail") << u"OTHER\tV1.0L10 "_s << VersionFileMismatch;
        QTest::newRow("second tab belongs to the version")
            << u"OTHER\tV1.0L10\t"_s << VersionFileMismatch;
        QTest::newRow("empty") << QString() << VersionFileMismatch;
    }
    void versionLineIsJudged()
    {
        QFETCH(QString, line);
        QTEST(DBCChecker::checkVersionInfo(versionLine(line)), "expected");
    }

    void missingVersionIsAMismatch()
    {
        QCOMPARE(DBCChecker::checkVersionInfo(std::nullopt), DBCResultCode::VersionFileMismatch);
        QCOMPARE(
            DBCChecker::checkVersionInfo(DBCVersionInfo()), DBCResultCode::VersionFileMismatch);
        QCOMPARE(DBCChecker::checkVersionInfo(DBCVersionInfo {{u"other key"_s, u"A\tV1.0L10"_s}}),
            DBCResultCode::VersionFileMismatch);
    }

    // Tests of isMacOSXVersionAbove().

    void systemVersionIsComparedInclusively_data()
    {
        QTest::addColumn<qint32>("system");
        QTest::addColumn<bool>("above");
        QTest::newRow("below") << 0x1058 << false;
        QTest::newRow("equal") << 0x1060 << true;
        QTest::newRow("above") << 0x1068 << true;
    }
    void systemVersionIsComparedInclusively()
    {
        QFETCH(qint32, system);
        ScopedHost host;
        host->systemVersion = [system] { return system; };
        QTEST(DBCChecker::isMacOSXVersionAbove(0x1060), "above");
    }

    void systemThatCannotBeAskedIsNotAbove() { QVERIFY(!DBCChecker::isMacOSXVersionAbove(0)); }

    // Tests of isValidPathLength().

    void pathLengthCountsUtf8BytesInclusively()
    {
        QVERIFY(DBCChecker::isValidPathLength(u"/1234"_s, 5));
        QVERIFY(!DBCChecker::isValidPathLength(u"/12345"_s, 5));
        const QString japanese = u"/\u540D\u523A"_s; // 1 + 3 + 3 bytes
        QVERIFY(DBCChecker::isValidPathLength(japanese, 7));
        QVERIFY(!DBCChecker::isValidPathLength(japanese, 6));
    }

    void emptyPathHasNoValidLength() { QVERIFY(!DBCChecker::isValidPathLength(QString(), 520)); }

    // Tests of isValidAttachmentForExport().

    void attachmentNamesForExport_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("valid");
        QTest::newRow("plain") << u"/a/memo.txt"_s << true;
        QTest::newRow("Japanese") << u"/a/\u540D\u523A.pdf"_s << true;
        QTest::newRow("dot inside") << u"/a/b.tar.gz"_s << true;
        QTest::newRow("dot in front") << u"/a/.hidden"_s << false;
        QTest::newRow("folder with a dot in front") << u"/.a/memo.txt"_s << true;
        QTest::newRow("folder with a refused character") << u"/a?/memo.txt"_s << true;
        for (const char refused : {':', '\\', '*', '?', '"', '<', '>', '|'}) {
            const QString name = u"/a/me"_s + QLatin1Char(refused) + u"mo"_s;
            QTest::addRow("character %c", refused) << name << false;
        }
        QTest::newRow("none") << QString() << false;
    }
    void attachmentNamesForExport()
    {
        QFETCH(QString, path);
        QTEST(DBCChecker::isValidAttachmentForExport(path), "valid");
    }
};

QTEST_GUILESS_MAIN(tst_checker)
#include "tst_checker.moc"
