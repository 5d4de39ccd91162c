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

namespace {

constexpr quint64 KiB = 1024;

// A package in a home of its own, and the paths of its parts.
struct Package {
    TestHome home;
    QString path;
    QString store;
    QString images;
    QString files;

    explicit Package(const QString& name = QStringLiteral("cards.vmdb"))
        : path(home.makeFolder(name))
        , store(home.writeFile(name + QStringLiteral("/Velmora.sqldb"), "store"))
        , images(path + QStringLiteral("/Images"))
        , files(path + QStringLiteral("/Files"))
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
    // checkDBAttributes

    void emptyPackagePathIsAGeneralFailure()
    {
        QCOMPARE(DBCChecker::checkDBAttributes(QString()), DBCResultCode::GeneralFailure);
    }

    void otherExtensionIsNoPackage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("other") << QStringLiteral("cards.db");
        QTest::newRow("none") << QStringLiteral("vmdb");
        QTest::newRow("longer") << QStringLiteral("cards.vmdb2");
        QTest::newRow("followed by another") << QStringLiteral("cards.vmdb.bak");
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
        QCOMPARE(DBCChecker::checkDBAttributes(home.path(QStringLiteral("missing.db"))),
            DBCResultCode::PackageInvalid);
    }

    void extensionInCapitalsPasses()
    {
        const Package package(QStringLiteral("Cards.VMDB"));
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
        QCOMPARE(DBCChecker::checkDBAttributes(home.path(QStringLiteral("missing.vmdb"))),
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
        QCOMPARE(DBCChecker::checkDBAttributes(home.writeFile(QStringLiteral("cards.vmdb"), "x")),
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

    // checkDBFileISLocked

    void emptyPathAndMissingFileAreNotLocked()
    {
        const TestHome home;
        QVERIFY(!DBCChecker::checkDBFileISLocked(QString()));
        QVERIFY(!DBCChecker::checkDBFileISLocked(home.path(QStringLiteral("missing"))));
    }

    void freeFileIsNotLockedAndStaysFree()
    {
        const TestHome home;
        const QString file = home.writeFile(QStringLiteral(".VMLock.vmlk"), "");
        QVERIFY(!DBCChecker::checkDBFileISLocked(file));
        const int holder = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        const auto closer = qScopeGuard([holder] { close(holder); });
        QCOMPARE(flock(holder, LOCK_EX | LOCK_NB), 0);
    }

    void fileHeldByAnotherIsLockedUntilItIsReleased()
    {
        const TestHome home;
        const QString file = home.writeFile(QStringLiteral(".VMLock.vmlk"), "");
        const int holder = open(QFile::encodeName(file).constData(), O_RDWR | O_CLOEXEC);
        QCOMPARE(flock(holder, LOCK_EX | LOCK_NB), 0);
        QVERIFY(DBCChecker::checkDBFileISLocked(file));
        close(holder);
        QVERIFY(!DBCChecker::checkDBFileISLocked(file));
    }

    void fileThatCannotBeOpenedForWritingCountsAsLocked()
    {
        const TestHome home; // a folder cannot be, not even by root
        QVERIFY(DBCChecker::checkDBFileISLocked(home.makeFolder(QStringLiteral("folder"))));
    }

    // checkDiskSizeIsEnough

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
        QVERIFY(!DBCChecker::checkDiskSizeIsEnough(home.path(QStringLiteral("missing")), 1));
    }

    void unknownFreeSpaceIsNotEnough()
    {
        const TestHome home;
        ScopedHost host;
        host.setFreeBytes(std::nullopt);
        QVERIFY(!DBCChecker::checkDiskSizeIsEnough(home.path(), 0));
    }

    // checkVelmoraIsLaunched

    void mainApplicationRunsWhenAProcessHasExactlyItsName_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<bool>("launched");
        const QString shell = QStringLiteral("bash");
        QTest::newRow("nothing runs") << QStringList() << false;
        QTest::newRow("among others") << QStringList {shell, QStringLiteral("Velmora")} << true;
        QTest::newRow("this program alone")
            << QStringList {shell, QStringLiteral("VelmoraConverter")} << false;
        QTest::newRow("other case") << QStringList {QStringLiteral("velmora")} << false;
    }
    void mainApplicationRunsWhenAProcessHasExactlyItsName()
    {
        QFETCH(QStringList, names);
        ScopedHost host;
        host->runningApplications = [&names] { return names; };
        QTEST(DBCChecker::checkVelmoraIsLaunched(), "launched");
    }

    // isBlank

    void blankTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("blank");
        QTest::newRow("none") << QString() << true;
        QTest::newRow("empty") << QStringLiteral("") << true;
        QTest::newRow("blanks and line ends")
            << QStringLiteral(u" \t\u3000\n\r\u0085\u2028") << true;
        QTest::newRow("letter") << QStringLiteral("a") << false;
        QTest::newRow("letter among blanks") << QStringLiteral(u"\u3000 a \n") << false;
        QTest::newRow("paragraph separator is no blank") << QStringLiteral(u"\u2029") << false;
        QTest::newRow("no-break space is no blank") << QStringLiteral(u"\u00A0") << false;
        QTest::newRow("form feed is no blank") << QStringLiteral("\f") << false;
    }
    void blankTexts()
    {
        QFETCH(QString, text);
        QTEST(DBCChecker::isBlank(text), "blank");
    }

    // checkAppLocationIsCorrect

    void programBesideTheMainApplicationStandsCorrectly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(QStringLiteral("Applications"));
        host->programFolder = home.makeFolder(QStringLiteral("Applications/Velmora"));
        home.makeFolder(QStringLiteral("Applications/Velmora/Velmora.app"));
        QVERIFY(DBCChecker::checkAppLocationIsCorrect());
    }

    void programWithoutTheMainApplicationBesideItStandsWrongly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(QStringLiteral("Applications"));
        host->programFolder = home.makeFolder(QStringLiteral("Applications/Velmora"));
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
        home.writeFile(QStringLiteral("Applications/Velmora/Velmora.app"), "a file, no folder");
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    void programInAnotherFolderStandsWrongly()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = home.makeFolder(QStringLiteral("Applications"));
        host->programFolder = home.makeFolder(QStringLiteral("Applications/Other"));
        home.makeFolder(QStringLiteral("Applications/Velmora/Velmora.app"));
        home.makeFolder(QStringLiteral("Applications/Other/Velmora.app"));
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    void withoutApplicationsFolderTheLocationIsWrong()
    {
        const TestHome home;
        ScopedHost host;
        host->applicationsFolder = QString();
        host->programFolder = QStringLiteral("/Velmora");
        QVERIFY(!DBCChecker::checkAppLocationIsCorrect());
    }

    // checkVersionInfo

    void versionLineIsJudged_data()
    {
        using enum DBCResultCode;
        QTest::addColumn<QString>("line");
        QTest::addColumn<DBCResultCode>("expected");
        QTest::newRow("product of our own exports")
            << QStringLiteral("TELKA\tV1.0L10") << VersionFileRefusedProduct;
        QTest::newRow("that product in any version")
            << QStringLiteral("TELKA\tV9") << VersionFileRefusedProduct;
        QTest::newRow("another product") << QStringLiteral("OTHER\tV1.0L10") << Success;
        QTest::newRow("no product at all") << QStringLiteral("\tV1.0L10") << Success;
        QTest::newRow("product in small letters") << QStringLiteral("telka\tV1.0L10") << Success;
        QTest::newRow("without a tab") << QStringLiteral("TELKA V1.0L10") << VersionFileMismatch;
        QTest::newRow("another version") << QStringLiteral("OTHER\tV1.0L11") << VersionFileMismatch;
        QTest::newRow("version with a tail")
            << QStringLiteral("OTHER\tV1.0L10 ") << VersionFileMismatch;
        QTest::newRow("second tab belongs to the version")
            << QStringLiteral("OTHER\tV1.0L10\t") << VersionFileMismatch;
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
        QCOMPARE(DBCChecker::checkVersionInfo(
                     DBCVersionInfo {{QStringLiteral("other key"), QStringLiteral("A\tV1.0L10")}}),
            DBCResultCode::VersionFileMismatch);
    }

    // isMacOSXVersionAbove

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

    // isValidPathLength

    void pathLengthCountsUtf8BytesInclusively()
    {
        QVERIFY(DBCChecker::isValidPathLength(QStringLiteral("/1234"), 5));
        QVERIFY(!DBCChecker::isValidPathLength(QStringLiteral("/12345"), 5));
        const QString japanese = QStringLiteral(u"/\u540D\u523A"); // 1 + 3 + 3 bytes
        QVERIFY(DBCChecker::isValidPathLength(japanese, 7));
        QVERIFY(!DBCChecker::isValidPathLength(japanese, 6));
    }

    void emptyPathHasNoValidLength() { QVERIFY(!DBCChecker::isValidPathLength(QString(), 520)); }

    // isValidAttachmentForExport

    void attachmentNamesForExport_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("valid");
        QTest::newRow("plain") << QStringLiteral("/a/memo.txt") << true;
        QTest::newRow("Japanese") << QStringLiteral(u"/a/\u540D\u523A.pdf") << true;
        QTest::newRow("dot inside") << QStringLiteral("/a/b.tar.gz") << true;
        QTest::newRow("dot in front") << QStringLiteral("/a/.hidden") << false;
        QTest::newRow("folder with a dot in front") << QStringLiteral("/.a/memo.txt") << true;
        QTest::newRow("folder with a refused character") << QStringLiteral("/a?/memo.txt") << true;
        for (const char refused : {':', '\\', '*', '?', '"', '<', '>', '|'}) {
            const QString name
                = QStringLiteral("/a/me") + QLatin1Char(refused) + QStringLiteral("mo");
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
