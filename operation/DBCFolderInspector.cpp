// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCFolderInspector.h"

#include "cardimage/DBCDiskUsage.h"
#include "cardimage/DBCImageFiles.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCAttachmentRules.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCNamedFiles.h"
#include "datafile/records/DBCItemLengths.h"
#include "operation/DBCChecker.h"
#include "operation/base/DBCStopQuestion.h"
#include "system/DBCFolderListing.h"
#include "system/DBCHost.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace {

// Returns std::nullopt if the user may not read the folder.
std::optional<std::vector<std::string>> listFolder(const QString& folder)
{
    if (!DBCHost::current().isReadable(folder))
        return std::nullopt;
    std::error_code error;
    return namesInFolder(folder, &error);
}

} // namespace

DBCFolderReport DBCFolderInspector::inspect(const QString& folder, const Progress& progress)
{
    DBCFolderInspector inspector(folder, progress);
    inspector._report.findings.couldNotLook = inspector.reasonNotToLook();
    if (!inspector._report.findings.couldNotLook) {
        inspector.checkVersion();
        inspector.measure();
        if (inspector.askToContinue(0, 0) == DBCLoopControl::Continue)
            inspector.checkDataFile();
    }
    return std::move(inspector._report);
}

DBCFolderInspector::DBCFolderInspector(const QString& folder, const Progress& progress)
    : _folder(folder)
    , _progress(progress)
{
}

std::optional<DBCProblem> DBCFolderInspector::reasonNotToLook() const
{
    const auto reason = [this](const char* key) {
        return DBCProblem {getLocalString(key, {_folder}), _folder};
    };
    if (!QFileInfo(_folder).isDir())
        return reason("IDS_CHECK_FOLDER_MISSING");
    if (!listFolder(_folder))
        return reason("IDS_CHECK_FOLDER_UNREADABLE");
    return {};
}

void DBCFolderInspector::checkVersion()
{
    const QString path = DBCInterchangeNames::versionFile(_folder);
    const auto versionInfo = DBCCommonFunction::getVersionInfo(path);
    switch (DBCChecker::checkVersionInfo(versionInfo)) {
    case DBCResultCode::Success:
        return;
    case DBCResultCode::VersionFileRefusedProduct:
        report(path, "IDS_CHECK_VERSION_PRODUCT", {path});
        return;
    default:
        report(path, versionInfo ? "IDS_CHECK_VERSION_OTHER" : "IDS_CHECK_VERSION_MISSING",
            {path, QString::fromUtf16(DBCInterchangeNames::productVersion)});
    }
}

void DBCFolderInspector::measure()
{
    const DBCStopQuestion question([this] { return askToContinue(0, 0) == DBCLoopControl::Stop; });
    DBCError error;
    const quint64 size = getSizeWithPath(_folder, &error);
    if (error.code() == DBCResultCode::CancelledByUser)
        return;
    if (error)
        report(_folder, "IDS_CHECK_SIZE", {_folder});
    else
        _report.bytesNeeded = size + DBCDiskSpaceMargin;
}

void DBCFolderInspector::checkDataFile()
{
    const QString path = DBCInterchangeNames::dataFile(_folder);
    if (!QFileInfo(path).isFile())
        report(path, "IDS_CHECK_DATA_FILE_MISSING", {path});
    else
        readDataFile(path);
}

void DBCFolderInspector::readDataFile(const QString& path)
{
    const auto reader = DBCFileReader::initWithFullFileName(path);
    bool hasFailed = false;
    const auto next = [&] {
        const auto line = static_cast<qint64>(reader->lineNo());
        return askToContinue(line, reader->lineCount());
    };
    reader->readRecords(
        [&](const DBCRecord& record) {
            ++_report.cardCount;
            checkRecord(record);
            return next();
        },
        [&](const DBCError& error) {
            hasFailed = true;
            checkReaderError(error, *reader, path);
            return next();
        });
    if (_report.cardCount == 0 && !hasFailed)
        report(path, "IDS_CHECK_DATA_FILE_EMPTY", {path});
}

DBCLoopControl DBCFolderInspector::askToContinue(qint64 finished, qint64 max)
{
    const auto next = _progress ? _progress(finished, max) : DBCLoopControl::Continue;
    _report.wasStopped = next == DBCLoopControl::Stop;
    return next;
}

void DBCFolderInspector::checkReaderError(
    const DBCError& error, const DBCFileReader& reader, const QString& path)
{
    switch (error.code()) {
    case DBCResultCode::TitleLineFormatError:
    case DBCResultCode::DataLineFormatError:
        _report.findings.problems.push_back({reader.lineErrorText(), path, error.lineNo()});
        return;
    case DBCResultCode::DataFileEmpty:
        report(path, "IDS_CHECK_DATA_FILE_EMPTY", {path});
        return;
    case DBCResultCode::DataFileDecodeFailure:
        report(path, "IDS_CHECK_DATA_FILE_ENCODING", {path});
        return;
    default:
        report(path, "IDS_CHECK_DATA_FILE_UNREADABLE", {path, qint64 {toNumber(error.code())}});
    }
}

void DBCFolderInspector::checkRecord(const DBCRecord& record)
{
    checkLengths(record);
    checkImage(record, DBCRecordKey::face_Image_File);
    checkImage(record, DBCRecordKey::back_Image_File);
    checkAttachments(record);
}

void DBCFolderInspector::checkLengths(const DBCRecord& record)
{
    const QString lineNo = record.textOrEmpty(DBCRecordKey::lineNo);
    const QString fullName = record.textOrEmpty(DBCRecordKey::full_Name);
    for (const DBCMeasuredItem& item : measuredItems(record)) {
        if (!item.isTooLong())
            continue;
        _report.findings.problems.push_back(
            {getLocalString(u"IDS_LOG_WRN_ITEM_MAX_LEN"_s, {item.label(), lineNo, fullName}),
                DBCInterchangeNames::dataFile(_folder), lineNo.toLongLong()});
    }
}

void DBCFolderInspector::checkImage(const DBCRecord& record, DBCRecordKey key)
{
    using Outcome = DBCNamedFile::Outcome;
    const QString name = record.textOrEmpty(key);
    const DBCNamedFile image = openNamedImage(_names, _folder, name);
    if (image.outcome == Outcome::NotNamed)
        return;
    if (image.outcome == Outcome::LeadsOut)
        reportLine(record, image.path, "IDS_LOG_WRN_NAME_LEADS_OUT", {name, image.folder});
    else if (image.outcome == Outcome::Missing)
        reportLine(record, image.path, "IDS_CHECK_IMAGE_MISSING", {image.path});
    else if (!DBCHost::current().isReadable(image.path))
        reportLine(record, image.path, "IDS_CHECK_FILE_UNREADABLE", {image.path});
    else if (readJpegForImport(image.file).verdict != DBCImportedJpeg::Verdict::Usable)
        reportLine(record, image.path, "IDS_CHECK_IMAGE_NO_JPEG", {image.path});
}

void DBCFolderInspector::checkAttachments(const DBCRecord& record)
{
    using Outcome = DBCNamedFile::Outcome;
    const QString name = record.textOrEmpty(DBCRecordKey::attachmentFile);
    const DBCNamedFile found = openNamedAttachments(_names, _folder, name);
    if (found.outcome == Outcome::NotNamed)
        return;
    if (found.outcome == Outcome::LeadsOut) {
        reportLine(record, found.path, "IDS_LOG_WRN_NAME_LEADS_OUT", {name, found.folder});
        return;
    }
    if (found.outcome == Outcome::Missing) {
        reportLine(record, found.path, "IDS_CHECK_ATTACHMENT_FOLDER_MISSING", {found.path});
        return;
    }
    const auto names = listFolder(found.path);
    if (!names) {
        reportLine(record, found.path, "IDS_CHECK_FILE_UNREADABLE", {found.path});
        return;
    }
    for (const std::string& entry : *names)
        checkAttachment(record, QFile::encodeName(found.path), QByteArray::fromStdString(entry));
}

void DBCFolderInspector::checkAttachment(
    const DBCRecord& record, const QByteArray& folder, const QByteArray& name)
{
    const QByteArray path = folder + '/' + name;
    const QString shownPath = QFile::decodeName(path);
    const DBCEntryKind kind = kindOfEntry(AT_FDCWD, path);
    const DBCAttachmentVerdict verdict = judgeAttachmentForImport(name, kind);
    // An import would fail on an entry of unknown kind, so this check reports that the entry is not
    // a regular file.
    const bool isRegular = verdict == DBCAttachmentVerdict::Copy && kind != DBCEntryKind::Unknown;
    if (verdict == DBCAttachmentVerdict::Ignore)
        return;
    if (verdict == DBCAttachmentVerdict::BadName)
        reportLine(record, shownPath, "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT");
    else if (!isRegular)
        reportLine(record, shownPath, "IDS_LOG_WRN_ATTACH_NOT_REGULAR", {QFile::decodeName(name)});
    else if (!DBCHost::current().isReadable(shownPath))
        reportLine(record, shownPath, "IDS_CHECK_FILE_UNREADABLE", {shownPath});
}

void DBCFolderInspector::report(
    const QString& path, const char* key, const DBCMessageArguments& arguments)
{
    _report.findings.problems.push_back({getLocalString(key, arguments), path});
}

void DBCFolderInspector::reportLine(const DBCRecord& record, const QString& path, const char* key,
    const QStringList& furtherArguments)
{
    const QString lineNo = record.textOrEmpty(DBCRecordKey::lineNo);
    DBCMessageArguments arguments {lineNo, record.textOrEmpty(DBCRecordKey::full_Name)};
    for (const QString& argument : furtherArguments)
        arguments.push_back(argument);
    _report.findings.problems.push_back(
        {getLocalString(key, arguments), path, lineNo.toLongLong()});
}
