// SPDX-License-Identifier: GPL-3.0-or-later
// Tests "velmora-convert backups".
#include "carddb/DBCPackageCopy.h"
#include "tests/cli/ConvertProgram.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/PackageFixture.h"

#include <QDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString first = u"Velmora DB_bak.vmdb"_s;
const QString second = u"Velmora DB_bak1.vmdb"_s;
const QString third = u"Velmora DB_bak2.vmdb"_s;
const QString json = u"--json"_s;
const QString yes = u"--yes"_s;
const QString restore = u"--restore"_s;
const QString deletion = u"--delete"_s;

// A package with one card, a backup of it, and a damaged backup.
struct Desk {
    Desk()
    {
        backUp(first);
        QTest::qSleep(20); // so that the next backup, in a list sorted by time, is newer
        package.card();
        backUp(second);
        home.writeFile(second + u"/Velmora.sqldb"_s, "these are no cards");
    }
    void backUp(const QString& name) const
    {
        if (DBCPackageCopy().copy(package.path(), home.path(name))
            != DBCPackageCopy::Outcome::Copied)
            qFatal("no backup");
    }
    ProgramRun backups(const QStringList& options = {}) const
    {
        return program.run(QStringList({u"backups"_s, package.path()}) + options);
    }
    QStringList everything() const { return snapshotOf(home.path()).filter(u"vmdb"_s); }

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
        const QString date = u"\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d  "_s;
        QVERIFY(QRegularExpression(date + u"not usable  +[\\d.]+ KiB  "_s + second + u'$')
                    .match(lines.at(0))
                    .hasMatch());
        QVERIFY(lines.at(1).contains(desk.home.path(second)));
        QVERIFY(QRegularExpression(date + u"  Cards: 0  +[\\d.]+ KiB  "_s + first + u'$')
                    .match(lines.at(2))
                    .hasMatch());
        QCOMPARE(lines.at(0).indexOf(second), lines.at(2).indexOf(first));
        QVERIFY(lines.at(3).contains(desk.package.path()));
    }

    void listInJapaneseIsAlignedToo()
    {
        Desk desk;
        desk.program.language = u"ja_JP.UTF-8"_s;
        const QStringList lines = desk.backups().outputLines();
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines.at(0).contains(u"  使用不可  "_s));
        QVERIFY(lines.at(2).contains(u"  名刺: 0件  "_s));
    }

    void jsonOfTheList()
    {
        const Desk desk;
        const ProgramRun run = desk.backups({json});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.names(), (QStringList {u"backup"_s, u"backup"_s, u"result"_s}));
        const QJsonObject backup = run.object(u"backup"_s);
        QCOMPARE(backup.value(u"name").toString(), first);
        QCOMPARE(backup.value(u"path").toString(), desk.home.path(first));
        QCOMPARE(backup.value(u"cards").toInt(-1), 0);
        QVERIFY(backup.value(u"bytes").toInt() > 0);
        QVERIFY(backup.value(u"damage").isNull());
        const QDateTime date = QDateTime::fromString(backup.value(u"date").toString(), Qt::ISODate);
        QVERIFY(std::abs(date.secsTo(QDateTime::currentDateTime())) < 600);
        const QJsonObject damaged = run.objects().constFirst().value(u"backup"_s).toObject();
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
        const ProgramRun run = ConvertProgram(home).run({u"backups"_s, package.path()});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(run.output.contains(package.path()));
    }

    void neitherPackageNorBackupsIsRefused()
    {
        const TestHome home;
        const ProgramRun run = ConvertProgram(home).run({u"backups"_s, home.path(u"none.vmdb"_s)});
        QCOMPARE(run.exitCode, 3);
        QVERIFY(run.errors.contains(home.path(u"none.vmdb"_s)));
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
            (QStringList {u"question"_s, u"DBC_DatabaseBackupWillBeginNotification"_s,
                u"DBC_DatabaseBackupDidFinishedNotification"_s,
                u"DBC_DatabaseRestoreWillBeginNotification"_s,
                u"DBC_DatabaseRestoreDidFinishedNotification"_s, u"result"_s}));
        QCOMPARE(run.object(u"result"_s).value(u"backup").toString(), desk.home.path(third));
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
        const QString package = u"/none/Cards.vmdb"_s;
        QTest::newRow("no package") << QStringList {u"backups"_s};
        QTest::newRow("both") << QStringList {
            u"backups"_s, package, restore, first, deletion, second};
        QTest::newRow("twice") << QStringList {
            u"backups"_s, package, restore, first, restore, second};
        QTest::newRow("no name") << QStringList {u"backups"_s, package, restore};
        QTest::newRow("empty name") << QStringList {u"backups"_s, package, deletion, QString()};
        QTest::newRow("other command") << QStringList {u"verify"_s, package, restore, first};
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
