// SPDX-License-Identifier: GPL-3.0-or-later
// The program as it is started from a desktop: on a screen with a window manager, in a process of
// its own.
#include "tests/app/VirtualDisplay.h"
#include "tests/support/TestHome.h"

#include <QTest>

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

    void windowAppearsWithTheFocus();
    void secondStartRaisesTheCoveredWindow();
    void secondStartRaisesTheMinimisedWindow();
    void secondStartEndsItsFeedback();
    void closeBoxEndsTheProgram();
    void endOfTheSessionEndsTheProgram();
    void vanishedDisplayEndsTheProgram();
    void startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow_data();
    void startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow();

private:
    QProcess& start(const QProcessEnvironment& environment);
    QProcess& start() { return start(_display->environment()); }
    void showFirstCopy();
    void startSecondCopy(const QProcessEnvironment& environment);
    void startSecondCopy() { startSecondCopy(_display->environment()); }

    const QString _title = QStringLiteral("VelmoraConverter");
    const QString _other = QStringLiteral("Another program");
    std::unique_ptr<TestHome> _home;
    std::unique_ptr<VirtualDisplay> _display;
    std::vector<std::unique_ptr<QProcess>> _copies;
};

QProcess& tst_runningCopy::start(const QProcessEnvironment& environment)
{
    _copies.push_back(std::make_unique<QProcess>());
    QProcess& copy = *_copies.back();
    copy.setProcessEnvironment(environment);
    copy.start(QStringLiteral(VELMORA_CONVERTER), {});
    return copy;
}

void tst_runningCopy::showFirstCopy()
{
    start();
    QTRY_COMPARE_WITH_TIMEOUT(_display->windows().activeTitle(), _title, patienceMs);
}

void tst_runningCopy::startSecondCopy(const QProcessEnvironment& environment)
{
    QProcess& second = start(environment);
    QVERIFY(second.waitForFinished(patienceMs));
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(second.readAllStandardError(), QByteArray());
}

void tst_runningCopy::windowAppearsWithTheFocus()
{
    showFirstCopy();
    QCOMPARE(_display->windows().titles(), QStringList(_title));
}

void tst_runningCopy::secondStartRaisesTheCoveredWindow()
{
    showFirstCopy();
    _display->windows().openOther(_other);
    QTRY_COMPARE(_display->windows().activeTitle(), _other);
    QCOMPARE(_display->windows().titles().last(), _other);

    startSecondCopy();
    QTRY_COMPARE(_display->windows().activeTitle(), _title);
    QTRY_COMPARE(_display->windows().titles(), QStringList({_other, _title}));
    // Stricter window managers than this one raise nothing else.
    QVERIFY(_display->windows().isWantedByUser(_title));
}

void tst_runningCopy::secondStartRaisesTheMinimisedWindow()
{
    showFirstCopy();
    _display->windows().openOther(_other);
    _display->windows().minimise(_title);
    QTRY_VERIFY(_display->windows().isMinimised(_title));

    startSecondCopy();
    QTRY_COMPARE(_display->windows().activeTitle(), _title);
    QVERIFY(!_display->windows().isMinimised(_title));
}

void tst_runningCopy::secondStartEndsItsFeedback()
{
    showFirstCopy();
    const QByteArray id = "launcher/VelmoraConverter/4711-0-host_TIME123456";
    QProcessEnvironment environment = _display->environment();
    environment.insert(QStringLiteral("DESKTOP_STARTUP_ID"), QString::fromLatin1(id));
    startSecondCopy(environment);
    QTRY_VERIFY(_display->windows().startFeedback().contains("remove: ID=" + id + '\0'));
}

void tst_runningCopy::closeBoxEndsTheProgram()
{
    showFirstCopy();
    _display->windows().askToClose(_title);
    QProcess& copy = *_copies.front();
    QVERIFY(copy.waitForFinished(patienceMs));
    QCOMPARE(copy.exitStatus(), QProcess::NormalExit);
    QCOMPARE(copy.readAllStandardError(), QByteArray());
    QCOMPARE(copy.exitCode(), 0);
}

void tst_runningCopy::endOfTheSessionEndsTheProgram()
{
    showFirstCopy();
    _copies.front()->terminate();
    QVERIFY(_copies.front()->waitForFinished(patienceMs));
    QCOMPARE(_copies.front()->exitStatus(), QProcess::NormalExit);
}

void tst_runningCopy::vanishedDisplayEndsTheProgram()
{
    showFirstCopy();
    _display->breakDown();
    QVERIFY(_copies.front()->waitForFinished(patienceMs));
    QCOMPARE(_copies.front()->exitStatus(), QProcess::NormalExit);
}

void tst_runningCopy::startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("expected");
    QTest::newRow("English") << QStringLiteral("C") << QStringLiteral("was not started");
    QTest::newRow("Japanese") << QStringLiteral("ja_JP.UTF-8")
                              << QStringLiteral("起動しませんでした");
}

void tst_runningCopy::startWithoutAMeetingPlaceSaysWhyAndShowsNoWindow()
{
    QFETCH(QString, language);
    QFETCH(QString, expected);
    QProcessEnvironment environment = _display->environment();
    const QString noFolder = _home->writeFile(QStringLiteral("file"), "");
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), noFolder);
    environment.insert(QStringLiteral("TMPDIR"), noFolder);
    environment.insert(QStringLiteral("LC_ALL"), language);
    QProcess& copy = start(environment);
    QVERIFY(copy.waitForFinished(patienceMs));
    QCOMPARE(copy.exitStatus(), QProcess::NormalExit);
    QCOMPARE(copy.exitCode(), 0);
    const QString errors = QString::fromUtf8(copy.readAllStandardError());
    QVERIFY2(errors.contains(expected), qPrintable(errors));
    QCOMPARE(_display->windows().titles(), QStringList());
}

QTEST_GUILESS_MAIN(tst_runningCopy)
#include "tst_runningCopy.moc"
