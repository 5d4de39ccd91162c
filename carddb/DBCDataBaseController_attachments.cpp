// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCPackageAttributes.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCTransferLog.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCAttachmentRules.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCNamedFiles.h"
#include "operation/copy/DBCTreeCopy.h"
#include "system/DBCFolderEntries.h"
#include "system/DBCHost.h"
#include "system/DBCNameLookup.h"
#include "system/DBCOpenInside.h"
#include "system/DBCPathChecks.h"
#include "text/DBCCharacterSets.h"

#include <QFile>

#include <algorithm>
#include <utility>

#include <cerrno>
#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace {

// What differs between the import and the export of attachments.
struct Rules {
    DBCAttachmentVerdict (*judge)(const QByteArray& name, DBCEntryKind kind);
    const char* badNameKey;
    const char* notRegularKey;
    DBCResultCode noSpace;
    DBCResultCode copyFailure;
    enum class FailureNames : quint8 { Files, Folders } failureNames;
};

constexpr Rules importRules {
    judgeAttachmentForImport,
    "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT",
    "IDS_LOG_WRN_ATTACH_NOT_REGULAR",
    DBCResultCode::NoSpaceForImport,
    DBCResultCode::AttachmentImportFailure,
    Rules::FailureNames::Files,
};

constexpr Rules exportRules {
    judgeAttachmentForExport,
    "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT",
    "IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT",
    DBCResultCode::NoSpaceForExport,
    DBCResultCode::AttachmentExportFailure,
    Rules::FailureNames::Folders,
};

// One copy of a card's attachments from one folder into another.
struct Transfer {
    const Rules& rules;
    DBCTransferSubject subject;
    QString source;
    QString target;
    DBCDescriptor sourceFolder = DBCDescriptor(-1);
};

// Logs the general error, and then a second message that names the file or folder.
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

DBCError copyEntry(const Transfer& transfer, int targetFolder, const QByteArray& name)
{
    // A file's name may be invalid as text, so the file is opened by the bytes of its name.
    const QString shownName = QFile::decodeName(name);
    const QString shownSource = transfer.source + u'/' + shownName;
    const int sourceFolder = transfer.sourceFolder.get();
    switch (transfer.rules.judge(name, kindOfEntry(sourceFolder, name))) {
    case DBCAttachmentVerdict::Ignore:
        return {};
    case DBCAttachmentVerdict::BadName:
        DBCTransferLog::cardWarning(
            transfer.rules.badNameKey, transfer.subject, DBCConsequence::WithoutAttachment);
        return {};
    case DBCAttachmentVerdict::Vanished:
        DBCTransferLog::missing(transfer.subject, shownSource, DBCConsequence::WithoutAttachment);
        return {};
    case DBCAttachmentVerdict::NotRegular:
        DBCTransferLog::cardWarning(transfer.rules.notRegularKey, transfer.subject,
            DBCConsequence::WithoutAttachment, shownName);
        return {};
    case DBCAttachmentVerdict::Copy:
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

// Opens the folder that the record names and makes it the transfer's source.
DBCError openSource(const QString& folder, const QString& name, Transfer* transfer)
{
    using Outcome = DBCNamedFile::Outcome;
    DBCNamedFile found = openNamedAttachments(DBCNameLookup::threadInstance(), folder, name);
    if (found.outcome == Outcome::LeadsOut) {
        DBCTransferLog::nameLeadsOut(
            transfer->subject, name, found.folder, DBCConsequence::Stopped);
    }
    if (found.outcome != Outcome::Found) {
        DBCTransferLog::missing(transfer->subject, found.path, DBCConsequence::Stopped);
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    if (!DBCHost::current().isReadable(found.path) || !found.file) {
        logFailure(transfer->subject, found.path);
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    transfer->source = found.path;
    transfer->sourceFolder = std::move(found.file);
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
        = openSource(folder, record.textOrEmpty(DBCRecordKey::attachmentFile), &transfer))
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

// Opens the transfer's source and returns whether there is anything to copy. It also returns true
// when the folder exists but cannot be opened or listed, so that the export tries to measure or
// copy it, fails and reports the reason.
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
