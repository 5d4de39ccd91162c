// SPDX-License-Identifier: GPL-3.0-or-later
// Tests a cancel while a conversion waits for something that would take very long: a measuring
// program that hangs, or a computation in the store. The cancel must end the conversion soon,
// whichever step waits, and leave the files as any other cancel does.
#include "tests/operation/ConversionWorld.h"

#include <QtTest>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

// This script replaces the program "du", which measures files and folders. It counts its calls in a
// file, and hangs in the call whose number is in the file "hangsAt".
constexpr const char* measuringThatHangs = R"script(#!/bin/sh
folder=${0%/*}
echo x >> "$folder/calls"
if [ "$(wc -l < "$folder/calls")" -eq "$(cat "$folder/hangsAt")" ]; then
    touch "$folder/hangs"
    sleep 60
fi
exec /usr/bin/du "$@"
)script";

struct SlowWorld : ConversionWorld {
    explicit SlowWorld(int hangsAt)
    {
        const QString program = home.writeFile(u"measuring/du"_s, measuringThatHangs);
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
        home.writeFile(u"measuring/hangsAt"_s, QByteArray::number(hangsAt));
        host->diskUsageProgram = program;
        presenter.answer = DBCAnswer::Default;
    }
    int calls() const { return static_cast<int>(home.readFile(u"measuring/calls"_s).count('x')); }
    bool convert(OperationType type)
    {
        return type == OperationType::Import ? importCards() : exportCards();
    }
    // Converts, and requests a cancel once the measuring hangs. Returns the milliseconds from the
    // request to the end of the conversion, or -1 if the measuring never hung. Sets isOk to the
    // result of the conversion.
    qint64 millisecondsToCancel(OperationType type, bool* isOk)
    {
        QElapsedTimer sinceCancel;
        std::atomic<bool> hasEnded = false;
        std::thread user([&] {
            while (!QFile::exists(home.path(u"measuring/hangs"_s))) {
                if (hasEnded)
                    return;
                QThread::msleep(5);
            }
            sinceCancel.start();
            controller->setConfirmCancelOperation(true);
        });
        *isOk = convert(type);
        hasEnded = true;
        user.join();
        return sinceCancel.isValid() ? sinceCancel.elapsed() : -1;
    }
};

} // namespace

Q_DECLARE_METATYPE(OperationType)

class tst_longWaits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cancelIsAnsweredWhileMeasuringHangs_data()
    {
        QTest::addColumn<OperationType>("type");
        QTest::addColumn<int>("hangsAt");
        for (const OperationType type : {OperationType::Import, OperationType::Export}) {
            SlowWorld world(0);
            world.convert(type);
            QVERIFY(world.calls() > 1);
            for (int call = 1; call <= world.calls(); ++call)
                QTest::addRow(
                    "%s, call %d", type == OperationType::Import ? "import" : "export", call)
                    << type << call;
        }
    }
    void cancelIsAnsweredWhileMeasuringHangs()
    {
        QFETCH(OperationType, type);
        QFETCH(int, hangsAt);
        SlowWorld world(hangsAt);
        const auto before = world.package.contents();
        bool isOk = false;
        const qint64 milliseconds = world.millisecondsToCancel(type, &isOk);

        constexpr qint64 oneSecondAndTheCleaningUp = 3000;
        QVERIFY2(milliseconds >= 0 && milliseconds < oneSecondAndTheCleaningUp,
            qPrintable(QString::number(milliseconds)));
        QVERIFY(isOk);
        QVERIFY(world.controller->isStopRunning());
        QCOMPARE(world.presenter.questions.size(), 1);
        QCOMPARE(world.presenter.numbers, QList<quint32>());
        QVERIFY2(!world.home.logText().contains(u"[Error]"_s), qPrintable(world.home.logText()));
        QCOMPARE(world.package.contents(), before);
        QVERIFY(!QFile::exists(world.backup()));
        if (type == OperationType::Export)
            QVERIFY(!QFile::exists(world.exported()));
    }

    void cancelIsAnsweredWhileTheStoreComputes()
    {
        SlowWorld world(0);
        world.package.execute(u"CREATE TRIGGER other AFTER INSERT ON ZCARD BEGIN UPDATE ZCARD "
                              "SET ZCOUNTRY = (SELECT count(*) FROM (WITH RECURSIVE c(n) AS "
                              "(SELECT 1 UNION ALL SELECT n + 1 FROM c) SELECT n FROM c)); END"_s);
        const auto before = world.package.contents();
        world.cancelAt(DBCEventName::ImportIsRunning, 3);
        QElapsedTimer timer;
        timer.start();

        QVERIFY(world.importCards());

        QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(world.controller->isStopRunning());
        QCOMPARE(world.presenter.numbers, QList<quint32>());
        QVERIFY2(!world.home.logText().contains(u"[Error]"_s), qPrintable(world.home.logText()));
        QCOMPARE(world.package.contents(), before);
        QVERIFY(!QFile::exists(world.backup()));
    }
};

QTEST_GUILESS_MAIN(tst_longWaits)
#include "tst_longWaits.moc"
