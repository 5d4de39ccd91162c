// SPDX-License-Identifier: GPL-3.0-or-later
// A small hidden file beside a package that records how far an import or a restore has come and
// which backup belongs to it. If no process has the journal locked, its import or restore did not
// finish.
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
// A process flushes each line to the disk before it begins the stage. The last complete line tells
// the stage; readers ignore a line without its line end, and one that is none of the objects above.
// The backup is a name without a path, because the user may have moved the folder since.
//
// From begin() or find() until it is destroyed, the object holds an flock() on the file, so that
// other processes can tell a running operation from one that was killed. Use an object on one
// thread at a time.
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

    // Creates the journal with the stage Backup and locks it. backup is a path, of which only the
    // last component is recorded. Returns null when a journal exists already, or when the new one
    // could not be written to the disk; in the second case the new file is removed.
    static std::unique_ptr<DBCPackageJournal> begin(const QString& package, const QString& backup);

    enum class Search : quint8 {
        None, // there is no journal
        HeldByAnother, // another operation is running and has the journal locked
        Unreadable, // there is a journal, but it cannot be opened or read, or it is no regular file
        Found, // there is a journal that nobody had locked
    };
    struct SearchResult {
        Search search;
        // Locked by this object; null unless search is Found.
        std::unique_ptr<DBCPackageJournal> journal;
    };
    // Looks for the journal of an operation that did not finish, and locks it.
    static SearchResult find(const QString& package);

    // Records a stage. Returns false when the line could not be flushed to the disk; stage() is
    // then still the previous one.
    bool enter(Stage stage);
    // Records the stage Import. cardIDStart is the prefix of the IDs of all cards that the import
    // adds. If the store holds a card whose ID begins with it, the import was saved.
    bool enterImport(const QString& cardIDStart);
    // Removes the journal's file and flushes its folder. Returns false when either fails.
    bool end();

    Stage stage() const { return _stage; }
    // A path in the journal's own folder; empty when no line names a backup.
    QString backupPath() const;
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
