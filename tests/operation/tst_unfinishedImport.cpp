// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/DBCUnfinishedImport.h"

#include "datafile/helpers/DBCLocalizable.h"
#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/DeadImport.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScopedMode.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;

using Stage = DBCPackageJournal::Stage;

namespace {

// A package whose import was killed, and a user who answers the program's questions about it.
struct Settling {
    explicit Settling(DBCAnswer answer = DBCAnswer::NotShown)
    {
        presenter.answer = answer;
        dead.package.writeFile(u"Images/NEW-1_N1.pdf"_s, "new");
    }
    DBCSettlement settle() const { return settleUnfinishedImport(dead.package.path()); }
    // Returns the text of a key with the paths of the package and its backup as arguments.
    QString text(const char* key) const
    {
        return getLocalString(key, {dead.package.path(), dead.backup});
    }
    bool isLogged(const QString& line) const { return dead.home.logText().contains(line); }

    DeadImport dead {Stage::Import};
    RecordingPresenter presenter;
};

} // namespace

class tst_unfinishedImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packageWithoutAnImportAsksNothing()
    {
        const TestHome home;
        const RecordingPresenter presenter;
        const PackageFixture package(home);
        QCOMPARE(settleUnfinishedImport(package.path()), DBCSettlement::NothingToSettle);
        QCOMPARE(settleUnfinishedImport(home.path(u"none"_s)), DBCSettlement::NothingToSettle);
        QVERIFY(presenter.questions.isEmpty());
        QVERIFY(home.logText().isEmpty());
    }

    void importThatNeedsNoDecisionAsksNothing()
    {
        Settling settling;
        settling.dead.hasNewCards(1);
        QCOMPARE(settling.settle(), DBCSettlement::NothingToSettle);
        QVERIFY(settling.presenter.questions.isEmpty());
        QVERIFY(!settling.dead.hasJournal());
    }

    void questionNamesPackageAndBackup()
    {
        Settling settling;
        settling.settle();
        QCOMPARE(settling.presenter.questions.size(), 1);
        const DBCQuestion question = settling.presenter.questions.constFirst();
        QCOMPARE(question.key, DBCMessage::keyOf(DBCQuestionId::SettleUnfinishedImport));
        QVERIFY(question.text.contains(settling.dead.package.path()));
        QVERIFY(question.text.contains(settling.dead.backup));
        QCOMPARE(question.defaultButton, DBCMessage::btnLableString(DBCButton::Yes));
        QCOMPARE(question.alternateButton, DBCMessage::btnLableString(DBCButton::No));
    }

    void yesRestores()
    {
        Settling settling(DBCAnswer::Default);
        QCOMPARE(settling.settle(), DBCSettlement::Restored);
        QCOMPARE(snapshotOf(settling.dead.package.path()), settling.dead.original);
        QVERIFY(!settling.dead.hasJournal());
        QVERIFY(settling.presenter.numbers.isEmpty());
        QVERIFY(settling.isLogged(settling.dead.backup));
        QCOMPARE(settling.settle(), DBCSettlement::NothingToSettle);
    }

    void noKeepsEverythingAsItIs()
    {
        Settling settling(DBCAnswer::Alternate);
        const QStringList before = snapshotOf(settling.dead.package.path());
        QCOMPARE(settling.settle(), DBCSettlement::Kept);
        QCOMPARE(snapshotOf(settling.dead.package.path()), before);
        QCOMPARE(snapshotOf(settling.dead.backup), settling.dead.original);
        QVERIFY(!settling.dead.hasJournal());
        QVERIFY(settling.isLogged(settling.text("IDS_LOG_INF_UNFINISHED_KEPT")));
    }

    void withoutAnAnswerNothingIsDone_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("not shown") << int(DBCAnswer::NotShown);
        QTest::newRow("other") << int(DBCAnswer::Other);
    }
    void withoutAnAnswerNothingIsDone()
    {
        QFETCH(int, answer);
        Settling settling {DBCAnswer(answer)};
        const QStringList before = snapshotOf(settling.dead.package.path());
        QCOMPARE(settling.settle(), DBCSettlement::NotAnswered);
        QCOMPARE(snapshotOf(settling.dead.package.path()), before);
        QVERIFY(settling.dead.hasJournal());
    }

    void questionWithoutItsTextIsNotAnswered()
    {
        Settling settling(DBCAnswer::Default);
        const DBCLocalizable::Substitute texts(
            {{DBCMessage::keyOf(DBCQuestionId::SettleUnfinishedImport), std::nullopt}});
        QCOMPARE(settling.settle(), DBCSettlement::NotAnswered);
        QVERIFY(settling.dead.hasJournal());
    }

    void runningImportIsInUse()
    {
        const TestHome home;
        const RecordingPresenter presenter;
        const PackageFixture package(home);
        const auto journal = DBCPackageJournal::begin(package.path(), home.path(u"bak.vmdb"_s));
        QCOMPARE(settleUnfinishedImport(package.path()), DBCSettlement::InUse);
        QVERIFY(presenter.questions.isEmpty());
    }

    void failedRestoreIsShownAndStaysUnfinished()
    {
        Settling settling(DBCAnswer::Default);
        QVERIFY(QDir(settling.dead.backup).removeRecursively());
        const auto before = settling.dead.package.contents();
        QCOMPARE(settling.settle(), DBCSettlement::Failed);
        QCOMPARE(settling.presenter.numbers, QList<quint32> {311});
        QVERIFY(settling.presenter.texts.constFirst().contains(settling.dead.backup));
        QCOMPARE(settling.dead.package.contents(), before);
        QVERIFY(settling.dead.hasJournal());
    }

    void unreadableJournalIsShownAndLogged()
    {
        const AsOrdinaryUser user;
        Settling settling(DBCAnswer::Default);
        const ScopedMode mode(settling.dead.journalPath(), 0);
        QCOMPARE(settling.settle(), DBCSettlement::Failed);
        QCOMPARE(settling.presenter.numbers, QList<quint32> {301});
        QVERIFY(settling.presenter.questions.isEmpty());
        QVERIFY(settling.isLogged(
            getLocalString(u"IDS_LOG_ERR_JOURNAL_UNREADABLE"_s, {settling.dead.journalPath()})));
    }

    void journalThatCannotBeRemovedIsShownAndLogged()
    {
        const AsOrdinaryUser user;
        Settling settling(DBCAnswer::Alternate);
        const ScopedMode mode(settling.dead.home.path(), S_IRUSR | S_IXUSR);
        QCOMPARE(settling.settle(), DBCSettlement::Failed);
        QCOMPARE(settling.presenter.numbers, QList<quint32> {301});
        QVERIFY(settling.dead.hasJournal());
    }

    void questionTellsWhatChangedSince()
    {
        Settling settling;
        settling.dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        settling.dead.package.card({{"ZCARDID", u"ELSE-2"_s}});
        QCOMPARE(settling.settle(), DBCSettlement::NotAnswered);
        const DBCQuestion question = settling.presenter.questions.constFirst();
        QCOMPARE(question.key, DBCMessage::keyOf(DBCQuestionId::SettleChangedPackage));
        QVERIFY(question.needsDecision());
        QVERIFY(question.text.contains(u"cards added: 2, changed: 0, removed: 0"_s));
        QVERIFY(settling.dead.hasJournal());
    }

    void keptChangesAreLogged()
    {
        Settling settling(DBCAnswer::Default);
        settling.dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        QCOMPARE(settling.settle(), DBCSettlement::Restored);
        const QString kept = settling.dead.home.path(u"Velmora DB_bak1.vmdb"_s);
        QVERIFY(settling.isLogged(
            getLocalString("IDS_LOG_INF_CHANGES_KEPT", {settling.dead.package.path(), kept})));
    }

    void decisionMadeBeforehandAsksNothing()
    {
        Settling settling;
        QString kept;
        settling.dead.package.card({{"ZCARDID", u"ELSE-1"_s}});
        QCOMPARE(settleUnfinishedImport(
                     settling.dead.package.path(), DBCSettlementChoice::Restore, &kept),
            DBCSettlement::Restored);
        QVERIFY(settling.presenter.questions.isEmpty());
        QCOMPARE(kept, settling.dead.home.path(u"Velmora DB_bak1.vmdb"_s));
    }
};

QTEST_GUILESS_MAIN(tst_unfinishedImport)
#include "tst_unfinishedImport.moc"
