// SPDX-License-Identifier: GPL-3.0-or-later
// Tests what happens when attachments are removed while the folder of a card is being copied. The
// tests remove them on the warning about a name that is left out, because the copy logs that
// warning before it copies the names after it.
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/StandardInputKeeper.h"

#include <QFile>
#include <QTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

using Key = DBCRecordKey;

namespace {

const QString cardId = u"0A1B-1"_s;
const QString named = u"plans"_s;

struct Transfer : TransferFixture {
    Transfer()
    {
        for (const char* name : {".hidden", "b.txt", "c.txt"}) {
            const QString file = QString::fromLatin1(name);
            folder.attachment(named, file, name);
            package.writeFile(u"Files/0A1B-1/"_s + file, name);
        }
    }

    void atTheFirstWarning(const std::function<void()>& act)
    {
        log.onEntry = [this, act](const DBCLogEntry& entry) {
            if (entry.type == DBCLogType::Warning && log.warnings.size() == 1)
                act();
        };
    }
    std::optional<QString> importAttachments()
    {
        return database->_addAttachFileIntoDB(
            folder.path(), record({{Key::attachmentFile, named}}), cardId, &error);
    }
    std::optional<QString> exportAttachments()
    {
        return database->_exportAttachFile(
            record({{Key::cardID, cardId}}), home.path(u"export"_s), &error);
    }
    QString cardFolder() const { return packagePath(u"Files/0A1B-1"_s); }
    QString source(const QString& name) const { return folder.attachmentPath(named, name); }

private:
    StandardInputKeeper _standardInput;
};

} // namespace

class tst_vanishingFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void attachmentThatVanishesIsAWarningAndTheOthersAreTakenIn()
    {
        Transfer transfer;
        QFile::remove(transfer.cardFolder() + u"/c.txt"_s);
        const QString gone = transfer.source(u"b.txt"_s);
        transfer.atTheFirstWarning([&gone] { QFile::remove(gone); });
        QCOMPARE(transfer.importAttachments(), cardId);
        QVERIFY(!transfer.error);
        QCOMPARE(transfer.log.warnings.size(), 2);
        QCOMPARE(transfer.log.warnings.constLast(),
            Transfer::text("IDS_LOG_WRN_FILE_NO_EXISTS", {gone}));
        QCOMPARE(contentsOf(transfer.cardFolder() + u"/c.txt"_s), QByteArray("c.txt"));
    }

    void storedAttachmentThatVanishesIsPassedOverByTheExport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning([&] { QFile::remove(transfer.cardFolder() + u"/b.txt"_s); });
        QCOMPARE(transfer.exportAttachments(), u"6"_s);
        QVERIFY(!transfer.error);
        QCOMPARE(transfer.log.warnings.size(), 1);
        QCOMPARE(entries(transfer.home.path(u"export/6"_s)), QStringList {u"c.txt"_s});
    }

    void folderThatIsClosedUnderWayStopsTheImport()
    {
        const AsOrdinaryUser user;
        Transfer transfer;
        std::unique_ptr<ScopedMode> mode;
        transfer.atTheFirstWarning([&] {
            mode = std::make_unique<ScopedMode>(
                transfer.folder.attachmentPath(named), S_IRUSR | S_IWUSR);
        });
        QCOMPARE(transfer.importAttachments(), u""_s);
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(transfer.error.pathName()->contains(transfer.source(u"b.txt"_s)));
        QVERIFY(copyFailureWasLogged(transfer.log));
    }

    void packageThatVanishesUnderWayStopsTheImport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning([&] { QDir(transfer.package.path()).removeRecursively(); });
        QCOMPARE(transfer.importAttachments(), u""_s);
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentImportFailure);
    }

    void folderToExportIntoThatVanishesStopsTheExport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning(
            [&] { QDir(transfer.home.path(u"export"_s)).removeRecursively(); });
        QCOMPARE(transfer.exportAttachments(), u""_s);
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentExportFailure);
    }
};

QTEST_GUILESS_MAIN(tst_vanishingFiles)
#include "tst_vanishingFiles.moc"
