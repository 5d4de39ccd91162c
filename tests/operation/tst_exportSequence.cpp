// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the steps of an export with a scripted database: which events it sends and what it logs,
// shows and writes, both when it succeeds and when it ends before the first card.
#include "operation/log/DBCLog.h"
#include "tests/operation/ScriptedExport.h"

#include <QtTest>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using Export = ScriptedExport;

namespace {

// What the export folder contained when the export flushed the file system.
struct Flush {
    QStringList names;
    QByteArray data; // the data file
};

std::vector<Flush>* flushes = nullptr; // if null, syncfs() records no calls
const ScriptedExport* watched = nullptr;

// Returns the text in the data file's encoding, with a byte-order mark.
QByteArray marked(const QString& text)
{
    QByteArray bytes("\xff\xfe", 2);
    for (const QChar unit : text) {
        bytes += static_cast<char>(unit.unicode() & 0xff);
        bytes += static_cast<char>(unit.unicode() >> 8);
    }
    return bytes;
}

} // namespace

// Replaces the system's function in this program: records what the folder contains, and then makes
// the system call.
extern "C" int syncfs(int descriptor) noexcept
{
    if (flushes) {
        flushes->push_back({QDir(watched->folder).entryList(QDir::Files, QDir::Name),
            ScriptedExport::bytesOf(watched->dataPath())});
    }
    return static_cast<int>(syscall(SYS_syncfs, descriptor));
}

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

    void dataFileIsOnTheDiskBeforeTheVersionFileIsWritten()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        std::vector<Flush> seen;
        watched = &exporting;
        flushes = &seen;

        const bool isDone = exporting.controller->run();
        flushes = nullptr;

        QVERIFY(isDone);
        QCOMPARE(seen.size(), std::size_t(2));
        QCOMPARE(seen[0].names, QStringList(DBCInterchangeNames::dataFileName()));
        QCOMPARE(seen[0].data, Export::bytesOf(exporting.dataPath()));
        QVERIFY(seen[1].names.contains(u"Version.txt"_s));
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

    void missingExportFolderIsAnError()
    {
        Export exporting;
        exporting.hasCards({u"Sato"_s});
        QVERIFY(QDir(exporting.folder).removeRecursively());

        QVERIFY(!exporting.controller->run());

        QCOMPARE(exporting.code(), DBCResultCode::FolderNotExist);
        QVERIFY(!QFile::exists(exporting.folder));
    }

    void withoutErrorSlotNothingHappens()
    {
        Export exporting;
        QVERIFY(!exporting.controller->_doExport(nullptr));
        QVERIFY(exporting.receiver.events.isEmpty());
        QVERIFY(exporting.log().isEmpty());
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
