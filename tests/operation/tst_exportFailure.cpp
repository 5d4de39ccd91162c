// SPDX-License-Identifier: GPL-3.0-or-later
// Tests exports that fail while they write cards: the export keeps the rows that it has written,
// still writes "Version.txt", and tells the user why it failed.
#include "tests/operation/ScriptedExport.h"

#include <QtTest>

#include <stdexcept>

using namespace Qt::StringLiterals;

using Export = ScriptedExport;

class tst_exportFailure : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

QTEST_GUILESS_MAIN(tst_exportFailure)
#include "tst_exportFailure.moc"
