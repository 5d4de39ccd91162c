// SPDX-License-Identifier: GPL-3.0-or-later
// Whole conversions over real folders and packages, from the driver down to the files.
#include "tests/operation/ConversionWorld.h"
#include "tests/support/FolderSnapshot.h"

#include <QImage>
#include <QtTest>

#include <sys/file.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using World = ConversionWorld;

namespace {

struct BadFolder {
    std::function<void(World&)> spoil;
};

} // namespace

Q_DECLARE_METATYPE(BadFolder)

class tst_conversions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void importStoresCardsImagesAndAttachments()
    {
        World world;

        QVERIFY(world.importCards());

        QCOMPARE(world.package.value(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
        const auto cards = world.package.rows(
            u"SELECT ZFULL_NAME, ZCOMPANY, ZFACE_IMAGE_FILE, ZCARDID FROM ZCARD ORDER BY Z_PK"_s);
        QCOMPARE(cards.size(), 4);
        QCOMPARE(cards.at(1).at(0).toString(), text(u"星野 太郎"));
        QCOMPARE(cards.at(1).at(1).toString(), text(u"ホシノ商会"));
        QCOMPARE(cards.at(3).at(2).toString(), QString());
        const QByteArray pdf = world.package.readFile(u"Images/"_s + cards.at(1).at(2).toString());
        QVERIFY(pdf.contains(world.front));
        QVERIFY(pdf.contains(world.back));
        const QString files = u"Files/"_s + cards.at(1).at(3).toString() + u'/';
        QCOMPARE(world.package.readFile(files + u"a.txt"_s), QByteArray("first"));
        QCOMPARE(world.package.readFile(files + text(u"図面.txt")), QByteArray("second"));
        QCOMPARE(world.controller->outcome().backupPath, world.backup());
        QVERIFY(world.presenter.numbers.isEmpty());
    }

    void importedCardsAreExportedAgain()
    {
        World world;
        world.package.execute(u"UPDATE ZCARD SET ZDELETEDFLAG = 1"_s);
        QVERIFY(world.importCards());

        QVERIFY(world.exportCards());

        const QStringList rows = world.exportedRows();
        QCOMPARE(rows.size(), 4);
        QCOMPARE(rows.at(0), DataFileBuilder::titles().join(u'\t'));
        QCOMPARE(World::item(rows.at(1), Key::full_Name), text(u"星野 太郎"));
        QCOMPARE(World::item(rows.at(1), Key::full_Name_Kana), text(u"ホシノ タロウ"));
        QCOMPARE(World::item(rows.at(1), Key::company), text(u"ホシノ商会"));
        QCOMPARE(World::item(rows.at(1), Key::register_Date), text(u"2009/03/05"));
        QCOMPARE(World::item(rows.at(1), Key::attachmentFile), text(u"1"));
        QCOMPARE(World::item(rows.at(2), Key::telephone_Number), text(u"03-0000-0001"));
        QCOMPARE(World::item(rows.at(3), Key::full_Name), text(u"渡辺 三郎"));
        QCOMPARE(World::item(rows.at(3), Key::face_Image_File), QString());

        const QString images = DBCInterchangeNames::imageFolderName() + u'/';
        const auto face = QImage::fromData(
            world.exportedFile(images + World::item(rows.at(1), Key::face_Image_File)));
        QCOMPARE(face.size(), QSize(100, 50));
        QCOMPARE(qRound(face.dotsPerMeterX() * 0.0254), 300);
        const auto upright = QImage::fromData(
            world.exportedFile(images + World::item(rows.at(2), Key::face_Image_File)));
        QCOMPARE(upright.size(), QSize(50, 100));
        QCOMPARE(world.exportedFile(DBCInterchangeNames::attachmentFolderName() + u"/1/a.txt"_s),
            QByteArray("first"));
        QCOMPARE(world.exportedFile(u"Version.txt"_s).size(), 32);
    }

    void importKeepsTheInterchangeFolderAsItIs()
    {
        World world;
        const QStringList before = snapshotOf(world.folder.path());

        QVERIFY(world.importCards());

        QCOMPARE(snapshotOf(world.folder.path()), before);
    }

    void exportKeepsThePackageAsItIs()
    {
        World world;
        const auto before = world.package.contents();

        QVERIFY(world.exportCards());

        QCOMPARE(world.package.contents(), before);
    }

    void importThatFailsAtTheLastRecordLeavesThePackageAsItWas()
    {
        World world;
        world.writeCards({{Key::attachmentFile, text(u"no such folder")}});
        const auto before = world.package.contents();

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::AttachmentImportFailure);
        QCOMPARE(world.controller->outcome().finishedCount, 2);
        QCOMPARE(world.package.contents(), before);
        QVERIFY(QFile::exists(world.backup()));
        const QString log = world.home.logText();
        QVERIFY(log.contains(u"no such folder"_s));
        QVERIFY(log.contains(u"[Error]"_s));
        QVERIFY(log.contains(getLocalString(u"IDS_LBL_RESTORE"_s)));
    }

    void importCancelledAtTheLastRecordLeavesThePackageAsItWas()
    {
        World world;
        world.cancelAt(DBCEventName::ImportIsRunning, 2);
        const auto before = world.package.contents();

        QVERIFY(world.importCards());

        QVERIFY(world.controller->isStopRunning());
        QCOMPARE(world.controller->outcome().finishedCount, 2);
        QCOMPARE(world.package.contents(), before);
        QVERIFY(!QFile::exists(world.backup()));
        QVERIFY(world.home.logText().contains(getLocalString(u"IDS_LOG_INF_CANCEL_OPERATION"_s)));
    }

    void importCancelledInTheBackupLeavesThePackageAsItWas()
    {
        World world;
        world.cancelAt(DBCEventName::DatabaseBackupWillBegin, 1);
        const auto before = world.package.contents();

        QVERIFY(world.importCards());

        QCOMPARE(world.receiver.events,
            QStringList({u"DBC_DatabaseBackupWillBeginNotification"_s,
                u"DBC_OperationDidCanceledNotification cancel=true"_s,
                u"DBC_OperationDidFinishedNotification ok=true"_s}));
        QCOMPARE(world.presenter.questions.size(), 1);
        QCOMPARE(world.package.contents(), before);
        QVERIFY(!QFile::exists(world.backup()));
    }

    void folderDeletedWhileImportingLeavesThePackageAsItWas()
    {
        World world;
        const auto before = world.package.contents();
        world.receiver.onEvent = [&](const DBCEvent& event) {
            if (event.name == DBCEventName::ImportIsRunning)
                QDir(world.folder.path()).removeRecursively();
        };

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::FolderNotExist);
        QCOMPARE(world.package.contents(), before);
    }

    void exportCancelledUnderWayLeavesNothing()
    {
        World world;
        world.package.card();
        world.cancelAt(DBCEventName::ExportIsRunning, 1);

        QVERIFY(world.exportCards());

        QVERIFY(!QFile::exists(world.exported()));
        QVERIFY(QFile::exists(world.home.path(u"exported"_s)));
    }

    void badFolderEndsTheImport_data()
    {
        QTest::addColumn<BadFolder>("bad");
        QTest::addColumn<DBCResultCode>("code");
        QTest::addColumn<quint32>("message");
        const auto row = [](const char* name, std::function<void(World&)> spoil, DBCResultCode code,
                             quint32 message) {
            QTest::newRow(name) << BadFolder {std::move(spoil)} << code << message;
        };
        const auto dataFile = [](const QByteArray& bytes) {
            return [bytes](World& world) { world.folder.dataFile(bytes); };
        };
        row(
            "exported folder", [](World& world) { world.folder.version(u"TELKA"_s); },
            DBCResultCode::VersionFileRefusedProduct, 314);
        row(
            "no version", [](World& world) { world.folder.withoutVersion(); },
            DBCResultCode::VersionFileMismatch, 316);
        row(
            "no data file", [](World& world) { QFile::remove(world.folder.dataFilePath()); },
            DBCResultCode::FolderNotExist, 313);
        row(
            "folder as data file",
            [](World& world) {
                QFile::remove(world.folder.dataFilePath());
                QDir().mkpath(world.folder.dataFilePath());
            },
            DBCResultCode::DataFileOpenFailure, 310);
        row("empty data file", dataFile({}), DBCResultCode::DataFileEmpty, 306);
        row("title line alone", dataFile(DataFileBuilder().titleLine().build()),
            DBCResultCode::DataFileEmpty, 306);
        row("wrong title line", dataFile(DataFileBuilder().line(text(u"x\ty")).row(21).build()),
            DBCResultCode::DataFileEmpty, 306);
        row("short last line", dataFile(DataFileBuilder().titleLine().row(21).row(20).build()),
            DBCResultCode::DataLineFormatError, 307);
        row("long line in the middle",
            dataFile(DataFileBuilder().titleLine().row(21).row(22).row(21).build()),
            DBCResultCode::DataLineFormatError, 307);
        row("odd number of bytes", dataFile(DataFileBuilder().titleLine().bytes("x").build()),
            DBCResultCode::DataFileDecodeFailure, 310);
        row(
            "image folder cannot be made",
            [](World& world) {
                world.package.remove(u"Images"_s);
                world.package.writeFile(u"Images"_s, "a file");
            },
            DBCResultCode::FolderCreateFailure, 313);
        row(
            "disk fills up",
            [](World& world) {
                world.receiver.onEvent = [&world](const DBCEvent& event) {
                    if (event.name == DBCEventName::ImportDataLoadDidFinished)
                        world.host.setFreeBytes(0x80000);
                };
            },
            DBCResultCode::NoSpaceForImport, 301);
        row(
            "no space from the start", [](World& world) { world.host.setFreeBytes(1000); },
            DBCResultCode::NoSpace, 103);
    }
    void badFolderEndsTheImport()
    {
        QFETCH(BadFolder, bad);
        QFETCH(DBCResultCode, code);
        QFETCH(quint32, message);
        World world;
        bad.spoil(world);
        const auto before = world.package.contents();

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, code);
        QCOMPARE(world.presenter.numbers, QList<quint32> {message});
        QCOMPARE(world.package.contents(), before);
    }

    void badPackageEndsTheImport_data()
    {
        QTest::addColumn<BadFolder>("bad");
        QTest::addColumn<DBCResultCode>("code");
        const auto row
            = [](const char* name, std::function<void(World&)> spoil, DBCResultCode code) {
                  QTest::newRow(name) << BadFolder {std::move(spoil)} << code;
              };
        row(
            "no package", [](World& world) { QDir(world.package.path()).removeRecursively(); },
            DBCResultCode::FolderNotExist);
        row(
            "no store", [](World& world) { world.package.remove(u"Velmora.sqldb"_s); },
            DBCResultCode::DatabaseOpenFailure);
        row(
            "text file as store",
            [](World& world) { world.package.writeFile(u"Velmora.sqldb"_s, "these are no cards"); },
            DBCResultCode::DatabaseOpenFailure);
        row(
            "store of another model",
            [](World& world) { world.package.execute(u"ALTER TABLE ZCARD DROP COLUMN ZMEMO"_s); },
            DBCResultCode::DatabaseOpenFailure);
        row(
            "read-only store",
            [](World& world) { world.host.makeReadOnly({world.package.storePath()}); },
            DBCResultCode::BackupFailure);
        row(
            "no room for the backup",
            [](World& world) {
                // Enough for the folder, not for a copy of the package.
                world.receiver.onEvent = [&world](const DBCEvent& event) {
                    if (event.name == DBCEventName::DatabaseBackupWillBegin)
                        world.host.setFreeBytes(0x80000);
                };
            },
            DBCResultCode::NoSpaceForBackup);
    }
    void badPackageEndsTheImport()
    {
        QFETCH(BadFolder, bad);
        QFETCH(DBCResultCode, code);
        World world;
        bad.spoil(world);
        const QStringList before
            = QFile::exists(world.package.path()) ? world.package.contents().keys() : QStringList();

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, code);
        QCOMPARE(world.presenter.numbers.size(), 1);
        QVERIFY(!QFile::exists(world.backup()));
        if (!before.isEmpty())
            QCOMPARE(world.package.contents().keys(), before);
    }

    void packageThatDoesNotOpenLeavesStandardInputOpen()
    {
        World world;
        world.package.writeFile(u"Velmora.sqldb"_s, "these are no cards");

        QVERIFY(!world.importCards());
        QVERIFY(fcntl(STDIN_FILENO, F_GETFD) != -1);
        QVERIFY(!world.importCards());
        QVERIFY(fcntl(STDIN_FILENO, F_GETFD) != -1);
    }

    void emptyPackageHasNothingToExport()
    {
        World world;
        world.package.execute(u"UPDATE ZCARD SET ZDELETEDFLAG = 1"_s);

        QVERIFY(!world.exportCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::NoCards);
        QCOMPARE(world.presenter.numbers, QList<quint32> {209});
        QVERIFY(world.exportedRows().isEmpty());
    }

    void attachmentThatCannotBeWrittenStopsTheExport()
    {
        World world;
        world.receiver.onEvent = [&](const DBCEvent& event) {
            if (event.name == DBCEventName::ExportDataFetchDidFinished)
                world.home.makeFolder(u"exported/"_s + DBCInterchangeNames::rootFolderName() + u'/'
                    + DBCInterchangeNames::attachmentFolderName() + u"/1/old.txt"_s);
        };

        QVERIFY(!world.exportCards());

        QCOMPARE(world.controller->outcome().code, DBCResultCode::AttachmentExportFailure);
        QCOMPARE(world.presenter.numbers, QList<quint32> {207});
        QCOMPARE(world.exportedRows().size(), 1);
        QCOMPARE(world.exportedFile(u"Version.txt"_s).size(), 32);
    }
};

QTEST_GUILESS_MAIN(tst_conversions)
#include "tst_conversions.moc"
