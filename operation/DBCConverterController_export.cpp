// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCConverterController.h"

#include "carddb/DBCDataBaseController.h"
#include "carddb/DBCPackageLayout.h"
#include "cardimage/DBCDiskUsage.h"
#include "datafile/helpers/DBCCommonFunction.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "datafile/records/DBCColumns.h"
#include "datafile/records/DBCFileWriter.h"
#include "operation/DBCChecker.h"
#include "operation/copy/DBCFileManager.h"
#include "operation/log/DBCLog.h"
#include "system/DBCDiskFlush.h"
#include "system/DBCNameLookup.h"

#include <QElapsedTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* exportLabel = "IDS_LBL_EXPORT";
// The estimate's allowance for a card's row in the data file, which is written after the estimate.
constexpr quint64 bytesPerRow = 2844;
// Every export checks for a cancel before it writes its first card. If measuring the cards takes
// longer than this time, the export also checks while it measures.
constexpr qint64 millisecondsBeforeAsking = 500;

QString lineSeparator()
{
    return u"\r\n"_s;
}

// Returns the path of a card's image file in the package, or an empty path if the card names none.
// A name that leads out of the package also gives an empty path: the export does not transfer such
// a file, and measuring it might mean measuring the whole disk. attachmentPathOf() treats
// attachments in the same way.
QString imagePathOf(const DBCRecord& card, const QString& package)
{
    const QString name = DBCDataBaseController::imageFileName(card);
    return !name.isEmpty() && DBCNameLookup::staysInside(name)
        ? DBCPackageLayout::imagesFolder(package) + u'/' + name
        : QString();
}

QString attachmentPathOf(const DBCRecord& card, const QString& package)
{
    const QString cardID = card.textOrEmpty(DBCRecordKey::cardID);
    return !cardID.isEmpty() && DBCNameLookup::staysInside(cardID)
        ? DBCPackageLayout::attachmentFolder(package, cardID)
        : QString();
}

// Returns the title line as a record, so that the writer can format it like the line of a card.
DBCRecord titleRecord()
{
    const std::vector<DBCRecordKey> keys = DBCCommonFunction::createRecordKeyNamesForDataFile();
    const QStringList titles = DBCCommonFunction::createTitleNamesForDataFile();
    DBCRecord record;
    qsizetype column = 0;
    for (const DBCRecordKey key : keys)
        record.setValue(key, titles.at(column++));
    return record;
}

DBCError writeRow(DBCFileWriter& writer, const DBCRecord& row)
{
    if (!isFailure(writer.write(row)))
        return {};
    DBCLog::error(getLocalString(u"IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE"_s));
    return DBCError(DBCResultCode::DataFileWriteFailure);
}

} // namespace

bool DBCConverterController::_doExport(DBCError* error)
{
    if (!error)
        return false;

    *error = _stopBefore(
        _guarded(u"Exception happended when exporting.[%1]"_s, [this] { return _exportCards(); }));
    if (_isCancel(*error)) {
        DBCFileManager::defaultManager()->cleanFolder(_fullPathFolder);
        *error = DBCError();
        return true;
    }
    _finishExport(*error);
    return !*error;
}

DBCError DBCConverterController::_exportCards()
{
    _logStart(exportLabel, u" From:[%1]  To:[%2]"_s.arg(_fullPathDB, _fullPathFolder));
    _send({.name = DBCEventName::ExportWillBegin});
    std::unique_ptr<DBCDataBaseController> database;
    std::vector<DBCRecord> cards;
    if (auto error = _prepareExport(&database, &cards))
        return error;
    _outcome.maxCount = static_cast<qint64>(cards.size());
    _sendProgress(DBCEventName::ExportDataFetchDidFinished, cards);
    return _writeFolder(*database, std::move(cards));
}

DBCError DBCConverterController::_prepareExport(
    std::unique_ptr<DBCDataBaseController>* database, std::vector<DBCRecord>* cards)
{
    if (auto error = _openDatabase(database))
        return error;
    if (auto error = _fetchCards(**database, cards))
        return error;
    return _checkSpaceForExport(*cards);
}

DBCError DBCConverterController::_fetchCards(
    DBCDataBaseController& database, std::vector<DBCRecord>* cards)
{
    DBCError error;
    auto fetched = database.fetchCardDatas(&error);
    if (error)
        return error;
    if (!fetched)
        return DBCError(DBCResultCode::GeneralFailure);
    *cards = std::move(*fetched);
    return {};
}

DBCError DBCConverterController::_checkSpaceForExport(const std::vector<DBCRecord>& cards)
{
    DBCError error;
    const quint64 needed = estimateDiskSpaceForExport(cards, &error) + DBCDiskSpaceMargin;
    if (error)
        return _isCancel(error) ? error : _sizeError(error);
    if (!_isFolder(_fullPathFolder))
        return DBCError(DBCResultCode::FolderNotExist);
    if (!DBCChecker::checkDiskSizeIsEnough(_fullPathFolder, needed))
        return DBCError(DBCResultCode::NoSpace);
    return {};
}

quint64 DBCConverterController::estimateDiskSpaceForExport(
    const std::vector<DBCRecord>& cards, DBCError* error)
{
    if (!error)
        return 0;
    quint64 total = 0;
    QElapsedTimer sinceStart;
    sinceStart.start();
    for (const DBCRecord& card : cards) {
        if (sinceStart.hasExpired(millisecondsBeforeAsking)) {
            if ((*error = _stopIfCancelled()))
                return total;
        }
        const quint64 imageSize = getSizeWithPath(imagePathOf(card, _fullPathDB), error);
        if (*error)
            return total;
        const quint64 attachmentSize = getSizeWithPath(attachmentPathOf(card, _fullPathDB), error);
        if (*error)
            return total;
        total += bytesPerRow + imageSize + attachmentSize;
    }
    return total;
}

DBCError DBCConverterController::_writeFolder(
    DBCDataBaseController& database, std::vector<DBCRecord> cards)
{
    std::unique_ptr<DBCFileWriter> writer;
    if (auto error = _openDataFile(&writer))
        return error;
    if (!cards.empty()) {
        if (auto error = writeRow(*writer, titleRecord()))
            return error;
    }
    auto error = _writeCards(database, std::move(cards), *writer);
    if (_isCancel(error))
        return error;
    if (!error)
        error = _closeDataFile(*writer);
    // The version file is written after a failure as well, because the rows written so far stay and
    // their folder has to name its version.
    if (auto versionError = _writeVersionFile())
        return versionError;
    return error;
}

DBCError DBCConverterController::_openDataFile(std::unique_ptr<DBCFileWriter>* writer) const
{
    *writer = DBCFileWriter::initWithFileName(
        DBCInterchangeNames::dataFile(_fullPathFolder), DBCTextEncoding::Utf16, lineSeparator());
    return *writer ? DBCError() : DBCError(DBCResultCode::DataFileOpenFailure);
}

DBCError DBCConverterController::_writeCards(
    DBCDataBaseController& database, std::vector<DBCRecord> cards, DBCFileWriter& writer)
{
    for (DBCRecord& waiting : cards) {
        if (auto stop = _stopIfCancelled())
            return stop;
        const DBCRecord card = std::exchange(waiting, DBCRecord());
        if (!_isFolder(_fullPathDB) || !_isFolder(_fullPathFolder))
            return DBCError(DBCResultCode::FolderNotExist);
        if (auto error = _writeCard(database, card, writer))
            return error;
        ++_outcome.finishedCount;
        _sendProgress(DBCEventName::ExportIsRunning, cards);
    }
    return _isStopRunning ? DBCError(DBCResultCode::CancelledByUser) : DBCError();
}

DBCError DBCConverterController::_writeCard(
    DBCDataBaseController& database, const DBCRecord& card, DBCFileWriter& writer) const
{
    DBCError error;
    const auto row = database.exportData(card, _fullPathFolder, &error);
    if (error)
        return error;
    if (!row)
        return DBCError(DBCResultCode::GeneralFailure);
    return writeRow(writer, *row);
}

// "Version.txt" marks the folder as complete, so everything else has to be on the disk before that
// file is written.
DBCError DBCConverterController::_closeDataFile(DBCFileWriter& writer) const
{
    if (!isFailure(writer.close()) && DBCDiskFlush::fileSystemOf(_fullPathFolder))
        return {};
    DBCLog::error(getLocalString(u"IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE"_s));
    return DBCError(DBCResultCode::DataFileWriteFailure);
}

DBCError DBCConverterController::_writeVersionFile() const
{
    const auto writer = DBCFileWriter::initWithFileName(
        DBCInterchangeNames::versionFile(_fullPathFolder), DBCTextEncoding::Utf16, lineSeparator());
    const QString line = QString::fromUtf16(DBCInterchangeNames::productCode) + u'\t'
        + QString::fromUtf16(DBCInterchangeNames::productVersion) + lineSeparator();
    const bool isWritten = writer && !isFailure(writer->write(line)) && !isFailure(writer->close())
        && DBCDiskFlush::fileSystemOf(_fullPathFolder);
    return isWritten ? DBCError() : DBCError(DBCResultCode::VersionFileWriteFailure);
}

void DBCConverterController::_finishExport(const DBCError& error)
{
    if (error)
        _handleExportError(error);
    DBCLog::info(_endLine("IDS_LOG_INF_END_WITH_INFO_EXPORT", exportLabel));
    _send({
        .name = DBCEventName::ExportDidFinished,
        .operationIsOk = !error,
        .maxCount = _outcome.maxCount,
        .finishedCount = _outcome.finishedCount,
    });
}
