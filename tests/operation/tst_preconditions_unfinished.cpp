// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the checks before an operation on a package whose last import did not finish. The journal,
// a small file beside the package that records how far an import has come, shows that.
#include "carddb/DBCPackageJournal.h"
#include "tests/operation/PreconditionSituation.h"

#include <QDir>

using namespace Qt::StringLiterals;

using Stage = DBCPackageJournal::Stage;

namespace {

struct Unfinished : Situation {
    explicit Unfinished(OperationType operationType)
        : Situation(operationType)
        , backup(home.makeFolder(u"cards_bak.vmdb"_s))
    {
        home.writeFile(u"cards_bak.vmdb/Velmora.sqldb"_s, "store of before");
        const auto journal = DBCPackageJournal::begin(package, backup);
        if (!journal || !journal->enterImport(u"NEW-"_s))
            qFatal("no journal");
    }
    QByteArray store() const { return home.readFile(u"cards.vmdb/Velmora.sqldb"_s); }
    bool isSettled() const
    {
        return !QFileInfo::exists(home.path(u".cards.vmdb.velmora-import"_s));
    }

    QString backup;
};

const QStringList bothQuestions {DBCMessage::keyOf(DBCQuestionId::BeginOperation),
    DBCMessage::keyOf(DBCQuestionId::SettleChangedPackage)};

} // namespace

class tst_preconditions_unfinished : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void yesRestoresAndGoesOn_data() { bothOperations(); }
    void yesRestoresAndGoesOn()
    {
        QFETCH(OperationType, type);
        Unfinished situation(type);
        QVERIFY(situation.check());
        QCOMPARE(situation.questionKeys(), bothQuestions);
        QCOMPARE(situation.store(), QByteArray("store of before"));
        QVERIFY(situation.isSettled());
    }

    void noKeepsThePackageAndGoesOn_data() { bothOperations(); }
    void noKeepsThePackageAndGoesOn()
    {
        QFETCH(OperationType, type);
        Unfinished situation(type);
        situation.presenter.answers = {DBCAnswer::Default, DBCAnswer::Alternate};
        QVERIFY(situation.check());
        QCOMPARE(situation.store(), QByteArray("store"));
        QVERIFY(situation.isSettled());
    }

    void noToTheOperationAsksNothingMore()
    {
        Unfinished situation(OperationType::Import);
        situation.presenter.answer = DBCAnswer::Alternate;
        QVERIFY(!situation.check());
        QCOMPARE(situation.questionKeys().size(), 1);
        QVERIFY(!situation.isSettled());
    }

    void withoutAnAnswerTheOperationIsRefused()
    {
        Unfinished situation(OperationType::Import);
        situation.presenter.answers = {DBCAnswer::Default, DBCAnswer::NotShown};
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByCheck);
        QCOMPARE(situation.presenter.numbers, nothingShown);
        QVERIFY(!situation.isSettled());
    }

    void failedRestoreRefusesTheOperation()
    {
        Unfinished situation(OperationType::Export);
        QVERIFY(QDir(situation.backup).removeRecursively());
        DBCPreconditions preconditions = situation.preconditions();
        QVERIFY(!preconditions._checkPrecondition());
        QCOMPARE(preconditions.refusal(), DBCPreconditions::Refusal::ByCheck);
        QCOMPARE(situation.presenter.numbers, QList<quint32> {311});
        QVERIFY(!QFileInfo::exists(situation.exportFolder()));
    }

    void runningImportKeepsTheNextOperationOut_data()
    {
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<quint32>("number");
        QTest::newRow("import") << OperationType::Import << 304u;
        QTest::newRow("export") << OperationType::Export << 203u;
    }
    void runningImportKeepsTheNextOperationOut()
    {
        QFETCH(OperationType, type);
        QFETCH(quint32, number);
        Situation situation(type);
        const auto running
            = DBCPackageJournal::begin(situation.package, situation.home.path(u"cards_bak.vmdb"_s));
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {number});
    }

    void packageThatWasNotNamedIsRefusedAsBefore()
    {
        Situation situation(OperationType::Export);
        situation.package.clear();
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {201});
    }
};

QTEST_GUILESS_MAIN(tst_preconditions_unfinished)
#include "tst_preconditions_unfinished.moc"
