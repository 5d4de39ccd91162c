// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the two requests to the desktop over the session bus: to keep the computer awake and to
// show a notification.
#include "app/desktop/DBCDesktopNotification.h"
#include "app/desktop/DBCSuspendInhibitor.h"
#include "operation/log/DBCSettings.h"
#include "tests/app/PrivateBus.h"
#include "tests/support/TestHome.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QFile>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString program = QString::fromLatin1(DBCSettings::bundleIdentifier);
const QString reason = u"Business cards are being converted."_s;

} // namespace

// Takes the place of the desktop's service that keeps the computer awake. The test decides how the
// service answers.
class FakeAwakeService : public QObject, protected QDBusContext {
    Q_OBJECT
public:
    QStringList held; // "program, reason" of each request that has not been taken back
    bool isSlow = false;

    void answerAtLast()
    {
        QDBusConnection(u"desktop"_s).send(_waiting->createReply(uint(held.size())));
    }
    bool isAsked() const { return _waiting.has_value(); }

protected:
    uint keep(const QString& text)
    {
        held << text;
        if (isSlow) {
            setDelayedReply(true);
            _waiting = message();
        }
        return uint(held.size());
    }
    void giveBack(uint number) { held[int(number) - 1].clear(); }

private:
    std::optional<QDBusMessage> _waiting;
};

class FakeSessionManager : public FakeAwakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")
public:
    uint lastFlags = 0;

public Q_SLOTS:
    uint Inhibit(const QString& name, uint /*window*/, const QString& text, uint flags)
    {
        lastFlags = flags;
        return keep(name + u", "_s + text);
    }
    void Uninhibit(uint number) { giveBack(number); }
};

class FakePowerManagement : public FakeAwakeService {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")
public Q_SLOTS:
    uint Inhibit(const QString& name, const QString& text) { return keep(name + u", "_s + text); }
    void UnInhibit(uint number) { giveBack(number); }
};

class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    QStringList capabilities;
    QStringList shown; // "number: title, text"
    QStringList actions; // of the last notification
    QVariantMap hints; // of the last notification
    uint lastReplaced = 0;

public Q_SLOTS:
    QStringList GetCapabilities() { return capabilities; }
    uint Notify(const QString& /*name*/, uint replaced, const QString& /*icon*/,
        const QString& title, const QString& text, const QStringList& offered,
        const QVariantMap& furtherHints, int /*milliseconds*/)
    {
        lastReplaced = replaced;
        actions = offered;
        hints = furtherHints;
        const uint number = replaced ? replaced : uint(shown.size()) + 41;
        shown << u"%1: %2, %3"_s.arg(QString::number(number), title, text);
        return number;
    }

Q_SIGNALS:
    void ActionInvoked(uint number, const QString& action);
    void ActivationToken(uint number, const QString& token);
};

class tst_sessionServices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        _home = std::make_unique<TestHome>();
        _bus = std::make_unique<PrivateBus>();
        QVERIFY(QDBusConnection::connectToBus(_bus->address(), u"desktop"_s).isConnected());
    }

    void cleanup()
    {
        for (const QString& service : std::exchange(_offered, {}))
            desktop().unregisterService(service);
        // The destructors of the former objects remove them from the bus.
        _sessionManager = std::make_unique<FakeSessionManager>();
        _powerManagement = std::make_unique<FakePowerManagement>();
        _notifications = std::make_unique<FakeNotifications>();
    }

    void cleanupTestCase()
    {
        QDBusConnection::disconnectFromBus(u"desktop"_s);
        _bus.reset();
        _home.reset();
    }

    void computerStaysAwakeWhileHeld_data()
    {
        QTest::addColumn<bool>("isSessionManager");
        QTest::newRow("session manager") << true;
        QTest::newRow("power management") << false;
    }
    void computerStaysAwakeWhileHeld()
    {
        QFETCH(bool, isSessionManager);
        FakeAwakeService* service = _powerManagement.get();
        if (isSessionManager) {
            service = _sessionManager.get();
            offerSessionManager();
        } else {
            offerPowerManagement();
        }
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        QTRY_COMPARE(service->held, QStringList(program + u", "_s + reason));
        inhibitor.release();
        QTRY_COMPARE(service->held, QStringList(QString()));
    }

    void sessionManagerIsAskedAgainstLogoutAndSuspend()
    {
        offerSessionManager();
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        constexpr uint logout = 1;
        constexpr uint suspend = 4;
        QTRY_COMPARE(_sessionManager->lastFlags, logout | suspend);
    }

    void everyServiceThereIsGetsAsked()
    {
        offerSessionManager();
        offerPowerManagement();
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        QTRY_COMPARE(_sessionManager->held.size(), 1);
        QTRY_COMPARE(_powerManagement->held.size(), 1);
    }

    void endOfTheHolderReleases()
    {
        offerSessionManager();
        auto inhibitor = std::make_unique<DBCSuspendInhibitor>();
        inhibitor->hold(reason);
        QTRY_COMPARE(_sessionManager->held.size(), 1);
        settle();
        inhibitor.reset();
        QTRY_COMPARE(_sessionManager->held, QStringList(QString()));
    }

    void holdingAgainLeavesOneWish()
    {
        offerSessionManager();
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(u"one"_s);
        inhibitor.hold(u"two"_s);
        QTRY_COMPARE(_sessionManager->held, QStringList({QString(), program + u", two"_s}));
    }

    void wishGrantedTooLateIsTakenBack()
    {
        offerSessionManager();
        _sessionManager->isSlow = true;
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        QTRY_VERIFY(_sessionManager->isAsked());
        inhibitor.release();
        _sessionManager->answerAtLast();
        QTRY_COMPARE(_sessionManager->held, QStringList(QString()));
    }

    void noteShowsTheTextsAsTheyAre_data()
    {
        QTest::addColumn<bool>("readsMarkup");
        QTest::addColumn<QString>("expected");
        QTest::newRow("server of plain texts") << false << u"41: Smith & Co, <3 cards> & 1"_s;
        QTest::newRow("server that reads markup")
            << true << u"41: Smith & Co, &lt;3 cards&gt; &amp; 1"_s;
    }
    void noteShowsTheTextsAsTheyAre()
    {
        QFETCH(bool, readsMarkup);
        QFETCH(QString, expected);
        offerNotifications();
        _notifications->capabilities << u"body"_s;
        if (readsMarkup)
            _notifications->capabilities << u"body-markup"_s;
        DBCDesktopNotification notification([](const QByteArray&) {});
        notification.show(u"Smith & Co"_s, u"<3 cards> & 1"_s);
        QTRY_COMPARE(_notifications->shown, QStringList(expected));
        QCOMPARE(_notifications->actions.value(0), u"default"_s);
        QCOMPARE(_notifications->hints.value(u"desktop-entry"_s).toString(), program);
    }

    void laterNoteTakesThePlaceOfTheFormer()
    {
        offerNotifications();
        DBCDesktopNotification notification([](const QByteArray&) {});
        notification.show(u"Import"_s, u"one"_s);
        QTRY_COMPARE(_notifications->shown.size(), 1);
        settle();
        notification.show(u"Import"_s, u"two"_s);
        QTRY_COMPARE(_notifications->shown.size(), 2);
        QCOMPARE(_notifications->lastReplaced, 41U);
    }

    void clickOnTheNotePassesTheDesktopsLeaveOn_data()
    {
        QTest::addColumn<QString>("token");
        QTest::newRow("a token") << u"gnome-shell-7"_s;
        QTest::newRow("no token") << QString();
    }
    void clickOnTheNotePassesTheDesktopsLeaveOn()
    {
        QFETCH(QString, token);
        offerNotifications();
        QByteArrayList clicks;
        DBCDesktopNotification notification([&](const QByteArray& leave) { clicks << leave; });
        // The test shows two notifications, because the second must not connect the click a second
        // time: one click would then be handled twice.
        for (const char* const text : {"one", "two"}) {
            notification.show(u"Import"_s, QString::fromLatin1(text));
            QTRY_VERIFY(_notifications->shown.value(_notifications->shown.size() - 1)
                            .endsWith(QString::fromLatin1(text)));
            settle();
        }
        if (!token.isEmpty())
            Q_EMIT _notifications->ActivationToken(41, token);
        Q_EMIT _notifications->ActionInvoked(41, u"default"_s);
        QTRY_COMPARE(clicks, QByteArrayList({token.toUtf8()}));
        settle();
        QCOMPARE(clicks.size(), 1);
    }

    void clickOnAnotherProgramsNoteIsNoneOfOurs()
    {
        offerNotifications();
        int clicks = 0;
        DBCDesktopNotification notification([&](const QByteArray&) { ++clicks; });
        notification.show(u"Import"_s, u"one"_s);
        QTRY_COMPARE(_notifications->shown.size(), 1);
        settle();
        Q_EMIT _notifications->ActionInvoked(40, u"default"_s);
        Q_EMIT _notifications->ActionInvoked(41, u"default"_s);
        QTRY_COMPARE(clicks, 1);
    }

    void serviceOfNotesIsStartedByTheFirstNote()
    {
        const QString sign = _home->path(u"started"_s);
        _bus->offerService(u"org.freedesktop.Notifications"_s, u"/usr/bin/touch "_s + sign);
        callBus(desktop(), "ReloadConfig");
        DBCDesktopNotification notification([](const QByteArray&) {});
        notification.show(u"Import"_s, u"one"_s);
        QTRY_VERIFY(QFile::exists(sign));
    }

    void withoutServicesNothingHappens()
    {
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        int clicks = 0;
        DBCDesktopNotification notification([&](const QByteArray&) { ++clicks; });
        notification.show(u"Import"_s, u"one"_s);
        settle();
        inhibitor.release();
        QCOMPARE(clicks, 0);
    }

    void withoutABusNothingHappens()
    {
        const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        const QByteArray runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(_home->path()));
        DBCSuspendInhibitor inhibitor;
        inhibitor.hold(reason);
        inhibitor.release();
        DBCDesktopNotification([](const QByteArray&) {}).show(u"Import"_s, u"one"_s);
        qputenv("XDG_RUNTIME_DIR", runtimeFolder);
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    }

private:
    QDBusConnection desktop() const { return QDBusConnection(u"desktop"_s); }
    static void callBus(const QDBusConnection& connection, const char* method)
    {
        const QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s,
            u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, QString::fromLatin1(method));
        QCOMPARE(connection.call(call).type(), QDBusMessage::ReplyMessage);
    }

    // Waits until all messages that were sent over the bus so far have arrived.
    void settle() const
    {
        callBus(desktop(), "GetId");
        callBus(QDBusConnection::sessionBus(), "GetId");
        QCoreApplication::processEvents();
    }

    void offer(const QString& service, const QString& path, QObject& object)
    {
        QVERIFY(desktop().registerObject(
            path, &object, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
        QVERIFY(desktop().registerService(service));
        _offered << service;
    }

    void offerSessionManager()
    {
        offer(u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s, *_sessionManager);
    }
    void offerPowerManagement()
    {
        offer(u"org.freedesktop.PowerManagement"_s, u"/org/freedesktop/PowerManagement/Inhibit"_s,
            *_powerManagement);
    }
    void offerNotifications()
    {
        offer(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
            *_notifications);
    }

    std::unique_ptr<TestHome> _home;
    std::unique_ptr<PrivateBus> _bus;
    QStringList _offered; // services
    std::unique_ptr<FakeSessionManager> _sessionManager = std::make_unique<FakeSessionManager>();
    std::unique_ptr<FakePowerManagement> _powerManagement = std::make_unique<FakePowerManagement>();
    std::unique_ptr<FakeNotifications> _notifications = std::make_unique<FakeNotifications>();
};

QTEST_GUILESS_MAIN(tst_sessionServices)
#include "tst_sessionServices.moc"
