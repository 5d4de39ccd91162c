// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <memory>

using Key = DBCRecordKey;

namespace {

const QString cardId = QStringLiteral("0A1B-1");

} // namespace

class tst_attachments_export : public QObject {
    Q_OBJECT

private:
    std::optional<QString> exportCard()
    {
        return _f->database->_exportAttachFile(
            TransferFixture::record({{Key::cardID, cardId}}), _target, &_f->error);
    }
    QString filesFolder() const { return _f->packagePath(QStringLiteral("Files")); }
    QString cardFolder() const { return filesFolder() + u'/' + cardId; }
    QString exportFolder() const { return _target + QStringLiteral("/6"); }
    void stored(const QString& name, const QByteArray& bytes) const
    {
        _f->package.writeFile(QStringLiteral("Files/0A1B-1/") + name, bytes);
    }
    static QString exportNameWarning()
    {
        return TransferFixture::text("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT",
            {QStringLiteral("6"), QStringLiteral("Hanako")});
    }

    std::unique_ptr<TransferFixture> _f;
    QString _target;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _target = _f->home.path(QStringLiteral("export"));
    }
    void cleanup() { _f.reset(); }

    void filesAreTakenOutUnderTheRecordNumber()
    {
        stored(QStringLiteral("a.txt"), "first");
        stored(QStringLiteral("b.txt"), "second");
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(contentsOf(exportFolder() + QStringLiteral("/a.txt")), QByteArray("first"));
        QCOMPARE(contentsOf(exportFolder() + QStringLiteral("/b.txt")), QByteArray("second"));
    }

    void emptyCardFolderExportsNothingAndMakesNoFolder()
    {
        QVERIFY(QDir(filesFolder()).mkdir(cardId));
        QCOMPARE(exportCard(), QStringLiteral(""));
        QVERIFY(!_f->error);
        QVERIFY(!QFileInfo::exists(exportFolder()));
    }

    void cardWithoutFolderExportsNothing() { QCOMPARE(exportCard(), QStringLiteral("")); }

    void fileInPlaceOfTheCardFolderExportsNothing()
    {
        _f->package.writeFile(QStringLiteral("Files/") + cardId, "a file");
        QCOMPARE(exportCard(), QStringLiteral(""));
        QVERIFY(!_f->error);
    }

    void cardWithoutIdExportsNothing()
    {
        stored(QStringLiteral("a.txt"), "a");
        for (const QString& id : {QString(), QStringLiteral("  ")}) {
            QCOMPARE(_f->database->_exportAttachFile(
                         TransferFixture::record({{Key::cardID, id}}), _target, &_f->error),
                QStringLiteral(""));
        }
        QVERIFY(!_f->error);
        QVERIFY(!QFileInfo::exists(_target));
    }

    void cardIdThatLeadsOutOfThePackageExportsNothing()
    {
        _f->home.writeFile(QStringLiteral("secrets/key.txt"), "secret");
        QCOMPARE(_f->database->_exportAttachFile(
                     TransferFixture::record({{Key::cardID, QStringLiteral("../../secrets")}}),
                     _target, &_f->error),
            QStringLiteral(""));
        QVERIFY(!QFileInfo::exists(exportFolder()));
    }

    void exportWithoutAnArgumentGivesNothing()
    {
        stored(QStringLiteral("a.txt"), "a");
        const DBCRecord record = TransferFixture::record({{Key::cardID, cardId}});
        DBCRecord withoutNumber = record;
        withoutNumber.removeValue(Key::recordNo);
        QVERIFY(!_f->database->_exportAttachFile(record, {}, &_f->error));
        QVERIFY(!_f->database->_exportAttachFile(record, _target, nullptr));
        QVERIFY(!_f->database->_exportAttachFile(withoutNumber, _target, &_f->error));
        _f->database->setDBPath({});
        QVERIFY(!_f->database->_exportAttachFile(record, _target, &_f->error));
        QVERIFY(!_f->error);
    }

    void attachmentFolderThatCannotBeMadeIsAnError()
    {
        stored(QStringLiteral("a.txt"), "a");
        _target = _f->home.path(QStringLiteral("missing/folder"));
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), _target);
        QVERIFY(!copyFailureWasLogged(_f->log));
    }

    void cardFolderThatCannotBeMadeOnExportIsAnError()
    {
        stored(QStringLiteral("a.txt"), "a");
        _f->home.writeFile(QStringLiteral("export/6"), "a file");
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), exportFolder());
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void cardFolderThatCannotBeMeasuredIsAnError()
    {
        stored(QStringLiteral("a.txt"), "a");
        ScopedHost host;
        host->diskUsageProgram = QStringLiteral("/bin/false");
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void exportNeedsTheFoldersSizeAndTheMargin()
    {
        stored(QStringLiteral("a.txt"), QByteArray(100000, 'a'));
        const quint64 needed = diskUsage(cardFolder()) + 524288;
        ScopedHost host;
        host.setFreeBytes(needed - 1);
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForExport);
        QVERIFY(!_f->error.pathName());

        _f->error = {};
        host.setFreeBytes(needed);
        QCOMPARE(exportCard(), QStringLiteral("6"));
    }

    void failedExportCopyNamesTheTwoFolders()
    {
        stored(QStringLiteral("a.txt"), "new");
        stored(QStringLiteral("b.txt"), "b");
        _f->home.writeFile(QStringLiteral("export/6/a.txt"), "old");
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentExportFailure);
        QCOMPARE(
            _f->error.pathName(), QStringLiteral("[%1 - %2]").arg(cardFolder(), exportFolder()));
        QVERIFY(copyFailureWasLogged(_f->log));
        QCOMPARE(entries(exportFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(contentsOf(exportFolder() + QStringLiteral("/a.txt")), QByteArray("old"));
    }

    void namesThatOtherSystemsRefuseAreLeftOut()
    {
        stored(QStringLiteral("a.txt"), "a");
        stored(QStringLiteral(".hidden"), "h");
        stored(QStringLiteral("what?.txt"), "q");
        stored(QStringLiteral("b:c.txt"), "c");
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QVERIFY(!_f->error);
        QCOMPARE(entries(exportFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(_f->log.warnings,
            (QStringList {exportNameWarning(), exportNameWarning(), exportNameWarning()}));
    }

    void foldersInTheCardFolderAreLeftOutWithoutAWord()
    {
        stored(QStringLiteral("a.txt"), "a");
        stored(QStringLiteral("folder/inside.txt"), "i");
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QCOMPARE(entries(exportFolder()), QStringList {QStringLiteral("a.txt")});
        QVERIFY(_f->log.isEmpty());
    }

    void hiddenFolderIsRefusedForItsName()
    {
        stored(QStringLiteral(".folder/inside.txt"), "i");
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QCOMPARE(_f->log.warnings, QStringList {exportNameWarning()});
    }

    void specialEntriesAreLeftOutOfTheExport()
    {
        stored(QStringLiteral("a.txt"), "a");
        makeSpecialEntries(cardFolder());
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QCOMPARE(entries(exportFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(_f->log.warnings,
            specialWarnings("IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT", QStringLiteral("6")));
    }
};

QTEST_GUILESS_MAIN(tst_attachments_export)
#include "tst_attachments_export.moc"
