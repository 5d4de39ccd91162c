// SPDX-License-Identifier: GPL-3.0-or-later
// Tests the copy of a file that shrinks while the program copies it. Every system call succeeds
// then, so the program must notice that it copied fewer bytes than the file had at first.
#include "operation/copy/DBCFileManager.h"
#include "tests/support/TestHome.h"

#include <QFile>
#include <QTest>

#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray pathToShrink; // no file shrinks if this is empty
constexpr off_t sizeAfterwards = 1000;

} // namespace

// Replaces the system's function in this program: shrinks the file and then makes the system call.
// When the program calls this function, it already knows the file's size but has not read the file.
extern "C" ssize_t copy_file_range(
    int from, off64_t* fromOffset, int to, off64_t* toOffset, size_t length, unsigned flags)
{
    if (!pathToShrink.isEmpty() && truncate(pathToShrink.constData(), sizeAfterwards) != 0)
        return -1;
    pathToShrink.clear();
    return syscall(SYS_copy_file_range, from, fromOffset, to, toOffset, length, flags);
}

class tst_copyOfAShrinkingFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copyWithFewerBytesThanTheFileHadFails_data()
    {
        QTest::addColumn<bool>("shrinks");
        QTest::newRow("the file keeps its size") << false;
        QTest::newRow("the file shrinks") << true;
    }
    void copyWithFewerBytesThanTheFileHadFails()
    {
        QFETCH(bool, shrinks);
        const TestHome home;
        const QString source = home.makeFolder(u"source"_s);
        const QString destination = home.makeFolder(u"destination"_s);
        const QString file = home.writeFile(u"source/file"_s, QByteArray(5000, 'x'));
        pathToShrink = shrinks ? QFile::encodeName(file) : QByteArray();
        DBCFileManager manager;

        const bool isCopied
            = manager.copyItemAtPath(source, destination, {}, 0, IsAsync::Yes, nullptr);

        QVERIFY(pathToShrink.isEmpty());
        QCOMPARE(isCopied, !shrinks);
        QCOMPARE(home.readFile(u"destination/source/file"_s).size(), shrinks ? 1000 : 5000);
    }
};

QTEST_GUILESS_MAIN(tst_copyOfAShrinkingFile)
#include "tst_copyOfAShrinkingFile.moc"
