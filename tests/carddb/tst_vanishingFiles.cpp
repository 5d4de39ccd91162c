// SPDX-License-Identifier: GPL-3.0-or-later
// Attachments that somebody takes away while a card's folder is being copied. The moment is that of
// the warning about a name that is left out, which comes before the names behind it.
#include "tests/carddb/AttachmentFixture.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/ScopedMode.h"
#include "tests/support/StandardInputKeeper.h"

#include <QFile>
#include <QTest>

#include <functional>
#include <memory>

using Key = DBCRecordKey;

namespace {

const QString cardId = QStringLiteral("0A1B-1");
const QString named = QStringLiteral("plans");

struct Transfer : TransferFixture {
    Transfer()
    {
        for (const char* name : {".hidden", "b.txt", "c.txt"}) {
            const QString file = QString::fromLatin1(name);
            folder.attachment(named, file, name);
            package.writeFile(QStringLiteral("Files/0A1B-1/") + file, name);
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
            record({{Key::cardID, cardId}}), home.path(QStringLiteral("export")), &error);
    }
    QString cardFolder() const { return packagePath(QStringLiteral("Files/0A1B-1")); }
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
        QFile::remove(transfer.cardFolder() + QStringLiteral("/c.txt"));
        const QString gone = transfer.source(QStringLiteral("b.txt"));
        transfer.atTheFirstWarning([&gone] { QFile::remove(gone); });
        QCOMPARE(transfer.importAttachments(), cardId);
        QVERIFY(!transfer.error);
        QCOMPARE(transfer.log.warnings.size(), 2);
        QCOMPARE(transfer.log.warnings.constLast(),
            Transfer::text("IDS_LOG_WRN_FILE_NO_EXISTS", {gone}));
        QCOMPARE(contentsOf(transfer.cardFolder() + QStringLiteral("/c.txt")), QByteArray("c.txt"));
    }

    void storedAttachmentThatVanishesIsPassedOverByTheExport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning(
            [&] { QFile::remove(transfer.cardFolder() + QStringLiteral("/b.txt")); });
        QCOMPARE(transfer.exportAttachments(), QStringLiteral("6"));
        QVERIFY(!transfer.error);
        QCOMPARE(transfer.log.warnings.size(), 1);
        QCOMPARE(entries(transfer.home.path(QStringLiteral("export/6"))),
            QStringList {QStringLiteral("c.txt")});
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
        QCOMPARE(transfer.importAttachments(), QStringLiteral(""));
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentImportFailure);
        QVERIFY(transfer.error.pathName()->contains(transfer.source(QStringLiteral("b.txt"))));
        QVERIFY(copyFailureWasLogged(transfer.log));
    }

    void packageThatVanishesUnderWayStopsTheImport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning([&] { QDir(transfer.package.path()).removeRecursively(); });
        QCOMPARE(transfer.importAttachments(), QStringLiteral(""));
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentImportFailure);
    }

    void folderToExportIntoThatVanishesStopsTheExport()
    {
        Transfer transfer;
        transfer.atTheFirstWarning(
            [&] { QDir(transfer.home.path(QStringLiteral("export"))).removeRecursively(); });
        QCOMPARE(transfer.exportAttachments(), QStringLiteral(""));
        QCOMPARE(transfer.error.code(), DBCResultCode::AttachmentExportFailure);
    }
};

QTEST_GUILESS_MAIN(tst_vanishingFiles)
#include "tst_vanishingFiles.moc"
