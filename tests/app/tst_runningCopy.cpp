// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the program as a desktop starts it: in its own process, on a screen with a window manager.
#include "tests/app/VirtualDisplay.h"
#include "tests/support/TestHome.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 20'000;

} // namespace

class tst_runningCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        _home = std::make_unique<TestHome>();
        _display = std::make_unique<VirtualDisplay>();
    }
    void cleanup()
    {
        for (const auto& copy : _copies) {
            copy->terminate();
            copy->waitForFinished(patienceMs);
        }
        _copies.clear();
        _display.reset();
        _home.reset();
    }

    void windowAppearsWithTheFocus()
    {
        showFirstCopy();
        QCOMPARE(_display->windows().titles(), QStringList(_title));
    }

    void secondStartRaisesTheCoveredWindow()
    {
        showFirstCopy();
        _display->windows().openOther(_other);
        QTRY_COMPARE(_display->windows().activeTitle(), _other);
        QCOMPARE(_display->windows().titles().last(), _other);

        startSecondCopy();
        QTRY_COMPARE(_display->windows().activeTitle(), _title);
        QTRY_COMPARE(_display->windows().titles(), QStringList({_other, _title}));
        // Window managers that are stricter than the one of this test raise a window only after a
        // request in the name of the user.
        QVERIFY(_display->windows().isWantedByUser(_title));
    }

    void secondStartRaisesTheMinimisedWindow()
    {
        showFirstCopy();
        _display->windows().openOther(_other);
        _display->windows().minimise(_title);
        QTRY_VERIFY(_display->windows().isMinimised(_title));

        startSecondCopy();
        QTRY_COMPARE(_display->windows().activeTitle(), _title);
        QVERIFY(!_display->windows().isMinimised(_title));
    }

    void secondStartEndsItsFeedback()
    {
        showFirstCopy();
        const QByteArray id = "launcher/VelmoraConverter/4711-0-host_TIME123456";
        QProcessEnvironment environment = _display->environment();
        environment.insert(u"DESKTOP_STARTUP_ID"_s, QString::fromLatin1(id));
        startSecondCopy(environment);
        QTRY_VERIFY(_display->windows().startFeedback().contains("remove: ID=" + id + '\0'));
    }

    void closeBoxEndsTheProgram()
    {
        showFirstCopy();
        _display->windows().askToClose(_title);
        QProcess& copy = *_copies.front();
        QVERIFY(copy.waitForFinished(patienceMs));
        QCOMPARE(copy.exitStatus(), QProcess::NormalExit);
        QCOMPARE(copy.readAllStandardError(), QByteArray());
        QCOMPARE(copy.exitCode(), 0);
    }

    void endOfTheSessionEndsTheProgram()
    {
        showFirstCopy();
        _copies.front()->terminate();
        QVERIFY(_copies.front()->waitForFinished(patienceMs));
        QCOMPARE(_copies.front()->exitStatus(), QProcess::NormalExit);
    }

    void vanishedDisplayEndsTheProgram()
    {
        showFirstCopy();
        _display->breakDown();
        QVERIFY(_copies.front()->waitForFinished(patienceMs));
        QCOMPARE(_copies.front()->exitStatus(), QProcess::NormalExit);
    }

    void startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("expected");
        QTest::newRow("English") << u"C"_s << u"was not started"_s;
        QTest::newRow("Japanese") << u"ja_JP.UTF-8"_s << u"起動しませんでした"_s;
    }
    void startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow()
    {
        QFETCH(QString, language);
        QFETCH(QString, expected);
        QProcessEnvironment environment = _display->environment();
        const QString noFolder = _home->writeFile(u"file"_s, "");
        environment.insert(u"XDG_RUNTIME_DIR"_s, noFolder);
        environment.insert(u"TMPDIR"_s, noFolder);
        environment.insert(u"LC_ALL"_s, language);
        QProcess& copy = start(environment);
        QVERIFY(copy.waitForFinished(patienceMs));
        QCOMPARE(copy.exitStatus(), QProcess::NormalExit);
        QCOMPARE(copy.exitCode(), 0);
        const QString errors = QString::fromUtf8(copy.readAllStandardError());
        QVERIFY2(errors.contains(expected), qPrintable(errors));
        QCOMPARE(_display->windows().titles(), QStringList());
    }

private:
    QProcess& start(const QProcessEnvironment& environment)
    {
        _copies.push_back(std::make_unique<QProcess>());
        QProcess& copy = *_copies.back();
        copy.setProcessEnvironment(environment);
        copy.start(QStringLiteral(VELMORA_CONVERTER), {});
        return copy;
    }

    QProcess& start() { return start(_display->environment()); }
    void showFirstCopy()
    {
        start();
        QTRY_COMPARE_WITH_TIMEOUT(_display->windows().activeTitle(), _title, patienceMs);
    }

    void startSecondCopy(const QProcessEnvironment& environment)
    {
        QProcess& second = start(environment);
        QVERIFY(second.waitForFinished(patienceMs));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(second.readAllStandardError(), QByteArray());
    }

    void startSecondCopy() { startSecondCopy(_display->environment()); }

    const QString _title = u"VelmoraConverter"_s;
    const QString _other = u"Another program"_s;
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<VirtualDisplay> _display;
    std::vector<std::unique_ptr<QProcess>> _copies;
};

QTEST_GUILESS_MAIN(tst_runningCopy)
#include "tst_runningCopy.moc"
