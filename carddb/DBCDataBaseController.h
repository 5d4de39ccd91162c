// SPDX-License-Identifier: GPL-3.0-or-later
// The program's only door to a card database package: opens and locks it, takes records in and
// hands them out with their images and attachments, backs it up, restores and saves it. One
// instance serves one operation on one thread; destroying it closes the store and the lock.
#pragma once

#include "carddb/DBCPackageCopy.h"
#include "datafile/records/DBCRecord.h"
#include "operation/base/DBCError.h"
#include "text/DBCAddresses.h"
#include "text/DBCNames.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class Card;
class DBCCancelDelegate;
class DBCPackageJournal;
class DBCManagedObjectContext;
class DBCManagedObjectModel;

class DBCDataBaseController {
public:
    // All fields cleared; nothing is opened.
    DBCDataBaseController();
    virtual ~DBCDataBaseController();
    DBCDataBaseController(const DBCDataBaseController&) = delete;
    DBCDataBaseController& operator=(const DBCDataBaseController&) = delete;

    // With the store open and the package locked; null when either fails.
    static std::unique_ptr<DBCDataBaseController> initDBwithPath(const QString& path);

    // --- store and lock ---
    const DBCManagedObjectModel* managedObjectModel(); // owned by this; loaded on first call
    DBCManagedObjectContext* managedObjectContext(); // owned by this; opened on first call; or null
    DBCResultCode _lock(); // Success, GeneralFailure or DatabaseLockFailure
    DBCResultCode _unlock(); // Success or DatabaseUnlockFailure
    virtual DBCResultCode save(); // Success, GeneralFailure or DatabaseSaveFailure
    void setDBPath(const QString& path) { _strDBPath = path; }
    void setBackupDBPath(const QString& path) { _strBackupDBPath = path; }
    QString backupDBPath() const { return _strBackupDBPath; } // empty: no backup
    // Not owned; null: nobody is asked.
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // --- record import ---
    // True when error holds nothing afterwards. False without an error for an empty folder, a null
    // error or a controller without path.
    virtual bool addDataToDataBase(
        const DBCRecord& record, const QString& fromPath, DBCError* errors);
    static DBCResultCode setDataToManagedObject(Card* object, const DBCRecord* dataDic);
    static DBCResultCode setDetailDataDicToManagedObject(
        Card* object, const DBCRecord* dataDic, qint32 withType); // 21 to 33
    static QString generateCardId(const Card* object); // object may be null
    static QString generateUUID();

    // --- record export ---
    // The live cards in the order of their accept dates; none only without open context or error
    // slot.
    virtual std::optional<std::vector<DBCRecord>> fetchCardDatas(DBCError* errors);
    static DBCRecord newDataDicWith(const Card& card);
    // The record completed with the names of the files written; none on error.
    virtual std::optional<DBCRecord> exportData(
        const DBCRecord& record, const QString& toPath, DBCError* errors);

    // --- images and attachments ---
    virtual std::optional<QString> _addImageFileIntoDB(
        const QString& folder, const DBCRecord& recordDic, const QString& cardId, DBCError* errors);
    virtual std::optional<QString> _addAttachFileIntoDB(
        const QString& folder, const DBCRecord& recordDic, const QString& cardId, DBCError* errors);
    virtual std::optional<QStringList> _exportImageFile(
        const DBCRecord& record, const QString& toPath, DBCError* errors);
    virtual std::optional<QString> _exportAttachFile(
        const DBCRecord& record, const QString& toPath, DBCError* errors);
    static QString imageFileName(const DBCRecord& record);
    static std::optional<QStringList> convertPdf2Jpg(
        const QString& pdfPath, const QString& toPath, const QString& recordNo, DBCError* errors);
    // Success, GeneralFailure for an empty path, FolderCreateFailure.
    static DBCResultCode createDirectoryIfNotExists(const QString& path);

    // --- backup and restore ---
    std::optional<QString> _generateBackupDBPath() const;
    virtual DBCResultCode backup(); // Success, BackupFailure, NoSpaceForBackup or a measuring error
    // Whether the last backup() failed because the delegate said to stop.
    virtual bool isBackupCancelled() const { return _isBackupCancelled; }
    virtual DBCResultCode restore(); // Success, GeneralFailure (no backup) or RestoreFailure
    DBCResultCode removeBackupDB(); // always Success
    // Takes down the note of the import that backup() put up: nothing is left to restore, or
    // somebody has been told. Until then the next start asks what is to become of the package.
    void endImport();

    // --- names and addresses: forwarders to text/ ---
    static DBCLanguage judgeLanguage(QStringView text) { return DBCNames::judgeLanguage(text); }
    static DBCNameParts separateName(const std::optional<QString>& text)
    {
        return DBCNames::separateName(text);
    }
    static DBCNameParts separateNameYomi(const std::optional<QString>& text)
    {
        return DBCNames::separateNameYomi(text);
    }
    static DBCAddressParts separateAddress(const std::optional<QString>& text)
    {
        return DBCAddresses::separateAddress(text);
    }
    static std::optional<QString> composeAddressWithStreet(
        const QString& street, const QString& city, const QString& state)
    {
        return DBCAddresses::composeAddressWithStreet(street, city, state);
    }
    static std::optional<QString> composeAddressWithDefaultAddress(
        const QString& address, const QString& street, const QString& city, const QString& state)
    {
        return DBCAddresses::composeAddressWithDefaultAddress(address, street, city, state);
    }

private:
    DBCError addCard(const DBCRecord& record, const QString& fromPath);
    DBCPackageCopy::Outcome backUpTo(const QString& target);
    QString cardIDStart(); // of the cards that the open context makes

    std::unique_ptr<DBCManagedObjectModel> _managedObjectModel;
    std::unique_ptr<DBCManagedObjectContext> _managedObjectContext; // null until opened
    // 0, not -1: until _lock() has run, _unlock() finds descriptor 0 and releases that. Only -1
    // counts as nothing to release.
    int _ilockFile = 0;
    QString _strDBPath;
    QString _strBackupDBPath;
    bool _isBackupCancelled = false;
    DBCCancelDelegate* _delegate = nullptr;
    std::unique_ptr<DBCPackageJournal> _journal; // null: no import has begun
};
