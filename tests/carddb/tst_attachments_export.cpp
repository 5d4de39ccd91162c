// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const QString cardId = u"0A1B-1"_s;

} // namespace

class tst_attachments_export : public QObject {
    Q_OBJECT

private:
    std::optional<QString> exportCard()
    {
        return _f->database->_exportAttachFile(
            TransferFixture::record({{Key::cardID, cardId}}), _target, &_f->error);
    }
    QString filesFolder() const { return _f->packagePath(u"Files"_s); }
    QString cardFolder() const { return filesFolder() + u'/' + cardId; }
    QString exportFolder() const { return _target + u"/6"_s; }
    void stored(const QString& name, const QByteArray& bytes) const
    {
        _f->package.writeFile(u"Files/0A1B-1/"_s + name, bytes);
    }
    static QString exportNameWarning()
    {
        return TransferFixture::text(
            "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT", {u"6"_s, u"Hanako"_s});
    }

    std::unique_ptr<TransferFixture> _f;
    QString _target;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _target = _f->home.path(u"export"_s);
    }
    void cleanup() { _f.reset(); }

    void filesAreTakenOutUnderTheRecordNumber()
    {
        stored(u"a.txt"_s, "first");
        stored(u"b.txt"_s, "second");
        QCOMPARE(exportCard(), u"6"_s);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(contentsOf(exportFolder() + u"/a.txt"_s), QByteArray("first"));
        QCOMPARE(contentsOf(exportFolder() + u"/b.txt"_s), QByteArray("second"));
    }

    void emptyCardFolderExportsNothingAndMakesNoFolder()
    {
        QVERIFY(QDir(filesFolder()).mkdir(cardId));
        QCOMPARE(exportCard(), u""_s);
        QVERIFY(!_f->error);
        QVERIFY(!QFileInfo::exists(exportFolder()));
    }

    void cardWithoutFolderExportsNothing() { QCOMPARE(exportCard(), u""_s); }

    void fileInPlaceOfTheCardFolderExportsNothing()
    {
        _f->package.writeFile(u"Files/"_s + cardId, "a file");
        QCOMPARE(exportCard(), u""_s);
        QVERIFY(!_f->error);
    }

    void cardWithoutIdExportsNothing()
    {
        stored(u"a.txt"_s, "a");
        for (const QString& id : {QString(), u"  "_s}) {
            QCOMPARE(_f->database->_exportAttachFile(
                         TransferFixture::record({{Key::cardID, id}}), _target, &_f->error),
                u""_s);
        }
        QVERIFY(!_f->error);
        QVERIFY(!QFileInfo::exists(_target));
    }

    void cardIdThatLeadsOutOfThePackageExportsNothing()
    {
        _f->home.writeFile(u"secrets/key.txt"_s, "secret");
        QCOMPARE(
            _f->database->_exportAttachFile(
                TransferFixture::record({{Key::cardID, u"../../secrets"_s}}), _target, &_f->error),
            u""_s);
        QVERIFY(!QFileInfo::exists(exportFolder()));
    }

    void exportWithoutAnArgumentGivesNothing()
    {
        stored(u"a.txt"_s, "a");
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
        stored(u"a.txt"_s, "a");
        _target = _f->home.path(u"missing/folder"_s);
        QCOMPARE(exportCard(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), _target);
        QVERIFY(!copyFailureWasLogged(_f->log));
    }

    void cardFolderThatCannotBeMadeOnExportIsAnError()
    {
        stored(u"a.txt"_s, "a");
        _f->home.writeFile(u"export/6"_s, "a file");
        QCOMPARE(exportCard(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), exportFolder());
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void cardFolderThatCannotBeMeasuredIsAnError()
    {
        stored(u"a.txt"_s, "a");
        ScopedHost host;
        host->diskUsageProgram = u"/bin/false"_s;
        QCOMPARE(exportCard(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void exportNeedsTheFoldersSizeAndTheMargin()
    {
        stored(u"a.txt"_s, QByteArray(100000, 'a'));
        const quint64 needed = diskUsage(cardFolder()) + 524288;
        ScopedHost host;
        host.setFreeBytes(needed - 1);
        QCOMPARE(exportCard(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForExport);
        QVERIFY(!_f->error.pathName());

        _f->error = {};
        host.setFreeBytes(needed);
        QCOMPARE(exportCard(), u"6"_s);
    }

    void failedExportCopyNamesTheTwoFolders()
    {
        stored(u"a.txt"_s, "new");
        stored(u"b.txt"_s, "b");
        _f->home.writeFile(u"export/6/a.txt"_s, "old");
        QCOMPARE(exportCard(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentExportFailure);
        QCOMPARE(_f->error.pathName(), u"[%1 - %2]"_s.arg(cardFolder(), exportFolder()));
        QVERIFY(copyFailureWasLogged(_f->log));
        QCOMPARE(entries(exportFolder()), QStringList {u"a.txt"_s});
        QCOMPARE(contentsOf(exportFolder() + u"/a.txt"_s), QByteArray("old"));
    }

    void namesThatOtherSystemsRefuseAreLeftOut()
    {
        stored(u"a.txt"_s, "a");
        stored(u".hidden"_s, "h");
        stored(u"what?.txt"_s, "q");
        stored(u"b:c.txt"_s, "c");
        QCOMPARE(exportCard(), u"6"_s);
        QVERIFY(!_f->error);
        QCOMPARE(entries(exportFolder()), QStringList {u"a.txt"_s});
        QCOMPARE(_f->log.warnings,
            (QStringList {exportNameWarning(), exportNameWarning(), exportNameWarning()}));
    }

    void foldersInTheCardFolderAreLeftOutWithoutAWord()
    {
        stored(u"a.txt"_s, "a");
        stored(u"folder/inside.txt"_s, "i");
        QCOMPARE(exportCard(), u"6"_s);
        QCOMPARE(entries(exportFolder()), QStringList {u"a.txt"_s});
        QVERIFY(_f->log.isEmpty());
    }

    void hiddenFolderIsRefusedForItsName()
    {
        stored(u".folder/inside.txt"_s, "i");
        QCOMPARE(exportCard(), u"6"_s);
        QCOMPARE(_f->log.warnings, QStringList {exportNameWarning()});
    }

    void specialEntriesAreLeftOutOfTheExport()
    {
        stored(u"a.txt"_s, "a");
        makeSpecialEntries(cardFolder());
        QCOMPARE(exportCard(), u"6"_s);
        QCOMPARE(entries(exportFolder()), QStringList {u"a.txt"_s});
        QCOMPARE(
            _f->log.warnings, specialWarnings("IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT", u"6"_s));
    }
};

QTEST_GUILESS_MAIN(tst_attachments_export)
#include "tst_attachments_export.moc"
