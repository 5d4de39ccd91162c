// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCFolderListing.h"
#include "carddb/DBCNameLookup.h"
#include "carddb/DBCPackageLayout.h"
#include "carddb/DBCTransferLog.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/DBCCommonFunction.h"
#include "datafile/DBCInterchangeNames.h"
#include "datafile/DBCLocalizable.h"
#include "operation/DBCChecker.h"
#include "operation/DBCHost.h"
#include "operation/DBCLog.h"
#include "operation/DBCTreeCopy.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <string_view>

namespace {

using FileType = std::filesystem::file_type;

// Written into folders by the source platform's file browser; no attachment.
constexpr std::string_view folderSettingsFile = ".DS_Store";

enum class Verdict { Copy, Pass, BadName, Vanished, NotRegular };

Verdict verdictOnType(FileType type)
{
    // Of an entry that cannot be looked at (none), the copy tells why.
    return type == FileType::regular || type == FileType::none ? Verdict::Copy
                                                               : Verdict::NotRegular;
}

Verdict judgeForImport(const std::string& name, const QString&, FileType type)
{
    if (name == folderSettingsFile || type == FileType::directory)
        return Verdict::Pass;
    if (name.starts_with('.') || name.find_first_of("/:") != std::string::npos)
        return Verdict::BadName;
    return type == FileType::not_found ? Verdict::Vanished : verdictOnType(type);
}

Verdict judgeForExport(const std::string&, const QString& path, FileType type)
{
    if (!DBCChecker::isValidAttachmentForExport(path))
        return Verdict::BadName;
    if (type == FileType::not_found || type == FileType::directory)
        return Verdict::Pass;
    return verdictOnType(type);
}

// Where the two directions differ.
struct Rules {
    Verdict (*judge)(const std::string& name, const QString& path, FileType type);
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
};

void warnOfMissing(const QString& path)
{
    DBCLog::warning(getLocalString(QStringLiteral("IDS_LOG_WRN_FILE_NO_EXISTS"), {path}));
}

// The general error line, then the one that says which file or folder it is about.
void logFailure(const DBCTransferSubject& subject, const QString& path)
{
    DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE");
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
    if (error) {
        DBCTransferLog::errorPlace(transfer.subject, transfer.source);
        return error;
    }
    if (DBCChecker::checkDiskSizeIsEnough(volume, size + DBCDiskSpaceMargin))
        return {};
    DBCTransferLog::errorPlace(transfer.subject, volume);
    return DBCError(transfer.rules.noSpace);
}

DBCError copyFailure(const Transfer& transfer, const QString& source, const QString& target)
{
    DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE");
    DBCTransferLog::errorCopy(transfer.subject, source, target);
    const bool namesFiles = transfer.rules.failureNames == Rules::FailureNames::Files;
    return DBCError(transfer.rules.copyFailure)
        .withPathName(
            QStringLiteral("[%1 - %2]")
                .arg(namesFiles ? source : transfer.source, namesFiles ? target : transfer.target));
}

DBCError copyEntry(const Transfer& transfer, const std::string& name)
{
    // Names need not be text, so files are reached by their bytes and only shown as text.
    const QByteArray source = QFile::encodeName(transfer.source) + '/' + name.c_str();
    const QByteArray target = QFile::encodeName(transfer.target) + '/' + name.c_str();
    const QString shownName = QFile::decodeName(name.c_str());
    const QString shownSource = transfer.source + u'/' + shownName;

    std::error_code error;
    const FileType type = std::filesystem::symlink_status(source.toStdString(), error).type();
    switch (transfer.rules.judge(name, shownSource, type)) {
    case Verdict::Pass:
        return {};
    case Verdict::BadName:
        DBCTransferLog::cardWarning(transfer.rules.badNameKey, transfer.subject);
        return {};
    case Verdict::Vanished:
        warnOfMissing(shownSource);
        return {};
    case Verdict::NotRegular:
        DBCTransferLog::cardWarning(transfer.rules.notRegularKey, transfer.subject, shownName);
        return {};
    case Verdict::Copy:
        break;
    }
    if (DBCTreeCopy().copy(source, target))
        return {};
    return copyFailure(transfer, shownSource, transfer.target + u'/' + shownName);
}

DBCError copyEntries(const Transfer& transfer)
{
    std::error_code error;
    const auto names = namesInFolder(transfer.source, &error);
    if (!names)
        return copyFailure(transfer, transfer.source, transfer.target);
    for (const std::string& name : *names) {
        if (auto failure = copyEntry(transfer, name))
            return failure;
    }
    return {};
}

DBCError checkPackage(const QString& package, const DBCTransferSubject& subject)
{
    if (DBCChecker::checkDBAttributes(package) == DBCResultCode::PackageUsable)
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
        DBCTransferLog::nameLeadsOut(transfer->subject, name, attachments);
    if (found.outcome != DBCNameLookup::Outcome::Found) {
        DBCLog::error(getLocalString(
            QStringLiteral("IDS_LOG_WRN_FILE_NO_EXISTS"), {QString(attachments + u'/' + name)}));
        return DBCError(DBCResultCode::AttachmentImportFailure);
    }
    if (!DBCHost::current().isReadable(found.path)) {
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
        transfer.target + u'/' + QLatin1String(folderSettingsFile.data()));
    return {};
}

// A folder that cannot be listed is not taken for an empty one: measuring it will fail.
bool hasAttachments(const QString& folder)
{
    if (!QFileInfo(folder).isDir())
        return false;
    std::error_code error;
    const auto names = namesInFolder(folder, &error);
    return !names || !names->empty();
}

DBCError exportAttachments(const Transfer& transfer, const QString& toPath)
{
    if (auto error = makeFolder(transfer.subject, toPath))
        return error;
    if (auto error = checkSpace(transfer, toPath))
        return error;
    if (auto error = makeFolder(transfer.subject, transfer.target)) {
        DBCTransferLog::error("IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE");
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
    if (DBCChecker::isBlank(recordDic.textOrEmpty(DBCRecordKey::attachmentFile)))
        return QStringLiteral("");

    if (DBCError error = importAttachments(_strDBPath, folder, recordDic, cardId)) {
        *errors = error;
        return QStringLiteral("");
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
    if (DBCChecker::isBlank(cardID) || !DBCNameLookup::staysInside(cardID))
        return QStringLiteral("");

    const Transfer transfer {exportRules, DBCTransferSubject::ofExport(record),
        DBCPackageLayout::attachmentFolder(_strDBPath, cardID), toPath + u'/' + recordNo};
    if (!hasAttachments(transfer.source))
        return QStringLiteral("");
    if (DBCError error = exportAttachments(transfer, toPath)) {
        *errors = error;
        return QStringLiteral("");
    }
    return recordNo;
}
