// SPDX-License-Identifier: GPL-3.0-or-later
// velmora-convert backups.
#include "carddb/DBCPackageCopy.h"
#include "tests/cli/ConvertProgram.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/PackageFixture.h"

#include <QDir>
#include <QtTest>

namespace {

const QString first = QStringLiteral("Velmora DB_bak.vmdb");
const QString second = QStringLiteral("Velmora DB_bak1.vmdb");
const QString third = QStringLiteral("Velmora DB_bak2.vmdb");
const QString json = QStringLiteral("--json");
const QString yes = QStringLiteral("--yes");
const QString restore = QStringLiteral("--restore");
const QString deletion = QStringLiteral("--delete");

// A package of a card, a backup of it, and a damaged one.
struct Desk {
    Desk()
    {
        backUp(first);
        QTest::qSleep(20); // past the kernel's tick: the list is in the order of time
        package.card();
        backUp(second);
        home.writeFile(second + QStringLiteral("/Velmora.sqldb"), "these are no cards");
    }
    void backUp(const QString& name) const
    {
        if (!DBCPackageCopy().copy(package.path(), home.path(name)))
            qFatal("no backup");
    }
    ProgramRun backups(const QStringList& options = {}) const
    {
        return program.run(QStringList({QStringLiteral("backups"), package.path()}) + options);
    }
    QStringList everything() const
    {
        return snapshotOf(home.path()).filter(QStringLiteral("vmdb"));
    }

    TestHome home;
    PackageFixture package {home};
    ConvertProgram program {home};
};

} // namespace

class tst_backupsCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listIsATable()
    {
        const Desk desk;
        const ProgramRun run = desk.backups();
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.errors.isEmpty());
        const QStringList lines = run.outputLines();
        QCOMPARE(lines.size(), 4);
        const QString date = QStringLiteral("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d  ");
        QVERIFY(
            QRegularExpression(date + QStringLiteral("not usable  +[\\d.]+ KiB  ") + second + u'$')
                .match(lines.at(0))
                .hasMatch());
        QVERIFY(lines.at(1).contains(desk.home.path(second)));
        QVERIFY(
            QRegularExpression(date + QStringLiteral("  Cards: 0  +[\\d.]+ KiB  ") + first + u'$')
                .match(lines.at(2))
                .hasMatch());
        QCOMPARE(lines.at(0).indexOf(second), lines.at(2).indexOf(first));
        QVERIFY(lines.at(3).contains(desk.package.path()));
    }

    void listInJapaneseIsAlignedToo()
    {
        Desk desk;
        desk.program.language = QStringLiteral("ja_JP.UTF-8");
        const QStringList lines = desk.backups().outputLines();
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines.at(0).contains(QStringLiteral("  使用不可  ")));
        QVERIFY(lines.at(2).contains(QStringLiteral("  名刺: 0件  ")));
    }

    void jsonOfTheList()
    {
        const Desk desk;
        const ProgramRun run = desk.backups({json});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.names(),
            (QStringList {
                QStringLiteral("backup"), QStringLiteral("backup"), QStringLiteral("result")}));
        const QJsonObject backup = run.object(QStringLiteral("backup"));
        QCOMPARE(backup.value(u"name").toString(), first);
        QCOMPARE(backup.value(u"path").toString(), desk.home.path(first));
        QCOMPARE(backup.value(u"cards").toInt(-1), 0);
        QVERIFY(backup.value(u"bytes").toInt() > 0);
        QVERIFY(backup.value(u"damage").isNull());
        const QDateTime date = QDateTime::fromString(backup.value(u"date").toString(), Qt::ISODate);
        QVERIFY(std::abs(date.secsTo(QDateTime::currentDateTime())) < 600);
        const QJsonObject damaged
            = run.objects().constFirst().value(QStringLiteral("backup")).toObject();
        QVERIFY(damaged.value(u"cards").isNull());
        QVERIFY(!damaged.value(u"damage").toString().isEmpty());
    }

    void listChangesNothing()
    {
        const Desk desk;
        const QStringList before = desk.everything();
        desk.backups();
        QCOMPARE(desk.everything(), before);
    }

    void packageWithoutBackupsIsDone()
    {
        const TestHome home;
        const PackageFixture package(home);
        const ProgramRun run
            = ConvertProgram(home).run({QStringLiteral("backups"), package.path()});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(package.path()));
    }

    void neitherPackageNorBackupsIsRefused()
    {
        const TestHome home;
        const ProgramRun run = ConvertProgram(home).run(
            {QStringLiteral("backups"), home.path(QStringLiteral("none.vmdb"))});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(home.path(QStringLiteral("none.vmdb"))));
    }

    void restoreReplacesThePackageAndKeepsIt()
    {
        const Desk desk;
        const QStringList chosen = snapshotOf(desk.home.path(first));
        const QStringList now = snapshotOf(desk.package.path());
        const ProgramRun run = desk.backups({restore, first, yes});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(snapshotOf(desk.package.path()), chosen);
        QCOMPARE(snapshotOf(desk.home.path(first)), chosen);
        QCOMPARE(snapshotOf(desk.home.path(third)), now);
        QVERIFY(run.output.contains(desk.home.path(third)));
    }

    void jsonOfARestore()
    {
        const Desk desk;
        const ProgramRun run = desk.backups({restore, first, yes, json});
        QCOMPARE(run.names(),
            (QStringList {QStringLiteral("question"),
                QStringLiteral("DBC_DatabaseBackupWillBeginNotification"),
                QStringLiteral("DBC_DatabaseBackupDidFinishedNotification"),
                QStringLiteral("DBC_DatabaseRestoreWillBeginNotification"),
                QStringLiteral("DBC_DatabaseRestoreDidFinishedNotification"),
                QStringLiteral("result")}));
        QCOMPARE(run.object(QStringLiteral("result")).value(u"backup").toString(),
            desk.home.path(third));
    }

    void withoutAnAnswerNothingIsRestoredOrDeleted_data()
    {
        QTest::addColumn<QString>("option");
        QTest::newRow("restore") << restore;
        QTest::newRow("delete") << deletion;
    }
    void withoutAnAnswerNothingIsRestoredOrDeleted()
    {
        QFETCH(QString, option);
        const Desk desk;
        const QStringList before = desk.everything();
        const ProgramRun run = desk.backups({option, first});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(yes));
        QVERIFY(run.errors.contains(first));
        QCOMPARE(desk.everything(), before);
    }

    void damagedBackupIsNotRestored()
    {
        const Desk desk;
        const QStringList before = desk.everything();
        const ProgramRun run = desk.backups({restore, second, yes});
        QCOMPARE(run.exitCode, 3);
        QCOMPARE(run.errors.count(desk.home.path(second) + u']'), 1);
        QCOMPARE(desk.everything(), before);
    }

    void deletedBackupIsGone()
    {
        const Desk desk;
        const QStringList kept = snapshotOf(desk.home.path(first));
        const ProgramRun run = desk.backups({deletion, second, yes});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!QFileInfo::exists(desk.home.path(second)));
        QCOMPARE(snapshotOf(desk.home.path(first)), kept);
    }

    void lastThingThatHoldsCardsIsNotDeleted()
    {
        const Desk desk;
        QVERIFY(QDir(desk.package.path()).removeRecursively());
        const ProgramRun run = desk.backups({deletion, first, yes});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(desk.home.path(first)));
        QVERIFY(QFileInfo::exists(desk.home.path(first)));
    }

    void wrongUsage_data()
    {
        QTest::addColumn<QStringList>("arguments");
        const QString package = QStringLiteral("/none/Cards.vmdb");
        QTest::newRow("no package") << QStringList {QStringLiteral("backups")};
        QTest::newRow("both") << QStringList {
            QStringLiteral("backups"), package, restore, first, deletion, second};
        QTest::newRow("twice") << QStringList {
            QStringLiteral("backups"), package, restore, first, restore, second};
        QTest::newRow("no name") << QStringList {QStringLiteral("backups"), package, restore};
        QTest::newRow("empty name")
            << QStringList {QStringLiteral("backups"), package, deletion, QString()};
        QTest::newRow("other command")
            << QStringList {QStringLiteral("verify"), package, restore, first};
    }
    void wrongUsage()
    {
        QFETCH(QStringList, arguments);
        const TestHome home;
        const ProgramRun run = ConvertProgram(home).run(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(!run.errors.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_backupsCommand)
#include "tst_backupsCommand.moc"
