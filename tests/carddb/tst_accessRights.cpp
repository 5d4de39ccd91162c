// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the card database reports files and folders that the user may not read or write. The
// tests set real access rights, and drop root's rights so that these count.
#include "carddb/DBCPackageCreator.h"
#include "carddb/DBCPackageVerifier.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/StandardInputKeeper.h"

#include <QFileInfo>
#include <QTest>

#include <cerrno>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const QString cardId = u"0A1B-1"_s;
const QString named = u"plans"_s;
const QString nothing = u""_s;

// The system's reason for a refused access, in the user's language.
QString refused()
{
    return QString::fromLocal8Bit(std::strerror(EACCES));
}

constexpr mode_t unreadable = 0;
constexpr mode_t notToBeListed = S_IWUSR | S_IXUSR;
constexpr mode_t notToBeEntered = S_IRUSR | S_IWUSR;
constexpr mode_t readOnlyFolder = S_IRUSR | S_IXUSR;
constexpr mode_t readOnlyFile = S_IRUSR;

} // namespace

class tst_accessRights : public QObject {
    Q_OBJECT

private:
    std::optional<QString> importAttachments()
    {
        return _f->database->_addAttachFileIntoDB(_f->folder.path(),
            TransferFixture::record({{Key::attachmentFile, named}}), cardId, &_f->error);
    }
    std::optional<QString> exportAttachments()
    {
        return _f->database->_exportAttachFile(TransferFixture::record({{Key::cardID, cardId}}),
            _f->home.path(u"export"_s), &_f->error);
    }
    std::optional<QString> importImage()
    {
        return _f->database->_addImageFileIntoDB(_f->folder.path(),
            TransferFixture::record({{Key::face_Image_File, u"1.jpg"_s}}), cardId, &_f->error);
    }

    StandardInputKeeper _standardInput;
    std::unique_ptr<AsOrdinaryUser> _user;
    std::unique_ptr<TransferFixture> _f;

private Q_SLOTS:
    void init()
    {
        _user = std::make_unique<AsOrdinaryUser>();
        _f = std::make_unique<TransferFixture>();
        QVERIFY(_f->database);
        _f->folder.attachment(named, u"a.txt"_s, "a");
        _f->folder.image(u"1.jpg"_s, JpegBuilder(30, 20).bytes());
        _f->package.writeFile(u"Files/Other/a.txt"_s, "a");
    }
    void cleanup()
    {
        _f.reset();
        _user.reset();
    }

    void attachmentThatCannotBeReadStopsTheImport()
    {
        const QString path = _f->folder.attachmentPath(named, u"a.txt"_s);
        const ScopedMode mode(path, unreadable);
        QCOMPARE(importAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(_f->error.pathName()->contains(path));
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void attachmentFolderThatCannotBeListedStopsTheImport()
    {
        const ScopedMode mode(_f->folder.attachmentPath(named), notToBeListed);
        QCOMPARE(importAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void attachmentFolderThatCannotBeEnteredStopsTheImport()
    {
        const ScopedMode mode(_f->folder.attachmentPath(named), notToBeEntered);
        QCOMPARE(importAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
        QVERIFY(!_f->log.errors.isEmpty());
    }

    void filesFolderThatCannotBeWrittenStopsTheImport()
    {
        const ScopedMode mode(_f->packagePath(u"Files"_s), readOnlyFolder);
        QCOMPARE(importAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentImportFailure);
    }

    void imageThatCannotBeReadIsAWarning()
    {
        const ScopedMode mode(_f->folder.imagePath(u"1.jpg"_s), unreadable);
        QCOMPARE(importImage(), nothing);
        QVERIFY(!_f->error);
        QCOMPARE(_f->log.warnings.size(), 1);
        QVERIFY(entries(_f->packagePath(u"Images"_s)).isEmpty());
    }

    void imagesFolderThatCannotBeWrittenIsAnError()
    {
        const ScopedMode mode(_f->packagePath(u"Images"_s), readOnlyFolder);
        QCOMPARE(importImage(), cardId + u"_N1.pdf"_s);
        QCOMPARE(_f->error.code(), DBCResultCode::PdfCreateFailure);
    }

    void storedAttachmentThatCannotBeReadStopsTheExport()
    {
        _f->package.writeFile(u"Files/0A1B-1/a.txt"_s, "a");
        const ScopedMode mode(_f->packagePath(u"Files/0A1B-1/a.txt"_s), unreadable);
        QCOMPARE(exportAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::AttachmentExportFailure);
        QVERIFY(copyFailureWasLogged(_f->log));
    }

    void cardFolderThatCannotBeListedIsNotTakenForAnEmptyOne()
    {
        _f->package.writeFile(u"Files/0A1B-1/a.txt"_s, "a");
        const ScopedMode mode(_f->packagePath(u"Files/0A1B-1"_s), notToBeListed);
        QCOMPARE(exportAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
        QVERIFY(!_f->log.errors.isEmpty());
    }

    void cardFolderThatCannotBeEnteredIsNotTakenForAnEmptyOne()
    {
        _f->package.writeFile(u"Files/0A1B-1/a.txt"_s, "a");
        const ScopedMode mode(_f->packagePath(u"Files/0A1B-1"_s), notToBeEntered);
        QCOMPARE(exportAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void folderToExportIntoThatCannotBeWrittenIsAnError()
    {
        _f->package.writeFile(u"Files/0A1B-1/a.txt"_s, "a");
        const ScopedMode mode(_f->home.makeFolder(u"export"_s), readOnlyFolder);
        QCOMPARE(exportAttachments(), nothing);
        QCOMPARE(_f->error.code(), DBCResultCode::FolderCreateFailure);
    }

    void readOnlyStoreIsReadAndNotSavedInto()
    {
        _f->database.reset();
        _f->package.card();
        const auto before = _f->package.contents();
        const ScopedMode mode(_f->package.storePath(), readOnlyFile);
        _f->database = DBCDataBaseController::initDBwithPath(_f->package.path());
        QVERIFY(_f->database);
        QCOMPARE(_f->database->fetchCardDatas(&_f->error)->size(), std::size_t(1));
        _f->database->managedObjectContext()->insertNewCard();
        QCOMPARE(_f->database->save(), DBCResultCode::DatabaseSaveFailure);
        QVERIFY(_f->log.errors.constLast().contains(_f->package.storePath()));
        QCOMPARE(_f->package.contents(), before);
    }

    void unreadableStoreDoesNotOpen()
    {
        _f->database.reset();
        const ScopedMode mode(_f->package.storePath(), unreadable);
        QVERIFY(!DBCDataBaseController::initDBwithPath(_f->package.path()));
        QVERIFY(_f->log.errors.constLast().contains(_f->package.storePath()));
    }

    void packageIsNotMadeInAReadOnlyFolder()
    {
        const QString folder = _f->home.makeFolder(u"folder"_s);
        const ScopedMode mode(folder, readOnlyFolder);
        const auto result = DBCPackageCreator::create(folder + u"/New.vmdb"_s);
        QCOMPARE(result.outcome, DBCPackageCreator::Outcome::Failed);
        QVERIFY(result.problem.text.contains(refused()));
        QVERIFY(entries(folder).isEmpty());
    }

    void unreadableStoreIsNotVerified()
    {
        _f->database.reset();
        const ScopedMode mode(_f->package.storePath(), unreadable);
        const DBCFindings findings = DBCPackageVerifier::verify(_f->package.path(), {});
        QVERIFY(findings.couldNotLook);
        QCOMPARE(findings.couldNotLook->path, _f->package.storePath());
        QVERIFY(findings.couldNotLook->text.contains(refused()));
    }

    void foldersThatCannotBeListedAreFoundByTheVerifier()
    {
        _f->database.reset();
        _f->package.card().withAttachment(u"a.txt"_s, "a");
        const QStringList folders {_f->packagePath(u"Files/CARD-1"_s), _f->packagePath(u"Images"_s),
            _f->packagePath(u"Files"_s)};
        const ScopedMode card(folders[0], notToBeListed);
        const ScopedMode images(folders[1], notToBeListed);
        const ScopedMode files(folders[2], notToBeListed);
        const DBCFindings findings = DBCPackageVerifier::verify(_f->package.path(), {});
        QVERIFY(!findings.couldNotLook);
        QStringList paths;
        for (const DBCProblem& problem : findings.problems) {
            paths << problem.path;
            QVERIFY(problem.text.contains(refused()));
        }
        QCOMPARE(paths, folders);
    }
};

QTEST_GUILESS_MAIN(tst_accessRights)
#include "tst_accessRights.moc"
