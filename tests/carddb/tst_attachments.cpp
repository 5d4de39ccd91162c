// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/carddb/TransferFixture.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <memory>

using Key = DBCRecordKey;

namespace {

const QString cardId = QStringLiteral("0A1B-1");
const QString named = QStringLiteral("plans");

// Everything in a folder, its hidden files and links that lead nowhere included.
QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

void makeSpecialEntries(const QString& folder)
{
    QVERIFY(QFile::link(QStringLiteral("a.txt"), folder + QStringLiteral("/b-link")));
    QVERIFY(QFile::link(QStringLiteral("none"), folder + QStringLiteral("/c-dangling")));
    QVERIFY(QFile::link(QStringLiteral("/usr"), folder + QStringLiteral("/d-folder-link")));
    const QString pipe = folder + QStringLiteral("/e-pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);

    // A socket's path must be short, however long that of the temporary folder is.
    const int directory = open(QFile::encodeName(folder).constData(), O_PATH | O_CLOEXEC);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(directory) + "/f-socket";
    std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
    // bind() takes the general form of an address.
    QCOMPARE(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    close(socket);
    close(directory);
}

const QStringList specialNames {QStringLiteral("b-link"), QStringLiteral("c-dangling"),
    QStringLiteral("d-folder-link"), QStringLiteral("e-pipe"), QStringLiteral("f-socket")};

// What the system says a folder takes, in bytes.
quint64 diskUsage(const QString& folder)
{
    QProcess process;
    process.start(QStringLiteral("du"), {QStringLiteral("-sk"), folder});
    process.waitForFinished();
    return process.readAllStandardOutput().split('\t').value(0).toULongLong() * 1024;
}

} // namespace

class tst_attachments : public QObject {
    Q_OBJECT

private:
    std::optional<QString> add(const QString& folder = named)
    {
        return _f->database->_addAttachFileIntoDB(_f->folder.path(),
            TransferFixture::record({{Key::attachmentFile, folder}}), cardId, &_f->error);
    }
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
    static QString nameWarning()
    {
        return TransferFixture::text(
            "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT", {QStringLiteral("7"), QStringLiteral("Hanako")});
    }
    static QString exportNameWarning()
    {
        return TransferFixture::text("IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT",
            {QStringLiteral("6"), QStringLiteral("Hanako")});
    }
    static QStringList specialWarnings(const char* key, const QString& number)
    {
        QStringList warnings;
        for (const QString& name : specialNames)
            warnings << TransferFixture::text(key, {number, QStringLiteral("Hanako"), name});
        return warnings;
    }
    bool copyFailureWasLogged() const
    {
        return _f->log.errors.contains(
            TransferFixture::text("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE"));
    }
    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
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

    // --- import ---

    void filesAreTakenInUnderTheCardId()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "first");
        _f->folder.attachment(named, QString(QChar(0x56F3)) + QStringLiteral(" 1.dwg"), "second");
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(contents(cardFolder() + QStringLiteral("/a.txt")), QByteArray("first"));
        QCOMPARE(contents(cardFolder() + u'/' + QChar(0x56F3) + QStringLiteral(" 1.dwg")),
            QByteArray("second"));
    }

    void onlyThePlainNameIsTaken()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        _f->folder.attachment(named, QStringLiteral(".hidden"), "h");
        _f->folder.attachment(named, QStringLiteral("a:b.txt"), "c");
        _f->folder.attachment(named, QStringLiteral("subfolder/inside.txt"), "s");
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(_f->log.warnings, (QStringList {nameWarning(), nameWarning()}));
        QVERIFY(_f->log.errors.isEmpty());
    }

    void browserSettingsAreLeftOutWithoutAWord()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        _f->folder.attachment(named, QStringLiteral(".DS_Store"), "d");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
        QVERIFY(_f->log.isEmpty());
    }

    void browserSettingsInTheCardsFolderAreRemoved()
    {
        stored(QStringLiteral(".DS_Store"), "old");
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
    }

    void recordWithoutAttachmentsGivesAnEmptyName_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << QString(QStringLiteral(" \t") + QChar(0x3000));
    }
    void recordWithoutAttachmentsGivesAnEmptyName()
    {
        QFETCH(QString, folder);
        _f->package.remove(QStringLiteral("Files"));
        QCOMPARE(add(folder), QStringLiteral(""));
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
        _f->package.remove(QStringLiteral("Files"));
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
    }

    void unusablePackageIsAnImportFailure()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        ScopedHost host;
        host.makeReadOnly({_f->package.storePath()});
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged());
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void filesFolderThatCannotBeMadeIsAnError()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        _f->package.remove(QStringLiteral("Files"));
        _f->package.writeFile(QStringLiteral("Files"), "a file");
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), filesFolder());
    }

    void missingFolderIsAnImportFailure()
    {
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->log.errors,
            QStringList {TransferFixture::text(
                "IDS_LOG_WRN_FILE_NO_EXISTS", {_f->folder.attachmentPath(named)})});
    }

    void fileInPlaceOfTheFolderIsAnImportFailure()
    {
        QFile file(_f->folder.attachmentPath(named));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void unreadableFolderIsAnImportFailure()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        ScopedHost host;
        host.makeUnreadable({_f->folder.attachmentPath(named)});
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged());
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void folderThatCannotBeMeasuredIsAnError()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        ScopedHost host;
        host->diskUsageProgram = QStringLiteral("/bin/false");
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void folderThatGoesAwayBeforeItIsListedIsAnImportFailure()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        const QString program = _f->home.writeFile(
            QStringLiteral("du"), "#!/bin/sh\nrm -r \"$3\" && printf '4\\t'\n");
        QCOMPARE(chmod(QFile::encodeName(program).constData(), 0700), 0);
        ScopedHost host;
        host->diskUsageProgram = program;
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged());
    }

    void importNeedsTheFoldersSizeAndTheMargin()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), QByteArray(100000, 'a'));
        const quint64 needed = diskUsage(_f->folder.attachmentPath(named)) + 524288;
        QVERIFY(needed > 524288 + 100000);
        ScopedHost host;
        host.setFreeBytes(needed - 1);
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
        QVERIFY(!QFileInfo::exists(cardFolder()));

        _f->error = {};
        host.setFreeBytes(needed);
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
    }

    void cardFolderThatCannotBeMadeIsAnError()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        _f->package.writeFile(QStringLiteral("Files/") + cardId, "a file");
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), cardFolder());
    }

    void failedImportCopyNamesTheTwoFiles()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        _f->folder.attachment(named, QStringLiteral("b.txt"), "new");
        _f->folder.attachment(named, QStringLiteral("c.txt"), "c");
        stored(QStringLiteral("b.txt"), "old");
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->error.pathName(),
            QStringLiteral("[%1 - %2]")
                .arg(_f->folder.attachmentPath(named, QStringLiteral("b.txt")),
                    cardFolder() + QStringLiteral("/b.txt")));
        QVERIFY(copyFailureWasLogged());
        // What was copied before stays, nothing comes after, and nothing is replaced.
        QCOMPARE(entries(cardFolder()),
            (QStringList {QStringLiteral("a.txt"), QStringLiteral("b.txt")}));
        QCOMPARE(contents(cardFolder() + QStringLiteral("/b.txt")), QByteArray("old"));
    }

    void specialEntriesAreLeftOutWithAWarningEach()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        makeSpecialEntries(_f->folder.attachmentPath(named));
        QCOMPARE(add(), cardId);
        QVERIFY(!_f->error);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(_f->log.warnings,
            specialWarnings("IDS_LOG_WRN_ATTACH_NOT_REGULAR", QStringLiteral("7")));
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
        // The temporary folder cannot remove what Qt cannot name.
        QCOMPARE(unlink(source.constData()), 0);
        QCOMPARE(unlink(target.constData()), 0);
    }

    void copiesKeepPermissionsAndTimes()
    {
        _f->folder.attachment(named, QStringLiteral("run.sh"), "x");
        const QByteArray source
            = QFile::encodeName(_f->folder.attachmentPath(named, QStringLiteral("run.sh")));
        QCOMPARE(chmod(source.constData(), 0750), 0);
        const timespec times[2] = {{1000000000, 5}, {1000000001, 6}};
        QCOMPARE(utimensat(AT_FDCWD, source.constData(), times, 0), 0);
        QCOMPARE(add(), cardId);

        struct stat status { };
        const QByteArray copy = QFile::encodeName(cardFolder() + QStringLiteral("/run.sh"));
        QCOMPARE(stat(copy.constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t(0750));
        QCOMPARE(status.st_mtim.tv_sec, time_t(1000000001));
        QCOMPARE(status.st_mtim.tv_nsec, 6L);
    }

    void folderIsFoundWithoutRegardToCase()
    {
        _f->folder.attachment(QStringLiteral("PLANS"), QStringLiteral("a.txt"), "a");
        QCOMPARE(add(), cardId);
        QCOMPARE(entries(cardFolder()), QStringList {QStringLiteral("a.txt")});
    }

    void linkedFolderIsMeasuredWhereItLies()
    {
        _f->folder.attachment(
            QStringLiteral("real"), QStringLiteral("a.txt"), QByteArray(100000, 'a'));
        QVERIFY(QFile::link(QStringLiteral("real"), _f->folder.attachmentPath(named)));
        ScopedHost host;
        host.setFreeBytes(524288 + 50000);
        QCOMPARE(add(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::NoSpaceForImport);
    }

    void folderThatLeadsOutIsMissingAndLoggedWithItsLine_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("parent folder") << QStringLiteral("../../secrets");
        QTest::newRow("link") << QStringLiteral("link");
    }
    void folderThatLeadsOutIsMissingAndLoggedWithItsLine()
    {
        QFETCH(QString, name);
        _f->home.writeFile(QStringLiteral("secrets/key.txt"), "secret");
        QVERIFY(QFile::link(_f->home.path(QStringLiteral("secrets")),
            _f->folder.attachmentPath(QStringLiteral("link"))));
        QCOMPARE(add(name), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QCOMPARE(_f->log.warnings,
            QStringList {TransferFixture::text("IDS_LOG_WRN_NAME_LEADS_OUT",
                {QStringLiteral("7"), QStringLiteral("Hanako"), name,
                    _f->folder.attachmentFolder()})});
        QVERIFY(!QFileInfo::exists(cardFolder()));
    }

    void wholeAttachmentFolderIsNoCardsFolder()
    {
        _f->folder.attachment(named, QStringLiteral("a.txt"), "a");
        QCOMPARE(add(QStringLiteral(".")), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
    }

    // --- export ---

    void filesAreTakenOutUnderTheRecordNumber()
    {
        stored(QStringLiteral("a.txt"), "first");
        stored(QStringLiteral("b.txt"), "second");
        QCOMPARE(exportCard(), QStringLiteral("6"));
        QVERIFY(!_f->error);
        QVERIFY(_f->log.isEmpty());
        QCOMPARE(contents(exportFolder() + QStringLiteral("/a.txt")), QByteArray("first"));
        QCOMPARE(contents(exportFolder() + QStringLiteral("/b.txt")), QByteArray("second"));
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
        QVERIFY(!copyFailureWasLogged());
    }

    void cardFolderThatCannotBeMadeOnExportIsAnError()
    {
        stored(QStringLiteral("a.txt"), "a");
        _f->home.writeFile(QStringLiteral("export/6"), "a file");
        QCOMPARE(exportCard(), QStringLiteral(""));
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
        QCOMPARE(_f->error.pathName(), exportFolder());
        QVERIFY(copyFailureWasLogged());
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
        QVERIFY(copyFailureWasLogged());
        QCOMPARE(entries(exportFolder()), QStringList {QStringLiteral("a.txt")});
        QCOMPARE(contents(exportFolder() + QStringLiteral("/a.txt")), QByteArray("old"));
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

QTEST_GUILESS_MAIN(tst_attachments)
#include "tst_attachments.moc"
