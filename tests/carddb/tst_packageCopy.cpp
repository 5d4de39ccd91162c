// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageCopy.h"

#include "operation/base/DBCCancelDelegate.h"
#include "operation/copy/DBCFileManager.h"
#include "tests/carddb/TransferFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/StandardInputKeeper.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Outcome = DBCPackageCopy::Outcome;

// A cancel delegate that runs code of the test before an item is copied, or when the copy asks
// whether to stop.
struct Meddler : DBCCancelDelegate {
    bool checkIsNeedToConfirmCancelOperation() override { return cancels && cancels(); }
    bool fileManager(const DBCFileManager*, const QString& path, const QString& toPath) override
    {
        if (beforeItem)
            beforeItem(path, toPath);
        return true;
    }

    std::function<bool()> cancels;
    std::function<void(const QString& path, const QString& toPath)> beforeItem;
};

struct Copying {
    Copying()
    {
        package.card().withPdf("%PDF").withAttachment(u"a.txt"_s, "text");
        before = everythingBeside();
    }

    Outcome copy(DBCCancelDelegate* delegate = nullptr)
    {
        return DBCPackageCopy(delegate).copy(package.path(), target);
    }
    // Returns the names of everything beside the package, hidden names included, without the user's
    // home folder.
    QStringList everythingBeside() const
    {
        QStringList names
            = QDir(home.path())
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDir::Name);
        names.removeAll(u"home"_s);
        return names;
    }

    StandardInputKeeper standardInput;
    TestHome home;
    PackageFixture package {home};
    RecordedLog log;
    QString target = home.path(u"copy.vmdb"_s);
    QStringList before;
};

const QString unfinished = u".copy.vmdb.velmora-copy"_s;
const QString discarded = u".copy.vmdb.velmora-discarded"_s;

} // namespace

class tst_packageCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copyStandsUnderItsNameAndNothingElseIsLeft()
    {
        Copying copying;
        QCOMPARE(copying.copy(), Outcome::Copied);
        QCOMPARE(snapshotOf(copying.target), snapshotOf(copying.package.path()));
        QCOMPARE(copying.everythingBeside(), copying.before + QStringList(u"copy.vmdb"_s));
        QVERIFY(copying.log.isEmpty());
    }

    void nameIsTakenOnlyWhenTheCopyIsWhole()
    {
        Copying copying;
        int items = 0;
        Meddler meddler;
        meddler.beforeItem = [&](const QString&, const QString& toPath) {
            ++items;
            QVERIFY(toPath.startsWith(copying.home.path(unfinished)));
            QVERIFY(!QFileInfo::exists(copying.target));
        };
        QCOMPARE(copying.copy(&meddler), Outcome::Copied);
        QVERIFY(items > 5);
    }

    void leftoversOfAKilledProgramAreReplaced()
    {
        Copying copying;
        copying.home.writeFile(unfinished + u"/Velmora.sqldb"_s, "half");
        copying.home.writeFile(discarded + u"/Velmora.sqldb"_s, "old");
        QCOMPARE(copying.copy(), Outcome::Copied);
        QCOMPARE(snapshotOf(copying.target), snapshotOf(copying.package.path()));
        QCOMPARE(copying.everythingBeside(), copying.before + QStringList(u"copy.vmdb"_s));
    }

    void whatStandsAtTheNameIsLeftAlone()
    {
        Copying copying;
        copying.home.writeFile(u"copy.vmdb/mine"_s, "mine");
        QCOMPARE(copying.copy(), Outcome::Failed);
        QCOMPARE(QDir(copying.target).entryList(QDir::Files), QStringList {u"mine"_s});
        QCOMPARE(copying.everythingBeside(), copying.before + QStringList(u"copy.vmdb"_s));
    }

    void cancelledCopyLeavesNothing()
    {
        Copying copying;
        Meddler meddler;
        meddler.cancels = [] { return true; };
        QCOMPARE(copying.copy(&meddler), Outcome::Cancelled);
        QCOMPARE(copying.everythingBeside(), copying.before);
        QVERIFY(copying.log.isEmpty());
    }

    void cancelWhileTheCopyIsComparedLeavesNothingAndBlamesNothing()
    {
        Copying copying;
        Meddler meddler;
        meddler.cancels = [&] {
            const QFileInfo last(copying.home.path(unfinished));
            // The copy's attributes are set last. If they are set, the copy is already being
            // compared.
            return last.exists()
                && last.lastModified() == QFileInfo(copying.package.path()).lastModified();
        };
        QCOMPARE(copying.copy(&meddler), Outcome::Cancelled);
        QCOMPARE(copying.everythingBeside(), copying.before);
        QVERIFY(copying.log.isEmpty());
    }

    void packageThatChangesMeanwhileIsNoBackupAndIsNamed()
    {
        Copying copying;
        Meddler meddler;
        meddler.beforeItem = [&](const QString& path, const QString&) {
            if (path.endsWith(u"a.txt"_s))
                copying.package.writeFile(u"Images/new.pdf"_s, "x");
        };
        // Whether the copy includes the new file depends on the order of the entries on the disk.
        // Remove the file from the copy, so that package and copy differ in any case.
        meddler.cancels = [&] {
            QFile::remove(copying.home.path(unfinished) + u"/Images/new.pdf"_s);
            return false;
        };
        QCOMPARE(copying.copy(&meddler), Outcome::Failed);
        QCOMPARE(copying.everythingBeside(), copying.before);
        QCOMPARE(copying.log.errors,
            QStringList {TransferFixture::text(
                "IDS_LOG_ERR_COPY_DIFFERS", {copying.package.path(), u"Images"_s})});
    }

    void fullDiskLeavesNothing()
    {
        Copying copying;
        {
            const FileSizeLimit full(2000);
            QCOMPARE(copying.copy(), Outcome::Failed);
        }
        QCOMPARE(copying.everythingBeside(), copying.before);
    }

    void folderThatMayNotBeWrittenTakesNoCopy()
    {
        const AsOrdinaryUser user;
        Copying copying;
        copying.target = copying.home.makeFolder(u"closed"_s) + u"/copy"_s;
        const ScopedMode mode(copying.home.path(u"closed"_s), S_IRUSR | S_IXUSR);
        QCOMPARE(copying.copy(), Outcome::Failed);
        QVERIFY(!QFileInfo::exists(copying.target));
    }

    void fileThatMayNotBeReadIsNoCopy()
    {
        const AsOrdinaryUser user;
        Copying copying;
        const ScopedMode mode(copying.package.path(u"Files/CARD-1/a.txt"_s), 0);
        QCOMPARE(copying.copy(), Outcome::Failed);
        QCOMPARE(copying.everythingBeside(), copying.before);
    }

    void managerGetsItsDelegateBack()
    {
        Copying copying;
        Meddler own;
        Meddler other;
        DBCFileManager::defaultManager()->setDelegate(&own);
        QCOMPARE(copying.copy(&other), Outcome::Copied);
        QCOMPARE(DBCFileManager::defaultManager()->delegate(), &own);
        DBCFileManager::defaultManager()->setDelegate(nullptr);
    }
};

QTEST_GUILESS_MAIN(tst_packageCopy)
#include "tst_packageCopy.moc"
