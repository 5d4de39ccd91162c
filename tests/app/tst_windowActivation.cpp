// SPDX-License-Identifier: GPL-3.0-or-later
// Tests how the desktop's permission to take the focus gets from a start to the window. The
// reaction of a window manager is tested in tst_runningCopy.
#include "app/desktop/DBCWindowActivation.h"

#include <QTest>
#include <QWidget>

class tst_windowActivation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DESKTOP_STARTUP_ID");
    }

    void startHasTheTokenOfItsDesktop_data()
    {
        QTest::addColumn<QByteArray>("activation");
        QTest::addColumn<QByteArray>("startup");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("none") << QByteArray() << QByteArray() << QByteArray();
        QTest::newRow("Wayland") << QByteArray("token") << QByteArray() << QByteArray("token");
        QTest::newRow("X11") << QByteArray() << QByteArray("id_TIME1") << QByteArray("id_TIME1");
        QTest::newRow("both") << QByteArray("token") << QByteArray("id_TIME1")
                              << QByteArray("token");
    }
    void startHasTheTokenOfItsDesktop()
    {
        QFETCH(QByteArray, activation);
        QFETCH(QByteArray, startup);
        if (!activation.isEmpty())
            qputenv("XDG_ACTIVATION_TOKEN", activation);
        if (!startup.isEmpty())
            qputenv("DESKTOP_STARTUP_ID", startup);
        QTEST(activationTokenOfStart(), "expected");
    }

    void minimisedWindowComesBackAsItWas_data()
    {
        QTest::addColumn<bool>("isMaximised");
        QTest::newRow("normal") << false;
        QTest::newRow("maximised") << true;
    }
    void minimisedWindowComesBackAsItWas()
    {
        QFETCH(bool, isMaximised);
        QWidget window;
        window.setWindowState(isMaximised ? Qt::WindowMaximized : Qt::WindowNoState);
        window.show();
        window.setWindowState(window.windowState() | Qt::WindowMinimized);
        bringToFront(window, {});
        QVERIFY(!window.isMinimized());
        QCOMPARE(window.isMaximized(), isMaximised);
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    void hiddenWindowAppears()
    {
        QWidget window;
        bringToFront(window, {});
        QVERIFY(window.isVisible());
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    void toolkitGetsTheToken()
    {
        QWidget window;
        bringToFront(window, "token");
        QCOMPARE(qgetenv("XDG_ACTIVATION_TOKEN"), QByteArray("token"));
    }

    void withoutATokenTheToolkitKeepsItsOwn()
    {
        qputenv("XDG_ACTIVATION_TOKEN", "own");
        QWidget window;
        bringToFront(window, {});
        QCOMPARE(qgetenv("XDG_ACTIVATION_TOKEN"), QByteArray("own"));
    }
};

QTEST_MAIN(tst_windowActivation)
#include "tst_windowActivation.moc"
