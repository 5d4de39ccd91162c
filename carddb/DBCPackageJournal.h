// SPDX-License-Identifier: GPL-3.0-or-later
// A small file beside a package that says that an import into it has begun, where the backup is and
// how far the import came. It is written before the first change and removed after the last one, so
// one that is found and that nobody holds tells of an import that did not finish.
//
// One line of JSON a stage, each on the disk before the stage begins; a line that was cut short
// counts as not written. Names only, no paths: the folder may have been moved since.
#pragma once

#include "system/DBCDescriptor.h"

#include <QString>

#include <memory>

class DBCPackageJournal {
public:
    enum class Stage : quint8 {
        None, // nothing has been changed
        Backup, // the backup is being made, the package untouched
        Import, // the backup is whole; cards are being added
        Restore, // the backup is being put back
        Restored, // the package is as before the import
    };

    // Begins an import's journal and holds it for as long as the object lives. Null when there is
    // one already, or it could not be brought to the disk.
    static std::unique_ptr<DBCPackageJournal> begin(const QString& package, const QString& backup);

    enum class Search : quint8 { None, HeldByAnother, Unreadable, Found };
    struct SearchResult {
        Search search;
        std::unique_ptr<DBCPackageJournal> journal; // held; null unless found
    };
    static SearchResult find(const QString& package);

    // False when the line could not be brought to the disk; the stage before then stands.
    bool enter(Stage stage);
    // cardIDStart: what the IDs of the import's cards begin with; they are in the store once the
    // import has been saved.
    bool enterImport(const QString& cardIDStart);
    // False when the file could not be removed for good.
    bool end();

    Stage stage() const { return _stage; }
    QString backupPath() const; // empty: none noted
    QString cardIDStart() const { return _cardIDStart; }

private:
    DBCPackageJournal(const QString& path, int descriptor);

    bool append(const QByteArray& line);
    bool readStages();
    void takeLine(const QByteArray& line);

    QString _path;
    DBCDescriptor _file; // locked
    Stage _stage = Stage::None;
    QString _backupName;
    QString _cardIDStart;
};
