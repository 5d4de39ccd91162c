// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCFolderInspector.h"

#include "cardimage/DBCDiskUsage.h"
#include "cardimage/DBCImageFiles.h"
#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/jpeg/DBCJpegProperties.h"
#include "datafile/DBCFileReader.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/records/DBCColumns.h"
#include "operation/DBCChecker.h"
#include "operation/base/DBCStopQuestion.h"
#include "system/DBCFolderListing.h"
#include "system/DBCHost.h"
#include "text/DBCAddresses.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

using FileType = std::filesystem::file_type;

// Joined into one address before their length is looked at.
constexpr std::array addressParts {
    DBCRecordKey::state,
    DBCRecordKey::city,
    DBCRecordKey::street,
    DBCRecordKey::address,
};

QString titleOf(const DBCColumn& column)
{
    return getLocalString(column.titleKey);
}

const DBCColumn& columnOf(DBCRecordKey key)
{
    return *std::find_if(DBCColumns.begin(), DBCColumns.end(),
        [key](const DBCColumn& column) { return column.key == key; });
}

bool isAddressPart(DBCRecordKey key)
{
    return std::find(addressParts.begin(), addressParts.end(), key) != addressParts.end();
}

// The length that the reader looks at: an address is checked as the one text it becomes.
qsizetype addressLength(const DBCRecord& record)
{
    return DBCAddresses::composeAddressWithDefaultAddress(record.textOrEmpty(DBCRecordKey::address),
        record.textOrEmpty(DBCRecordKey::street), record.textOrEmpty(DBCRecordKey::city),
        record.textOrEmpty(DBCRecordKey::state))
        .value_or(QString())
        .size();
}

QString addressLabel()
{
    return u"%1+%2+%3/%4"_s.arg(titleOf(columnOf(DBCRecordKey::state)),
        titleOf(columnOf(DBCRecordKey::city)), titleOf(columnOf(DBCRecordKey::street)),
        titleOf(columnOf(DBCRecordKey::address)));
}

// None when the folder may not be read.
std::optional<std::vector<std::string>> listFolder(const QString& folder)
{
    if (!DBCHost::current().isReadable(folder))
        return std::nullopt;
    std::error_code error;
    return namesInFolder(folder, &error);
}

bool isJpeg(const QString& path)
{
    // An import does not read what is larger, either.
    if (QFileInfo(path).size() > DBCBitmap::maximumBytes)
        return false;
    QByteArray bytes;
    return readJpgFile(QUrl::fromLocalFile(path), &bytes) == 0
        && readJpegProperties(bytes).has_value();
}

} // namespace

DBCFolderReport DBCFolderInspector::inspect(const QString& folder, const Progress& progress)
{
    DBCFolderInspector inspector(folder, progress);
    inspector._report.findings.couldNotLook = inspector.reasonNotToLook();
    if (!inspector._report.findings.couldNotLook) {
        inspector.checkVersion();
        inspector.measure();
        if (inspector.look(0, 0) == Looking::GoOn)
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
    const DBCStopQuestion question([this] { return look(0, 0) == Looking::Stop; });
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
        return look(line, reader->lineCount()) == Looking::GoOn ? DBCFileReader::Reading::GoOn
                                                                : DBCFileReader::Reading::Stop;
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

DBCFolderInspector::Looking DBCFolderInspector::look(qint64 finished, qint64 max)
{
    const Looking next = _progress ? _progress(finished, max) : Looking::GoOn;
    _report.wasStopped = next == Looking::Stop;
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
    const auto reportTooLong = [&](const QString& label) {
        const QString lineNo = record.textOrEmpty(DBCRecordKey::lineNo);
        _report.findings.problems.push_back(
            {getLocalString(u"IDS_LOG_WRN_ITEM_MAX_LEN"_s,
                 {label, lineNo, record.textOrEmpty(DBCRecordKey::full_Name)}),
                DBCInterchangeNames::dataFile(_folder), lineNo.toLongLong()});
    };
    for (const DBCColumn& column : DBCColumns) {
        if (!column.maxLength || isAddressPart(column.key))
            continue;
        if (record.textOrEmpty(column.key).size() > *column.maxLength)
            reportTooLong(titleOf(column));
    }
    if (addressLength(record) > *columnOf(DBCRecordKey::address).maxLength)
        reportTooLong(addressLabel());
}

void DBCFolderInspector::checkImage(const DBCRecord& record, DBCRecordKey key)
{
    const QString name = record.textOrEmpty(key);
    if (DBCChecker::isBlank(name))
        return;
    const QString folder = DBCInterchangeNames::imageFolder(_folder);
    const QString path = folder + u'/' + name;
    const auto found = _names.find(folder, name, DBCNameLookup::Kind::RegularFile);
    if (found.outcome == DBCNameLookup::Outcome::LeadsOut)
        reportLine(record, path, "IDS_LOG_WRN_NAME_LEADS_OUT", {name, folder});
    else if (found.outcome == DBCNameLookup::Outcome::Missing)
        reportLine(record, path, "IDS_CHECK_IMAGE_MISSING", {path});
    else if (!DBCHost::current().isReadable(found.path))
        reportLine(record, found.path, "IDS_CHECK_FILE_UNREADABLE", {found.path});
    else if (!isJpeg(found.path))
        reportLine(record, found.path, "IDS_CHECK_IMAGE_NO_JPEG", {found.path});
}

void DBCFolderInspector::checkAttachments(const DBCRecord& record)
{
    const QString name = record.textOrEmpty(DBCRecordKey::attachmentFile);
    if (DBCChecker::isBlank(name))
        return;
    const QString folder = DBCInterchangeNames::attachmentFolder(_folder);
    const QString path = folder + u'/' + name;
    const auto found = _names.find(folder, name, DBCNameLookup::Kind::Folder);
    if (found.outcome == DBCNameLookup::Outcome::LeadsOut) {
        reportLine(record, path, "IDS_LOG_WRN_NAME_LEADS_OUT", {name, folder});
        return;
    }
    if (found.outcome == DBCNameLookup::Outcome::Missing) {
        reportLine(record, path, "IDS_CHECK_ATTACHMENT_FOLDER_MISSING", {path});
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
    std::error_code error;
    const FileType type = std::filesystem::symlink_status(path.toStdString(), error).type();
    if (name == DBCInterchangeNames::folderSettingsFile || type == FileType::directory)
        return;
    if (name.startsWith('.') || name.contains(':'))
        reportLine(record, shownPath, "IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT");
    else if (type != FileType::regular)
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
