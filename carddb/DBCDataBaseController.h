// SPDX-License-Identifier: GPL-3.0-or-later
// Carries out one conversion's work on a card database package: opens and locks it, imports and
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

// One instance serves one operation on one thread. Destroying it closes the store and releases the
// lock. The virtual functions are virtual so that tests of the driver can replace them.
class DBCDataBaseController {
public:
    // Opens nothing; all fields are empty.
    DBCDataBaseController();
    virtual ~DBCDataBaseController();
    DBCDataBaseController(const DBCDataBaseController&) = delete;
    DBCDataBaseController& operator=(const DBCDataBaseController&) = delete;

    // A controller whose store is open and whose package is locked; null when either fails. The
    // reason is in the log.
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
    // Asked during backup() and fetchCardDatas() whether to stop. Not owned; null asks nobody.
    void setDelegate(DBCCancelDelegate* delegate) { _delegate = delegate; }

    // --- record import ---
    // Adds a card with its PDF and attachments to the open store; save() commits it. True when
    // errors holds no error afterwards. For an empty folder, a null errors or a controller without
    // a path it does nothing and returns false without setting an error.
    virtual bool addDataToDataBase(
        const DBCRecord& record, const QString& fromPath, DBCError* errors);
    static DBCResultCode setDataToManagedObject(Card* object, const DBCRecord* dataDic);
    static DBCResultCode setDetailDataDicToManagedObject(
        Card* object, const DBCRecord* dataDic, qint32 withType); // withType: 21 to 33
    // Derived from the card's identity; a new UUID when object is null or has none.
    static QString generateCardId(const Card* object);
    static QString generateUUID();

    // --- record export ---
    // The live cards in the order of their accept dates. None when the store cannot be opened or
    // errors is null. A failed or cancelled fetch sets errors and returns what it has.
    // A caller with a delegate gets a question before each card; the export sets no delegate.
    virtual std::optional<std::vector<DBCRecord>> fetchCardDatas(DBCError* errors);
    static DBCRecord newDataDicWith(const Card& card);
    // Writes the card's images and attachments below toPath and returns the record completed with
    // their names. None when errors is set, or toPath or errors is missing.
    virtual std::optional<DBCRecord> exportData(
        const DBCRecord& record, const QString& toPath, DBCError* errors);

    // --- images and attachments: the steps of one card; none on error ---
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
    // Success, GeneralFailure for an empty path, or FolderCreateFailure.
    static DBCResultCode createDirectoryIfNotExists(const QString& path);

    // --- backup and restore ---
    std::optional<QString> _generateBackupDBPath() const; // none when all names are taken
    // Copies the package beside itself and writes the journal that says so. Success, BackupFailure,
    // NoSpaceForBackup or the negative code of a failed size measurement. After a failure neither a
    // backup nor a journal is left.
    virtual DBCResultCode backup();
    // Whether the last backup() failed because the delegate said to stop.
    virtual bool isBackupCancelled() const { return _isBackupCancelled; }
    // Puts the backup back in place of the package. Success, GeneralFailure when there is no
    // backup, or RestoreFailure, after which the package may be missing and the backup is whole.
    virtual DBCResultCode restore();
    // Always Success; a backup that cannot be removed is a warning in the log. Nothing calls this:
    // it is kept on purpose, because the name belongs to the class's interface.
    DBCResultCode removeBackupDB();
    // Removes the journal that backup() wrote. Called once nothing is left to restore, or the user
    // has seen a message about it. As long as the journal exists, the next start asks what to do
    // with the package.
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
    bool isChangedByOthers();
    DBCResultCode restorePackage();
    QString cardIDStart(); // the prefix shared by the IDs of all cards that this import adds

    std::unique_ptr<DBCManagedObjectModel> _managedObjectModel;
    std::unique_ptr<DBCManagedObjectContext> _managedObjectContext; // null until opened
    // Starts as 0, not as -1, on purpose: if _unlock() runs before _lock(), it
    // closes descriptor 0. Only -1 means that there is nothing to release.
    int _ilockFile = 0;
    QString _strDBPath;
    QString _strBackupDBPath;
    bool _isBackupCancelled = false;
    DBCCancelDelegate* _delegate = nullptr;
    std::unique_ptr<DBCPackageJournal> _journal; // null: no import has begun
};
