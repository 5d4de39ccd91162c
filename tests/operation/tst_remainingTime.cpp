// SPDX-License-Identifier: GPL-3.0-or-later
#include "operation/messages/DBCRemainingTime.h"

#include <QTest>

class tst_remainingTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsToldBeforeTheStart()
    {
        QCOMPARE(DBCRemainingTime().seconds(50, 100), std::nullopt);
    }

    void nothingIsToldAtOnce()
    {
        QCOMPARE(DBCRemainingTime::secondsAfter(1999, 50, 100), std::nullopt);
        QCOMPARE(DBCRemainingTime::secondsAfter(60000, 0, 100), std::nullopt);
    }

    void halfWayTakesAsLongAgain()
    {
        QCOMPARE(DBCRemainingTime::secondsAfter(60000, 50, 100), std::optional<qint64>(60));
    }

    void begunSecondsCount()
    {
        QCOMPARE(DBCRemainingTime::secondsAfter(2000, 3, 4), std::optional<qint64>(1));
    }

    void lastCardLeavesNothing()
    {
        QCOMPARE(DBCRemainingTime::secondsAfter(60000, 100, 100), std::optional<qint64>(0));
    }
};

QTEST_APPLESS_MAIN(tst_remainingTime)
#include "tst_remainingTime.moc"
