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
const QString named = u"plans"_s;

} // namespace

class tst_attachments_import : public QObject {
    Q_OBJECT

private:
    std::optional<QString> add(const QString& folder = named)
    {
        return _f->database->_addAttachFileIntoDB(_f->folder.path(),
            TransferFixture::record({{Key::attachmentFile, folder}}), cardId, &_f->error);
    }
    QString filesFolder() const { return _f->packagePath(u"Files"_s); }
    QString cardFolder() const { return filesFolder() + u'/' + cardId; }
    void stored(const QString& name, const QByteArray& bytes) const
    {
        _f->package.writeFile(u"Files/0A1B-1/"_s + name, bytes);
    }
    static QString nameWarning()
    {
        return TransferFixture::text("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT", {u"7"_s, u"Hanako"_s});
    }

    std::unique_ptr<TransferFixture> _f;

private Q_SLOTS:
    void init()
    {
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
    }
    void cleanup() { _f.reset(); }

    void filesAreTakenInUnderTheCardId()
    {
        _f->folder.attachment(named, u"a.txt"_s, "first");
        _f->folder.attachment(named, QString(QChar(0x56F3)) + u" 1.dwg"_s, "second");
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(contentsOf(cardFolder() + u"/a.txt"_s), QByteArray("first"));
        QCOMPARE(
            contentsOf(cardFolder() + u'/' + QChar(0x56F3) + u" 1.dwg"_s), QByteArray("second"));
    }

    void onlyThePlainNameIsTaken()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->folder.attachment(named, u".hidden"_s, "h");
        _f->folder.attachment(named, u"a:b.txt"_s, "c");
        _f->folder.attachment(named, u"subfolder/inside.txt"_s, "s");
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
        QCOMPARE(_f->log.warnings, (QStringList {nameWarning(), nameWarning()}));
        QVERIFY(_f->log.errors.isEmpty());
    }

    void browserSettingsAreLeftOutWithoutAWord()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->folder.attachment(named, u".DS_Store"_s, "d");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
        QVERIFY(_f->log.isEmpty());
    }

    void browserSettingsInTheCardsFolderAreRemoved()
    {
        stored(u".DS_Store"_s, "old");
        _f->folder.attachment(named, u"a.txt"_s, "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
    }

    void recordWithoutAttachmentsGivesAnEmptyName_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QString(u" \t"_s + QChar(0x3000));
    }
    void recordWithoutAttachmentsGivesAnEmptyName()
    {
        QFETCH(QString, folder);
        _f->package.remove(u"Files"_s);
        QCOMPARE(add(folder), u""_s);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QVERIFY(!QFileInfo::exists(filesFolder()));
    }

    void emptyFolderGivesTheCardId()
    {
        _f->folder.emptyAttachmentFolder(named);
        QCOMPARE(add(), cardId);
        QVERIFY(QFileInfo(cardFolder()).isDir());
    }

    void importWithoutAnArgumentGivesNothing()
    {
        const DBCRecord record = TransferFixture::record({{Key::attachmentFile, named}});
        const QString folder = _f->folder.path();
        QVERIFY(!_f->database->_addAttachFileIntoDB({}, record, cardId, &_f->error));
        QVERIFY(!_f->database->_addAttachFileIntoDB(folder, record, {}, &_f->error));
        QVERIFY(!_f->database->_addAttachFileIntoDB(folder, record, cardId, nullptr));
        QVERIFY(!_f->error);
    }

    void filesFolderIsMadeOnDemand()
    {
        _f->package.remove(u"Files"_s);
        _f->folder.attachment(named, u"a.txt"_s, "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
    }

    void unusablePackageIsAnImportFailure()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        ScopedHost host;
        host.makeReadOnly({_f->package.storePath()});
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(_f->log));
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void filesFolderThatCannotBeMadeIsAnError()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->package.remove(u"Files"_s);
        _f->package.writeFile(u"Files"_s, "a file");
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), filesFolder());
    }

    void missingFolderIsAnImportFailure()
    {
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->log.errors,
            QStringList {TransferFixture::text(
                "IDS_LOG_WRN_FILE_NO_EXISTS", {_f->folder.attachmentPath(named)})});
    }

    void fileInPlaceOfTheFolderIsAnImportFailure()
    {
        QFile file(_f->folder.attachmentPath(named));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void unreadableFolderIsAnImportFailure()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        ScopedHost host;
        host.makeUnreadable({_f->folder.attachmentPath(named)});
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(_f->log));
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void folderThatCannotBeMeasuredIsAnError()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        ScopedHost host;
        host->diskUsageProgram = u"/bin/false"_s;
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void folderThatGoesAwayBeforeItIsListedIsAnImportFailure()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        const QString program
            = _f->home.writeFile(u"du"_s, "#!/bin/sh\nrm -r \"$3\" && printf '4\\t'\n");
        QCOMPARE(chmod(QFile::encodeName(program).constData(), 0700), 0);
        ScopedHost host;
        host->diskUsageProgram = program;
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void importNeedsTheFoldersSizeAndTheMargin()
    {
        _f->folder.attachment(named, u"a.txt"_s, QByteArray(100000, 'a'));
        const quint64 needed = diskUsage(_f->folder.attachmentPath(named)) + 524288;
        QVERIFY(needed > 524288 + 100000);
        ScopedHost host;
        host.setFreeBytes(needed - 1);
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!QFileInfo::exists(cardFolder()));

        _f->error = {};
        host.setFreeBytes(needed);
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
    }

    void cardFolderThatCannotBeMadeIsAnError()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->package.writeFile(u"Files/"_s + cardId, "a file");
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), cardFolder());
    }

    void failedImportCopyNamesTheTwoFiles()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->folder.attachment(named, u"b.txt"_s, "new");
        _f->folder.attachment(named, u"c.txt"_s, "c");
        stored(u"b.txt"_s, "old");
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->error.pathName(),
            u"[%1 - %2]"_s.arg(
                _f->folder.attachmentPath(named, u"b.txt"_s), cardFolder() + u"/b.txt"_s));
        QVERIFY(copyFailureWasLogged(_f->log));
        // The file copied before the failure remains; no further file is copied or replaced.
        QCOMPARE(entries(cardFolder()), (QStringList {u"a.txt"_s, u"b.txt"_s}));
        QCOMPARE(contentsOf(cardFolder() + u"/b.txt"_s), QByteArray("old"));
    }

    void specialEntriesAreLeftOutWithAWarningEach()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        makeSpecialEntries(_f->folder.attachmentPath(named));
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
        QCOMPARE(_f->log.warnings, specialWarnings("IDS_LOG_WRN_ATTACH_NOT_REGULAR", u"7"_s));
    }

    void nameThatIsNoUtf8IsTakenAsItIs()
    {
        _f->folder.emptyAttachmentFolder(named);
        const QByteArray source
            = QFile::encodeName(_f->folder.attachmentPath(named)) + "/\xff\xfe.txt";
        const QByteArray target = QFile::encodeName(cardFolder()) + "/\xff\xfe.txt";
        const int descriptor = open(source.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        QVERIFY(descriptor >= 0);
        close(descriptor);
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        // Remove these files here, because the temporary folder's destructor cannot remove entries
        // whose names Qt cannot represent.
        QCOMPARE(unlink(source.constData()), 0);
        QCOMPARE(unlink(target.constData()), 0);
    }

    void copiesKeepPermissionsAndTimes()
    {
        _f->folder.attachment(named, u"run.sh"_s, "x");
        const QByteArray source = QFile::encodeName(_f->folder.attachmentPath(named, u"run.sh"_s));
        QCOMPARE(chmod(source.constData(), 0750), 0);
        const timespec times[2] = {{1000000000, 5}, {1000000001, 6}};
        QCOMPARE(utimensat(AT_FDCWD, source.constData(), times, 0), 0);
        QCOMPARE(add(), cardId);

        struct stat status { };
        const QByteArray copy = QFile::encodeName(cardFolder() + u"/run.sh"_s);
        QCOMPARE(stat(copy.constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t(0750));
        QCOMPARE(status.st_mtim.tv_sec, time_t(1000000001));
        QCOMPARE(status.st_mtim.tv_nsec, 6L);
    }

    void folderIsFoundWithoutRegardToCase()
    {
        _f->folder.attachment(u"PLANS"_s, u"a.txt"_s, "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {u"a.txt"_s});
    }

    void linkedFolderIsMeasuredWhereItLies()
    {
        _f->folder.attachment(u"real"_s, u"a.txt"_s, QByteArray(100000, 'a'));
        QVERIFY(QFile::link(u"real"_s, _f->folder.attachmentPath(named)));
        ScopedHost host;
        host.setFreeBytes(524288 + 50000);
        QCOMPARE(add(), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
    }

    void folderThatLeadsOutIsMissingAndLoggedWithItsLine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent folder") << u"../../secrets"_s;
        QTest::newRow("link") << u"link"_s;
    }
    void folderThatLeadsOutIsMissingAndLoggedWithItsLine()
    {
        QFETCH(QString, name);
        _f->home.writeFile(u"secrets/key.txt"_s, "secret");
        QVERIFY(QFile::link(_f->home.path(u"secrets"_s), _f->folder.attachmentPath(u"link"_s)));
        QCOMPARE(add(name), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->log.warnings,
            QStringList {TransferFixture::text("IDS_LOG_WRN_NAME_LEADS_OUT",
                {u"7"_s, u"Hanako"_s, name, _f->folder.attachmentFolder()})});
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void wholeAttachmentFolderIsNoCardsFolder()
    {
        _f->folder.attachment(named, u"a.txt"_s, "a");
        QCOMPARE(add(u"."_s), u""_s);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
    }
};

QTEST_GUILESS_MAIN(tst_attachments_import)
#include "tst_attachments_import.moc"
