// SPDX-License-Identifier: GPL-3.0-or-later
// Tests whole conversions of real folders and packages, without substitutes for parts of the
// program.
#include "tests/operation/ConversionWorld.h"
#include "tests/support/FolderSnapshot.h"

#include <QImage>
#include <QtTest>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;
using World = ConversionWorld;

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
