// SPDX-License-Identifier: GPL-3.0-or-later
// What an import that was killed leaves behind.
#pragma once

#include "carddb/DBCImportJournal.h"
#include "carddb/DBCPackageCopy.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/StandardInputKeeper.h"
#include "tests/support/TestHome.h"

#include <QFileInfo>

// A package with a card, its backup, and what a program that died left of an import.
struct DeadImport {
    using Stage = DBCImportJournal::Stage;

    explicit DeadImport(Stage stage)
    {
        package.card().withPdf(PdfBuilder::cardPdf({JpegBuilder(30, 20).bytes()}));
        if (!DBCPackageCopy().copy(package.path(), backup))
            qFatal("no backup");
        original = snapshotOf(backup);
        const auto journal = DBCImportJournal::begin(package.path(), backup);
        const bool isNoted = stage == Stage::Backup || journal->enterImport(QStringLiteral("NEW-"));
        if (!isNoted
            || (stage != Stage::Import && stage != Stage::Backup && !journal->enter(stage)))
            qFatal("no journal");
    }

    // Cards and files of the import, as far as it came.
    void hasNewCards(int count)
    {
        for (int number = 1; number <= count; ++number)
            package.card({{"ZCARDID", QStringLiteral("NEW-%1").arg(number)}});
        package.writeFile(QStringLiteral("Images/NEW-1_N1.pdf"), "new");
    }
    QString journalPath() const
    {
        return home.path(QStringLiteral(".Velmora DB.vmdb.velmora-import"));
    }
    bool hasJournal() const { return QFileInfo::exists(journalPath()); }

    StandardInputKeeper standardInput;
    TestHome home;
    PackageFixture package {home};
    QString backup = home.path(QStringLiteral("Velmora DB_bak.vmdb"));
    QStringList original;
};
