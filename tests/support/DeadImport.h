// SPDX-License-Identifier: GPL-3.0-or-later
// Sets up the files that an import leaves behind when it is killed. One of them is the journal, the
// small file beside the package that records how far an import has come.
#pragma once

#include "carddb/DBCPackageCopy.h"
#include "carddb/DBCPackageJournal.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/JpegBuilder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/PdfBuilder.h"
#include "tests/support/StandardInputKeeper.h"
#include "tests/support/TestHome.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

// A package with one card, the backup of that package, and the journal of an import that was killed
// in the given stage.
struct DeadImport {
    using Stage = DBCPackageJournal::Stage;

    explicit DeadImport(Stage stage)
    {
        package.card().withPdf(PdfBuilder::cardPdf({JpegBuilder(30, 20).bytes()}));
        if (DBCPackageCopy().copy(package.path(), backup) != DBCPackageCopy::Outcome::Copied)
            qFatal("no backup");
        original = snapshotOf(backup);
        const auto journal = DBCPackageJournal::begin(package.path(), backup);
        const bool isNoted = stage == Stage::Backup || journal->enterImport(u"NEW-"_s);
        if (!isNoted
            || (stage != Stage::Import && stage != Stage::Backup && !journal->enter(stage)))
            qFatal("no journal");
    }

    // Adds what the import had written when it was killed: the cards, and one image file.
    void hasNewCards(int count)
    {
        for (int number = 1; number <= count; ++number)
            package.card({{"ZCARDID", u"NEW-%1"_s.arg(number)}});
        package.writeFile(u"Images/NEW-1_N1.pdf"_s, "new");
    }
    QString journalPath() const { return home.path(u".Velmora DB.vmdb.velmora-import"_s); }
    bool hasJournal() const { return QFileInfo::exists(journalPath()); }

    StandardInputKeeper standardInput;
    TestHome home;
    PackageFixture package {home};
    QString backup = home.path(u"Velmora DB_bak.vmdb"_s);
    QStringList original;
};
