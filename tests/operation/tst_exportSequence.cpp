// SPDX-License-Identifier: GPL-3.0-or-later
// The export's steps with a scripted database: what is sent, logged, shown, written and cleaned up
// in each situation.
#include "datafile/helpers/DBCInterchangeNames.h"
#include "datafile/helpers/DBCLocalizable.h"
#include "operation/log/DBCLog.h"
#include "tests/support/ScriptedConversion.h"

#include <QtTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString exportBegins = u"DBC_ExportWillBeginNotification"_s;
const QString endedWell = u"DBC_OperationDidFinishedNotification ok=true"_s;
const QString endedBadly = u"DBC_OperationDidFinishedNotification ok=false"_s;

QString fetched(int max)
{
    return u"DBC_ExportDataFetchDidFinishedNotification max=%1 finished=0"_s.arg(max);
}

QString running(int max, int finished)
{
    return u"DBC_ExportIsRunningNotification max=%1 finished=%2"_s.arg(max).arg(finished);
}

QString finished(bool ok, int max, int count)
{
    return u"DBC_ExportDidFinishedNotification ok=%1 max=%2 finished=%3"_s
        .arg(ok ? u"true"_s : u"false"_s)
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
        return u"[Info] begin EXPORT From:[%1]  To:[%2]"_s.arg(package, folder);
    }
    QStringList logAfterSeparator() const { return log().mid(1); }
    QString versionPath() const { return folder + u"/Version.txt"_s; }
    QString dataPath() const { return DBCInterchangeNames::dataFile(folder); }
    // The data file's lines; empty when there is none.
    QStringList rows() const
    {
        const QByteArray bytes = bytesOf(dataPath());
        const QString text = QString::fromUtf16(
            reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
        return text.split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

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

class tst_exportSequence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twoCardsAreWritten()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s, u"Suzuki"_s});

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, fetched(2), running(2, 1), running(2, 2),
                finished(true, 2, 2), endedWell}));
        QCOMPARE(exporting.logAfterSeparator(),
            QStringList({exporting.startLine(), u"[Info] end EXPORT| |2|2"_s}));
        QCOMPARE(exporting.script.calls,
            QStringList({u"open Velmora DB.vmdb"_s, u"fetch"_s, u"export Sato"_s,
                u"export Suzuki"_s, u"close"_s}));

        const QStringList rows = exporting.rows();
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows.at(0).count(u'\t'), 20);
        QCOMPARE(rows.at(0).section(u'\t', 3, 3), getLocalString(u"IDS_CSV_TITLE_FULL_NAME"_s));
        QCOMPARE(rows.at(1).section(u'\t', 3, 3), u"Sato"_s);
        QCOMPARE(rows.at(2).section(u'\t', 3, 3), u"Suzuki"_s);
        QCOMPARE(Export::bytesOf(exporting.versionPath()), marked(u"TELKA\tV1.0L10\r\n"_s));
    }

    void zeroCardsGiveAVersionFileAndNoTitleLine()
    {
        Export exporting;

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, fetched(0), finished(true, 0, 0), endedWell}));
        QVERIFY(exporting.rows().isEmpty());
        QVERIFY(QFile::exists(exporting.versionPath()));
        QCOMPARE(exporting.log().constLast(), u"[Info] end EXPORT| |0|0"_s);
    }

    void warningsAreNoticedInTheEndLine()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.onExport = [](int, const DBCRecord& card, DBCError*) {
            DBCLog::warning(u"no image"_s);
            return std::optional(card);
        };

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.log().constLast(), u"[Info] end EXPORT|SEE LOG|1|1"_s);
    }

    void packageThatDoesNotOpenIsAnError()
    {
        Export exporting;
        exporting.script.opens = false;

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::DatabaseOpenFailure);
        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, finished(false, 0, 0), endedBadly}));
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
        QVERIFY(!QFile::exists(exporting.versionPath()));
    }

    void fetchErrorEndsTheExport_data()
    {
        QTest::addColumn<DBCResultCode>("code");
        QTest::addColumn<quint32>("number");
        QTest::newRow("failed") << DBCResultCode::FetchFailure << 208U;
        QTest::newRow("found nothing") << DBCResultCode::NoCards << 209U;
    }
    void fetchErrorEndsTheExport()
    {
        QFETCH(DBCResultCode, code);
        QFETCH(quint32, number);
        Export exporting;
        exporting.script.fetchError = DBCError(code);

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), code);
        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, finished(false, 0, 0), endedBadly}));
        QCOMPARE(exporting.logAfterSeparator(),
            QStringList({exporting.startLine(), u"[Error] message %1"_s.arg(number),
                u"[Info] end EXPORT|SEE LOG|0|0"_s}));
        QVERIFY(!QFile::exists(exporting.versionPath()));
    }

    void fetchWithoutAnyAnswerIsAnError()
    {
        Export exporting;
        exporting.script.fetchesNothing = true;

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::GeneralFailure);
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {102});
    }

    void cancelledFetchRemovesTheFolder()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.fetchError = DBCError(DBCResultCode::CancelledByUser);

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.receiver.events, QStringList({exportBegins, endedWell}));
        QCOMPARE(exporting.logAfterSeparator(), QStringList(exporting.startLine()));
        QVERIFY(!QFile::exists(exporting.folder));
        QVERIFY(exporting.presenter.numbers.isEmpty());
    }

    void cardThatCannotBeMeasuredEndsTheExport()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.records.at(0).setValue(DBCRecordKey::cardID, u"ID"_s);
        exporting.home.writeFile(u"Velmora DB.vmdb/Files/ID/a.txt"_s, "a");
        exporting.measuresBy("exit 1");

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::SizeMeasureFailure);
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
        QVERIFY(!exporting.receiver.events.contains(fetched(1)));
    }

    void missingExportFolderIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        QVERIFY(QDir(exporting.folder).removeRecursively());

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::FolderNotExist);
        QVERIFY(!QFile::exists(exporting.folder));
    }

    void tooLittleSpaceIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.host.setFreeBytes(0x80000 + 2843);
        QVERIFY(!exporting.controller->run());
        QCOMPARE(exporting.code(), DBCResultCode::NoSpace);
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {103});

        Export enough;
        enough.hasCards({u"Sato"_s});
        enough.host.setFreeBytes(0x80000 + 2844);
        QVERIFY(enough.controller->run());
    }

    void titleLineThatCannotBeWrittenIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        QVERIFY(QDir().mkpath(exporting.dataPath()));

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::DataFileWriteFailure);
        QCOMPARE(exporting.logAfterSeparator(),
            QStringList({exporting.startLine(), u"[Error] row not written"_s,
                u"[Error] message 208"_s, u"[Info] end EXPORT|SEE LOG|1|0"_s}));
        QVERIFY(exporting.script.calls.filter(u"export"_s).isEmpty());
        QVERIFY(!QFile::exists(exporting.versionPath()));
    }

    void cardWithoutRowStopsTheExportAndKeepsTheRowsBefore()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s, u"Suzuki"_s, u"Ito"_s});
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
            QStringList(
                {exportBegins, fetched(3), running(3, 1), finished(false, 3, 1), endedBadly}));
        QCOMPARE(exporting.rows().size(), 2);
        QCOMPARE(exporting.rows().at(1).section(u'\t', 3, 3), u"Sato"_s);
        QVERIFY(QFile::exists(exporting.versionPath()));
        QCOMPARE(exporting.logAfterSeparator(),
            QStringList({exporting.startLine(), u"[Error] message 206"_s,
                u"[Info] end EXPORT|SEE LOG|3|1"_s}));
    }

    void cardWithoutRowAndErrorIsAGeneralFailure()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.onExport
            = [](int, const DBCRecord&, DBCError*) { return std::optional<DBCRecord>(); };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::GeneralFailure);
        QVERIFY(QFile::exists(exporting.versionPath()));
    }

    void cardWithRowAndErrorStopsTheExport()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.onExport = [](int, const DBCRecord& card, DBCError* error) {
            *error = DBCError(DBCResultCode::AttachmentExportFailure);
            return std::optional(card);
        };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::AttachmentExportFailure);
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {207});
        QCOMPARE(exporting.rows().size(), 1);
    }

    void rowThatLacksAColumnIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        exporting.script.records.at(0).removeValue(DBCRecordKey::fax_Number);

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::DataFileWriteFailure);
        QVERIFY(exporting.log().contains(u"[Error] row not written"_s));
        QVERIFY(QFile::exists(exporting.versionPath()));
    }

    void folderDeletedWhileExportingLosesTheVersionFileToo()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s, u"Suzuki"_s});
        exporting.receiver.onEvent = [&](const DBCEvent& event) {
            if (event.name == DBCEventName::ExportIsRunning)
                QDir(exporting.folder).removeRecursively();
        };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::VersionFileWriteFailure);
        QVERIFY(!QFile::exists(exporting.folder));
    }

    void packageDeletedWhileExportingIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s, u"Suzuki"_s});
        exporting.receiver.onEvent = [&](const DBCEvent& event) {
            if (event.name == DBCEventName::ExportIsRunning)
                QDir(exporting.package).removeRecursively();
        };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::FolderNotExist);
        QCOMPARE(exporting.rows().size(), 2);
        QVERIFY(QFile::exists(exporting.versionPath()));
    }

    void versionFileThatCannotBeWrittenReplacesTheError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        QVERIFY(QDir().mkpath(exporting.versionPath()));
        exporting.script.onExport = [](int, const DBCRecord& card, DBCError* error) {
            *error = DBCError(DBCResultCode::NoSpaceForExport);
            return std::optional(card);
        };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::VersionFileWriteFailure);
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {208});
    }

    void exceptionWhileExportingIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s, u"Suzuki"_s});
        exporting.script.onExport
            = [](int index, const DBCRecord& card, DBCError*) -> std::optional<DBCRecord> {
            if (index == 1)
                throw std::runtime_error("out of everything");
            return card;
        };

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::InternalException);
        QCOMPARE(exporting.receiver.events,
            QStringList(
                {exportBegins, fetched(2), running(2, 1), finished(false, 2, 1), endedBadly}));
        QCOMPARE(exporting.presenter.numbers, QList<quint32> {102});
        QVERIFY(!QFile::exists(exporting.versionPath()));
    }

    void withoutErrorSlotNothingHappens()
    {
        Export exporting;
        QVERIFY(!exporting.controller->_doExport(nullptr));
        QVERIFY(exporting.receiver.events.isEmpty());
        QVERIFY(exporting.log().isEmpty());
    }

    void estimateCountsRowImagesAndAttachments()
    {
        Export exporting;
        exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
        exporting.home.writeFile(u"Velmora DB.vmdb/Images/A_N1.pdf"_s, "pdf");
        exporting.home.makeFolder(u"Velmora DB.vmdb/Files/A"_s);
        DBCError error;

        QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                     {storedCard(u"A"_s), storedCard(u"B"_s)}, &error),
            quint64 {2844 + 10240 + 20480 + 2844});
        QVERIFY(!error);
    }

    void estimateLeavesOutWhatACardDoesNotName()
    {
        Export exporting;
        exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
        exporting.home.makeFolder(u"Velmora DB.vmdb/Images"_s);
        exporting.home.makeFolder(u"Velmora DB.vmdb/Files"_s);
        DBCError error;

        QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                     {DBCRecord(), storedCard(QString())}, &error),
            quint64 {2844 + 2844});
        QVERIFY(!error);
    }

    void estimateNeverLeavesThePackage()
    {
        Export exporting;
        exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
        exporting.home.makeFolder(u"Velmora DB.vmdb/Images"_s);
        DBCRecord card = storedCard(u".."_s);
        card.setValue(DBCRecordKey::face_Image_File, u"../../../.."_s);
        DBCError error;

        QCOMPARE(exporting.controller->estimateDiskSpaceForExport({card}, &error), quint64 {2844});
    }

    void estimateStopsAtTheFirstErrorWithTheCardsSoFar()
    {
        Export exporting;
        exporting.measuresBy(tenKiBImagesTwentyKiBAttachments);
        exporting.home.makeFolder(u"Velmora DB.vmdb/Files/bad"_s);
        exporting.home.makeFolder(u"Velmora DB.vmdb/Files/C"_s);
        DBCError error;

        QCOMPARE(exporting.controller->estimateDiskSpaceForExport(
                     {storedCard(u"A"_s), storedCard(u"bad"_s), storedCard(u"C"_s)}, &error),
            quint64 {2844});
        QCOMPARE(error.code(), DBCResultCode::SizeMeasureFailure);
    }

    void estimateWithoutErrorSlotIsZero()
    {
        Export exporting;
        QCOMPARE(exporting.controller->estimateDiskSpaceForExport({storedCard(QString())}, nullptr),
            0ULL);
    }

    void errorsBecomeTheirMessages_data()
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
    void errorsBecomeTheirMessages()
    {
        QFETCH(DBCResultCode, code);
        QFETCH(quint32, number);
        Export exporting;

        exporting.controller->_handleExportError(DBCError(code));

        QCOMPARE(exporting.presenter.numbers, QList<quint32> {number});
        QCOMPARE(exporting.log(), QStringList(u"[Error] message %1"_s.arg(number)));
    }
};

QTEST_GUILESS_MAIN(tst_exportSequence)
#include "tst_exportSequence.moc"
