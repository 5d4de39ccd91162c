// SPDX-License-Identifier: GPL-3.0-or-later
// The list of backups: what it says of each, and when it can be used.
#include "tests/app/BackupsDesk.h"
#include "tests/app/DialogTexts.h"

#include <QDir>

class tst_backupsDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void backupsAreListedNewestFirst();
    void packageWithoutBackupsIsTold();
    void folderThatCannotBeReadIsTold();
    void numbersAndDatesAreSortedAsSuch();
    void damagedBackupCannotBeChosenForRestore();
    void dialogStaysOpenWhileABackupIsRestored();
    void dialogCanBeClosedWhileItLooks();
    void outcomeStaysUntilAnotherBackupIsChosen();
    void textsAreInTheLanguage_data();
    void textsAreInTheLanguage();
};

void tst_backupsDialog::backupsAreListedNewestFirst()
{
    BackupsDesk desk;
    QTest::qSleep(20); // past the kernel's tick
    desk.backUp(desk.second);
    desk.list();
    QCOMPARE(desk.names(), QStringList({desk.second, desk.first}));
    QCOMPARE(desk.cards(), QStringList({QStringLiteral("3"), QStringLiteral("2")}));
    QVERIFY(desk.column(0).constFirst().startsWith(QString::number(QDate::currentDate().year())));
    QVERIFY(desk.column(2).constFirst().endsWith(QStringLiteral("iB")));
    QCOMPARE(desk.summary(),
        QStringLiteral("Backups of the card database [%1]: 2").arg(desk.package.path()));
    QVERIFY(desk.table().isVisible());
}

void tst_backupsDialog::packageWithoutBackupsIsTold()
{
    BackupsDesk desk;
    QVERIFY(QDir(desk.backup).removeRecursively());
    desk.list();
    QVERIFY(desk.control<QLabel>("none").isVisible());
    QVERIFY(!desk.table().isVisible());
    QVERIFY(!desk.button("restoreBtn").isEnabled());
    QVERIFY(!desk.button("deleteBtn").isEnabled());
}

void tst_backupsDialog::folderThatCannotBeReadIsTold()
{
    const BackupsDesk desk;
    desk.dialog->showBackupsOf(desk.home.path(QStringLiteral("nowhere/Cards.vmdb")));
    QTRY_VERIFY(desk.isIdle());
    QVERIFY2(desk.summary().contains(desk.home.path(QStringLiteral("nowhere"))),
        qPrintable(desk.summary()));
    QVERIFY(!desk.control<QLabel>("none").isVisible());
}

void tst_backupsDialog::numbersAndDatesAreSortedAsSuch()
{
    const BackupsDesk desk;
    const QDateTime day(QDate(2026, 11, 20), QTime(9, 0));
    const auto make = [&](const char* name, int daysAgo, quint64 bytes, qint64 cards) {
        return DBCBackup {QStringLiteral("/x/") + QString::fromLatin1(name), day.addDays(-daysAgo),
            bytes, cards, {}};
    };
    desk.dialog->showList(desk.package.path(),
        {{make("a", 0, 900, 1000), make("b", 1, 10'000'000, 9), make("c", 2, 2'000'000, 20)}});
    desk.table().sortByColumn(1, Qt::AscendingOrder);
    QCOMPARE(desk.names().join(u' '), QStringLiteral("b c a"));
    desk.table().sortByColumn(2, Qt::AscendingOrder);
    QCOMPARE(desk.names().join(u' '), QStringLiteral("a c b"));
    desk.table().sortByColumn(0, Qt::AscendingOrder);
    QCOMPARE(desk.names().join(u' '), QStringLiteral("c b a"));
}

void tst_backupsDialog::damagedBackupCannotBeChosenForRestore()
{
    BackupsDesk desk;
    desk.damage(desk.backup);
    desk.list();
    QCOMPARE(desk.cards(), QStringList({QStringLiteral("not usable")}));
    QVERIFY(!desk.button("restoreBtn").isEnabled());
    QVERIFY(desk.button("deleteBtn").isEnabled());
    QVERIFY2(desk.status().startsWith(QStringLiteral("This backup cannot be restored. ")),
        qPrintable(desk.status()));
    QVERIFY2(desk.status().contains(desk.backup), qPrintable(desk.status()));
}

void tst_backupsDialog::dialogStaysOpenWhileABackupIsRestored()
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

void tst_backupsDialog::dialogCanBeClosedWhileItLooks()
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

void tst_backupsDialog::outcomeStaysUntilAnotherBackupIsChosen()
{
    BackupsDesk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    desk.press("restoreBtn");
    QVERIFY(!desk.status().isEmpty());
    desk.table().selectRow(desk.table().currentIndex().row() == 0 ? 1 : 0);
    QCOMPARE(desk.status(), QString());
}

void tst_backupsDialog::textsAreInTheLanguage_data()
{
    QTest::addColumn<bool>("isJapanese");
    QTest::addColumn<QString>("heading");
    QTest::newRow("English") << false << QStringLiteral("Made");
    QTest::newRow("Japanese") << true << QStringLiteral("作成日時");
}

void tst_backupsDialog::textsAreInTheLanguage()
{
    QFETCH(bool, isJapanese);
    BackupsDesk desk(isJapanese ? BackupsDesk::Language::Japanese : BackupsDesk::Language::English);
    desk.list();
    QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
    QTEST(desk.table().model()->headerData(0, Qt::Horizontal).toString(), "heading");
}

QTEST_MAIN(tst_backupsDialog)
#include "tst_backupsDialog.moc"
