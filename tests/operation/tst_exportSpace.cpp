// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how an export checks the disk space: the estimate of the space that it needs, the error if
// there is too little space, and a cancel while the estimate takes long.
#include "tests/operation/ScriptedExport.h"

#include <QtTest>

using namespace Qt::StringLiterals;

using Export = ScriptedExport;

namespace {

// This script replaces the program "du", which measures a path. It answers 10 KiB for every image
// file and 20 KiB for every attachment folder, and fails for a path that contains "bad".
constexpr const char* tenKiBImagesTwentyKiBAttachments
    = "case \"$3\" in *bad*) exit 1;; */Images/*) k=10;; */Files/*) k=20;; *) k=999;; esac\n"
      "printf '%s\\t%s\\n' \"$k\" \"$3\"";

// This script takes 0.6 seconds to measure one card. Once an export has spent half a second on the
// estimate, it checks whether the user has requested a cancel, so with this script it does check.
constexpr const char* sixTenthsOfASecondForEachCard = "sleep 0.6; printf '1\\t%s\\n' \"$3\"";

const QString cancelConfirmed = u"DBC_OperationDidCanceledNotification cancel=true"_s;
const QString cancelDeclined = u"DBC_OperationDidCanceledNotification cancel=false"_s;

DBCRecord storedCard(const QString& cardID)
{
    DBCRecord card;
    card.setValue(DBCRecordKey::cardID, cardID);
    card.setValue(DBCRecordKey::face_Image_File, QString());
    return card;
}

// An export of two cards with attachments. The user requests a cancel as soon as it begins, and
// answers the question whether to cancel as given.
struct ImpatientExport : ScriptedExport {
    explicit ImpatientExport(DBCAnswer answer)
    {
        hasCards({u"Sato"_s, u"Suzuki"_s});
        for (DBCRecord& card : script.records) {
            const QString cardID = card.textOrEmpty(DBCRecordKey::full_Name);
            card.setValue(DBCRecordKey::cardID, cardID);
            home.writeFile(u"Velmora DB.vmdb/Files/%1/a.txt"_s.arg(cardID), "a");
        }
        presenter.answer = answer;
        cancelWhen(exportBegins);
    }
};

} // namespace

class tst_exportSpace : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void cancelIsAskedWhileALongMeasuringGoesOn()
    {
        ImpatientExport exporting(DBCAnswer::Default);
        exporting.measuresBy(sixTenthsOfASecondForEachCard);

        QVERIFY(exporting.controller->run());

        QCOMPARE(
            exporting.receiver.events, QStringList({exportBegins, cancelConfirmed, endedWell}));
        QCOMPARE(exporting.logAfterSeparator(),
            QStringList({exporting.startLine(), u"[Info] cancelled"_s}));
        QVERIFY(exporting.script.calls.filter(u"export"_s).isEmpty());
        QVERIFY(exporting.presenter.numbers.isEmpty());
        QCOMPARE(exporting.code(), DBCResultCode::Success);
        QVERIFY(!QFile::exists(exporting.folder));
        QVERIFY(QFile::exists(exporting.package));
    }

    void exportGoesOnWhenTheCancelIsDeclinedWhileItMeasures()
    {
        ImpatientExport exporting(DBCAnswer::Alternate);
        exporting.measuresBy(sixTenthsOfASecondForEachCard);

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, cancelDeclined, fetched(2), running(2, 1), running(2, 2),
                finished(true, 2, 2), endedWell}));
        QCOMPARE(exporting.presenter.questions.size(), 1);
        QCOMPARE(exporting.rows().size(), 3);
    }

    void shortMeasuringLeavesTheQuestionToTheFirstCard()
    {
        ImpatientExport exporting(DBCAnswer::Default);
        exporting.measuresBy("printf '1\\t%s\\n' \"$3\"");

        QVERIFY(exporting.controller->run());

        QCOMPARE(exporting.receiver.events,
            QStringList({exportBegins, fetched(2), cancelConfirmed, endedWell}));
        QVERIFY(exporting.script.calls.filter(u"export"_s).isEmpty());
        QVERIFY(!QFile::exists(exporting.folder));
    }
};

QTEST_GUILESS_MAIN(tst_exportSpace)
#include "tst_exportSpace.moc"
