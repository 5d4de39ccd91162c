// SPDX-License-Identifier: GPL-3.0-or-later
#include "carddb/DBCPackageGuard.h"

#include "tests/support/AsOrdinaryUser.h"
#include "tests/support/FolderSnapshot.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/ScopedMode.h"

#include <QtTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using Use = DBCPackageGuard::Use;

class tst_packageGuard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneThatChangesIsAlone()
    {
        const TestHome home;
        const PackageFixture package(home);
        const auto changing = DBCPackageGuard::hold(package.path(), Use::Changing);
        QVERIFY(changing);
        QVERIFY(!DBCPackageGuard::hold(package.path(), Use::Changing));
        QVERIFY(!DBCPackageGuard::hold(package.path(), Use::Reading));
    }

    void oneThatReadsIsBesideOthersThatRead()
    {
        const TestHome home;
        const PackageFixture package(home);
        const auto reading = DBCPackageGuard::hold(package.path(), Use::Reading);
        QVERIFY(reading);
        QVERIFY(DBCPackageGuard::hold(package.path(), Use::Reading));
        QVERIFY(!DBCPackageGuard::hold(package.path(), Use::Changing));
    }

    void packageIsFreeWhenTheGuardIsGone()
    {
        const TestHome home;
        const PackageFixture package(home);
        DBCPackageGuard::hold(package.path(), Use::Changing).reset();
        QVERIFY(DBCPackageGuard::hold(package.path(), Use::Changing));
    }

    void guardLeavesNoTrace()
    {
        const TestHome home;
        const PackageFixture package(home);
        const QStringList before = snapshotOf(package.path());
        DBCPackageGuard::hold(package.path(), Use::Changing).reset();
        QCOMPARE(snapshotOf(package.path()), before);
    }

    void nobodyIsKeptOutWhereThereIsNoFolder()
    {
        const TestHome home;
        const QString none = home.path(u"none.vmdb"_s);
        QVERIFY(DBCPackageGuard::hold(none, Use::Changing));
        const QString file = home.writeFile(u"file.vmdb"_s, "x");
        const auto first = DBCPackageGuard::hold(file, Use::Changing);
        QVERIFY(DBCPackageGuard::hold(file, Use::Changing));
    }

    void nobodyIsKeptOutOfAFolderThatCannotBeOpened()
    {
        const AsOrdinaryUser user;
        const TestHome home;
        const PackageFixture package(home);
        const ScopedMode mode(package.path(), 0);
        QVERIFY(DBCPackageGuard::hold(package.path(), Use::Reading));
    }
};

QTEST_GUILESS_MAIN(tst_packageGuard)
#include "tst_packageGuard.moc"
