// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the backups dialog: what it shows for each backup, and when its controls can be used.
#include "tests/app/BackupsDesk.h"
#include "tests/app/DialogTexts.h"

#include <QDir>

using namespace Qt::StringLiterals;

class tst_backupsDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void backupsAreListedNewestFirst()
    {
        BackupsDesk desk;
        QTest::qSleep(20); // so that the second backup has a later time
        desk.backUp(desk.second);
        desk.list();
        QCOMPARE(desk.names(), QStringList({desk.second, desk.first}));
        QCOMPARE(desk.cards(), QStringList({u"3"_s, u"2"_s}));
        QVERIFY(
            desk.column(0).constFirst().startsWith(QString::number(QDate::currentDate().year())));
        QVERIFY(desk.column(2).constFirst().endsWith(u"iB"_s));
        QCOMPARE(
            desk.summary(), u"Backups of the card database [%1]: 2"_s.arg(desk.package.path()));
        QVERIFY(desk.table().isVisible());
    }

    void packageWithoutBackupsIsTold()
    {
        BackupsDesk desk;
        QVERIFY(QDir(desk.backup).removeRecursively());
        desk.list();
        QVERIFY(desk.control<QLabel>("none").isVisible());
        QVERIFY(!desk.table().isVisible());
        QVERIFY(!desk.button("restoreBtn").isEnabled());
        QVERIFY(!desk.button("deleteBtn").isEnabled());
    }

    void folderThatCannotBeReadIsTold()
    {
        const BackupsDesk desk;
        desk.dialog->showBackupsOf(desk.home.path(u"nowhere/Cards.vmdb"_s));
        QTRY_VERIFY(desk.isIdle());
        QVERIFY2(desk.summary().contains(desk.home.path(u"nowhere"_s)), qPrintable(desk.summary()));
        QVERIFY(!desk.control<QLabel>("none").isVisible());
    }

    void numbersAndDatesAreSortedAsSuch()
    {
        const BackupsDesk desk;
        const QDateTime day(QDate(2026, 11, 20), QTime(9, 0));
        const auto make = [&](const char* name, int daysAgo, quint64 bytes, qint64 cards) {
            return DBCBackup {
                u"/x/"_s + QString::fromLatin1(name), day.addDays(-daysAgo), bytes, cards, {}};
        };
        desk.dialog->showList(desk.package.path(),
            {{make("a", 0, 900, 1000), make("b", 1, 10'000'000, 9), make("c", 2, 2'000'000, 20)}});
        desk.table().sortByColumn(1, Qt::AscendingOrder);
        QCOMPARE(desk.names().join(u' '), u"b c a"_s);
        desk.table().sortByColumn(2, Qt::AscendingOrder);
        QCOMPARE(desk.names().join(u' '), u"a c b"_s);
        desk.table().sortByColumn(0, Qt::AscendingOrder);
        QCOMPARE(desk.names().join(u' '), u"c b a"_s);
    }

    void damagedBackupCannotBeChosenForRestore()
    {
        BackupsDesk desk;
        desk.damage(desk.backup);
        desk.list();
        QCOMPARE(desk.cards(), QStringList({u"not usable"_s}));
        QVERIFY(!desk.button("restoreBtn").isEnabled());
        QVERIFY(desk.button("deleteBtn").isEnabled());
        QVERIFY2(desk.status().startsWith(u"This backup cannot be restored. "_s),
            qPrintable(desk.status()));
        QVERIFY2(desk.status().contains(desk.backup), qPrintable(desk.status()));
    }

    void dialogStaysOpenWhileABackupIsRestored()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        desk.closeGate();
        desk.button("restoreBtn").click();
        desk.reached.acquire();
        QVERIFY(desk.dialog->isChanging());
        desk.dialog->reject();
        desk.dialog->close();
        QVERIFY(desk.dialog->isVisible());
        for (const char* const name : {"restoreBtn", "deleteBtn", "closeBtn"})
            QVERIFY2(!desk.button(name).isEnabled(), name);
        desk.gate.release(1000);
        QTRY_VERIFY(desk.isIdle());
        QCOMPARE(snapshotOf(desk.package.path()), desk.chosen);
        QTest::keyClick(desk.dialog.get(), Qt::Key_Escape);
        QVERIFY(!desk.dialog->isVisible());
    }

    void dialogCanBeClosedWhileItLooks()
    {
        BackupsDesk desk;
        desk.dialog->showBackupsOf(desk.package.path());
        desk.dialog->reject();
        QVERIFY(!desk.dialog->isVisible());
        QTest::qWait(50);
        QCOMPARE(desk.names(), QStringList());
        desk.list();
        QCOMPARE(desk.names(), QStringList({desk.first}));
    }

    void outcomeStaysUntilAnotherBackupIsChosen()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        desk.press("restoreBtn");
        QVERIFY(!desk.status().isEmpty());
        desk.table().selectRow(desk.table().currentIndex().row() == 0 ? 1 : 0);
        QCOMPARE(desk.status(), QString());
    }

    void textsAreInTheLanguage_data()
    {
        QTest::addColumn<bool>("isJapanese");
        QTest::addColumn<QString>("heading");
        QTest::newRow("English") << false << u"Made"_s;
        QTest::newRow("Japanese") << true << u"作成日時"_s;
    }
    void textsAreInTheLanguage()
    {
        QFETCH(bool, isJapanese);
        BackupsDesk desk(
            isJapanese ? BackupsDesk::Language::Japanese : BackupsDesk::Language::English);
        desk.list();
        QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
        QTEST(desk.table().model()->headerData(0, Qt::Horizontal).toString(), "heading");
    }
};

QTEST_MAIN(tst_backupsDialog)
#include "tst_backupsDialog.moc"
