// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageVerifier.h"

#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCStoreCopy.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "carddb/store/DBCStoreConnection.h"
#include "cardimage/pdf/DBCCardPdf.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/helpers/DBCProblemAt.h"
#include "system/DBCFolderListing.h"
#include "system/DBCHost.h"
#include "system/DBCNameLookup.h"
#include "system/DBCPathChecks.h"
#include "system/DBCPathNames.h"
#include "text/DBCCharacterSets.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <SQLiteCpp/Statement.h>
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include <array>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

// Stop after five findings, because a damaged store can yield thousands.
constexpr const char* integrityCheck = "PRAGMA integrity_check(5)";

QString messageOf(const std::error_code& error)
{
    return QString::fromLocal8Bit(error.message().c_str());
}

QString messageOf(const SQLite::Exception& exception)
{
    return QString::fromLocal8Bit(exception.what());
}

bool isLive(const Card& card)
{
    const DBCValue* flag = card.value(DBCRecordKey::deletedFlag);
    return flag && *flag == DBCValue(qint64 {0});
}

QByteArray firstComponent(const QString& name)
{
    return QFile::encodeName(name.section(u'/', 0, 0, QString::SectionSkipEmpty));
}

} // namespace

std::optional<DBCProblem> DBCStoreReport::firstProblem() const
{
    if (findings.couldNotLook || findings.problems.empty())
        return findings.couldNotLook;
    return findings.problems.front();
}

DBCFindings DBCPackageVerifier::verify(const QString& package, const Progress& progress)
{
    DBCPackageVerifier verifier(package, progress);
    if (auto reason = verifier.reasonNotToLook())
        return {{}, reason};
    const DBCStoreCopy copy(package);
    if (!copy.isCopied())
        return {{}, verifier.storeNotRead(copy.reason())};

    const bool cardsAreKnown = verifier.checkStore(copy.storeFile());
    if (cardsAreKnown) {
        verifier.checkForUnnamedEntries(
            DBCPackageLayout::imagesFolder(package), verifier._namedImages);
        verifier.checkForUnnamedEntries(
            DBCPackageLayout::filesFolder(package), verifier._namedFolders);
    }
    return {std::move(verifier._problems)};
}

DBCStoreReport DBCPackageVerifier::verifyStore(const QString& package)
{
    const Progress nobody;
    DBCPackageVerifier verifier(package, nobody);
    if (auto reason = verifier.reasonNotToLook())
        return {{{}, reason}};
    const DBCStoreCopy copy(package);
    if (!copy.isCopied())
        return {{{}, verifier.storeNotRead(copy.reason())}};

    DBCStoreReport report;
    verifier.openStore(copy.storeFile(), [&report](SQLite::Database& store) {
        report.liveCardCount
            = store.execAndGet("SELECT count(*) FROM ZCARD WHERE ZDELETEDFLAG = 0").getInt64();
    });
    report.findings.problems = std::move(verifier._problems);
    return report;
}

DBCPackageVerifier::DBCPackageVerifier(const QString& package, const Progress& progress)
    : _package(package)
    , _storePath(DBCPackageLayout::storeFile(package))
    , _progress(progress)
{
}

std::optional<DBCProblem> DBCPackageVerifier::reasonNotToLook() const
{
    if (!QFileInfo(_package).isDir())
        return problemAt(_package, "IDS_VERIFY_NO_FOLDER");
    // On a read-only medium the lock cannot be tested, and no other program can be writing.
    const QString lock = DBCPackageLayout::lockFile(_package);
    if (DBCHost::current().isWritable(lock) && isLockedByAnother(lock))
        return problemAt(_package, "IDS_VERIFY_IN_USE");
    return std::nullopt;
}

DBCProblem DBCPackageVerifier::storeNotRead(const QString& reason) const
{
    return problemAt(_storePath, "IDS_VERIFY_STORE_NOT_READ", {reason});
}

bool DBCPackageVerifier::checkStore(const QString& storeCopy)
{
    return openStore(storeCopy, [&](SQLite::Database& store) {
        checkKeys(store);
        checkCards(storeCopy, store.execAndGet("SELECT count(*) FROM ZCARD").getInt64());
    });
}

bool DBCPackageVerifier::openStore(
    const QString& storeCopy, const std::function<void(SQLite::Database& store)>& next)
{
    if (!QFileInfo::exists(storeCopy)) {
        report(_storePath, "IDS_VERIFY_STORE_MISSING");
        return false;
    }
    try {
        const auto store = openStoreOfOthers(storeCopy);
        checkSoundness(*store);
        if (!checkModel(*store))
            return false;
        next(*store);
        return true;
    } catch (const SQLite::Exception& exception) {
        const bool isNoStore = exception.getErrorCode() == SQLITE_NOTADB;
        report(_storePath, isNoStore ? "IDS_VERIFY_STORE_NO_STORE" : "IDS_VERIFY_STORE_DAMAGED",
            {messageOf(exception)});
        return false;
    }
}

void DBCPackageVerifier::checkSoundness(SQLite::Database& store)
{
    SQLite::Statement findings(store, integrityCheck);
    while (findings.executeStep()) {
        const QString finding = QString::fromStdString(findings.getColumn(0).getString());
        if (finding != u"ok"_s)
            report(_storePath, "IDS_VERIFY_STORE_DAMAGED", {finding});
    }
}

bool DBCPackageVerifier::checkModel(SQLite::Database& store)
{
    const QStringList missing = _model.describe(store).missing;
    if (!missing.isEmpty())
        report(_storePath, "IDS_VERIFY_STORE_MODEL", {missing.join(u", "_s)});
    return missing.isEmpty();
}

// If a row has a key above the highest key that the store has recorded, the next save would use
// that key again and fail.
void DBCPackageVerifier::checkKeys(SQLite::Database& store)
{
    SQLite::Statement keys(
        store, "SELECT Z_MAX, (SELECT max(Z_PK) FROM ZCARD) FROM Z_PRIMARYKEY WHERE Z_NAME = ?");
    keys.bind(1, DBCManagedObjectModel::entityName);
    keys.executeStep(); // checkModel() has made sure that there is a row.
    const qint64 noted = keys.getColumn(0).getInt64();
    const qint64 highest = keys.getColumn(1).getInt64();
    if (highest > noted)
        report(_storePath, "IDS_VERIFY_STORE_KEYS",
            {QString::number(noted), QString::number(highest)});
}

void DBCPackageVerifier::checkCards(const QString& storeCopy, qint64 count)
{
    const auto context = DBCManagedObjectContext::open(storeCopy, _model);
    if (!context)
        throw SQLite::Exception("The copy of the store did not open");
    qint64 finished = 0;
    context->fetchCards(DBCCardSelection::All, [&](const Card& card) {
        noteNames(card);
        if (isLive(card)) {
            checkPdf(card);
            checkAttachments(card);
        }
        if (_progress)
            _progress(++finished, count);
        return true;
    });
}

// This also notes the names of deleted cards, because the main application can still bring them
// back.
void DBCPackageVerifier::noteNames(const Card& card)
{
    const QString cardID = card.textOrEmpty(DBCRecordKey::cardID);
    _namedFolders.insert(firstComponent(cardID));
    _namedImages.insert(firstComponent(DBCPackageLayout::cardPdfName(cardID)));
    for (const DBCRecordKey key : {DBCRecordKey::face_Image_File, DBCRecordKey::back_Image_File,
             DBCRecordKey::other_Image_File})
        _namedImages.insert(firstComponent(card.textOrEmpty(key)));
}

void DBCPackageVerifier::checkPdf(const Card& card)
{
    const QString name
        = DBCDataBaseController::imageFileName(DBCDataBaseController::newDataDicWith(card));
    if (isBlank(name))
        return;
    const QString path = DBCPackageLayout::imagesFolder(_package) + u'/' + name;
    if (!DBCNameLookup::staysInside(name)) {
        reportCard(card, path, "IDS_VERIFY_CARD_NAME_LEADS_OUT", {name});
        return;
    }
    const bool isNamed = !isBlank(card.textOrEmpty(DBCRecordKey::face_Image_File));
    if (!QFileInfo(path).isFile()) {
        // If the card names no image, the path comes from the card's ID, and the file need not
        // exist.
        if (isNamed)
            reportCard(card, path, "IDS_VERIFY_CARD_PDF_MISSING", {path});
        return;
    }
    const DBCResultCode kind = CheckPdfFile(path, nullptr);
    if (kind != DBCResultCode::PdfCardImageOnly && kind != DBCResultCode::PdfCardWithText)
        reportCard(card, path, "IDS_VERIFY_CARD_PDF_UNUSABLE", {path});
}

void DBCPackageVerifier::checkAttachments(const Card& card)
{
    const QString cardID = card.textOrEmpty(DBCRecordKey::cardID);
    if (isBlank(cardID))
        return;
    const QString folder = DBCPackageLayout::attachmentFolder(_package, cardID);
    if (!DBCNameLookup::staysInside(cardID))
        reportCard(card, folder, "IDS_VERIFY_CARD_NAME_LEADS_OUT", {cardID});
    else if (QFileInfo::exists(folder))
        checkAttachmentFolder(card, folder);
}

void DBCPackageVerifier::checkAttachmentFolder(const Card& card, const QString& folder)
{
    std::error_code error;
    const auto names = namesInFolder(folder, &error);
    if (!names) {
        reportCard(card, folder, "IDS_VERIFY_ATTACHMENTS_UNREADABLE", {folder, messageOf(error)});
        return;
    }
    for (const std::string& name : *names) {
        const QString path = folder + u'/' + QFile::decodeName(name.c_str());
        if (!DBCHost::current().isReadable(path))
            reportCard(card, path, "IDS_VERIFY_ATTACHMENT_UNREADABLE", {path});
    }
}

void DBCPackageVerifier::checkForUnnamedEntries(
    const QString& folder, const QSet<QByteArray>& named)
{
    if (!QFileInfo::exists(folder))
        return;
    std::error_code error;
    const auto names = namesInFolder(folder, &error);
    if (!names) {
        report(folder, "IDS_VERIFY_FOLDER_UNREADABLE", {messageOf(error)});
        return;
    }
    for (const std::string& name : *names) {
        if (name != DBCInterchangeNames::folderSettingsFile
            && !named.contains(QByteArray::fromStdString(name)))
            report(folder + u'/' + QFile::decodeName(name.c_str()), "IDS_VERIFY_FILE_UNNAMED");
    }
}

void DBCPackageVerifier::report(
    const QString& path, const char* key, const DBCMessageArguments& furtherArguments)
{
    _problems.push_back(problemAt(path, key, furtherArguments));
}

void DBCPackageVerifier::reportCard(const Card& card, const QString& path, const char* key,
    const DBCMessageArguments& furtherArguments)
{
    DBCMessageArguments arguments {
        card.textOrEmpty(DBCRecordKey::full_Name), card.textOrEmpty(DBCRecordKey::cardID)};
    arguments.insert(arguments.end(), furtherArguments.begin(), furtherArguments.end());
    _problems.push_back({getLocalString(key, arguments), path});
}
