// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCPackageAttributes.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCTransferLog.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "operation/copy/DBCTreeCopy.h"
#include "system/DBCFolderEntries.h"
#include "system/DBCHost.h"
#include "system/DBCNameLookup.h"
#include "system/DBCOpenInside.h"
#include "system/DBCPathChecks.h"
#include "text/DBCCharacterSets.h"

#include <QFile>

#include <algorithm>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

// What an entry is itself, links not followed.
enum class EntryKind : quint8 { RegularFile, Folder, Other, Gone, Unknown };

enum class Verdict { Copy, Pass, BadName, Vanished, NotRegular };

Verdict verdictOnKind(EntryKind kind)
{
    // Of an entry that cannot be looked at, the copy tells why.
    return kind == EntryKind::RegularFile || kind == EntryKind::Unknown ? Verdict::Copy
                                                                        : Verdict::NotRegular;
}

Verdict judgeForImport(const QByteArray& name, const QString&, EntryKind kind)
{
    if (name == DBCInterchangeNames::folderSettingsFile || kind == EntryKind::Folder)
        return Verdict::Pass;
    if (name.startsWith('.') || name.contains('/') || name.contains(':'))
        return Verdict::BadName;
    return kind == EntryKind::Gone ? Verdict::Vanished : verdictOnKind(kind);
}

Verdict judgeForExport(const QByteArray&, const QString& path, EntryKind kind)
{
    if (!DBCInterchangeNames::isAttachmentName(path))
        return Verdict::BadName;
    if (kind == EntryKind::Gone || kind == EntryKind::Folder)
        return Verdict::Pass;
    return verdictOnKind(kind);
}

// Where the two directions differ.
struct Rules {
    Verdict (*judge)(const QByteArray& name, const QString& path, EntryKind kind);
    const char* badNameKey;
    const char* notRegularKey;
    DBCResultCode noSpace;
    DBCResultCode copyFailure;
    enum class FailureNames : quint8 { Files, Folders } failureNames;
};

constexpr Rules importRules {
    judgeForImport,
    "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT",
    "IDS_LOG_WRN_ATTACH_NOT_REGULAR",
    DBCResultCode::NoSpaceForImport,
    DBCResultCode::AttachmentImportFailure,
    Rules::FailureNames::Files,
};

constexpr Rules exportRules {
    judgeForExport,
    "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT",
    "IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT",
    DBCResultCode::NoSpaceForExport,
    DBCResultCode::AttachmentExportFailure,
    Rules::FailureNames::Folders,
};

// One card's attachments on their way from one folder into another.
struct Transfer {
    const Rules& rules;
    DBCTransferSubject subject;
    QString source;
    QString target;
    DBCDescriptor sourceFolder = DBCDescriptor(-1);
};

// The general error line, then the one that says which file or folder it is about.
void logFailure(const DBCTransferSubject& subject, const QString& path)
{
    DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE", subject);
    DBCTransferLog::errorPlace(subject, path);
}

DBCError makeFolder(const DBCTransferSubject& subject, const QString& path)
{
    const DBCResultCode code = DBCDataBaseController::createDirectoryIfNotExists(path);
    if (code == DBCResultCode::Success)
        return {};
    DBCTransferLog::errorPlace(subject, path);
    return DBCError(code).withPathName(path);
}

DBCError checkSpace(const Transfer& transfer, const QString& volume)
{
    DBCError error;
    const quint64 size = getSizeWithPath(transfer.source, &error);
    if (error.code() == DBCResultCode::CancelledByUser)
        return error;
    if (error) {
        DBCTransferLog::errorPlace(transfer.subject, transfer.source);
        return error;
    }
    if (hasFreeBytes(volume, size + DBCDiskSpaceMargin))
        return {};
    DBCTransferLog::errorPlace(transfer.subject, volume);
    return DBCError(transfer.rules.noSpace);
}

DBCError copyFailure(const Transfer& transfer, const QString& source, const QString& target)
{
    DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE", transfer.subject);
    DBCTransferLog::errorCopy(transfer.subject, source, target);
    const bool namesFiles = transfer.rules.failureNames == Rules::FailureNames::Files;
    return DBCError(transfer.rules.copyFailure)
        .withPathName(u"[%1 - %2]"_s.arg(
            namesFiles ? source : transfer.source, namesFiles ? target : transfer.target));
}

EntryKind kindOf(int folder, const QByteArray& name)
{
    struct stat status { };
    if (fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT ? EntryKind::Gone : EntryKind::Unknown;
    if (S_ISREG(status.st_mode))
        return EntryKind::RegularFile;
    return S_ISDIR(status.st_mode) ? EntryKind::Folder : EntryKind::Other;
}

DBCError copyEntry(const Transfer& transfer, int targetFolder, const QByteArray& name)
{
    // Names need not be text, so files are reached by their bytes and only shown as text.
    const QString shownName = QFile::decodeName(name);
    const QString shownSource = transfer.source + u'/' + shownName;
    const int sourceFolder = transfer.sourceFolder.get();
    switch (transfer.rules.judge(name, shownSource, kindOf(sourceFolder, name))) {
    case Verdict::Pass:
        return {};
    case Verdict::BadName:
        DBCTransferLog::cardWarning(
            transfer.rules.badNameKey, transfer.subject, DBCConsequence::WithoutAttachment);
        return {};
    case Verdict::Vanished:
        DBCTransferLog::missing(transfer.subject, shownSource, DBCConsequence::WithoutAttachment);
        return {};
    case Verdict::NotRegular:
        DBCTransferLog::cardWarning(transfer.rules.notRegularKey, transfer.subject,
            DBCConsequence::WithoutAttachment, shownName);
        return {};
    case Verdict::Copy:
        break;
    }
    if (DBCTreeCopy().copyFileBetween(sourceFolder, targetFolder, name))
        return {};
    return copyFailure(transfer, shownSource, transfer.target + u'/' + shownName);
}

DBCError copyEntries(const Transfer& transfer)
{
    auto entries = entriesOfFolder(transfer.sourceFolder.get());
    const DBCDescriptor target(open(QFile::encodeName(transfer.target).constData(),
        O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!entries || !target)
        return copyFailure(transfer, transfer.source, transfer.target);
    std::sort(entries->begin(), entries->end(),
        [](const DBCFolderEntry& a, const DBCFolderEntry& b) { return a.name < b.name; });
    for (const DBCFolderEntry& entry : *entries) {
        if (auto failure = copyEntry(transfer, target.get(), entry.name))
            return failure;
    }
    return {};
}

DBCError checkPackage(const QString& package, const DBCTransferSubject& subject)
{
    if (checkPackageAttributes(package) == DBCResultCode::PackageUsable)
        return {};
    logFailure(subject, package);
    return DBCError(DBCResultCode::AttachmentImportFailure);
}

// Fills in the transfer's source: the folder that the record names.
DBCError findSource(const QString& folder, const QString& name, Transfer* transfer)
{
    const QString attachments = DBCInterchangeNames::attachmentFolder(folder);
    const auto found
        = DBCNameLookup::threadInstance().find(attachments, name, DBCNameLookup::Kind::Folder);
    if (found.outcome == DBCNameLookup::Outcome::LeadsOut)
        DBCTransferLog::nameLeadsOut(transfer->subject, name, attachments, DBCConsequence::Stopped);
    if (found.outcome != DBCNameLookup::Outcome::Found) {
        DBCTransferLog::missing(
            transfer->subject, attachments + u'/' + name, DBCConsequence::Stopped);
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    if (!DBCHost::current().isReadable(found.path)) {
        logFailure(transfer->subject, found.path);
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    // Between the look at the name and this, a link may have come to lead out of the folder.
    transfer->sourceFolder = openInside(attachments, found.path, O_RDONLY | O_DIRECTORY);
    if (!transfer->sourceFolder) {
        logFailure(transfer->subject, found.path);
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    transfer->source = found.path;
    return {};
}

DBCError importAttachments(
    const QString& package, const QString& folder, const DBCRecord& record, const QString& cardId)
{
    Transfer transfer {importRules, DBCTransferSubject::ofImport(record), {},
        DBCPackageLayout::attachmentFolder(package, cardId)};

    if (auto error = checkPackage(package, transfer.subject))
        return error;
    if (auto error = makeFolder(transfer.subject, DBCPackageLayout::filesFolder(package)))
        return error;
    if (auto error
        = findSource(folder, record.textOrEmpty(DBCRecordKey::attachmentFile), &transfer))
        return error;
    if (auto error = checkSpace(transfer, package))
        return error;
    if (auto error = makeFolder(transfer.subject, transfer.target))
        return error;
    if (auto error = copyEntries(transfer))
        return error;
    DBCCommonFunction::cleanTempFile(
        transfer.target + u'/' + QLatin1String(DBCInterchangeNames::folderSettingsFile));
    return {};
}

// Opens the transfer's source. A folder that cannot be opened or listed is not taken for an empty
// one: measuring or copying it will fail.
bool hasAttachments(const QString& files, const QString& cardID, Transfer* transfer)
{
    transfer->sourceFolder = openInside(files, transfer->source, O_RDONLY | O_DIRECTORY);
    if (!transfer->sourceFolder) {
        if (isLeadOutError(errno)) {
            DBCTransferLog::nameLeadsOut(
                transfer->subject, cardID, files, DBCConsequence::WithoutAttachments);
            return false;
        }
        return errno != ENOENT && errno != ENOTDIR;
    }
    const auto entries = entriesOfFolder(transfer->sourceFolder.get());
    return !entries || !entries->empty();
}

DBCError exportAttachments(const Transfer& transfer, const QString& toPath)
{
    if (auto error = makeFolder(transfer.subject, toPath))
        return error;
    if (auto error = checkSpace(transfer, toPath))
        return error;
    if (auto error = makeFolder(transfer.subject, transfer.target)) {
        DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE", transfer.subject);
        return error;
    }
    return copyEntries(transfer);
}

} // namespace

std::optional<QString> DBCDataBaseController::_addAttachFileIntoDB(
    const QString& folder, const DBCRecord& recordDic, const QString& cardId, DBCError* errors)
{
    if (folder.isEmpty() || cardId.isEmpty() || !errors)
        return std::nullopt;
    if (isBlank(recordDic.textOrEmpty(DBCRecordKey::attachmentFile)))
        return u""_s;

    if (DBCError error = importAttachments(_strDBPath, folder, recordDic, cardId)) {
        *errors = error;
        return u""_s;
    }
    return cardId;
}

std::optional<QString> DBCDataBaseController::_exportAttachFile(
    const DBCRecord& record, const QString& toPath, DBCError* errors)
{
    const QString recordNo = record.textOrEmpty(DBCRecordKey::recordNo);
    if (toPath.isEmpty() || _strDBPath.isEmpty() || recordNo.isEmpty() || !errors)
        return std::nullopt;
    const QString cardID = record.textOrEmpty(DBCRecordKey::cardID);
    if (isBlank(cardID) || !DBCNameLookup::staysInside(cardID))
        return u""_s;

    Transfer transfer {exportRules, DBCTransferSubject::ofExport(record),
        DBCPackageLayout::attachmentFolder(_strDBPath, cardID), toPath + u'/' + recordNo};
    if (!hasAttachments(DBCPackageLayout::filesFolder(_strDBPath), cardID, &transfer))
        return u""_s;
    if (DBCError error = exportAttachments(transfer, toPath)) {
        *errors = error;
        return u""_s;
    }
    return recordNo;
}
