// SPDX-License-Identifier: GPL-3.0-or-later
// Tests whole conversions of bad folders and bad packages. Each kind of defect must end the
// conversion with its own error and leave the package as it was.
#include "tests/operation/ConversionWorld.h"

#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using World = ConversionWorld;

namespace {

struct Defect {
    std::function<void(World&)> inflict;
};

} // namespace

Q_DECLARE_METATYPE(Defect)

class tst_conversionInput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void badFolderEndsTheImport_data()
    {
        QTest::addColumn<Defect>("bad");
        QTest::addColumn<DBCResultCode>("code");
        QTest::addColumn<quint32>("message");
        const auto row = [](const char* name, std::function<void(World&)> spoil, DBCResultCode code,
                             quint32 message) {
            QTest::newRow(name) << Defect {std::move(spoil)} << code << message;
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
        QFETCH(Defect, bad);
        QFETCH(DBCResultCode, code);
        QFETCH(quint32, message);
        World world;
        bad.inflict(world);
        const auto before = world.package.contents();

        QVERIFY(!world.importCards());

        QCOMPARE(world.controller->outcome().code, code);
        QCOMPARE(world.presenter.numbers, QList<quint32> {message});
        QCOMPARE(world.package.contents(), before);
    }

    void badPackageEndsTheImport_data()
    {
        QTest::addColumn<Defect>("bad");
        QTest::addColumn<DBCResultCode>("code");
        const auto row
            = [](const char* name, std::function<void(World&)> spoil, DBCResultCode code) {
                  QTest::newRow(name) << Defect {std::move(spoil)} << code;
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
                // These free bytes are enough to import the folder, but not to back up the package.
                world.receiver.onEvent = [&world](const DBCEvent& event) {
                    if (event.name == DBCEventName::DatabaseBackupWillBegin)
                        world.host.setFreeBytes(0x80000);
                };
            },
            DBCResultCode::NoSpaceForBackup);
    }
    void badPackageEndsTheImport()
    {
        QFETCH(Defect, bad);
        QFETCH(DBCResultCode, code);
        World world;
        bad.inflict(world);
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
};

QTEST_GUILESS_MAIN(tst_conversionInput)
#include "tst_conversionInput.moc"
