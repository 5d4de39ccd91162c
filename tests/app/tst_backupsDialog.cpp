// SPDX-License-Identifier: GPL-3.0-or-later
// The list of backups: what it says of each, and what becomes of package and backups when one is
// restored or deleted.
#include "app/DBCBackupsDialog.h"

#include "carddb/DBCImportJournal.h"
#include "carddb/DBCPackageGuard.h"
#include "operation/DBCLog.h"
#include "tests/app/DialogTexts.h"
#include "tests/carddb/BackupFixture.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/ScopedHost.h"

#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QTimer>

namespace {

using Language = DBCLocalizable::Language;

const QString first = QStringLiteral("Velmora DB_bak.vmdb");
const QString second = QStringLiteral("Velmora DB_bak1.vmdb");

// A package of three live cards, and a backup of it from when it had two.
struct Desk : BackupFixture {
    explicit Desk(Language language = Language::English)
    {
        backup = backUp(first);
        chosen = snapshotOf(backup);
        package.card();
        now = snapshotOf(package.path());
        DBCLocalizable::setLanguage(language);
        dialog = std::make_unique<DBCBackupsDialog>(nullptr);
    }
    ~Desk() { gate.release(1000); }

    void list()
    {
        dialog->showBackupsOf(package.path());
        QTRY_VERIFY(isIdle());
    }
    bool isIdle() const { return !control<QProgressBar>("bar").isVisible(); }
    void press(const char* name)
    {
        button(name).click();
        QTRY_VERIFY(isIdle());
    }
    // A restore waits where it looks for free space, until the gate is opened.
    void closeGate()
    {
        host->freeBytes = [this](const QString&) {
            reached.release();
            gate.acquire();
            return std::optional<quint64>(quint64(1) << 40);
        };
    }

    template <typename Control> Control& control(const char* name) const
    {
        return *dialog->findChild<Control*>(QLatin1StringView(name));
    }
    QPushButton& button(const char* name) const { return control<QPushButton>(name); }
    QTableView& table() const { return control<QTableView>("table"); }
    QStringList column(int column) const
    {
        QStringList cells;
        for (int row = 0; row < table().model()->rowCount(); ++row)
            cells << table().model()->index(row, column).data().toString();
        return cells;
    }
    QStringList cards() const { return column(1); }
    QStringList names() const { return column(3); }
    QString summary() const { return control<QLabel>("summary").accessibleName(); }
    QString status() const { return control<QLabel>("status").accessibleName(); }

    ScopedHost host;
    RecordingPresenter presenter;
    QString backup;
    QStringList chosen;
    QStringList now;
    QSemaphore reached;
    QSemaphore gate;
    std::unique_ptr<DBCBackupsDialog> dialog;
};

} // namespace

class tst_backupsDialog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void backupsAreListedNewestFirst();
    void packageWithoutBackupsIsTold();
    void folderThatCannotBeReadIsTold();
    void numbersAndDatesAreSortedAsSuch();
    void restoreIsAskedFor();
    void restoreReplacesThePackageAndKeepsIt();
    void restoreTellsItsStages();
    void damagedBackupCannotBeChosenForRestore();
    void damageOfTheLastMomentIsRefused();
    void packageInUseIsRefused();
    void deletionIsAskedFor();
    void deleteRemovesTheBackup();
    void deleteKeyAsksToo();
    void lastThingThatHoldsCardsStays();
    void backupThatIsGoneIsTold();
    void dialogStaysOpenWhileABackupIsRestored();
    void dialogCanBeClosedWhileItLooks();
    void outcomeStaysUntilAnotherBackupIsChosen();
    void unfinishedImportIsSettledFirst();
    void textsAreInTheLanguage_data();
    void textsAreInTheLanguage();
};

void tst_backupsDialog::backupsAreListedNewestFirst()
{
    Desk desk;
    QTest::qSleep(20); // past the kernel's tick
    desk.backUp(second);
    desk.list();
    QCOMPARE(desk.names(), QStringList({second, first}));
    QCOMPARE(desk.cards(), QStringList({QStringLiteral("3"), QStringLiteral("2")}));
    QVERIFY(desk.column(0).constFirst().startsWith(QString::number(QDate::currentDate().year())));
    QVERIFY(desk.column(2).constFirst().endsWith(QStringLiteral("iB")));
    QCOMPARE(desk.summary(),
        QStringLiteral("Backups of the card database [%1]: 2").arg(desk.package.path()));
    QVERIFY(desk.table().isVisible());
}

void tst_backupsDialog::packageWithoutBackupsIsTold()
{
    Desk desk;
    QVERIFY(QDir(desk.backup).removeRecursively());
    desk.list();
    QVERIFY(desk.control<QLabel>("none").isVisible());
    QVERIFY(!desk.table().isVisible());
    QVERIFY(!desk.button("restoreBtn").isEnabled());
    QVERIFY(!desk.button("deleteBtn").isEnabled());
}

void tst_backupsDialog::folderThatCannotBeReadIsTold()
{
    const Desk desk;
    desk.dialog->showBackupsOf(desk.home.path(QStringLiteral("nowhere/Cards.vmdb")));
    QTRY_VERIFY(desk.isIdle());
    QVERIFY2(desk.summary().contains(desk.home.path(QStringLiteral("nowhere"))),
        qPrintable(desk.summary()));
    QVERIFY(!desk.control<QLabel>("none").isVisible());
}

void tst_backupsDialog::numbersAndDatesAreSortedAsSuch()
{
    const Desk desk;
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

void tst_backupsDialog::restoreIsAskedFor()
{
    Desk desk;
    desk.list();
    const QStringList before = desk.everything().filter(QStringLiteral("vmdb"));
    desk.press("restoreBtn");
    QCOMPARE(desk.presenter.questions.size(), 1);
    QCOMPARE(desk.presenter.questions.constFirst().key, QStringLiteral("IDS_MSG_BACKUP_RESTORE"));
    QVERIFY(desk.presenter.questions.constFirst().text.contains(first));
    QCOMPARE(desk.everything().filter(QStringLiteral("vmdb")), before);
    QCOMPARE(desk.status(), QString());
}

void tst_backupsDialog::restoreReplacesThePackageAndKeepsIt()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    const QSignalSpy ends(desk.dialog.get(), &DBCBackupsDialog::changeDidEnd);
    desk.press("restoreBtn");
    QCOMPARE(snapshotOf(desk.package.path()), desk.chosen);
    QCOMPARE(snapshotOf(desk.backup), desk.chosen);
    QCOMPARE(snapshotOf(desk.home.path(second)), desk.now);
    QVERIFY2(desk.status().contains(first), qPrintable(desk.status()));
    QVERIFY2(desk.status().contains(desk.home.path(second)), qPrintable(desk.status()));
    QCOMPARE(desk.names().size(), 2);
    QCOMPARE(ends.size(), 1);
    QCOMPARE(ends.constFirst().constFirst().toBool(), true);
    QVERIFY(desk.home.logText().contains(first));
}

void tst_backupsDialog::restoreTellsItsStages()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    QStringList stages;
    const auto* const status = &desk.control<QLabel>("status");
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        if (stages.isEmpty() || stages.constLast() != status->accessibleName())
            stages << status->accessibleName();
    });
    look.start(0);
    desk.press("restoreBtn");
    QVERIFY2(stages.contains(QStringLiteral("Restore of the card database is running.")),
        qPrintable(stages.join(u'|')));
}

void tst_backupsDialog::damagedBackupCannotBeChosenForRestore()
{
    Desk desk;
    desk.damage(desk.backup);
    desk.list();
    QCOMPARE(desk.cards(), QStringList({QStringLiteral("not usable")}));
    QVERIFY(!desk.button("restoreBtn").isEnabled());
    QVERIFY(desk.button("deleteBtn").isEnabled());
    QVERIFY2(desk.status().startsWith(QStringLiteral("This backup cannot be restored. ")),
        qPrintable(desk.status()));
    QVERIFY2(desk.status().contains(desk.backup), qPrintable(desk.status()));
}

void tst_backupsDialog::damageOfTheLastMomentIsRefused()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    desk.damage(desk.backup);
    desk.press("restoreBtn");
    QCOMPARE(desk.presenter.questions.size(), 0);
    QCOMPARE(snapshotOf(desk.package.path()), desk.now);
    QVERIFY(!QFileInfo::exists(desk.home.path(second)));
    QVERIFY2(desk.status().contains(QStringLiteral("cannot be restored, so nothing was changed")),
        qPrintable(desk.status()));
}

void tst_backupsDialog::packageInUseIsRefused()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    const auto conversion
        = DBCPackageGuard::hold(desk.package.path(), DBCPackageGuard::Use::Changing);
    desk.press("restoreBtn");
    QCOMPARE(snapshotOf(desk.package.path()), desk.now);
    QVERIFY2(desk.status().contains(QStringLiteral("in use")), qPrintable(desk.status()));
}

void tst_backupsDialog::deletionIsAskedFor()
{
    Desk desk;
    desk.list();
    desk.press("deleteBtn");
    QCOMPARE(desk.presenter.questions.size(), 1);
    QCOMPARE(desk.presenter.questions.constFirst().key, QStringLiteral("IDS_MSG_BACKUP_DELETE"));
    QCOMPARE(snapshotOf(desk.backup), desk.chosen);
}

void tst_backupsDialog::deleteRemovesTheBackup()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    const QSignalSpy ends(desk.dialog.get(), &DBCBackupsDialog::changeDidEnd);
    desk.press("deleteBtn");
    QVERIFY(!QFileInfo::exists(desk.backup));
    QCOMPARE(snapshotOf(desk.package.path()), desk.now);
    QCOMPARE(desk.status(), QStringLiteral("The backup [%1] has been deleted.").arg(first));
    QVERIFY(desk.control<QLabel>("none").isVisible());
    QCOMPARE(ends.constFirst().constFirst().toBool(), false);
}

void tst_backupsDialog::deleteKeyAsksToo()
{
    Desk desk;
    desk.list();
    QTest::keyClick(&desk.table(), Qt::Key_Delete);
    QTRY_VERIFY(desk.isIdle());
    QCOMPARE(desk.presenter.questions.size(), 1);
}

void tst_backupsDialog::lastThingThatHoldsCardsStays()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.damage(desk.package.path());
    desk.list();
    desk.press("deleteBtn");
    QCOMPARE(snapshotOf(desk.backup), desk.chosen);
    QVERIFY2(desk.status().contains(QStringLiteral("was not deleted")), qPrintable(desk.status()));
}

void tst_backupsDialog::backupThatIsGoneIsTold()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    QVERIFY(QDir(desk.backup).removeRecursively());
    desk.press("restoreBtn");
    QVERIFY2(desk.status().startsWith(QStringLiteral("There is no backup named [%1]").arg(first)),
        qPrintable(desk.status()));
    QCOMPARE(snapshotOf(desk.package.path()), desk.now);
}

void tst_backupsDialog::dialogStaysOpenWhileABackupIsRestored()
{
    Desk desk;
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
    Desk desk;
    desk.dialog->showBackupsOf(desk.package.path());
    desk.dialog->reject();
    QVERIFY(!desk.dialog->isVisible());
    QTest::qWait(50);
    QCOMPARE(desk.names(), QStringList());
    desk.list();
    QCOMPARE(desk.names(), QStringList({first}));
}

void tst_backupsDialog::outcomeStaysUntilAnotherBackupIsChosen()
{
    Desk desk;
    desk.presenter.answer = DBCAnswer::Default;
    desk.list();
    desk.press("restoreBtn");
    QVERIFY(!desk.status().isEmpty());
    desk.table().selectRow(desk.table().currentIndex().row() == 0 ? 1 : 0);
    QCOMPARE(desk.status(), QString());
}

void tst_backupsDialog::unfinishedImportIsSettledFirst()
{
    Desk desk;
    {
        const auto journal = DBCImportJournal::begin(desk.package.path(), desk.backup);
        QVERIFY(journal->enterImport(QStringLiteral("NEW-")));
    }
    desk.presenter.answer = DBCAnswer::Alternate; // keep what is there, restore nothing
    desk.list();
    desk.press("restoreBtn");
    QCOMPARE(desk.presenter.questions.size(), 2);
    QCOMPARE(
        desk.presenter.questions.constFirst().key, QStringLiteral("IDS_MSG_UNFINISHED_IMPORT"));
    QVERIFY(!desk.hasJournal());
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
    Desk desk(isJapanese ? Language::Japanese : Language::English);
    desk.list();
    QCOMPARE(faultsOfTexts(*desk.dialog), QStringList());
    QTEST(desk.table().model()->headerData(0, Qt::Horizontal).toString(), "heading");
}

QTEST_MAIN(tst_backupsDialog)
#include "tst_backupsDialog.moc"
