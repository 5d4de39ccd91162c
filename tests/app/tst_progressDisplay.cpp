// SPDX-License-Identifier: GPL-3.0-or-later
// What the converter screen shows at each event of an operation.
#include "operation/log/DBCLog.h"
#include "tests/app/WindowFixture.h"

#include <QTest>

namespace {

const QString nothing;

DBCEvent counted(DBCEventName name, qint64 maxCount, qint64 finishedCount)
{
    return {.name = name, .maxCount = maxCount, .finishedCount = finishedCount};
}

// The events of the two operations side by side.
struct Names {
    OperationType type;
    DBCEventName willBegin;
    DBCEventName known;
    DBCEventName running;
    DBCEventName finished;
    QString hint; // in front of the percentage
    QString label;
    QString count; // in front of the number
};

const Names importNames {OperationType::Import, DBCEventName::ImportWillBegin,
    DBCEventName::ImportDataLoadDidFinished, DBCEventName::ImportIsRunning,
    DBCEventName::ImportDidFinished, QStringLiteral("Importing: "), QStringLiteral("Import"),
    QStringLiteral(", imported: ")};
const Names exportNames {OperationType::Export, DBCEventName::ExportWillBegin,
    DBCEventName::ExportDataFetchDidFinished, DBCEventName::ExportIsRunning,
    DBCEventName::ExportDidFinished, QStringLiteral("Exporting: "), QStringLiteral("Export"),
    QStringLiteral(", exported: ")};

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

    void beginEmptiesTheMessageAndStartsTheBar();
    void onlyAnExportTurnsConvertIntoCancelAtItsBegin();
    void knownCardsShowTwoStepsDone();
    void noCardsShowTheBarAtZero();
    void runningCardsMoveTheBarAndTheTexts();
    void manyCardsAtOnceEndWithTheNewest();
    void nameOfTheCurrentCardIsShown();
    void nameOfTheCurrentCardGoesWithTheLastCard();
    void finishedOperationFillsTheBar();
    void finishedOperationWithoutCardsStaysAtZero();
    void finishedOperationAsksWhetherToQuit();
    void finishedOperationWithWarningsIsRedAndAsksNothing();
    void eventWithoutCountsLeavesTheMessage();
    void backupBeginShowsABusyBarAndCancel();
    void backupEndTellsItsSuccess();
    void failedBackupResetsTheProgressArea();
    void restoreBeginForbidsCancel();
    void restoreEndIsRedAndPointsToTheLog();
    void confirmedCancelKeepsCancelDisabled();
    void declinedCancelEnablesCancelAgain();
    void endEnablesTheControlsAgain();
    void endAfterSuccessOffersTheSameOperationNoMore();
    void endAfterFailureOffersItAgain();
    void yesToQuitClosesTheWindowAtTheEnd();
    void noToQuitKeepsTheWindow();
    void failureAfterYesToQuitKeepsTheWindow();

private:
    void fillPaths()
    {
        _fixture->dataPath().setText(QStringLiteral("/a"));
        _fixture->databasePath().setText(QStringLiteral("/b.vmdb"));
    }

    std::unique_ptr<WindowFixture> _fixture;
};

void tst_progressDisplay::beginEmptiesTheMessageAndStartsTheBar()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->send({.name = names().willBegin});
    QCOMPARE(_fixture->message(), nothing);
    QCOMPARE(_fixture->bar().value(), 0);
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
    QCOMPARE(_fixture->hint(), names().hint + QStringLiteral("0%"));
}

void tst_progressDisplay::onlyAnExportTurnsConvertIntoCancelAtItsBegin()
{
    const QString before = _fixture->convert().text();
    _fixture->send({.name = names().willBegin});
    const bool isExport = names().type == OperationType::Export;
    QCOMPARE(_fixture->convert().text(), isExport ? QStringLiteral("C&ancel") : before);
}

void tst_progressDisplay::knownCardsShowTwoStepsDone()
{
    _fixture->send({.name = names().willBegin});
    _fixture->send(counted(names().known, 100, 0));
    QCOMPARE(_fixture->barText(), QStringLiteral("2 of 102"));
    QCOMPARE(_fixture->hint(), names().hint + QStringLiteral("1%"));
    QCOMPARE(_fixture->message(), nothing);
}

void tst_progressDisplay::noCardsShowTheBarAtZero()
{
    _fixture->send(counted(names().known, 0, 0));
    QCOMPARE(_fixture->bar().value(), 0);
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
}

void tst_progressDisplay::runningCardsMoveTheBarAndTheTexts()
{
    _fixture->send(counted(names().known, 100, 0));
    _fixture->send(counted(names().running, 100, 50));
    QTRY_COMPARE(_fixture->barText(), QStringLiteral("52 of 102"));
    QCOMPARE(_fixture->hint(), names().hint + QStringLiteral("50%"));
    QCOMPARE(_fixture->message(),
        names().label + QStringLiteral(" is running.\nCards: 100") + names().count
            + QStringLiteral("50"));
    QVERIFY(!_fixture->isMessageRed());
}

void tst_progressDisplay::manyCardsAtOnceEndWithTheNewest()
{
    _fixture->send(counted(names().known, 2000, 0));
    for (qint64 card = 1; card <= 1234; ++card)
        _fixture->send(counted(names().running, 2000, card));
    QTRY_COMPARE(_fixture->barText(), QStringLiteral("1236 of 2002"));
    QVERIFY(_fixture->message().endsWith(
        QStringLiteral("Cards: 2,000") + names().count + QStringLiteral("1,234")));
}

void tst_progressDisplay::nameOfTheCurrentCardIsShown()
{
    DBCEvent event = counted(names().known, 2, 0);
    event.currentCard = QStringLiteral("山田 <b>太郎</b>");
    _fixture->send(event);
    QCOMPARE(
        _fixture->control<QLabel>("currentCard").text(), QStringLiteral("Card: 山田 <b>太郎</b>"));
}

void tst_progressDisplay::nameOfTheCurrentCardGoesWithTheLastCard()
{
    DBCEvent event = counted(names().known, 2, 0);
    event.currentCard = QStringLiteral("山田 太郎");
    _fixture->send(event);
    _fixture->send(counted(names().finished, 2, 2));
    QCOMPARE(_fixture->control<QLabel>("currentCard").text(), nothing);
}

void tst_progressDisplay::finishedOperationFillsTheBar()
{
    _fixture->send(counted(names().finished, 100, 100));
    QCOMPARE(_fixture->barText(), QStringLiteral("102 of 102"));
    QCOMPARE(_fixture->hint(), names().hint + QStringLiteral("100%"));
    QCOMPARE(_fixture->message(),
        names().label + QStringLiteral(" has finished.\nCards: 100") + names().count
            + QStringLiteral("100"));
    QVERIFY(!_fixture->isMessageRed());
}

void tst_progressDisplay::finishedOperationWithoutCardsStaysAtZero()
{
    _fixture->send(counted(names().finished, 0, 0));
    QCOMPARE(_fixture->bar().value(), 0);
    QVERIFY(_fixture->message().startsWith(names().label + QStringLiteral(" has finished.")));
}

void tst_progressDisplay::finishedOperationAsksWhetherToQuit()
{
    _fixture->send(counted(names().finished, 100, 97));
    QCOMPARE(_fixture->presenter.questions.size(), 1);
    const DBCQuestion& question = _fixture->presenter.questions.first();
    QCOMPARE(question.key,
        names().type == OperationType::Import ? QStringLiteral("IDS_MSG_ERR_0317")
                                              : QStringLiteral("IDS_MSG_ERR_0211"));
    QVERIFY2(question.text.contains(QStringLiteral("97")), qPrintable(question.text));
    QCOMPARE(question.defaultButton, QStringLiteral("Yes"));
    QCOMPARE(question.alternateButton, QStringLiteral("No"));
    QCOMPARE(question.otherButton, nothing);
}

void tst_progressDisplay::finishedOperationWithWarningsIsRedAndAsksNothing()
{
    DBCLog::warning(QStringLiteral("a card without an image"));
    _fixture->send(counted(names().finished, 100, 100));
    QVERIFY(_fixture->isMessageRed());
    QCOMPARE(_fixture->message(),
        names().label
            + QStringLiteral(" has finished.\nThere are warnings or errors. Open the log to see "
                             "them.\nCards: 100")
            + names().count + QStringLiteral("100"));
    QVERIFY(_fixture->presenter.questions.isEmpty());
}

void tst_progressDisplay::eventWithoutCountsLeavesTheMessage()
{
    _fixture->send(counted(names().finished, 100, 100));
    const QString before = _fixture->message();
    _fixture->send({.name = names().finished});
    QCOMPARE(_fixture->message(), before);
}

void tst_progressDisplay::backupBeginShowsABusyBarAndCancel()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    QCOMPARE(_fixture->barText(), QStringLiteral("busy"));
    QCOMPARE(_fixture->hint(), nothing);
    QCOMPARE(_fixture->message(), QStringLiteral("Backup of the card database is running."));
    QCOMPARE(_fixture->convert().text(), QStringLiteral("C&ancel"));
    QVERIFY(_fixture->convert().isEnabled());
}

void tst_progressDisplay::backupEndTellsItsSuccess()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->send({.name = DBCEventName::DatabaseBackupDidFinished, .operationIsOk = true});
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
    QCOMPARE(_fixture->hint(), nothing);
    QCOMPARE(_fixture->message(), QStringLiteral("Backup of the card database has finished."));
}

void tst_progressDisplay::failedBackupResetsTheProgressArea()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->send({.name = DBCEventName::DatabaseBackupDidFinished, .operationIsOk = false});
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
    QCOMPARE(_fixture->hint(), QStringLiteral("0%"));
    QCOMPARE(_fixture->message(), nothing);
    QCOMPARE(_fixture->bar().value(), 0);
}

void tst_progressDisplay::restoreBeginForbidsCancel()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->send({.name = DBCEventName::DatabaseRestoreWillBegin});
    QCOMPARE(_fixture->barText(), QStringLiteral("busy"));
    QCOMPARE(_fixture->message(), QStringLiteral("Restore of the card database is running."));
    QVERIFY(!_fixture->convert().isEnabled());
}

void tst_progressDisplay::restoreEndIsRedAndPointsToTheLog()
{
    _fixture->send({.name = DBCEventName::DatabaseRestoreWillBegin});
    _fixture->send({.name = DBCEventName::DatabaseRestoreDidFinished, .operationIsOk = true});
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
    QCOMPARE(_fixture->hint(), QStringLiteral("0%"));
    QCOMPARE(_fixture->message(),
        QStringLiteral("Restore of the card database has ended.\nThere are warnings or errors. "
                       "Open the log to see them."));
    QVERIFY(_fixture->isMessageRed());
}

void tst_progressDisplay::confirmedCancelKeepsCancelDisabled()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->convert().setEnabled(false);
    _fixture->send({.name = DBCEventName::OperationDidCanceled, .confirmCancelResult = true});
    QVERIFY(!_fixture->convert().isEnabled());
    QCOMPARE(_fixture->hint(), QStringLiteral("0%"));
    QCOMPARE(_fixture->message(), nothing);
    QVERIFY(_fixture->barText() != QStringLiteral("busy"));
}

void tst_progressDisplay::declinedCancelEnablesCancelAgain()
{
    _fixture->send({.name = DBCEventName::DatabaseBackupWillBegin});
    _fixture->convert().setEnabled(false);
    _fixture->send({.name = DBCEventName::OperationDidCanceled, .confirmCancelResult = false});
    QVERIFY(_fixture->convert().isEnabled());
    QCOMPARE(_fixture->convert().text(), QStringLiteral("C&ancel"));
    QCOMPARE(_fixture->message(), QStringLiteral("Backup of the card database is running."));
}

void tst_progressDisplay::endEnablesTheControlsAgain()
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

void tst_progressDisplay::endAfterSuccessOffersTheSameOperationNoMore()
{
    fillPaths();
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
    QVERIFY(!_fixture->convert().isEnabled());
    _fixture->dataPath().setText(QStringLiteral("/c"));
    QVERIFY(_fixture->convert().isEnabled());
}

void tst_progressDisplay::endAfterFailureOffersItAgain()
{
    fillPaths();
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = false});
    QVERIFY(_fixture->convert().isEnabled());
    _fixture->databasePath().clear();
    QVERIFY(!_fixture->convert().isEnabled());
}

void tst_progressDisplay::yesToQuitClosesTheWindowAtTheEnd()
{
    _fixture->presenter.answer = DBCAnswer::Default;
    _fixture->send(counted(names().finished, 1, 1));
    QVERIFY(_fixture->window.isVisible());
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
    QVERIFY(!_fixture->window.isVisible());
}

void tst_progressDisplay::noToQuitKeepsTheWindow()
{
    _fixture->send(counted(names().finished, 1, 1));
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
    QVERIFY(_fixture->window.isVisible());
}

void tst_progressDisplay::failureAfterYesToQuitKeepsTheWindow()
{
    _fixture->presenter.answer = DBCAnswer::Default;
    _fixture->send(counted(names().finished, 1, 1));
    DBCLog::error(QStringLiteral("too late"));
    _fixture->send({.name = DBCEventName::OperationDidFinished, .operationIsOk = true});
    QVERIFY(_fixture->window.isVisible());
}

QTEST_MAIN(tst_progressDisplay)
#include "tst_progressDisplay.moc"
