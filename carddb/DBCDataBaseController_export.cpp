// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCDataBaseController.h"

#include "carddb/DBCPackageLayout.h"
#include "carddb/store/DBCCard.h"
#include "carddb/store/DBCCardAttributes.h"
#include "carddb/store/DBCManagedObjectContext.h"
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/base/DBCCancelDelegate.h"
#include "operation/log/DBCLog.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// Returns the error of a step. A step that returned neither a result nor an error counts as failed.
template <typename Result>
DBCError stepError(const std::optional<Result>& result, const DBCError& error)
{
    if (error || result)
        return error;
    return DBCError(DBCResultCode::GeneralFailure);
}

} // namespace

std::optional<std::vector<DBCRecord>> DBCDataBaseController::fetchCardDatas(DBCError* errors)
{
    DBCManagedObjectContext* context = errors ? managedObjectContext() : nullptr;
    if (!context)
        return std::nullopt;
    std::vector<DBCRecord> records;
    DBCError error;
    try {
        context->fetchCards(DBCCardSelection::Live, [&](const Card& card) {
            // A caller that has set a delegate can stop the fetch here. The conversion driver sets
            // none for an export: it asks the user itself, while it measures and before each card.
            if (_delegate && _delegate->checkIsNeedToConfirmCancelOperation()) {
                error = DBCError(DBCResultCode::CancelledByUser);
                return false;
            }
            DBCRecord& record = records.emplace_back(newDataDicWith(card));
            record.setValue(DBCRecordKey::recordNo, QString::number(records.size()));
            return true;
        });
        if (!error && records.empty())
            error = DBCError(DBCResultCode::NoCards);
    } catch (const SQLite::Exception& exception) {
        if (exception.getErrorCode() == SQLITE_INTERRUPT) {
            *errors = DBCError(DBCResultCode::CancelledByUser);
            return records;
        }
        DBCLog::error(getLocalString(u"IDS_LOG_ERR_STORE_FETCH"_s,
            {DBCPackageLayout::storeFile(_strDBPath), QString::fromLocal8Bit(exception.what())}));
        error = DBCError(DBCResultCode::FetchFailure);
        records.clear();
    }
    if (error)
        *errors = error;
    return records;
}

DBCRecord DBCDataBaseController::newDataDicWith(const Card& card)
{
    constexpr std::size_t keysAddedLater = 2; // recordNo and attachmentFile
    DBCRecord record;
    record.reserve(DBCCardAttributes.size() + keysAddedLater);
    for (const DBCCardAttribute& attribute : DBCCardAttributes) {
        if (const DBCValue* value = card.value(attribute.key))
            record.setValue(attribute.key, *value);
        else if (attribute.key == DBCRecordKey::accept_Date)
            record.setValue(attribute.key, QDateTime::currentDateTime());
        else
            record.setValue(attribute.key, QString());
    }
    return record;
}

std::optional<DBCRecord> DBCDataBaseController::exportData(
    const DBCRecord& record, const QString& toPath, DBCError* errors)
{
    if (toPath.isEmpty() || !errors)
        return std::nullopt;
    if (const auto code = createDirectoryIfNotExists(toPath); code != DBCResultCode::Success) {
        *errors = DBCError(code).withPathName(toPath);
        return std::nullopt;
    }

    DBCError imageError;
    const auto images
        = _exportImageFile(record, DBCInterchangeNames::imageFolder(toPath), &imageError);
    if (const DBCError error = stepError(images, imageError)) {
        *errors = error;
        return std::nullopt;
    }

    DBCError attachmentError;
    const auto attachment = _exportAttachFile(
        record, DBCInterchangeNames::attachmentFolder(toPath), &attachmentError);
    if (const DBCError error = stepError(attachment, attachmentError)) {
        *errors = error;
        return std::nullopt;
    }

    // The card also fails if the caller passed in an errors object that already held an error.
    if (*errors)
        return std::nullopt;

    DBCRecord completed = record;
    completed.setValue(DBCRecordKey::face_Image_File, images->value(0));
    completed.setValue(DBCRecordKey::back_Image_File, images->value(1));
    completed.setValue(DBCRecordKey::attachmentFile, *attachment);
    return completed;
}
