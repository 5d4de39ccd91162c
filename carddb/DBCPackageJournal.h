// SPDX-License-Identifier: GPL-3.0-or-later
// A small hidden file beside a package that records how far an import or a restore has come and
// which backup belongs to it. A journal that no process holds comes from one that did not finish.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <memory>

// The file ".<package name>.velmora-import" is created before the first change to the package and
// removed after the last. It holds one line of JSON for each stage:
//   {"stage":"backup","backup":"<folder name of the backup>"}
//   {"stage":"import","cards":"<prefix of the card IDs of this import>"}
//   {"stage":"restore"}
//   {"stage":"restored"}
// Each line is flushed to the disk before its stage begins. The last complete line counts; a line
// without its end, or one that is no such object, is ignored. The backup is a name without a path,
// because the folder may have been moved since.
//
// The object holds an flock() on the file from begin() or find() until it is destroyed, so that
// other processes can tell a running operation from one that was killed. One thread at a time.
class DBCPackageJournal {
public:
    // The state of the disk if the process is killed while this stage is the last one recorded.
    enum class Stage : quint8 {
        None, // no line is complete: nothing has been changed
        Backup, // the package is untouched; the backup is missing, incomplete under a hidden name,
                // or whole
        Import, // the backup is whole, and the package may hold files of the import
        Restore, // the backup is whole, and the package may be missing or incomplete
        Restored, // the package equals its backup again
    };

    // Creates the journal with the stage Backup and holds it. backup is a path of which only the
    // last component is recorded. Null when a journal exists already or when it could not be
    // written to the disk; in the second case the file is removed.
    static std::unique_ptr<DBCPackageJournal> begin(const QString& package, const QString& backup);

    enum class Search : quint8 {
        None, // there is no journal
        HeldByAnother, // an operation is running
        Unreadable, // there is one, but it cannot be opened or read, or is no regular file
        Found, // nobody held it
    };
    struct SearchResult {
        Search search;
        std::unique_ptr<DBCPackageJournal> journal; // held by the caller now; null unless Found
    };
    // Looks for the journal of an operation that did not finish.
    static SearchResult find(const QString& package);

    // Records a stage. False when the line could not be flushed to the disk; the journal then keeps
    // the previous stage.
    bool enter(Stage stage);
    // Records the stage Import. cardIDStart is the prefix of the IDs of all cards that the import
    // adds; a card with it in the store proves that the import was saved.
    bool enterImport(const QString& cardIDStart);
    // Removes the file and flushes its folder. False when either fails.
    bool end();

    Stage stage() const { return _stage; }
    QString backupPath() const; // in the journal's own folder; empty when no line names a backup
    QString cardIDStart() const { return _cardIDStart; } // empty before the stage Import

private:
    DBCPackageJournal(const QString& path, int descriptor);

    bool append(const QByteArray& line);
    bool readStages();
    void takeLine(const QByteArray& line);

    QString _path;
    DBCDescriptor _file; // locked with flock()
    Stage _stage = Stage::None;
    QString _backupName;
    QString _cardIDStart;
};
