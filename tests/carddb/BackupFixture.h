// SPDX-License-Identifier: GPL-3.0-or-later
// A package of three cards, one of them deleted, with backups beside it.
#pragma once

#include "carddb/DBCPackageCopy.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/StandardInputKeeper.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

struct BackupFixture {
    BackupFixture()
    {
        package.card().withPdf("first");
        package.card().withAttachment(u"note.txt"_s, "second");
        package.card().deleted();
    }

    // Copies the package in its present state to this name and returns the path of the copy.
    QString backUp(const QString& name = u"Velmora DB_bak.vmdb"_s) const
    {
        if (DBCPackageCopy().copy(package.path(), home.path(name))
            != DBCPackageCopy::Outcome::Copied)
            qFatal("no backup");
        return home.path(name);
    }
    void damage(const QString& folder, const QByteArray& store = "these are no cards") const
    {
        home.writeFile(QFileInfo(folder).fileName() + u"/Velmora.sqldb"_s, store);
    }
    void removeStore(const QString& folder) const
    {
        if (!QFile::remove(folder + u"/Velmora.sqldb"_s))
            qFatal("no store to remove");
    }
    void removePackage() const
    {
        if (!QDir(package.path()).removeRecursively())
            qFatal("no package to remove");
    }
    bool hasJournal() const
    {
        return QFileInfo::exists(home.path(u".Velmora DB.vmdb.velmora-import"_s));
    }
    // The names of everything in the folder that holds the package and its backups.
    QStringList everything() const { return snapshotOf(home.path()); }

    StandardInputKeeper standardInput;
    TestHome home;
    PackageFixture package {home};
    RecordedLog log;
};
