// SPDX-License-Identifier: GPL-3.0-or-later
// Restores and deletes backups in the dialog, and checks the package and its backups afterwards.
#include "carddb/DBCPackageGuard.h"
#include "carddb/DBCPackageJournal.h"
#include "tests/app/BackupsDesk.h"

#include <QDir>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class tst_backupsChanged : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void restoreIsAskedFor()
    {
        BackupsDesk desk;
        desk.list();
        const QStringList before = desk.everything().filter(u"vmdb"_s);
        desk.press("restoreBtn");
        QCOMPARE(desk.presenter.questions.size(), 1);
        QCOMPARE(desk.presenter.questions.constFirst().key,
            DBCMessage::keyOf(DBCQuestionId::RestoreBackup));
        QVERIFY(desk.presenter.questions.constFirst().text.contains(desk.first));
        QCOMPARE(desk.everything().filter(u"vmdb"_s), before);
        QCOMPARE(desk.status(), QString());
    }

    void restoreReplacesThePackageAndKeepsIt()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        const QSignalSpy ends(desk.dialog.get(), &DBCBackupsDialog::changeDidEnd);
        desk.press("restoreBtn");
        QCOMPARE(snapshotOf(desk.package.path()), desk.chosen);
        QCOMPARE(snapshotOf(desk.backup), desk.chosen);
        QCOMPARE(snapshotOf(desk.home.path(desk.second)), desk.now);
        QVERIFY2(desk.status().contains(desk.first), qPrintable(desk.status()));
        QVERIFY2(desk.status().contains(desk.home.path(desk.second)), qPrintable(desk.status()));
        QCOMPARE(desk.names().size(), 2);
        QCOMPARE(ends.size(), 1);
        QCOMPARE(ends.constFirst().constFirst().toBool(), true);
        QVERIFY(desk.home.logText().contains(desk.first));
    }

    void restoreTellsItsStages()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        // A restore checks the access rights when it begins, and again after it has backed up the
        // package. Each check calls this function, which notes the stage that the dialog shows.
        QStringList stages;
        desk.host->isWritable = [&](const QString&) {
            QMetaObject::invokeMethod(
                desk.dialog.get(), [&] { stages << desk.status(); }, Qt::BlockingQueuedConnection);
            return true;
        };
        desk.press("restoreBtn");
        QCOMPARE(stages.constFirst(), u"The backup [%1] is being read."_s.arg(desk.first));
        QVERIFY2(stages.contains(u"Restore of the card database is running."_s),
            qPrintable(stages.join(u'|')));
    }

    void damageOfTheLastMomentIsRefused()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        desk.damage(desk.backup);
        desk.press("restoreBtn");
        QCOMPARE(desk.presenter.questions.size(), 0);
        QCOMPARE(snapshotOf(desk.package.path()), desk.now);
        QVERIFY(!QFileInfo::exists(desk.home.path(desk.second)));
        QVERIFY2(desk.status().contains(u"cannot be restored, so nothing was changed"_s),
            qPrintable(desk.status()));
    }

    void packageInUseIsRefused()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        const auto conversion
            = DBCPackageGuard::hold(desk.package.path(), DBCPackageGuard::Use::Changing);
        desk.press("restoreBtn");
        QCOMPARE(snapshotOf(desk.package.path()), desk.now);
        QVERIFY2(desk.status().contains(u"in use"_s), qPrintable(desk.status()));
    }

    void deletionIsAskedFor()
    {
        BackupsDesk desk;
        desk.list();
        desk.press("deleteBtn");
        QCOMPARE(desk.presenter.questions.size(), 1);
        QCOMPARE(desk.presenter.questions.constFirst().key,
            DBCMessage::keyOf(DBCQuestionId::DeleteBackup));
        QCOMPARE(snapshotOf(desk.backup), desk.chosen);
    }

    void deleteRemovesTheBackup()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        const QSignalSpy ends(desk.dialog.get(), &DBCBackupsDialog::changeDidEnd);
        desk.press("deleteBtn");
        QVERIFY(!QFileInfo::exists(desk.backup));
        QCOMPARE(snapshotOf(desk.package.path()), desk.now);
        QCOMPARE(desk.status(), u"The backup [%1] has been deleted."_s.arg(desk.first));
        QVERIFY(desk.control<QLabel>("none").isVisible());
        QCOMPARE(ends.constFirst().constFirst().toBool(), false);
    }

    void deleteKeyAsksToo()
    {
        BackupsDesk desk;
        desk.list();
        QTest::keyClick(&desk.table(), Qt::Key_Delete);
        QTRY_VERIFY(desk.isIdle());
        QCOMPARE(desk.presenter.questions.size(), 1);
    }

    void lastThingThatHoldsCardsStays()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.damage(desk.package.path());
        desk.list();
        desk.press("deleteBtn");
        QCOMPARE(snapshotOf(desk.backup), desk.chosen);
        QVERIFY2(desk.status().contains(u"was not deleted"_s), qPrintable(desk.status()));
    }

    void backupThatIsGoneIsTold()
    {
        BackupsDesk desk;
        desk.presenter.answer = DBCAnswer::Default;
        desk.list();
        QVERIFY(QDir(desk.backup).removeRecursively());
        desk.press("restoreBtn");
        QVERIFY2(desk.status().startsWith(u"There is no backup named [%1]"_s.arg(desk.first)),
            qPrintable(desk.status()));
        QCOMPARE(snapshotOf(desk.package.path()), desk.now);
    }

    void unfinishedImportIsSettledFirst()
    {
        BackupsDesk desk;
        {
            const auto journal = DBCPackageJournal::begin(desk.package.path(), desk.backup);
            QVERIFY(journal->enterImport(u"NEW-"_s));
        }
        desk.presenter.answer = DBCAnswer::Alternate; // keep the package as it is
        desk.list();
        desk.press("restoreBtn");
        QCOMPARE(desk.presenter.questions.size(), 2);
        QCOMPARE(desk.presenter.questions.constFirst().key,
            DBCMessage::keyOf(DBCQuestionId::SettleChangedPackage));
        QVERIFY(!desk.hasJournal());
    }
};

QTEST_MAIN(tst_backupsChanged)
#include "tst_backupsChanged.moc"
