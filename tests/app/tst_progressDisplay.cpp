// SPDX-License-Identifier: GPL-3.0-or-later
// Tests what the converter screen shows at each event of an operation.
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString nothing;

DBCEvent counted(DBCEventName name, qint64 maxCount, qint64 finishedCount)
{
    return {.name = name, .maxCount = maxCount, .finishedCount = finishedCount};
}

// The events and texts that differ between the two operations.
struct Names {
    OperationType type;
    DBCEventName willBegin;
    DBCEventName known;
    DBCEventName running;
    DBCEventName finished;
    QString hint; // text before the percentage
    QString label;
    QString count; // text before the number
};

const Names importNames {OperationType::Import, DBCEventName::ImportWillBegin,
    DBCEventName::ImportDataLoadDidFinished, DBCEventName::ImportIsRunning,
    DBCEventName::ImportDidFinished, u"Importing: "_s, u"Import"_s, u", imported: "_s};
const Names exportNames {OperationType::Export, DBCEventName::ExportWillBegin,
    DBCEventName::ExportDataFetchDidFinished, DBCEventName::ExportIsRunning,
    DBCEventName::ExportDidFinished, u"Exporting: "_s, u"Export"_s, u", exported: "_s};

void bothOperations()
{
    QTest::addColumn<bool>("isImport");
    QTest::newRow("import") << true;
    QTest::newRow("export") << false;
}

const Names& names()
{
    QFETCH_GLOBAL(bool, isImport);
    return isImport ? importNames : exportNames;
}

} // namespace

class tst_progressDisplay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { bothOperations(); }
    void init()
    {
        _fixture = std::make_unique<WindowFixture>();
        _fixture->choose(names().type);
        if (DBCLog* const log = DBCLog::logInstance())
            log->resetLogCount();
    }
    void cleanup() { _fixture.reset(); }

    void beginEmptiesTheMessageAndStartsTheBar()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->send({.name = names().willBegin});
        QCOMPARE(_fixture->message(), nothing);
        QCOMPARE(_fixture->bar().value(), 0);
        QVERIFY(_fixture->barText() != u"busy"_s);
        QCOMPARE(_fixture->hint(), names().hint + u"0%"_s);
    }

    void onlyAnExportTurnsConvertIntoCancelAtItsBegin()
    {
        const QString before = _fixture->convert().text();
        _fixture->send({.name = names().willBegin});
        const bool isExport = names().type == OperationType::Export;
        QCOMPARE(_fixture->convert().text(), isExport ? u"C&ancel"_s : before);
    }

    void knownCardsShowTwoStepsDone()
    {
        _fixture->send({.name = names().willBegin});
        _fixture->send(counted(names().known, 100, 0));
        QCOMPARE(_fixture->barText(), u"2 of 102"_s);
        QCOMPARE(_fixture->hint(), names().hint + u"1%"_s);
        QCOMPARE(_fixture->message(), nothing);
    }

    void noCardsShowTheBarAtZero()
    {
        _fixture->send(counted(names().known, 0, 0));
        QCOMPARE(_fixture->bar().value(), 0);
        QVERIFY(_fixture->barText() != u"busy"_s);
    }

    void runningCardsMoveTheBarAndTheTexts()
    {
        _fixture->send(counted(names().known, 100, 0));
        _fixture->send(counted(names().running, 100, 50));
        QTRY_COMPARE(_fixture->barText(), u"52 of 102"_s);
        QCOMPARE(_fixture->hint(), names().hint + u"50%"_s);
        QCOMPARE(_fixture->message(),
            names().label + u" is running.\nCards: 100"_s + names().count + u"50"_s);
        QVERIFY(!_fixture->isMessageRed());
    }

    void manyCardsAtOnceEndWithTheNewest()
    {
        _fixture->send(counted(names().known, 2000, 0));
        for (qint64 card = 1; card <= 1234; ++card)
            _fixture->send(counted(names().running, 2000, card));
        QTRY_COMPARE(_fixture->barText(), u"1236 of 2002"_s);
        QVERIFY(_fixture->message().endsWith(u"Cards: 2,000"_s + names().count + u"1,234"_s));
    }

    void nameOfTheCurrentCardIsShown()
    {
        DBCEvent event = counted(names().known, 2, 0);
        event.currentCard = u"山田 <b>太郎</b>"_s;
        _fixture->send(event);
        QCOMPARE(_fixture->control<QLabel>("currentCard").text(), u"Card: 山田 <b>太郎</b>"_s);
    }

    void nameOfTheCurrentCardGoesWithTheLastCard()
    {
        DBCEvent event = counted(names().known, 2, 0);
        event.currentCard = u"山田 太郎"_s;
        _fixture->send(event);
        _fixture->send(counted(names().finished, 2, 2));
        QCOMPARE(_fixture->control<QLabel>("currentCard").text(), nothing);
    }

    void finishedOperationFillsTheBar()
    {
        _fixture->send(counted(names().finished, 100, 100));
        QCOMPARE(_fixture->barText(), u"102 of 102"_s);
        QCOMPARE(_fixture->hint(), names().hint + u"100%"_s);
        QCOMPARE(_fixture->message(),
            names().label + u" has finished.\nCards: 100"_s + names().count + u"100"_s);
        QVERIFY(!_fixture->isMessageRed());
    }

    void finishedOperationWithoutCardsStaysAtZero()
    {
        _fixture->send(counted(names().finished, 0, 0));
        QCOMPARE(_fixture->bar().value(), 0);
        QVERIFY(_fixture->message().startsWith(names().label + u" has finished."_s));
    }

    void finishedOperationAsksWhetherToQuit()
    {
        _fixture->send(counted(names().finished, 100, 97));
        QCOMPARE(_fixture->presenter.questions.size(), 1);
        const DBCQuestion& question = _fixture->presenter.questions.first();
        QCOMPARE(question.key,
            names().type == OperationType::Import
                ? DBCMessage::keyOf(DBCQuestionId::QuitAfterImport)
                : DBCMessage::keyOf(DBCQuestionId::QuitAfterExport));
        QVERIFY2(question.text.contains(u"97"_s), qPrintable(question.text));
        QCOMPARE(question.defaultButton, u"Yes"_s);
        QCOMPARE(question.alternateButton, u"No"_s);
        QCOMPARE(question.otherButton, nothing);
    }

    void finishedOperationWithWarningsIsRedAndAsksNothing()
    {
        DBCLog::warning(u"a card without an image"_s);
        _fixture->send(counted(names().finished, 100, 100));
        QVERIFY(_fixture->isMessageRed());
        QCOMPARE(_fixture->message(),
            names().label
                + u" has finished.\nThere are warnings or errors. Open the log to see "
                  "them.\nCards: 100"_s
                + names().count + u"100"_s);
        QVERIFY(_fixture->presenter.questions.isEmpty());
    }

    void eventWithoutCountsLeavesTheMessage()
    {
        _fixture->send(counted(names().finished, 100, 100));
        const QString before = _fixture->message();
        _fixture->send({.name = names().finished});
        QCOMPARE(_fixture->message(), before);
    }

    void backupBeginShowsABusyBarAndCancel()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        QCOMPARE(_fixture->barText(), u"busy"_s);
        QCOMPARE(_fixture->hint(), nothing);
        QCOMPARE(_fixture->message(), u"Backup of the card database is running."_s);
        QCOMPARE(_fixture->convert().text(), u"C&ancel"_s);
        QVERIFY(_fixture->convert().isEnabled());
    }

    void backupEndTellsItsSuccess()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->send({.name = DBCEventName::DatabaseBackupDidFinished, .operationIsOk = true});
        QVERIFY(_fixture->barText() != u"busy"_s);
        QCOMPARE(_fixture->hint(), nothing);
        QCOMPARE(_fixture->message(), u"Backup of the card database has finished."_s);
    }

    void failedBackupResetsTheProgressArea()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->send({.name = DBCEventName::DatabaseBackupDidFinished, .operationIsOk = false});
        QVERIFY(_fixture->barText() != u"busy"_s);
        QCOMPARE(_fixture->hint(), u"0%"_s);
        QCOMPARE(_fixture->message(), nothing);
        QCOMPARE(_fixture->bar().value(), 0);
    }

    void restoreBeginForbidsCancel()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->send({.name = DBCEventName::DatabaseRestoreWillBegin});
        QCOMPARE(_fixture->barText(), u"busy"_s);
        QCOMPARE(_fixture->message(), u"Restore of the card database is running."_s);
        QVERIFY(!_fixture->convert().isEnabled());
    }

    void restoreEndIsRedAndPointsToTheLog()
    {
        _fixture->send({.name = DBCEventName::DatabaseRestoreWillBegin});
        _fixture->send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
        QVERIFY(_fixture->barText() != u"busy"_s);
        QCOMPARE(_fixture->hint(), u"0%"_s);
        QCOMPARE(_fixture->message(),
            u"Restore of the card database has ended.\nThere are warnings or errors. "
            "Open the log to see them."_s);
        QVERIFY(_fixture->isMessageRed());
    }

    void confirmedCancelKeepsCancelDisabled()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->convert().setEnabled(false);
        _fixture->send({.name = DBCEventName::OperationDidCanceled, .confirmCancelResult = true});
        QVERIFY(!_fixture->convert().isEnabled());
        QCOMPARE(_fixture->hint(), u"0%"_s);
        QCOMPARE(_fixture->message(), nothing);
        QVERIFY(_fixture->barText() != u"busy"_s);
    }

    void declinedCancelEnablesCancelAgain()
    {
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->convert().setEnabled(false);
        _fixture->send({.name = DBCEventName::OperationDidCanceled, .confirmCancelResult = false});
        QVERIFY(_fixture->convert().isEnabled());
        QCOMPARE(_fixture->convert().text(), u"C&ancel"_s);
        QCOMPARE(_fixture->message(), u"Backup of the card database is running."_s);
    }

    void endEnablesTheControlsAgain()
    {
        fillPaths();
        const QString before = _fixture->convert().text();
        const QStringList all = _fixture->enabledControls();
        QCOMPARE(all.size(), 12);
        _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
        _fixture->convert().setEnabled(false);
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = false});
        QCOMPARE(_fixture->enabledControls(), all);
        QCOMPARE(_fixture->convert().text(), before);
        QVERIFY(_fixture->quitMenuItem().isEnabled());
        QVERIFY(_fixture->window.close());
    }

    void endAfterSuccessOffersTheSameOperationNoMore()
    {
        fillPaths();
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
        QVERIFY(!_fixture->convert().isEnabled());
        _fixture->dataPath().setText(u"/c"_s);
        QVERIFY(_fixture->convert().isEnabled());
    }

    void endAfterFailureOffersItAgain()
    {
        fillPaths();
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = false});
        QVERIFY(_fixture->convert().isEnabled());
        _fixture->databasePath().clear();
        QVERIFY(!_fixture->convert().isEnabled());
    }

    void yesToQuitClosesTheWindowAtTheEnd()
    {
        _fixture->presenter.answer = DBCAnswer::Default;
        _fixture->send(counted(names().finished, 1, 1));
        QVERIFY(_fixture->window.isVisible());
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
        QVERIFY(!_fixture->window.isVisible());
    }

    void noToQuitKeepsTheWindow()
    {
        _fixture->send(counted(names().finished, 1, 1));
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
        QVERIFY(_fixture->window.isVisible());
    }

    void failureAfterYesToQuitKeepsTheWindow()
    {
        _fixture->presenter.answer = DBCAnswer::Default;
        _fixture->send(counted(names().finished, 1, 1));
        DBCLog::error(u"too late"_s);
        _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
        QVERIFY(_fixture->window.isVisible());
    }

private:
    void fillPaths()
    {
        _fixture->dataPath().setText(u"/a"_s);
        _fixture->databasePath().setText(u"/b.vmdb"_s);
    }

    std::unique_ptr<WindowFixture> _fixture;
};

QTEST_MAIN(tst_progressDisplay)
#include "tst_progressDisplay.moc"
