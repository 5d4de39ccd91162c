// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that the thread of a conversion has ended completely when velmora-convert gets the result.
#include "cli/DBCCommands.h"
#include "operation/log/DBCLogObserver.h"
#include "tests/support/DataFileBuilder.h"
#include "tests/support/InterchangeFolder.h"
#include "tests/support/PackageFixture.h"
#include "tests/support/RecordingPresenter.h"
#include "tests/support/StandardInputKeeper.h"

#include <QtTest>

#include <atomic>

using namespace Qt::StringLiterals;

namespace {

using Key = DBCRecordKey;

std::atomic<int> destroyedObjects = 0;

// Plays an object that a thread destroys at its end and that takes long to destroy, such as the
// document of a PDF writer.
class ThreadLocalObject {
public:
    void use() { _isUsed = true; }
    ~ThreadLocalObject()
    {
        if (!_isUsed)
            return;
        QThread::msleep(300);
        ++destroyedObjects;
    }

private:
    bool _isUsed = false;
};

thread_local ThreadLocalObject objectOfThread;

class SilentReporter : public DBCReporter {
public:
    void event(const DBCEvent& /*event*/) override { }
    void message(std::optional<quint32> /*number*/, const QString& /*text*/) override { }
    void answered(const DBCQuestion& /*question*/, DBCAnswer /*answer*/) override { }
    void logged(DBCLogType /*type*/, const QString& /*text*/) override { }
    void problem(const DBCProblem& /*problem*/) override { }
    void backups(const std::vector<DBCBackup>& /*backups*/) override { }
    void verifying(qint64 /*finishedCount*/, qint64 /*maxCount*/) override { }
    void result(const DBCCommandResult& /*result*/) override { }
    void makeRoomForQuestion() override { }
};

} // namespace

class tst_operationThread : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The program ends after the result. If the thread were still destroying its objects then, they
    // could use global objects that the end of the program has already destroyed.
    void threadHasDestroyedItsObjectsWhenTheConversionIsReported()
    {
        const TestHome home;
        const StandardInputKeeper standardInput;
        RecordingPresenter presenter;
        presenter.answer = DBCAnswer::Default;
        const PackageFixture package(home);
        InterchangeFolder folder(home);
        folder.dataFile(DataFileBuilder()
                            .titleLine()
                            .row({{Key::full_Name, u"Hoshino Taro"_s},
                                {Key::face_Image_File, u"missing.jpg"_s}})
                            .build());
        const DBCLogObserver observer([](const DBCLogEntry&) { objectOfThread.use(); });
        SilentReporter reporter;

        const DBCCommandResult result = runConversion({.command = DBCCommand::Import,
                                                          .paths = {folder.path(), package.path()},
                                                          .saysYes = true},
            reporter);

        QCOMPARE(result.maxCount, 1);
        QVERIFY(result.warningCount + result.errorCount > 0); // logged on that thread
        QCOMPARE(destroyedObjects.load(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_operationThread)
#include "tst_operationThread.moc"
