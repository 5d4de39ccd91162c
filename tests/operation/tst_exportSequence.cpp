// SPDX-License-Identifier: GPL-3.0-or-later
// The export's steps with a scripted database: what is sent, logged, shown, written and cleaned up
// in each situation.
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

namespace {

const QString exportBegins = QStringLiteral("DBC_ExportWillBeginNotification");
const QString endedWell = QStringLiteral("DBC_OperationDidFinishedNotification ok=true");
const QString endedBadly = QStringLiteral("DBC_OperationDidFinishedNotification ok=false");

QString fetched(int max)
{
    return QStringLiteral("DBC_ExportDataFetchDidFinishedNotification max=%1 finished=0").arg(max);
}

QString running(int max, int finished)
{
    return QStringLiteral("DBC_ExportIsRunningNotification max=%1 finished=%2")
        .arg(max)
        .arg(finished);
}

QString finished(bool ok, int max, int count)
{
    return QStringLiteral("DBC_ExportDidFinishedNotification ok=%1 max=%2 finished=%3")
        .arg(ok ? QStringLiteral("true") : QStringLiteral("false"))
        .arg(max)
        .arg(count);
}

// The bytes of a text in the data file's encoding, its mark included.
QByteArray marked(const QString& text)
{
    QByteArray bytes("\xff\xfe", 2);
    for (const QChar unit : text) {
        bytes += static_cast<char>(unit.unicode() & 0xff);
        bytes += static_cast<char>(unit.unicode() >> 8);
    }
    return bytes;
}

struct Export : ScriptedConversion {
    Export()
        : ScriptedConversion(OperationType::Export)
    {
    }
    DBCLocalizable::Substitute texts {shortTexts()};

    DBCResultCode code() const { return controller->outcome().code; }
    QString startLine() const
    {
        return QStringLiteral("[Info] begin EXPORT From:[%1]  To:[%2]").arg(package, folder);
    }
    QStringList logAfterSeparator() const { return log().mid(1); }
    QString versionPath() const { return folder + QStringLiteral("/Version.txt"); }
    QString dataPath() const { return DBCInterchangeNames::dataFile(folder); }
    // The data file's lines; empty when there is none.
    QStringList rows() const
    {
        const QByteArray bytes = bytesOf(dataPath());
        const QString text = QString::fromUtf16(
            reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
        return text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

class tst_exportSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoCardsAreWritten();
    void zeroCardsGiveAVersionFileAndNoTitleLine();
    void warningsAreNoticedInTheEndLine();

    void packageThatDoesNotOpenIsAnError();
    void fetchErrorEndsTheExport_data();
    void fetchErrorEndsTheExport();
    void fetchWithoutAnyAnswerIsAnError();
    void cancelledFetchRemovesTheFolder();
    void cardThatCannotBeMeasuredEndsTheExport();
    void missingExportFolderIsAnError();
    void tooLittleSpaceIsAnError();

    void titleLineThatCannotBeWrittenIsAnError();
    void cardWithoutRowStopsTheExportAndKeepsTheRowsBefore();
    void cardWithoutRowAndErrorIsAGeneralFailure();
    void cardWithRowAndErrorStopsTheExport();
    void rowThatLacksAColumnIsAnError();
    void folderDeletedWhileExportingLosesTheVersionFileToo();
    void packageDeletedWhileExportingIsAnError();
    void versionFileThatCannotBeWrittenReplacesTheError();
    void exceptionWhileExportingIsAnError();

    void withoutErrorSlotNothingHappens();
    void estimateCountsRowImagesAndAttachments();
    void estimateLeavesOutWhatACardDoesNotName();
    void estimateNeverLeavesThePackage();
    void estimateStopsAtTheFirstErrorWithTheCardsSoFar();
    void estimateWithoutErrorSlotIsZero();
    void errorsBecomeTheirMessages_data();
    void errorsBecomeTheirMessages();
};

void tst_exportSequence::twoCardsAreWritten()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});

    QVERIFY(exporting.controller->run());

    QCOMPARE(exporting.receiver.events,
        QStringList({exportBegins, fetched(2), running(2, 1), running(2, 2), finished(true, 2, 2),
            endedWell}));
    QCOMPARE(exporting.logAfterSeparator(),
        QStringList({exporting.startLine(), QStringLiteral("[Info] end EXPORT| |2|2")}));
    QCOMPARE(exporting.script.calls,
        QStringList({QStringLiteral("open Velmora DB.vmdb"), QStringLiteral("fetch"),
            QStringLiteral("export Sato"), QStringLiteral("export Suzuki"),
            QStringLiteral("close")}));

    const QStringList rows = exporting.rows();
    QCOMPARE(rows.size(), 3);
    QCOMPARE(rows.at(0).count(u'\t'), 20);
    QCOMPARE(
        rows.at(0).section(u'\t', 3, 3), getLocalString(QStringLiteral("IDS_CSV_TITLE_FULL_NAME")));
    QCOMPARE(rows.at(1).section(u'\t', 3, 3), QStringLiteral("Sato"));
    QCOMPARE(rows.at(2).section(u'\t', 3, 3), QStringLiteral("Suzuki"));
    QCOMPARE(
        Export::bytesOf(exporting.versionPath()), marked(QStringLiteral("TELKA\tV1.0L10\r\n")));
}

void tst_exportSequence::zeroCardsGiveAVersionFileAndNoTitleLine()
{
    Export exporting;

    QVERIFY(exporting.controller->run());

    QCOMPARE(exporting.receiver.events,
        QStringList({exportBegins, fetched(0), finished(true, 0, 0), endedWell}));
    QVERIFY(exporting.rows().isEmpty());
    QVERIFY(QFile::exists(exporting.versionPath()));
    QCOMPARE(exporting.log().constLast(), QStringLiteral("[Info] end EXPORT| |0|0"));
}

void tst_exportSequence::warningsAreNoticedInTheEndLine()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.onExport = [](int, const DBCRecord& card, DBCError*) {
        DBCLog::warning(QStringLiteral("no image"));
        return std::optional(card);
    };

    QVERIFY(exporting.controller->run());

    QCOMPARE(exporting.log().constLast(), QStringLiteral("[Info] end EXPORT|SEE LOG|1|1"));
}

void tst_exportSequence::packageThatDoesNotOpenIsAnError()
{
    Export exporting;
    exporting.script.opens = false;

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::DatabaseOpenFailure);
    QCOMPARE(
        exporting.receiver.events, QStringList({exportBegins, finished(false, 0, 0), endedBadly}));
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
    QVERIFY(!QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::fetchErrorEndsTheExport_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<quint32>("number");
    QTest::newRow("failed") << DBCResultCode::FetchFailure << 208U;
    QTest::newRow("found nothing") << DBCResultCode::NoCards << 209U;
}

void tst_exportSequence::fetchErrorEndsTheExport()
{
    QFETCH(DBCResultCode, code);
    QFETCH(quint32, number);
    Export exporting;
    exporting.script.fetchError = DBCError(code);

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), code);
    QCOMPARE(
        exporting.receiver.events, QStringList({exportBegins, finished(false, 0, 0), endedBadly}));
    QCOMPARE(exporting.logAfterSeparator(),
        QStringList({exporting.startLine(), QStringLiteral("[Error] message %1").arg(number),
            QStringLiteral("[Info] end EXPORT|SEE LOG|0|0")}));
    QVERIFY(!QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::fetchWithoutAnyAnswerIsAnError()
{
    Export exporting;
    exporting.script.fetchesNothing = true;

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::GeneralFailure);
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {102});
}

void tst_exportSequence::cancelledFetchRemovesTheFolder()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.fetchError = DBCError(DBCResultCode::CancelledByUser);

    QVERIFY(exporting.controller->run());

    QCOMPARE(exporting.receiver.events, QStringList({exportBegins, endedWell}));
    QCOMPARE(exporting.logAfterSeparator(), QStringList(exporting.startLine()));
    QVERIFY(!QFile::exists(exporting.folder));
    QVERIFY(exporting.presenter.numbers.isEmpty());
}

void tst_exportSequence::cardThatCannotBeMeasuredEndsTheExport()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.records.at(0).setValue(DBCRecordKey::cardID, QStringLiteral("ID"));
    exporting.home.writeFile(QStringLiteral("Velmora DB.vmdb/Files/ID/a.txt"), "a");
    exporting.measuresBy("exit 1");

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::SizeMeasureFailure);
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
    QVERIFY(!exporting.receiver.events.contains(fetched(1)));
}

void tst_exportSequence::missingExportFolderIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    QVERIFY(QDir(exporting.folder).removeRecursively());

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::FolderNotExist);
    QVERIFY(!QFile::exists(exporting.folder));
}

void tst_exportSequence::tooLittleSpaceIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.host.setFreeBytes(0x80000 + 2843);
    QVERIFY(!exporting.controller->run());
    QCOMPARE(exporting.code(), DBCResultCode::NoSpace);
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {103});

    Export enough;
    enough.hasCards({QStringLiteral("Sato")});
    enough.host.setFreeBytes(0x80000 + 2844);
    QVERIFY(enough.controller->run());
}

void tst_exportSequence::titleLineThatCannotBeWrittenIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    QVERIFY(QDir().mkpath(exporting.dataPath()));

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::DataFileWriteFailure);
    QCOMPARE(exporting.logAfterSeparator(),
        QStringList({exporting.startLine(), QStringLiteral("[Error] row not written"),
            QStringLiteral("[Error] message 208"),
            QStringLiteral("[Info] end EXPORT|SEE LOG|1|0")}));
    QVERIFY(exporting.script.calls.filter(QStringLiteral("export")).isEmpty());
    QVERIFY(!QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::cardWithoutRowStopsTheExportAndKeepsTheRowsBefore()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki"), QStringLiteral("Ito")});
    exporting.script.onExport
        = [](int index, const DBCRecord& card, DBCError* error) -> std::optional<DBCRecord> {
        if (index != 1)
            return card;
        *error = DBCError(DBCResultCode::NoSpaceForExport);
        return {};
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::NoSpaceForExport);
    QCOMPARE(exporting.receiver.events,
        QStringList({exportBegins, fetched(3), running(3, 1), finished(false, 3, 1), endedBadly}));
    QCOMPARE(exporting.rows().size(), 2);
    QCOMPARE(exporting.rows().at(1).section(u'\t', 3, 3), QStringLiteral("Sato"));
    QVERIFY(QFile::exists(exporting.versionPath()));
    QCOMPARE(exporting.logAfterSeparator(),
        QStringList({exporting.startLine(), QStringLiteral("[Error] message 206"),
            QStringLiteral("[Info] end EXPORT|SEE LOG|3|1")}));
}

void tst_exportSequence::cardWithoutRowAndErrorIsAGeneralFailure()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.onExport
        = [](int, const DBCRecord&, DBCError*) { return std::optional<DBCRecord>(); };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::GeneralFailure);
    QVERIFY(QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::cardWithRowAndErrorStopsTheExport()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.onExport = [](int, const DBCRecord& card, DBCError* error) {
        *error = DBCError(DBCResultCode::AttachmentExportFailure);
        return std::optional(card);
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::AttachmentExportFailure);
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {207});
    QCOMPARE(exporting.rows().size(), 1);
}

void tst_exportSequence::rowThatLacksAColumnIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    exporting.script.records.at(0).removeValue(DBCRecordKey::fax_Number);

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::DataFileWriteFailure);
    QVERIFY(exporting.log().contains(QStringLiteral("[Error] row not written")));
    QVERIFY(QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::folderDeletedWhileExportingLosesTheVersionFileToo()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    exporting.receiver.onEvent = [&](const DBCEvent& event) {
        if (event.name == DBCEventName::ExportIsRunning)
            QDir(exporting.folder).removeRecursively();
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::VersionFileWriteFailure);
    QVERIFY(!QFile::exists(exporting.folder));
}

void tst_exportSequence::packageDeletedWhileExportingIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    exporting.receiver.onEvent = [&](const DBCEvent& event) {
        if (event.name == DBCEventName::ExportIsRunning)
            QDir(exporting.package).removeRecursively();
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::FolderNotExist);
    QCOMPARE(exporting.rows().size(), 2);
    QVERIFY(QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::versionFileThatCannotBeWrittenReplacesTheError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato")});
    QVERIFY(QDir().mkpath(exporting.versionPath()));
    exporting.script.onExport = [](int, const DBCRecord& card, DBCError* error) {
        *error = DBCError(DBCResultCode::NoSpaceForExport);
        return std::optional(card);
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::VersionFileWriteFailure);
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
}

void tst_exportSequence::exceptionWhileExportingIsAnError()
{
    Export exporting;
    exporting.hasCards({QStringLiteral("Sato"), QStringLiteral("Suzuki")});
    exporting.script.onExport
        = [](int index, const DBCRecord& card, DBCError*) -> std::optional<DBCRecord> {
        if (index == 1)
            throw std::runtime_error("out of everything");
        return card;
    };

    QVERIFY(!exporting.controller->run());

    QCOMPARE(exporting.code(), DBCResultCode::InternalException);
    QCOMPARE(exporting.receiver.events,
        QStringList({exportBegins, fetched(2), running(2, 1), finished(false, 2, 1), endedBadly}));
    QCOMPARE(exporting.presenter.numbers, QList<quint32> {102});
    QVERIFY(!QFile::exists(exporting.versionPath()));
}

void tst_exportSequence::withoutErrorSlotNothingHappens()
{
    Export exporting;
    QVERIFY(!exporting.controller->_doExport(nullptr));
    QVERIFY(exporting.receiver.events.isEmpty());
    QVERIFY(exporting.log().isEmpty());
}

namespace {

// 10 KiB in images and 20 KiB in attachments; a path with "bad" in it cannot be measured.
constexpr const char* tenKiBImagesTwentyKiBAttachments
    = "case \"$3\" in *bad*) exit 1;; */Images/*) k=10;; */Files/*) k=20;; *) k=999;; esac\n"
      "printf '%s\\t%s\\n' \"$k\" \"$3\"";

DBCRecord storedCard(const QString& cardID)
{
    DBCRecord card;
    card.setValue(DBCRecordKey::cardID, cardID);
    card.setValue(DBCRecordKey::face_Image_File, QString());
    return card;
}

} // namespace

void tst_exportSequence::estimateCountsRowImagesAndAttachments()
{
    Export exporting;
    exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
    exporting.home.writeFile(QStringLiteral("Velmora DB.vmdb/Images/A_N1.pdf"), "pdf");
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Files/A"));
    DBCError error;

    QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                 {storedCard(QStringLiteral("A")), storedCard(QStringLiteral("B"))}, &error),
        quint64 {2844 + 10240 + 20480 + 2844});
    QVERIFY(!error);
}

void tst_exportSequence::estimateLeavesOutWhatACardDoesNotName()
{
    Export exporting;
    exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Images"));
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Files"));
    DBCError error;

    QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                 {DBCRecord(), storedCard(QString())}, &error),
        quint64 {2844 + 2844});
    QVERIFY(!error);
}

void tst_exportSequence::estimateNeverLeavesThePackage()
{
    Export exporting;
    exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Images"));
    DBCRecord card = storedCard(QStringLiteral(".."));
    card.setValue(DBCRecordKey::face_Image_File, QStringLiteral("../../../.."));
    DBCError error;

    QCOMPARE(exporting.controller->estimateDiskSpaceForExport({card}, &error), quint64 {2844});
}

void tst_exportSequence::estimateStopsAtTheFirstErrorWithTheCardsSoFar()
{
    Export exporting;
    exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Files/bad"));
    exporting.home.makeFolder(QStringLiteral("Velmora DB.vmdb/Files/C"));
    DBCError error;

    QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                 {storedCard(QStringLiteral("A")), storedCard(QStringLiteral("bad")),
                     storedCard(QStringLiteral("C"))},
                 &error),
        quint64 {2844});
    QCOMPARE(error.code(), DBCResultCode::SizeMeasureFailure);
}

void tst_exportSequence::estimateWithoutErrorSlotIsZero()
{
    Export exporting;
    QCOMPARE(
        exporting.controller->estimateDiskSpaceForExport({storedCard(QString())}, nullptr), 0ULL);
}

void tst_exportSequence::errorsBecomeTheirMessages_data()
{
    QTest::addColumn<DBCResultCode>("code");
    QTest::addColumn<quint32>("number");
    QTest::newRow("space") << DBCResultCode::NoSpace << 103U;
    QTest::newRow("space for a file") << DBCResultCode::NoSpaceForExport << 206U;
    QTest::newRow("attachment out") << DBCResultCode::AttachmentExportFailure << 207U;
    QTest::newRow("attachment in") << DBCResultCode::AttachmentImportFailure << 207U;
    QTest::newRow("no cards") << DBCResultCode::NoCards << 209U;
    QTest::newRow("exception") << DBCResultCode::InternalException << 102U;
    QTest::newRow("general") << DBCResultCode::GeneralFailure << 102U;
    QTest::newRow("any other") << DBCResultCode::FolderNotExist << 208U;
}

void tst_exportSequence::errorsBecomeTheirMessages()
{
    QFETCH(DBCResultCode, code);
    QFETCH(quint32, number);
    Export exporting;

    exporting.controller->_handleExportError(DBCError(code));

    QCOMPARE(exporting.presenter.numbers, QList<quint32> {number});
    QCOMPARE(exporting.log(), QStringList(QStringLiteral("[Error] message %1").arg(number)));
}

QTEST_GUILESS_MAIN(tst_exportSequence)
#include "tst_exportSequence.moc"
