// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the check dialog: what it lists, and what the user can do while a check is running.
#include "tests/app/CheckDesk.h"
#include "tests/app/DialogTexts.h"
#include "tests/support/FolderSnapshot.h"

#include <QProgressBar>

using namespace Qt::StringLiterals;

class tst_checkDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyProblemIsListed()
    {
        CheckDesk desk;
        desk.hasCards(11);
        desk.folder.withoutVersion();
        desk.checkToTheEnd();
        QStringList expected {u"–"_s};
        for (int line = 2; line <= 12; ++line)
            expected << QString::number(line);
        QCOMPARE(desk.lines(), expected);
        QVERIFY(desk.table().isVisible());
        QCOMPARE(desk.summary().section(u'\n', 0, 0),
            u"Problems found in [%1]: 12."_s.arg(desk.folder.path()));
        QVERIFY(desk.summary().contains(u"Cards in the data file: 11."_s));
    }

    void folderIsNotTouched()
    {
        CheckDesk desk;
        desk.hasCards(3);
        const QStringList before = snapshotOf(desk.folder.path());
        desk.checkToTheEnd();
        QCOMPARE(snapshotOf(desk.folder.path()), before);
        QCOMPARE(desk.home.logText(), QString());
    }

    void cleanFolderIsCalledClean()
    {
        CheckDesk desk;
        desk.hasOneGoodCard();
        desk.checkToTheEnd();
        QVERIFY(desk.control<QLabel>("noProblems").isVisible());
        QCOMPARE(desk.control<QLabel>("noProblems").text(), u"No problems were found."_s);
        QVERIFY(!desk.table().isVisible());
        QVERIFY(desk.summary().startsWith(u"No problems were found in ["_s));
    }

    void folderThatCannotBeLookedAtIsTold()
    {
        const CheckDesk desk;
        desk.dialog->check(desk.home.path(u"nowhere"_s));
        QTRY_VERIFY(!desk.dialog->isChecking());
        QVERIFY2(desk.summary().contains(u"nowhere"_s), qPrintable(desk.summary()));
        QVERIFY(!desk.table().isVisible());
        QVERIFY(!desk.control<QLabel>("noProblems").isVisible());
    }

    void progressIsShown()
    {
        CheckDesk desk;
        desk.hasCards(200);
        desk.closeGateAt(u"100.jpg"_s);
        desk.check();
        desk.reached.acquire();
        QVERIFY(desk.control<QProgressBar>("bar").isVisible());
        QTRY_COMPARE(desk.control<QProgressBar>("bar").maximum(), 202);
        QVERIFY(desk.control<QProgressBar>("bar").value() > 0);
        QVERIFY(desk.control<QLabel>("lines").text().endsWith(u" of 202"_s));
        desk.open();
        QTRY_VERIFY(!desk.dialog->isChecking());
    }

    void stoppedCheckShowsWhatItFound()
    {
        CheckDesk desk;
        desk.hasCards(20);
        desk.closeGateAt(u"5.jpg"_s);
        desk.check();
        desk.reached.acquire();
        QCOMPARE(desk.button("againBtn").text(), u"S&top"_s);
        desk.button("againBtn").click();
        QVERIFY(!desk.button("againBtn").isEnabled());
        desk.open();
        QTRY_VERIFY(!desk.dialog->isChecking());
        QCOMPARE(desk.lines().size(), 5);
        QVERIFY(desk.summary().startsWith(u"The check was stopped"_s));
        QVERIFY(desk.button("againBtn").isEnabled());
        QCOMPARE(desk.button("againBtn").text(), u"Check A&gain"_s);
    }

    void dialogCanBeClosedMeanwhile()
    {
        CheckDesk desk;
        desk.hasCards(20);
        desk.closeGateAt(u"5.jpg"_s);
        desk.check();
        desk.reached.acquire();
        desk.dialog->reject();
        QVERIFY(!desk.dialog->isVisible());
        QVERIFY(!desk.dialog->isChecking());
        desk.open();
        desk.dialog.reset(); // waits for the abandoned check
        QCOMPARE(desk.reached.available(), 0);
    }

    void newCheckReplacesTheOldOne()
    {
        CheckDesk desk;
        desk.hasCards(20);
        desk.closeGateAt(u"5.jpg"_s);
        desk.check();
        desk.reached.acquire();
        desk.check();
        desk.gate.release();
        desk.reached.acquire(); // by the second check, after the first has ended
        QTest::qWait(20);
        QVERIFY(desk.dialog->isChecking());
        QCOMPARE(desk.lines(), QStringList());
        desk.open();
        QTRY_VERIFY(!desk.dialog->isChecking());
        QCOMPARE(desk.lines().size(), 20);
    }

    void checkAgainSeesWhatWasMended()
    {
        CheckDesk desk;
        desk.hasCards(2);
        desk.checkToTheEnd();
        QCOMPARE(desk.lines().size(), 2);
        desk.hasOneGoodCard();
        desk.button("againBtn").click();
        QTRY_VERIFY(!desk.dialog->isChecking());
        QCOMPARE(desk.lines().size(), 0);
        QVERIFY(desk.control<QLabel>("noProblems").isVisible());
    }

    void escapeCloses()
    {
        CheckDesk desk;
        desk.hasCards(1);
        desk.checkToTheEnd();
        QTest::keyClick(&desk.table(), Qt::Key_Escape);
        QVERIFY(!desk.dialog->isVisible());
    }

    void textsAreInTheLanguage_data()
    {
        QTest::addColumn<bool>("isJapanese");
        QTest::addColumn<QString>("title");
        QTest::newRow("English") << false << u"Check of the Interchange Folder"_s;
        QTest::newRow("Japanese") << true << u"データフォルダーのチェック"_s;
    }
    void textsAreInTheLanguage()
    {
        QFETCH(bool, isJapanese);
        CheckDesk desk(isJapanese ? CheckDesk::Language::Japanese : CheckDesk::Language::English);
        desk.hasCards(20);
        desk.closeGateAt(u"5.jpg"_s);
        desk.check();
        desk.reached.acquire();
        QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
        desk.open();
        QTRY_VERIFY(!desk.dialog->isChecking());
        QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
        QTEST(desk.dialog->windowTitle(), "title");
        desk.hasOneGoodCard();
        desk.checkToTheEnd();
        QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
    }
};

QTEST_MAIN(tst_checkDialog)
#include "tst_checkDialog.moc"
