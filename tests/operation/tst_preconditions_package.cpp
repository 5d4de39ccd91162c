// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the checks of the package before an operation.
#include "datafile/helpers/DBCLocalizable.h"
#include "tests/operation/PreconditionSituation.h"

#include <QScopeGuard>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(Situation&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class tst_preconditions_package : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void packagePathOf504BytesWithItsStoreIsTheLongest_data() { bothOperations(); }
    void packagePathOf504BytesWithItsStoreIsTheLongest()
    {
        QFETCH(OperationType, type);
        Situation situation(type);
        const qsizetype storeBytes = QByteArray("/Velmora.sqldb").size();
        for (const qsizetype bytes : {504, 505}) {
            const QString package = pathOfBytes(situation.home.path(), bytes - storeBytes);
            DBCPreconditions(situation.interchange, package, type)._vmdbPathCheck();
        }
        const quint32 missing = type == OperationType::Import ? 302 : 201;
        QCOMPARE(situation.presenter.numbers, (QList<quint32> {missing, 109}));
    }

    void packageMustBeAnExistingFolder_data()
    {
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<QString>("name");
        QTest::addColumn<quint32>("number");
        const QString missing = u"missing.vmdb"_s;
        const QString file = u"file.vmdb"_s;
        QTest::newRow("import missing") << OperationType::Import << missing << 302u;
        QTest::newRow("import file") << OperationType::Import << file << 302u;
        QTest::newRow("export missing") << OperationType::Export << missing << 201u;
        QTest::newRow("export file") << OperationType::Export << file << 201u;
    }
    void packageMustBeAnExistingFolder()
    {
        QFETCH(OperationType, type);
        QFETCH(QString, name);
        QFETCH(quint32, number);
        Situation situation(type);
        situation.home.writeFile(u"file.vmdb"_s, "x");
        situation.package = situation.home.path(name);
        QVERIFY(!situation.preconditions()._vmdbPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {number});
    }

    void packageOnTheNetworkIsRefusedBeforeAnyLockTest_data() { bothOperations(); }
    void packageOnTheNetworkIsRefusedBeforeAnyLockTest()
    {
        QFETCH(OperationType, type);
        Situation situation(type);
        const int holder = situation.lockPackage();
        const auto released = qScopeGuard([holder] { close(holder); });
        situation.mountOnNetwork(situation.package);
        situation.host.setFreeBytes(0);
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {105});
    }

    void importNeedsHalfAMegabyteBesideThePackage()
    {
        Situation situation(OperationType::Import);
        situation.host.setFreeBytes(margin - 1);
        QVERIFY(!situation.preconditions()._vmdbPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {301});
    }

    void exportNeedsNoSpaceBesideThePackage()
    {
        Situation situation(OperationType::Export);
        situation.host.setFreeBytes(0);
        QVERIFY(situation.preconditions()._vmdbPathCheck());
    }

    void unusablePackageIsRefusedForBoth_data() { bothOperations(); }
    void unusablePackageIsRefusedForBoth()
    {
        QFETCH(OperationType, type);
        Situation situation(type);
        const int holder = situation.lockPackage();
        const auto released = qScopeGuard([holder] { close(holder); });
        situation.host.makeReadOnly({situation.package + u"/Velmora.sqldb"_s});
        QVERIFY(!situation.preconditions()._vmdbPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {301});
    }

    void lockedPackageIsRefused_data()
    {
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<quint32>("number");
        QTest::newRow("import") << OperationType::Import << 304u;
        QTest::newRow("export") << OperationType::Export << 203u;
    }
    void lockedPackageIsRefused()
    {
        QFETCH(OperationType, type);
        QFETCH(quint32, number);
        Situation situation(type);
        const int holder = situation.lockPackage();
        QVERIFY(!situation.preconditions()._vmdbPathCheck());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {number});
        close(holder);
        QVERIFY(situation.preconditions()._vmdbPathCheck());
    }

    void logTellsWhyThePackageCannotBeUsed_data()
    {
        QTest::addColumn<Change>("change");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, const char* reason, Change change) {
            QTest::newRow(name) << std::move(change) << QString::fromLatin1(reason);
        };
        const auto store = [](const Situation& s) { return s.package + u"/Velmora.sqldb"_s; };
        row("no store", "IDS_LOG_ERR_PACKAGE_NO_STORE",
            [store](Situation& s) { QFile::remove(store(s)); });
        row("unreadable", "IDS_LOG_ERR_PACKAGE_UNREADABLE",
            [store](Situation& s) { s.host.makeUnreadable({store(s)}); });
        row("immutable", "IDS_LOG_ERR_PACKAGE_IMMUTABLE", [](Situation& s) {
            s.host->isImmutable = [](const QString&) { return std::optional(true); };
        });
        row("read-only", "IDS_LOG_ERR_PACKAGE_READ_ONLY",
            [store](Situation& s) { s.host.makeReadOnly({store(s)}); });
        row("read-only in part", "IDS_LOG_ERR_PACKAGE_ACCESS", [store](Situation& s) {
            s.home.makeFolder(u"cards.vmdb/Images"_s);
            s.host.makeReadOnly({store(s)});
        });
        row("attributes that cannot be read", "IDS_LOG_ERR_PACKAGE_ACCESS", [](Situation& s) {
            s.host->isImmutable = [](const QString&) { return std::optional<bool>(); };
        });
    }
    void logTellsWhyThePackageCannotBeUsed()
    {
        QFETCH(Change, change);
        QFETCH(QString, reason);
        Situation situation(OperationType::Import);
        change(situation);
        QVERIFY(!situation.check());
        QCOMPARE(situation.presenter.numbers, QList<quint32> {301});
        const QString line = getLocalString(reason, {situation.package});
        QVERIFY2(situation.home.logText().contains(line), qPrintable(line));
    }
};

QTEST_GUILESS_MAIN(tst_preconditions_package)
#include "tst_preconditions_package.moc"
