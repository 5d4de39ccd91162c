// SPDX-License-Identifier: GPL-3.0-or-later
// Does the work of one conversion on a card database package: opens and locks it, imports and
// exports records with their images and attachments, saves it, backs it up and restores it.
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

// One object serves one operation on one thread. Its destructor closes the store and releases the
// lock. Some functions are virtual only so that tests of the conversion driver can replace them.
class DBCDataBaseController {
public:
    // Opens nothing; all fields are empty until a caller sets them.
    DBCDataBaseController();
    virtual ~DBCDataBaseController();
    DBCDataBaseController(const DBCDataBaseController&) = delete;
    DBCDataBaseController& operator=(const DBCDataBaseController&) = delete;

    // Returns a controller whose store is open and whose package is locked, or null when either
    // fails; the reason is then in the log.
    static std::unique_ptr<DBCDataBaseController> initDBwithPath(const QString& path);

    // --- store and lock ---
    // Owned by this object; created on the first call.
    const DBCManagedObjectModel* managedObjectModel();
    // Owned by this object and opened on the first call; null when the store cannot be opened or
    // locked.
    DBCManagedObjectContext* managedObjectContext();
    DBCResultCode _lock(); // Success, GeneralFailure or DatabaseLockFailure
    DBCResultCode _unlock(); // Success or DatabaseUnlockFailure
    virtual DBCResultCode save(); // Success, GeneralFailure or DatabaseSaveFailure
    void setDBPath(const QString& path) { _strDBPath = path; }
    void setBackupDBPath(const QString& path) { _strBackupDBPath = path; }
    QString backupDBPath() const { return _strBackupDBPath; } // empty when there is no backup
    // Sets the object that backup() and fetchCardDatas() ask whether the user wants to stop. The
    // controller does not own it. With null they do not ask.
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // --- record import ---
    // Adds a card with its PDF and attachments to the open store; save() commits it. Returns true
    // when errors holds no error afterwards. If fromPath is empty, errors is null or the controller
    // has no path, this does nothing and returns false without setting an error.
    virtual bool addDataToDataBase(
        const DBCRecord& record, const QString& fromPath, DBCError* errors);
    static DBCResultCode setDataToManagedObject(Card* object, const DBCRecord* dataDic);
    static DBCResultCode setDetailDataDicToManagedObject(
        Card* object, const DBCRecord* dataDic, qint32 withType); // withType: 21 to 33
    // Returns the ID that follows from the card's identity, or a new UUID when object is null or
    // has no identity.
    static QString generateCardId(const Card* object);
    static QString generateUUID();

    // --- record export ---
    // Returns the cards that are not deleted, in the order of their accept dates, or std::nullopt
    // when the store cannot be opened or errors is null. If reading fails, this sets errors and
    // returns an empty list. If the user stops it, this sets errors and returns the cards read so
    // far.
    //
    // If a delegate is set, it is asked before each card whether to stop. The conversion driver
    // sets none for an export.
    virtual std::optional<std::vector<DBCRecord>> fetchCardDatas(DBCError* errors);
    static DBCRecord newDataDicWith(const Card& card);
    // Writes the card's images and attachments below toPath and returns the record completed with
    // their names. Returns std::nullopt when errors is null or holds an error, or when toPath is
    // empty.
    virtual std::optional<DBCRecord> exportData(
        const DBCRecord& record, const QString& toPath, DBCError* errors);

    // --- images and attachments: the steps of one card; they return std::nullopt on an error ---
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
    // Returns Success, GeneralFailure for an empty path, or FolderCreateFailure.
    static DBCResultCode createDirectoryIfNotExists(const QString& path);

    // --- backup and restore ---
    std::optional<QString> _generateBackupDBPath() const; // std::nullopt when all names are taken
    // Copies the package to a name beside it, and records that in the journal, the small file
    // beside the package that says how far an import has come. Returns Success, BackupFailure,
    // NoSpaceForBackup or the negative code of a failed size measurement. After a failure neither a
    // backup nor a journal is left.
    virtual DBCResultCode backup();
    // Whether the last backup() failed because the user chose to stop it.
    virtual bool isBackupCancelled() const { return _isBackupCancelled; }
    // Replaces the package with the backup. Returns Success, GeneralFailure when there is no
    // backup, or RestoreFailure; after that the package may be missing, but the backup is complete.
    virtual DBCResultCode restore();
    // Always returns Success; for a backup that cannot be removed it only logs a warning. Nothing
    // calls this function: it is kept on purpose, because it belongs to the class's interface.
    DBCResultCode removeBackupDB();
    // Removes the journal that backup() wrote. It is called once nothing is left to restore. As
    // long as the journal exists, the next start asks the user what to do with the package, unless
    // the journal shows that the package is complete.
    void endImport();

    // --- names and addresses: these functions only call those of text/ ---
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
    bool isChangedByOthers();
    DBCResultCode restorePackage();
    QString cardIDStart(); // the prefix shared by the IDs of all cards that this import adds

    std::unique_ptr<DBCManagedObjectModel> _managedObjectModel;
    std::unique_ptr<DBCManagedObjectContext> _managedObjectContext; // null until opened
    // It starts as 0, not as -1, on purpose: if _unlock() runs before _lock(), it closes descriptor
    // 0. Only -1 means that there is nothing to release.
    int _ilockFile = 0;
    QString _strDBPath;
    QString _strBackupDBPath;
    bool _isBackupCancelled = false;
    DBCCancelDelegate* _delegate = nullptr;
    std::unique_ptr<DBCPackageJournal> _journal; // null until an import has begun
};
