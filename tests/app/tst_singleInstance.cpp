// SPDX-License-Identifier: GPL-3.0-or-later
// Tests which of several copies of the program runs on, and what the other copies tell it.
#include "app/desktop/DBCSingleInstance.h"

#include "tests/support/TestHome.h"

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <future>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Role = DBCSingleInstance::Role;

constexpr QFile::Permissions ownersRights = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr QFile::Permissions othersRights = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
    | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

// Lets another thread of this process play another copy of the program that starts meanwhile.
std::future<Role> startedMeanwhile(const QString& folder, const QByteArray& token = {})
{
    return std::async(std::launch::async, [=] { return DBCSingleInstance(folder).claim(token); });
}

bool hasEnded(const std::future<Role>& start)
{
    return start.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
}

} // namespace

class tst_singleInstance : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { _home = std::make_unique<TestHome>(); }
    void cleanup()
    {
        qunsetenv("DISPLAY");
        qunsetenv("WAYLAND_DISPLAY");
        _home.reset();
    }

    void onlyStartIsTheFirst()
    {
        DBCSingleInstance only(folder());
        QCOMPARE(only.claim({}), Role::First);
    }

    void secondStartHandsItsTokenToTheFirst_data()
    {
        QTest::addColumn<QByteArray>("token");
        QTest::newRow("a token") << QByteArray("kwin-17_TIME4711");
        QTest::newRow("no token") << QByteArray();
    }
    void secondStartHandsItsTokenToTheFirst()
    {
        QFETCH(QByteArray, token);
        DBCSingleInstance first(folder());
        QCOMPARE(first.claim({}), Role::First);
        const QSignalSpy raises(&first, &DBCSingleInstance::raiseRequested);
        auto second = startedMeanwhile(folder(), token);
        QTRY_VERIFY(hasEnded(second));
        QCOMPARE(second.get(), Role::Second);
        QCOMPARE(raises.size(), 1);
        QCOMPARE(raises.first().first().toByteArray(), token);
    }

    void eachFurtherStartReachesTheFirst()
    {
        DBCSingleInstance first(folder());
        QCOMPARE(first.claim({}), Role::First);
        const QSignalSpy raises(&first, &DBCSingleInstance::raiseRequested);
        for (int count = 1; count <= 3; ++count) {
            auto further = startedMeanwhile(folder());
            QTRY_VERIFY(hasEnded(further));
            QCOMPARE(further.get(), Role::Second);
            QCOMPARE(raises.size(), count);
        }
    }

    void startAfterTheEndOfTheFirstIsTheFirst()
    {
        auto former = std::make_unique<DBCSingleInstance>(folder());
        QCOMPARE(former->claim({}), Role::First);
        former.reset();
        DBCSingleInstance next(folder());
        QCOMPARE(next.claim({}), Role::First);
    }

    void firstThatEndsMeanwhileIsSucceeded()
    {
        auto ending = std::make_unique<DBCSingleInstance>(folder());
        QCOMPARE(ending->claim({}), Role::First);
        // The first copy does not answer, because its event loop is not running.
        auto next = startedMeanwhile(folder());
        QTest::qSleep(200);
        QVERIFY(!hasEnded(next));
        ending.reset();
        QCOMPARE(next.get(), Role::First);
    }

    // The first copy holds the lock, but its socket cannot be found yet: the second copy must wait.
    void firstThatBeginsMeanwhileIsFound()
    {
        DBCSingleInstance first(folder());
        QCOMPARE(first.claim({}), Role::First);
        const QString socket = fileIn(_anySocket);
        const QString meanwhile = _home->path(u"not-there-yet"_s);
        QVERIFY(QFile::rename(socket, meanwhile));
        auto second = startedMeanwhile(folder());
        QTest::qSleep(200);
        QVERIFY(!hasEnded(second));
        QVERIFY(QFile::rename(meanwhile, socket));
        QTRY_VERIFY(hasEnded(second));
        QCOMPARE(second.get(), Role::Second);
    }

    void crashedCopyLeavesNothingInTheWay()
    {
        const auto crashing = startProgram();
        QTRY_VERIFY(!fileIn(_anySocket).isEmpty());
        QVERIFY(!fileIn(u"*.lock"_s).isEmpty());
        crashing->kill();
        QVERIFY(crashing->waitForFinished());
        QVERIFY(!fileIn(u"*.lock"_s).isEmpty());

        DBCSingleInstance next(folder());
        QCOMPARE(next.claim({}), Role::First);
        const QSignalSpy raises(&next, &DBCSingleInstance::raiseRequested);
        auto second = startedMeanwhile(folder());
        QTRY_COMPARE(raises.size(), 1);
        QCOMPARE(second.get(), Role::Second);
    }

    void silentFirstLeavesItUndetermined()
    {
        DBCSingleInstance silent(folder());
        QCOMPARE(silent.claim({}), Role::First);
        QCOMPARE(DBCSingleInstance(folder()).claim({}), Role::Undetermined);
    }

    void folderThatCannotBeUsedLeavesItUndetermined_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("none found") << QString();
        QTest::newRow("missing") << u"missing"_s;
        QTest::newRow("a file") << u"file"_s;
    }
    void folderThatCannotBeUsedLeavesItUndetermined()
    {
        QFETCH(QString, name);
        _home->writeFile(u"file"_s, "");
        const QString unusable = name.isEmpty() ? QString() : _home->path(name);
        QCOMPARE(DBCSingleInstance(unusable).claim({}), Role::Undetermined);
    }

    void eachSessionHasACopyOfItsOwn_data()
    {
        QTest::addColumn<QByteArray>("variable");
        QTest::newRow("X11") << QByteArray("DISPLAY");
        QTest::newRow("Wayland") << QByteArray("WAYLAND_DISPLAY");
    }
    void eachSessionHasACopyOfItsOwn()
    {
        QFETCH(QByteArray, variable);
        qputenv(variable.constData(), "one");
        DBCSingleInstance inOne(folder());
        qputenv(variable.constData(), "two");
        DBCSingleInstance inTwo(folder());
        QCOMPARE(inOne.claim({}), Role::First);
        QCOMPARE(inTwo.claim({}), Role::First);
    }

    void firstWithoutRoomForASocketStillRuns()
    {
        const QString longFolder = _home->makeFolder(QString(120, u'x'));
        DBCSingleInstance first(longFolder);
        QCOMPARE(first.claim({}), Role::First);
    }

    void nobodyElseMayEnterTheSocket()
    {
        DBCSingleInstance first(folder());
        QCOMPARE(first.claim({}), Role::First);
        const QFileInfo socket(fileIn(_anySocket));
        QVERIFY(socket.exists());
        QVERIFY(!(socket.permissions() & othersRights));
    }

    void callerWhoSaysNothingDoesNoHarm()
    {
        DBCSingleInstance first(folder());
        QCOMPARE(first.claim({}), Role::First);
        const QSignalSpy raises(&first, &DBCSingleInstance::raiseRequested);
        QLocalSocket caller;
        caller.connectToServer(fileIn(_anySocket));
        QVERIFY(caller.waitForConnected());
        caller.write("half a wo");
        caller.flush();
        auto second = startedMeanwhile(folder());
        QTRY_COMPARE(raises.size(), 1);
        QCOMPARE(second.get(), Role::Second);
        caller.abort();
        QTest::qWait(50);
        QCOMPARE(raises.size(), 1);
    }

    void copiesMeetWhereOnlyTheUserMayEnter_data()
    {
        QTest::addColumn<bool>("isPrivate");
        QTest::newRow("a runtime folder of the user's") << true;
        QTest::newRow("a runtime folder that anybody may enter") << false;
    }
    void copiesMeetWhereOnlyTheUserMayEnter()
    {
        QFETCH(bool, isPrivate);
        const QString runtime = _home->makeFolder(u"runtime"_s);
        QVERIFY(
            QFile::setPermissions(runtime, isPrivate ? ownersRights : ownersRights | othersRights));
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
        const QByteArray formerTemp = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(_home->path()));
        const QFileInfo meeting(DBCSingleInstance::meetingFolder());
        qputenv("TMPDIR", formerTemp);
        qunsetenv("XDG_RUNTIME_DIR");
        QVERIFY(meeting.isDir());
        QCOMPARE(meeting.filePath() == runtime, isPrivate);
        QVERIFY(meeting.filePath().startsWith(_home->path()));
        QCOMPARE(meeting.ownerId(), ::geteuid());
        QVERIFY(!(meeting.permissions() & othersRights));
    }

private:
    QString folder() const { return _home->path(); }
    // Starts the real program without a screen. The program runs until the test ends it.
    std::unique_ptr<QProcess> startProgram() const
    {
        auto program = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_s, folder());
        program->setProcessEnvironment(environment);
        program->setProcessChannelMode(QProcess::ForwardedChannels);
        program->start(QStringLiteral(VELMORA_CONVERTER), {});
        return program;
    }

    QString fileIn(const QString& nameFilter) const
    {
        const QStringList names
            = QDir(folder()).entryList({nameFilter}, QDir::AllEntries | QDir::System);
        return names.size() == 1 ? _home->path(names.first()) : QString();
    }

    const QString _anySocket = u"com.*[!k]"_s; // matches no name that ends in ".lock"
    std::unique_ptr<TestHome> _home;
};

QTEST_GUILESS_MAIN(tst_singleInstance)
#include "tst_singleInstance.moc"
